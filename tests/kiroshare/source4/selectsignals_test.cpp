#include "selectsignals.h"

#include "dialogprobe.h"
#include "windows/messagerecorder.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace
{

const QStringList Names{QStringLiteral("no signal selected"), QStringLiteral("EYE_H"),
                        QStringLiteral("EYE_V")};

class SelectSignalsTest : public testing::Test
{
protected:
    void addFourRoles()
    {
        int current = 0;
        for (const char* text : {"right horizontal", "right vertical", "left horizontal", "left vertical"})
            m_dialog.addRole(QLatin1String(text), Names, current++ % 3);
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }
    /// Two roles of 14 names each, CHANNEL_0 to CHANNEL_13, with CHANNEL_2 and CHANNEL_5 selected.
    void addTwoLongRoles()
    {
        QStringList names;
        for (int i = 0; i < 14; ++i)
            names << QStringLiteral("CHANNEL_%1").arg(i);
        m_dialog.addRole(QStringLiteral("a"), names, 2);
        m_dialog.addRole(QStringLiteral("b"), names, 5);
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }
    QLineEdit* filter() { return widgetIn<QLineEdit>(m_dialog, "editFilter"); }
    std::string namesIn(int row)
    {
        QStringList names;
        for (int i = 0; i < combo(row)->count(); ++i)
            names << combo(row)->itemText(i);
        return names.join(QLatin1Char(' ')).toStdString();
    }
    QComboBox* combo(int row)
    {
        return m_dialog.findChild<QComboBox*>(QStringLiteral("comboRole%1").arg(row));
    }
    std::string selected()
    {
        QStringList rows;
        for (int row = 0; row < 4; ++row)
            rows << QString::number(m_dialog.selected(row));
        return rows.join(QLatin1Char(' ')).toStdString();
    }
    void press(QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(widgetIn<QDialogButtonBox>(m_dialog, "buttonBox")->button(button), Qt::LeftButton);
    }
    /// What stands in the grid from top to bottom: "text=names" for a role, "--" for a line.
    std::string rows()
    {
        const auto* grid = qobject_cast<QGridLayout*>(widgetIn<QGroupBox>(m_dialog, "groupRoles")->layout());
        QStringList texts;
        for (int row = 0; row < grid->rowCount(); ++row) {
            QLayoutItem* const first = grid->itemAtPosition(row, 0);
            if (!first)
                continue;
            if (const auto* label = qobject_cast<QLabel*>(first->widget())) {
                auto* const list = qobject_cast<QComboBox*>(grid->itemAtPosition(row, 1)->widget());
                EXPECT_EQ(label->buddy(), list);
                EXPECT_EQ(list->accessibleName(), label->text());
                texts << label->text() + QLatin1Char('=') + list->currentText();
            } else {
                const auto* line = qobject_cast<QFrame*>(first->widget());
                EXPECT_EQ(line->frameShape(), QFrame::HLine);
                EXPECT_EQ(line->frameShadow(), QFrame::Sunken);
                EXPECT_EQ(grid->itemAtPosition(row, 1), first);
                texts << QStringLiteral("--");
            }
        }
        return texts.join(QLatin1Char('\n')).toStdString();
    }

    SelectSignals m_dialog;
};

} // namespace

TEST_F(SelectSignalsTest, IsBuiltWithoutAWarning)
{
    const MessageRecorder messages;
    addFourRoles();
    EXPECT_EQ(MessageRecorder::texts().join(QLatin1Char('\n')).toStdString(), "");
}

TEST_F(SelectSignalsTest, ALineStandsBetweenRoles)
{
    addFourRoles();
    EXPECT_EQ(rows(), "right horizontal=no signal selected\n--\nright vertical=EYE_H\n--\n"
                      "left horizontal=EYE_V\n--\nleft vertical=no signal selected");
}

TEST_F(SelectSignalsTest, GivesTheChosenIndexOfEachRole)
{
    addFourRoles();
    EXPECT_EQ(selected(), "0 1 2 0");
    combo(3)->setFocus();
    QTest::keyClick(combo(3), Qt::Key_Down);
    combo(0)->setFocus();
    QTest::keyClick(combo(0), Qt::Key_End);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(selected(), "2 1 2 1");
}

TEST_F(SelectSignalsTest, CancelRejects)
{
    addFourRoles();
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_FALSE(m_dialog.isVisible());
}

TEST_F(SelectSignalsTest, RolesHaveListsOfTheirOwn)
{
    m_dialog.addRole(QStringLiteral("a"), Names, 2);
    m_dialog.addRole(QStringLiteral("b"), {QStringLiteral("only")}, 0);
    m_dialog.addRole(QStringLiteral("c"), {}, 0);
    EXPECT_EQ(combo(1)->count(), 1);
    EXPECT_EQ(m_dialog.selected(0), 2);
    EXPECT_EQ(m_dialog.selected(1), 0);
    EXPECT_EQ(m_dialog.selected(2), -1);
}

TEST_F(SelectSignalsTest, ThereIsNothingSelectedForARoleThatIsNotThere)
{
    EXPECT_EQ(m_dialog.selected(0), -1);
    m_dialog.addRole(QStringLiteral("a"), Names, 1);
    EXPECT_EQ(m_dialog.selected(-1), -1);
    EXPECT_EQ(m_dialog.selected(1), -1);
}

