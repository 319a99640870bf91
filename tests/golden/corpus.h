#pragma once

#include <QJsonObject>
#include <QString>

class Report;

/// One case of a corpus, with what is expected of it.
struct GoldenCase
{
    QString name;         ///< as INDEX.json gives it
    QString inputPath;    ///< the input file, which is never written to
    QJsonObject expected; ///< content of the expected file
};

/// Checks all units of one case.
using CaseCheck = void (*)(const GoldenCase& golden, Report& report);

/// How cases of one kind are checked; null for what is not served.
struct CaseKind
{
    const char* name;
    CaseCheck exact;   ///< everything listed must agree; also run for advisory cases
    CaseCheck survive; ///< any answer is right as long as it comes back
};

/// Runs all cases of the folder's INDEX.json that the tree can serve, and counts the others as skipped.
/// Whatever is missing or broken in the folder is reported as a failure.
void runFolder(const QString& folder, Report& report);
