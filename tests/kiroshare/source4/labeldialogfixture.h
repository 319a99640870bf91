#pragma once

#include "dialogprobe.h"
#include "labeltemplateprobe.h"
#include "windows/modalanswers.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

/// Chooses a row of a box as a user does, who then has it activated.
inline void chooseRow(QComboBox* box, int row)
{
    box->setCurrentIndex(row - 1);
    QTest::keyClick(box, Qt::Key_Down);
    ASSERT_EQ(box->currentIndex(), row);
}

/// The next colour dialog gets this colour and is accepted.
inline void answerColor(ModalAnswers& answers, const QColor& color)
{
    answers.answer([color](QWidget* window) {
        auto* const chooser = qobject_cast<QColorDialog*>(window);
        ASSERT_TRUE(chooser);
        chooser->setCurrentColor(color);
        chooser->accept();
    });
}

inline void press(QWidget& window, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(widgetIn<QDialogButtonBox>(window, "buttonBox")->button(button), Qt::LeftButton);
}

/// The letters that are marked as mnemonics in labels and buttons of a window.
inline QStringList mnemonicsOf(const QWidget& window)
{
    QStringList letters;
    const auto add = [&letters](const QString& text) {
        const int mark = text.indexOf(QLatin1Char('&'));
        if (mark >= 0)
            letters << text.mid(mark + 1, 1).toLower();
    };
    for (const auto* label : window.findChildren<QLabel*>()) {
        if (label->buddy())
            add(label->text());
    }
    for (const auto* button : window.findChildren<QAbstractButton*>())
        add(button->text());
    return letters;
}

/// Names of fields and buttons that say nothing to a screen reader.
inline std::string namelessFieldsOf(const QWidget& window)
{
    QStringList nameless;
    for (const auto* field : window.findChildren<QWidget*>()) {
        const bool isField = field->inherits("QLineEdit") || field->inherits("QPlainTextEdit") ||
                             field->inherits("QComboBox") || field->inherits("QAbstractButton");
        if (!isField)
            continue;
        const auto* const button = qobject_cast<const QAbstractButton*>(field);
        if (field->accessibleName().isEmpty() && (!button || button->text().isEmpty()))
            nameless << field->objectName();
    }
    return nameless.join(QLatin1Char(' ')).toStdString();
}
