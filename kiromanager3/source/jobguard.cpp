#include "jobguard.h"

#include "openevents.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QShortcut>
#include <QTimer>

namespace
{

/// Whether the event is the user's doing.
bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchEnd:
        return true;
    default:
        return false;
    }
}

} // namespace

JobGuard::JobGuard(QWidget* window)
    : m_window(window)
{
    if (m_window)
        QCoreApplication::instance()->installEventFilter(this);
}

JobGuard::~JobGuard()
{
    if (!m_window)
        return;
    QCoreApplication::instance()->removeEventFilter(this);
    if (m_closing) {
        QTimer::singleShot(0, m_window, &QWidget::close);
        return;
    }
    for (const QString& path : m_waitingFiles)
        QCoreApplication::postEvent(m_window, new OpenFileEvent(path));
}

/// Dialogs over the window are windows of their own.
bool JobGuard::isInWindow(const QObject* object) const
{
    const auto* const shortcut = qobject_cast<const QShortcut*>(object);
    const auto* const widget = shortcut ? shortcut->parentWidget() : qobject_cast<const QWidget*>(object);
    return widget && widget->window() == m_window;
}

bool JobGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window && event->type() == QEvent::Close) {
        m_closing = true;
        event->ignore();
        return true;
    }
    if (watched == m_window && event->type() == OpenFileEvent::Number) {
        m_waitingFiles << static_cast<OpenFileEvent*>(event)->path();
        return true;
    }
    return isInput(event->type()) && isInWindow(watched);
}
