#include "messages.h"

#include <QMessageBox>

namespace
{

QMessageBox::StandardButton show(QWidget* window, QMessageBox::Icon icon, const QString& title,
                                 const QString& text, QMessageBox::StandardButtons buttons,
                                 QMessageBox::StandardButton safe)
{
    QMessageBox box(icon, title, text, buttons, window);
    // A file name is no rich text, whatever it looks like.
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(safe);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

void showWarning(QWidget* window, const QString& text)
{
    showWarning(window, window->windowTitle(), text);
}

void showWarning(QWidget* window, const QString& title, const QString& text)
{
    show(window, QMessageBox::Warning, title, text, QMessageBox::Ok, QMessageBox::Ok);
}

void showInformation(QWidget* window, const QString& text)
{
    show(window, QMessageBox::Information, window->windowTitle(), text, QMessageBox::Ok, QMessageBox::Ok);
}

bool askWarning(QWidget* window, const QString& question)
{
    return show(window, QMessageBox::Warning, window->windowTitle(), question,
                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}
