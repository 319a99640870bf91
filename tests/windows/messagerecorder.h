#pragma once

#include <QStringList>

/// Collects what Qt and the program print while an object of this class lives. There is at most one.
class MessageRecorder
{
public:
    MessageRecorder()
    {
        texts().clear();
        m_handlerBefore =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
                // What the platform without a display says of every window.
                if (text != QStringLiteral("This plugin does not support propagateSizeHints()") &&
                    text != QStringLiteral("This plugin does not support raise()"))
                    texts().append(text);
            });
    }
    ~MessageRecorder() { qInstallMessageHandler(m_handlerBefore); }

    static QStringList& texts()
    {
        static QStringList list;
        return list;
    }

private:
    Q_DISABLE_COPY(MessageRecorder)
    QtMessageHandler m_handlerBefore;
};
