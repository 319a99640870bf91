#pragma once

#include "numericvalues.h"

#include <QJsonObject>
#include <QString>

#include <vector>

class Report;

/// A routine that cases of numeric routines call.
///
/// Routines are served in families, one pair of files each: FAMILYcases.h declares a function that returns
/// the table of the family, FAMILYcases.cpp holds it, and numericcases.cpp names the function in its list
/// of families. `run` gets the arguments with all arrays in place and returns what the tree answers, named
/// and nested as the member "expect" of the corpus is; the comparison is not its business. What it throws
/// is a difference.
struct NumericRoutine
{
    const char* name;
    const char* args; ///< names of all arguments that `run` heeds, separated by blanks
    Answer (*run)(const CallArgs& args);
};

using NumericFamily = std::vector<NumericRoutine>;

/// Checks each call of a case whose arrays and texts lie in `folder`; `content` is its case.json. A call
/// is one unit, "calls[0] ROUTINE" and so on. Calls of a routine that no family serves, or with an argument
/// that is unknown, are skipped.
void runNumericCase(const QString& folder, const QJsonObject& content, Report& report);
