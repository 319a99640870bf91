#include "messages.h"

#include <QMessageBox>

namespace
{

QMessageBox::StandardButton show(QWidget* window, QMessageBox::Icon icon, const QString& text,
                                 QMessageBox::StandardButtons buttons, QMessageBox::StandardButton safe)
{
    QMessageBox box(icon, window->windowTitle(), text, buttons, window);
    // A file name is no rich text, whatever it looks like.
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(safe);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

void showWarning(QWidget* window, const QString& text)
{
    show(window, QMessageBox::Warning, text, QMessageBox::Ok, QMessageBox::Ok);
}

void showInformation(QWidget* window, const QString& text)
{
    show(window, QMessageBox::Information, text, QMessageBox::Ok, QMessageBox::Ok);
}

bool askWarning(QWidget* window, const QString& question)
{
    return show(window, QMessageBox::Warning, question, QMessageBox::Yes | QMessageBox::No,
                QMessageBox::No) == QMessageBox::Yes;
}
