#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch repair`: puts the packet count of a recording's header right.
Outcome runRepair(const QStringList& arguments);
