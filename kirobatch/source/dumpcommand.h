#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch dump`: the samples of one signal, one value a line.
Outcome runDump(const QStringList& arguments);
