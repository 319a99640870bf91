#include "batchprocess.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace
{

constexpr int TimeoutMs = 60000;

/// A process that loses the right to read files against their permissions, if it has it.
class UnprivilegedProcess : public QProcess
{
protected:
    void setupChildProcess() override
    {
        // Fails for anybody but the superuser, who alone has the right.
        ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
        ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
    }
};

/// A process that writes into a pipe whose other end is closed.
class ClosedPipeProcess : public QProcess
{
protected:
    void setupChildProcess() override
    {
        int ends[2];
        if (::pipe(ends) == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            ::close(ends[0]);
            ::close(ends[1]);
        }
    }
};

BatchRun run(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    BatchRun result;
    if (!process.waitForFinished(TimeoutMs)) {
        ADD_FAILURE() << "does not end: " << process.errorString().toStdString();
        process.kill();
        process.waitForFinished(TimeoutMs);
    } else if (process.exitStatus() != QProcess::NormalExit) {
        ADD_FAILURE() << "crashed";
    } else {
        result.status = process.exitCode();
    }
    result.output = process.readAllStandardOutput().toStdString();
    result.errors = process.readAllStandardError().toStdString();
    return result;
}

QString programPath()
{
    return QString::fromLocal8Bit(KIROBATCH_PROGRAM);
}

BatchRun runShellIn(QProcess& process, const QString& script, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("KIROBATCH"), programPath());
    process.setProcessEnvironment(environment);
    return run(process, QStringLiteral("/bin/sh"),
               QStringList{QStringLiteral("-c"), script, QStringLiteral("sh")} + arguments);
}

} // namespace

BatchRun runBatch(const QStringList& arguments)
{
    QProcess process;
    return run(process, programPath(), arguments);
}

BatchRun runShell(const QString& script, const QStringList& arguments)
{
    QProcess process;
    return runShellIn(process, script, arguments);
}

BatchRun runShellIntoClosedPipe(const QString& script, const QStringList& arguments)
{
    ClosedPipeProcess process;
    return runShellIn(process, script, arguments);
}

BatchRun runBatchWithoutPrivilege(const QStringList& arguments)
{
    UnprivilegedProcess process;
    return run(process, programPath(), arguments);
}

KiroHeader batchHeader(const std::vector<KiroSignal>& table, std::uint32_t frameCount)
{
    KiroHeader header;
    header.setStoringProgram("Test recorder 1.0");
    header.setDay(2);
    header.setMonth(1);
    header.setYear(2012);
    header.setHour(10);
    header.setMinute(20);
    header.setSecond(30);
    header.setMillisecond(400);
    header.setFrameCount(frameCount);
    header.setSignalCount(static_cast<int>(table.size()));
    for (std::size_t i = 0; i < table.size(); ++i)
        header.setSignal(static_cast<int>(i), table[i]);
    return header;
}

QString writeRecording(const TestFolder& folder, const KiroHeader& header, const std::string& samples,
                       const QString& name)
{
    folder.write(name, header.toBytes() + samples);
    return folder.path(name);
}
