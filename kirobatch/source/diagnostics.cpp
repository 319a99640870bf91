#include "diagnostics.h"

#include "kiroutils.h"
#include "outcome.h"

#include <QString>
#include <QtGlobal>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace
{

// The presenter has shown the message that KiroError raises as fatal right after.
bool fatalErrorShown = false;

void showFatalError(const char* message)
{
    printMessage(message);
    fatalErrorShown = true;
}

void handleQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtFatalMsg || !fatalErrorShown)
        printMessage(text.toLocal8Bit().toStdString());
    // Without destructors: the fault may lie in what they would touch.
    if (type == QtFatalMsg)
        std::_Exit(Outcome::Failed);
}

} // namespace

void printMessage(const std::string& message)
{
    const std::string line = "kirobatch: " + message + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void installDiagnostics()
{
    KiroError::setPresenter(showFatalError);
    qInstallMessageHandler(handleQtMessage);
}

void guardStandardStreams()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // open() takes the lowest free number, which is the closed stream's. Reading from standard
        // input and writing to the others then fail.
        if (::fcntl(stream, F_GETFD) == -1 &&
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream)
            std::_Exit(Outcome::Failed);
    }
}
