#include "dialogprogress.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>

namespace
{

/// Time from one drawing of the bar to the next, at least: as screens show pictures.
constexpr qint64 PictureMs = 16;

} // namespace

DialogProgress::DialogProgress(QWidget* parent, const QString& label, int quietMs)
    : m_guard(parent ? parent->window() : nullptr)
    , m_dialog(QString(), QCoreApplication::translate("DialogProgress", "Cancel"), 0, 100, parent)
    , m_bar(m_dialog.findChild<QProgressBar*>())
{
    // A file name is no rich text, whatever it looks like.
    auto* const text = new QLabel(label);
    text->setTextFormat(Qt::PlainText);
    text->setAlignment(Qt::AlignCenter);
    m_dialog.setLabel(text);
    m_dialog.setWindowModality(Qt::WindowModal);
    m_dialog.setWindowTitle(parent ? parent->windowTitle() : QString());
    m_dialog.setMinimumDuration(quietMs);
    m_dialog.setAutoClose(false);
    m_dialog.setAutoReset(false);
}

void DialogProgress::setRange(int minimum, int maximum)
{
    m_dialog.setRange(minimum, maximum);
    setValue(minimum);
}

/// The bar draws itself at each value, which may cost more than the step of work that it shows. It keeps its
/// picture until it is due, but for the first one.
void DialogProgress::holdBar()
{
    if (!m_bar->isVisible()) {
        m_bar->setUpdatesEnabled(true);
        return;
    }
    const bool isDue = !m_sinceDrawn.isValid() || m_sinceDrawn.hasExpired(PictureMs);
    m_bar->setUpdatesEnabled(isDue);
    if (isDue)
        m_sinceDrawn.start();
}

void DialogProgress::setValue(int value)
{
    holdBar();
    m_dialog.setValue(value);
}

void DialogProgress::setText(const QString& text)
{
    m_dialog.setLabelText(text);
}

bool DialogProgress::cancelled()
{
    holdBar();
    QCoreApplication::processEvents();
    return m_guard.isClosing() || m_dialog.wasCanceled();
}
