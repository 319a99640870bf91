#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch check`: what is wrong or odd about a recording, one finding a line.
Outcome runCheck(const QStringList& arguments);
