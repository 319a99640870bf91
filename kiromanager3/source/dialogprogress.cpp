#include "dialogprogress.h"

#include <QCoreApplication>

DialogProgress::DialogProgress(QWidget* parent, const QString& label)
    : m_dialog(label, QCoreApplication::translate("DialogProgress", "Cancel"), 0, 100, parent)
{
    constexpr int QuietMs = 300;
    m_dialog.setWindowModality(Qt::WindowModal);
    m_dialog.setWindowTitle(parent ? parent->windowTitle() : QString());
    m_dialog.setMinimumDuration(QuietMs);
    m_dialog.setAutoClose(false);
    m_dialog.setAutoReset(false);
}

void DialogProgress::setRange(int minimum, int maximum)
{
    m_dialog.setRange(minimum, maximum);
    m_dialog.setValue(minimum);
}

void DialogProgress::setValue(int value)
{
    m_dialog.setValue(value);
}

void DialogProgress::setText(const QString& text)
{
    m_dialog.setLabelText(text);
}

bool DialogProgress::cancelled()
{
    QCoreApplication::processEvents();
    return m_dialog.wasCanceled();
}
