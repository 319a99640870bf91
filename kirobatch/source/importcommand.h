#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch import`: a BDF or EDF file written as a recording.
Outcome runImport(const QStringList& arguments);
