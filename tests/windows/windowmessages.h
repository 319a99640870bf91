#pragma once

#include "messagerecorder.h"

#include <QApplication>

#include <string>

/// What a `Window` prints while it is built and shown, a message a line.
template <class Window>
std::string messagesOfBuilding()
{
    const MessageRecorder recorder;
    Window window;
    window.show();
    QApplication::processEvents();
    return MessageRecorder::texts().join(QLatin1Char('\n')).toStdString();
}
