#pragma once

#include "selectsignal.h"

#include "dialogprobe.h"
#include "windows/modalanswers.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include <gtest/gtest.h>

/// A dialog with items, driven by mouse and keys.
class SelectSignalTest : public testing::Test
{
protected:
    void show()
    {
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    QTreeWidget* list() { return widgetIn<QTreeWidget>(m_dialog, "list"); }
    QLineEdit* filter() { return widgetIn<QLineEdit>(m_dialog, "editFilter"); }

    /// Four items of a text and a number.
    void addTwoColumns()
    {
        m_dialog.setColumns({QStringLiteral("Name"), QStringLiteral("Hz")}, {true, false});
        for (const char* text : {"b\t10", "a\t9", "c\t-1", "B\t9"})
            m_dialog.addItem(QLatin1String(text));
    }
    /// "Signal 0", "Signal 1" and so on.
    void addNumbered(int count)
    {
        for (int i = 0; i < count; ++i)
            m_dialog.addItem(QStringLiteral("Signal %1").arg(i));
    }

    void clickRow(int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, modifiers, middleOf(row));
    }
    /// A click, and the second one as the system reports it.
    void doubleClickRow(int row)
    {
        clickRow(row);
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, middleOf(row));
    }
    void clickTitle(int column)
    {
        QHeaderView* const header = list()->header();
        const QPoint at(header->sectionViewportPosition(column) + 12, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    }

    std::string titles()
    {
        QStringList texts;
        for (int column = 0; column < list()->columnCount(); ++column)
            texts << list()->headerItem()->text(column);
        return texts.join(QLatin1Char('|')).toStdString();
    }
    /// The rows that are shown, from top to bottom.
    std::string rows()
    {
        QStringList lines;
        for (int row = 0; row < list()->topLevelItemCount(); ++row) {
            const QTreeWidgetItem* const item = list()->topLevelItem(row);
            if (item->isHidden())
                continue;
            QStringList cells;
            for (int column = 0; column < list()->columnCount(); ++column)
                cells << item->text(column);
            lines << cells.join(QLatin1Char('|'));
        }
        return lines.join(QLatin1Char('\n')).toStdString();
    }
    std::string selectionText() { return widgetIn<QLabel>(m_dialog, "labelSelected")->text().toStdString(); }
    bool okEnabled() { return widgetIn<QWidget>(m_dialog, "buttonOk")->isEnabled(); }

    ModalAnswers m_answers;
    SelectSignal m_dialog;

private:
    QPoint middleOf(int row)
    {
        list()->scrollToItem(list()->topLevelItem(row));
        return list()->visualItemRect(list()->topLevelItem(row)).center();
    }
};
