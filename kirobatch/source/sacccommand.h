#pragma once

#include "outcome.h"

class QStringList;

/// `kirobatch sacc`: what a saccade file holds.
Outcome runSacc(const QStringList& arguments);