TEST_F(SelectSignalsTest, AnIndexBeyondTheNamesSelectsTheFirst)
{
    m_dialog.addRole(QStringLiteral("a"), Names, 3);
    m_dialog.addRole(QStringLiteral("b"), Names, -1);
    EXPECT_EQ(m_dialog.selected(0), 0);
    EXPECT_EQ(m_dialog.selected(1), 0);
}

TEST_F(SelectSignalsTest, TheInfoIsShownIfThereIsOne)
{
    addFourRoles();
    EXPECT_FALSE(widgetIn<QLabel>(m_dialog, "labelInfo")->isVisible());
    m_dialog.setInfoText(QStringLiteral("Please confirm or change the signals selection"));
    EXPECT_TRUE(widgetIn<QLabel>(m_dialog, "labelInfo")->isVisible());
    EXPECT_EQ(widgetIn<QLabel>(m_dialog, "labelInfo")->text(),
              QStringLiteral("Please confirm or change the signals selection"));
}

TEST_F(SelectSignalsTest, TabGoesFromTopToBottomToTheButtons)
{
    addFourRoles();
    EXPECT_EQ(m_dialog.focusWidget(), combo(0));
    EXPECT_EQ(tabOrderOf(m_dialog), "comboRole0 comboRole1 comboRole2 comboRole3 - -");
}

TEST_F(SelectSignalsTest, ALongNameDoesNotWidenTheDialog)
{
    m_dialog.addRole(QStringLiteral("a"), {QString(300, QLatin1Char('x'))}, 0);
    EXPECT_LT(m_dialog.sizeHint().width(), m_dialog.fontMetrics().averageCharWidth() * 70);
    EXPECT_EQ(combo(0)->toolTip(), QString(300, QLatin1Char('x')));
}

TEST_F(SelectSignalsTest, TheFilterIsThereFromThirteenNamesOn)
{
    QStringList names;
    for (int i = 0; i < 12; ++i)
        names << QString::number(i);
    m_dialog.addRole(QStringLiteral("a"), names, 0);
    m_dialog.show();
    EXPECT_FALSE(filter()->isVisible());
    m_dialog.addRole(QStringLiteral("b"), names << QStringLiteral("12"), 0);
    EXPECT_TRUE(filter()->isVisible());
    EXPECT_EQ(filter()->accessibleName(), QStringLiteral("Filter"));
}

TEST_F(SelectSignalsTest, TheFilterLeavesTheNamesWithAllWordsAndTheSelectedOnes)
{
    addTwoLongRoles();
    QTest::keyClicks(filter(), QStringLiteral("1 chan"));
    EXPECT_EQ(namesIn(0), "CHANNEL_1 CHANNEL_2 CHANNEL_10 CHANNEL_11 CHANNEL_12 CHANNEL_13");
    EXPECT_EQ(namesIn(1), "CHANNEL_1 CHANNEL_5 CHANNEL_10 CHANNEL_11 CHANNEL_12 CHANNEL_13");
    EXPECT_EQ(m_dialog.selected(0), 2);
    EXPECT_EQ(m_dialog.selected(1), 5);
    filter()->clear();
    EXPECT_EQ(combo(0)->count(), 14);
    EXPECT_EQ(m_dialog.selected(0), 2);
}

TEST_F(SelectSignalsTest, ANameChosenFromTheFilteredOnesIsToldByItsPlaceAmongAll)
{
    addTwoLongRoles();
    filter()->setText(QStringLiteral("_12"));
    combo(1)->setFocus();
    QTest::keyClick(combo(1), Qt::Key_End);
    EXPECT_EQ(combo(1)->currentText(), QStringLiteral("CHANNEL_12"));
    EXPECT_EQ(m_dialog.selected(1), 12);
    EXPECT_EQ(m_dialog.selected(0), 2);
    filter()->setText(QStringLiteral("nothing has this"));
    EXPECT_EQ(namesIn(1), "CHANNEL_12");
    EXPECT_EQ(m_dialog.selected(1), 12);
}

TEST_F(SelectSignalsTest, RolesAddedLaterAreFilteredToo)
{
    addTwoLongRoles();
    filter()->setText(QStringLiteral("_7"));
    m_dialog.addRole(QStringLiteral("c"), {QStringLiteral("X_6"), QStringLiteral("X_7")}, 1);
    EXPECT_EQ(namesIn(2), "X_7");
    EXPECT_EQ(m_dialog.selected(2), 1);
}

TEST_F(SelectSignalsTest, TabGoesThroughTheFilterFirst)
{
    addTwoLongRoles();
    EXPECT_EQ(tabOrderOf(m_dialog), "editFilter comboRole0 comboRole1 - -");
}

TEST_F(SelectSignalsTest, LongNamesAreToldApartByTheirEnds)
{
    const QString start(300, QLatin1Char('x'));
    m_dialog.addRole(QStringLiteral("a"), {start + QStringLiteral("_ONE"), start + QStringLiteral("_TWO")},
                     0);
    m_dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    const QImage one = combo(0)->grab().toImage();
    combo(0)->setCurrentIndex(1);
    EXPECT_NE(combo(0)->grab().toImage(), one);
    combo(0)->setCurrentIndex(0);
    EXPECT_EQ(combo(0)->grab().toImage(), one);
}
