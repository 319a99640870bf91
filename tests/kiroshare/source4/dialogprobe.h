#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QStringList>
#include <QTest>
#include <QWidget>

#include <stdexcept>
#include <string>

/// The widget `name` of a window.
template <class Widget>
Widget* widgetIn(QWidget& window, const char* name)
{
    auto* const found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        throw std::runtime_error(std::string("no widget ") + name);
    return found;
}

inline void clickOn(QWidget& window, const char* button)
{
    QTest::mouseClick(widgetIn<QAbstractButton>(window, button), Qt::LeftButton);
}

/// Names of the widgets that Tab reaches from the focused one on, in order, once around; "-" has no name.
inline std::string tabOrderOf(QWidget& window)
{
    QStringList names;
    const QWidget* const first = window.focusWidget();
    const QWidget* at = first;
    while (at && names.size() < 50) {
        names << (at->objectName().isEmpty() ? QStringLiteral("-") : at->objectName());
        QTest::keyClick(&window, Qt::Key_Tab);
        at = window.focusWidget();
        if (at == first)
            break;
    }
    return names.join(QLatin1Char(' ')).toStdString();
}

/// The texts of widgets that may bear a mnemonic, without its mark.
inline std::string plainText(const QString& text)
{
    return QString(text).remove(QLatin1Char('&')).toStdString();
}
