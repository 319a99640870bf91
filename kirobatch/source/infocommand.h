#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch info`: header, technical parameters, duration and integrity of a recording.
Outcome runInfo(const QStringList& arguments);
