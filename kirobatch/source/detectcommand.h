#pragma once

#include "outcome.h"

#include <QStringList>

/// "detect": finds the saccades and blinks of a recording and writes them as a saccade file.
Outcome runDetect(const QStringList& arguments);
