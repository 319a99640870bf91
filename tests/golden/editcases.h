#pragma once

#include "numericcases.h"

/// Saccades added and removed by hand. The calls of a case follow one another on one list that starts empty;
/// the samples are the member "slots" of the case.
const NumericFamily& editRoutines();
