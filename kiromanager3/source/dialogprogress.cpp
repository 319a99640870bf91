#include "dialogprogress.h"

#include <QCoreApplication>
#include <QLabel>

DialogProgress::DialogProgress(QWidget* parent, const QString& label, int quietMs)
    : m_guard(parent ? parent->window() : nullptr)
    , m_dialog(QString(), QCoreApplication::translate("DialogProgress", "Cancel"), 0, 100, parent)
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
    return m_guard.isClosing() || m_dialog.wasCanceled();
}
