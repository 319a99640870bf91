#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

/// Ends the event loop once the first widget has been painted. The application object must be there.
class QuitWhenPainted final : public QObject
{
public:
    QuitWhenPainted() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] { QCoreApplication::quit(); });
        return QObject::eventFilter(watched, event);
    }
};
