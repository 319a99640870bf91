#pragma once

#include "recordingbuilder.h"

#include <QString>
#include <QStringList>

#include <string>

/// What one run of the program left behind.
struct BatchRun
{
    int status = -1; ///< exit status; -1 after a crash or a hang, which also fail the test
    std::string output;
    std::string errors;
};

/// Runs kirobatch to its end, with nothing on standard input.
BatchRun runBatch(const QStringList& arguments);
/// Runs a shell script, in which "$KIROBATCH" is the program and "$1" on are `arguments`.
BatchRun runShell(const QString& script, const QStringList& arguments = {});
/// As runShell(), with standard output in a pipe that nobody reads any more.
BatchRun runShellIntoClosedPipe(const QString& script, const QStringList& arguments);
/// As runBatch(), without the superuser's right to read every file.
BatchRun runBatchWithoutPrivilege(const QStringList& arguments);

/// A header of version 12 with these signals and fixed texts and times: 2 January 2012, 10:20:30.400.
KiroHeader batchHeader(const std::vector<KiroSignal>& table, std::uint32_t frameCount);
/// Writes header and sample bytes as a recording and returns its path.
QString writeRecording(const TestFolder& folder, const KiroHeader& header, const std::string& samples,
                       const QString& name = QStringLiteral("recording.kiro"));
