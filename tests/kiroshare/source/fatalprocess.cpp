#include "kiroutils.h"

#include <cstdio>
#include <cstdlib>

#include <QMessageLogContext>
#include <QString>

/// Ends in a fatal error and prints what reaches the presenter and the message handler.
int main()
{
    KiroError::setPresenter([](const char* message) { std::printf("presented: %s\n", message); });
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        std::printf("type %d file %s text %s\n", int(type), context.file, qPrintable(text));
        std::fflush(stdout);
        std::_Exit(7);
    });
    KiroError::fatalError("100 % wrong");
}
