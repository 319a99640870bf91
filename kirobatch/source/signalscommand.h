#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch signals`: the table of a recording's signals.
Outcome runSignals(const QStringList& arguments);
