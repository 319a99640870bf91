#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch demo`: writes a recording for trying the program out.
Outcome runDemo(const QStringList& arguments);
