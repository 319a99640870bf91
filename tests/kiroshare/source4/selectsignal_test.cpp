#include "selectsignal.h"

#include "dialogprobe.h"
#include "selectsignalfixture.h"
#include "support/fatalrecorder.h"
#include "windows/windowmessages.h"

#include <QHeaderView>
#include <QPushButton>

#include <gtest/gtest.h>

TEST_F(SelectSignalTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<SelectSignal>(), "");
}

TEST_F(SelectSignalTest, Texts)
{
    EXPECT_EQ(plainText(widgetIn<QPushButton>(m_dialog, "buttonSelectAll")->text()), "Select all");
    EXPECT_EQ(plainText(widgetIn<QPushButton>(m_dialog, "buttonClearSelection")->text()), "Clear selection");
    EXPECT_EQ(plainText(widgetIn<QPushButton>(m_dialog, "buttonOk")->text()), "Select");
    EXPECT_EQ(plainText(widgetIn<QPushButton>(m_dialog, "buttonCancel")->text()), "Cancel");
    EXPECT_EQ(plainText(widgetIn<QLabel>(m_dialog, "labelDataFile")->text()), "Data file");
}

TEST_F(SelectSignalTest, StartValues)
{
    EXPECT_EQ(m_dialog.minimumSelection(), 1);
    EXPECT_EQ(m_dialog.selectedIndex(), 0);
    EXPECT_EQ(m_dialog.separator(), QStringLiteral("\t"));
    EXPECT_EQ(m_dialog.columnIsText(), QList<bool>());
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>());
}

TEST_F(SelectSignalTest, TheFileIsShownWhileItsNameIsNotEmpty)
{
    show();
    EXPECT_FALSE(widgetIn<QLabel>(m_dialog, "labelFile")->isVisible());
    EXPECT_FALSE(widgetIn<QLabel>(m_dialog, "labelDataFile")->isVisible());
    m_dialog.setDataFile(QStringLiteral("/data/a.kiro"));
    EXPECT_TRUE(widgetIn<QLabel>(m_dialog, "labelFile")->isVisible());
    EXPECT_TRUE(widgetIn<QLabel>(m_dialog, "labelDataFile")->isVisible());
    EXPECT_EQ(widgetIn<QLabel>(m_dialog, "labelFile")->text(), QStringLiteral("/data/a.kiro"));
    m_dialog.setDataFile(QString());
    EXPECT_FALSE(widgetIn<QLabel>(m_dialog, "labelFile")->isVisible());
    EXPECT_FALSE(widgetIn<QLabel>(m_dialog, "labelDataFile")->isVisible());
}

TEST_F(SelectSignalTest, TheInfoIsPlainText)
{
    m_dialog.setInfoText(QStringLiteral("<b>Choose</b>"));
    show();
    EXPECT_TRUE(widgetIn<QLabel>(m_dialog, "labelInfo")->isVisible());
    EXPECT_EQ(widgetIn<QLabel>(m_dialog, "labelInfo")->text(), QStringLiteral("<b>Choose</b>"));
    EXPECT_EQ(widgetIn<QLabel>(m_dialog, "labelInfo")->textFormat(), Qt::PlainText);
}

TEST_F(SelectSignalTest, WithoutColumnsTheHeaderIsItem)
{
    m_dialog.addItem(QStringLiteral("a\tb"));
    EXPECT_EQ(titles(), "Item");
    EXPECT_EQ(rows(), "a\tb");
}

TEST_F(SelectSignalTest, NoTitlesMeanOneColumn)
{
    m_dialog.setColumns({QStringLiteral("a"), QStringLiteral("b")}, {true, true});
    EXPECT_EQ(list()->columnCount(), 2);
    m_dialog.setColumns({}, {});
    EXPECT_EQ(list()->columnCount(), 1);
    m_dialog.addItem(QStringLiteral("x\ty"));
    EXPECT_EQ(titles(), "Item");
    EXPECT_EQ(rows(), "x\ty");
}

TEST_F(SelectSignalTest, OneColumnTakesTheWholeText)
{
    m_dialog.setColumns({QStringLiteral("Signal name")}, {true});
    m_dialog.addItem(QStringLiteral("EYE\tH"));
    m_dialog.addItem(QString());
    EXPECT_EQ(titles(), "Signal name");
    EXPECT_EQ(rows(), "EYE\tH\n");
}

TEST_F(SelectSignalTest, SeveralColumnsSplitTheText)
{
    m_dialog.setColumns({QStringLiteral("No"), QStringLiteral("Name"), QStringLiteral("Unit")},
                        {false, true, true});
    m_dialog.addItem(QStringLiteral("1\tEYE_H\tdeg"));
    m_dialog.addItem(QStringLiteral("2\t\t"));
    EXPECT_EQ(m_dialog.columnIsText(), QList<bool>({false, true, true}));
    EXPECT_EQ(titles(), "No|Name|Unit");
    EXPECT_EQ(rows(), "1|EYE_H|deg\n2||");
}

TEST_F(SelectSignalTest, TheSeparatorCanBeAnyText)
{
    m_dialog.setColumns({QStringLiteral("a"), QStringLiteral("b")}, {true, true});
    m_dialog.setSeparator(QStringLiteral(" - "));
    m_dialog.addItem(QStringLiteral("x - y"));
    m_dialog.addItem(QStringLiteral("x\ty"));
    EXPECT_EQ(rows(), "x|y");
}

TEST_F(SelectSignalTest, AnItemOfAnotherPartCountDoesNotAppear)
{
    m_dialog.setColumns({QStringLiteral("a"), QStringLiteral("b")}, {true, true});
    for (const char* text : {"0\tzero", "too few", "2\ttwo", "3\tthree\ttoo many", "", "5\tfive"})
        m_dialog.addItem(QLatin1String(text));
    EXPECT_EQ(rows(), "0|zero\n2|two\n5|five");
    show();
    clickRow(2);
    EXPECT_EQ(m_dialog.selectedSignal(), 5);
}

TEST_F(SelectSignalTest, ItemsCarryIndexAndSortKeys)
{
    EXPECT_EQ(SelectSignalItem::IndexRole, 257);
    EXPECT_EQ(SelectSignalItem::SortKeyRole, 258);
    m_dialog.setColumns({QStringLiteral("Name"), QStringLiteral("Hz"), QStringLiteral("Note")},
                        {true, false});
    m_dialog.addItem(QStringLiteral("a\t1.5\t7"));
    m_dialog.addItem(QStringLiteral("b\t-2e3\t8"));
    m_dialog.addItem(QStringLiteral("c\tnone\t9"));
    const QTreeWidgetItem* const second = list()->topLevelItem(1);
    EXPECT_EQ(second->data(0, 257), QVariant(1));
    EXPECT_EQ(second->data(1, 257), QVariant());
    EXPECT_EQ(second->data(0, 258), QVariant(QStringLiteral("b")));
    EXPECT_EQ(second->data(1, 258), QVariant(-2000.0));
    EXPECT_EQ(second->data(2, 258), QVariant(QStringLiteral("8")));
    EXPECT_EQ(list()->topLevelItem(2)->data(1, 258), QVariant(0.0));
}

TEST_F(SelectSignalTest, NumbersMayBeWrittenAsTheUserWritesThem)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Polish, QLocale::Poland));
    m_dialog.setColumns({QStringLiteral("Hz")}, {false});
    m_dialog.addItem(QStringLiteral("0,25"));
    m_dialog.addItem(QStringLiteral("0.25"));
    QLocale::setDefault(before);
    EXPECT_EQ(list()->topLevelItem(0)->data(0, 258), QVariant(0.25));
    EXPECT_EQ(list()->topLevelItem(1)->data(0, 258), QVariant(0.25));
}

TEST_F(SelectSignalTest, ItemsStandAsAddedUntilATitleIsClicked)
{
    addTwoColumns();
    EXPECT_EQ(rows(), "b|10\na|9\nc|-1\nB|9");
    show();
    clickTitle(1);
    EXPECT_EQ(rows(), "c|-1\na|9\nB|9\nb|10");
    clickTitle(1);
    EXPECT_EQ(rows(), "b|10\na|9\nB|9\nc|-1");
    clickTitle(0);
    EXPECT_EQ(rows(), "B|9\na|9\nb|10\nc|-1");
}

TEST_F(SelectSignalTest, TextColumnsSortDigitsAsText)
{
    m_dialog.setColumns({QStringLiteral("a"), QStringLiteral("b")}, {true});
    for (const char* text : {"10\t10", "9\t9", "1\t1"})
        m_dialog.addItem(QLatin1String(text));
    list()->sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(rows(), "1|1\n10|10\n9|9");
    list()->sortByColumn(1, Qt::DescendingOrder);
    EXPECT_EQ(rows(), "9|9\n10|10\n1|1");
}

TEST_F(SelectSignalTest, NaNComesFirst)
{
    m_dialog.setColumns({QStringLiteral("a")}, {false});
    for (const char* text : {"3", "nan", "-inf", "1", "nan", "inf", "2"})
        m_dialog.addItem(QLatin1String(text));
    list()->sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(rows(), "nan\nnan\n-inf\n1\n2\n3\ninf");
}

TEST_F(SelectSignalTest, SelectedSignalsFollowTheOrderOfTheList)
{
    m_dialog.setSelectionMode(2);
    addTwoColumns();
    show();
    clickRow(3);
    clickRow(0);
    clickRow(2);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({0, 2, 3}));
    clickTitle(1);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({2, 3, 0}));
    EXPECT_EQ(m_dialog.selectedSignal(), 2);
}

TEST_F(SelectSignalTest, SelectedSignalWithoutOneIsFatal)
{
    addTwoColumns();
    EXPECT_EQ(fatalErrorOf([this] { m_dialog.selectedSignal(); }),
              "SelectSignal::selectedSignal() - no signal selected!");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>());
}

TEST_F(SelectSignalTest, SingleSelectionHasNoCurrentItemAfterAdding)
{
    addTwoColumns();
    EXPECT_EQ(list()->currentItem(), nullptr);
    list()->setCurrentItem(list()->topLevelItem(0));
    m_dialog.addItem(QStringLiteral("d\t4"));
    EXPECT_EQ(list()->currentItem(), nullptr);
}

TEST_F(SelectSignalTest, SingleSelectionHoldsOneItemAndHidesTheButtonsForAll)
{
    m_dialog.setSelectionMode(1);
    addTwoColumns();
    show();
    EXPECT_FALSE(widgetIn<QWidget>(m_dialog, "buttonSelectAll")->isVisible());
    EXPECT_FALSE(widgetIn<QWidget>(m_dialog, "buttonClearSelection")->isVisible());
    clickRow(1);
    clickRow(2);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({2}));
    QTest::keyClick(list(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({2}));
    QTest::keyClick(list(), Qt::Key_Up);
    EXPECT_EQ(m_dialog.selectedSignal(), 1);
}

TEST_F(SelectSignalTest, SingleSelectionAcceptsByADoubleClick)
{
    addTwoColumns();
    show();
    doubleClickRow(2);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_FALSE(m_dialog.isVisible());
    EXPECT_EQ(m_dialog.selectedSignal(), 2);
    EXPECT_EQ(m_dialog.selectedIndex(), 2);
}

TEST_F(SelectSignalTest, SingleSelectionSetTwiceAcceptsOnce)
{
    m_dialog.setSelectionMode(1);
    m_dialog.setSelectionMode(1);
    m_dialog.setMinimumSelection(2);
    addTwoColumns();
    show();
    m_answers.press(QMessageBox::Ok);
    doubleClickRow(1);
    EXPECT_EQ(m_answers.seen().size(), 1);
}

TEST_F(SelectSignalTest, SeveralSelectionIgnoresDoubleClicksAndShowsTheButtonsForAll)
{
    for (const int mode : {2, 3, 0, -1}) {
        m_dialog.setSelectionMode(1);
        m_dialog.setSelectionMode(mode);
        addTwoColumns();
        show();
        EXPECT_TRUE(widgetIn<QWidget>(m_dialog, "buttonSelectAll")->isVisible()) << mode;
        EXPECT_TRUE(widgetIn<QWidget>(m_dialog, "buttonClearSelection")->isVisible()) << mode;
        doubleClickRow(2);
        EXPECT_TRUE(m_dialog.isVisible()) << mode;
    }
}

TEST_F(SelectSignalTest, ClicksTurnItemsOnAndOff)
{
    m_dialog.setSelectionMode(2);
    addTwoColumns();
    show();
    clickRow(0);
    clickRow(2);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({0, 2}));
    clickRow(0);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({2}));
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({0, 2}));
}

TEST_F(SelectSignalTest, ShiftTurnsOnARange)
{
    m_dialog.setSelectionMode(2);
    addNumbered(8);
    show();
    clickRow(7);
    clickRow(2);
    clickRow(5, Qt::ShiftModifier);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({2, 3, 4, 5, 7}));
}

TEST_F(SelectSignalTest, TheButtonsSelectAllAndNothing)
{
    m_dialog.setSelectionMode(2);
    addTwoColumns();
    show();
    clickOn(m_dialog, "buttonSelectAll");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({0, 1, 2, 3}));
    EXPECT_EQ(selectionText(), "4 selected");
    clickOn(m_dialog, "buttonClearSelection");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>());
    EXPECT_EQ(selectionText(), "0 selected");
}

TEST_F(SelectSignalTest, ChangingTheModeToSingleClearsTheSelection)
{
    m_dialog.setSelectionMode(2);
    addTwoColumns();
    show();
    clickOn(m_dialog, "buttonSelectAll");
    m_dialog.setSelectionMode(1);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>());
    EXPECT_EQ(selectionText(), "");
}

TEST_F(SelectSignalTest, OkIsEnabledFromTheMinimumOn)
{
    m_dialog.setSelectionMode(2);
    m_dialog.setMinimumSelection(2);
    addTwoColumns();
    show();
    EXPECT_FALSE(okEnabled());
    clickRow(0);
    EXPECT_FALSE(okEnabled());
    clickRow(1);
    EXPECT_TRUE(okEnabled());
    clickRow(2);
    EXPECT_TRUE(okEnabled());
    m_dialog.setMinimumSelection(4);
    EXPECT_FALSE(okEnabled());
    m_dialog.setMinimumSelection(0);
    clickOn(m_dialog, "buttonClearSelection");
    EXPECT_TRUE(okEnabled());
}

TEST_F(SelectSignalTest, FewerThanTheMinimumAreNotAccepted)
{
    m_dialog.setWindowTitle(QStringLiteral("Choose two"));
    m_dialog.setMinimumSelection(2);
    addTwoColumns();
    show();
    m_answers.press(QMessageBox::Ok);
    doubleClickRow(1);
    EXPECT_EQ(m_answers.seen().join(QLatin1Char('\n')).toStdString(),
              "Choose two|At least 2 items must be selected!");
    EXPECT_TRUE(m_dialog.isVisible());
    EXPECT_EQ(m_dialog.selectedIndex(), 0);
}

TEST_F(SelectSignalTest, WithAMinimumOfZeroAcceptingNothingIsACancel)
{
    m_dialog.setSelectionMode(2);
    m_dialog.setMinimumSelection(0);
    addTwoColumns();
    show();
    m_dialog.setResult(QDialog::Accepted);
    clickOn(m_dialog, "buttonOk");
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_FALSE(m_dialog.isVisible());
    show();
    clickRow(3);
    clickOn(m_dialog, "buttonOk");
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3}));
}

TEST_F(SelectSignalTest, EnterAcceptsAndEscapeCancels)
{
    addTwoColumns();
    show();
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_TRUE(m_dialog.isVisible());
    clickRow(1);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    show();
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    show();
    clickOn(m_dialog, "buttonCancel");
    EXPECT_FALSE(m_dialog.isVisible());
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
}

TEST_F(SelectSignalTest, TabGoesFromTopToBottom)
{
    m_dialog.setSelectionMode(2);
    addNumbered(20);
    show();
    clickOn(m_dialog, "buttonSelectAll");
    filter()->setFocus();
    EXPECT_EQ(tabOrderOf(m_dialog),
              "editFilter list buttonSelectAll buttonClearSelection buttonOk buttonCancel");
}

TEST_F(SelectSignalTest, EveryColumnIsInSightBesideALongName)
{
    m_dialog.setColumns({QStringLiteral("No"), QStringLiteral("Name"), QStringLiteral("Unit")},
                        {false, true, true});
    m_dialog.addItem(QStringLiteral("1\t%1\t%1").arg(QString(300, QLatin1Char('x'))));
    show();
    EXPECT_EQ(list()->header()->length(), list()->viewport()->width());
    const int widths[] = {list()->columnWidth(0), list()->columnWidth(1), list()->columnWidth(2)};
    m_dialog.resize(m_dialog.width() + 100, m_dialog.height());
    EXPECT_EQ(list()->columnWidth(0), widths[0]);
    EXPECT_EQ(list()->columnWidth(1), widths[1] + 100);
    EXPECT_EQ(list()->columnWidth(2), widths[2]);
}

TEST_F(SelectSignalTest, TheTableWishesForSixToTwentyRows)
{
    addNumbered(1);
    const int row = list()->visualItemRect(list()->topLevelItem(0)).height();
    const int six = list()->sizeHint().height();
    addNumbered(5);
    EXPECT_EQ(list()->sizeHint().height(), six);
    addNumbered(4);
    EXPECT_EQ(list()->sizeHint().height(), six + 4 * row);
    addNumbered(130);
    EXPECT_EQ(list()->sizeHint().height(), six + 14 * row);
}

TEST_F(SelectSignalTest, ALongNameDoesNotWidenTheDialog)
{
    m_dialog.addItem(QString(300, QLatin1Char('x')));
    m_dialog.setDataFile(QLatin1Char('/') + QString(300, QLatin1Char('y')));
    EXPECT_LT(m_dialog.sizeHint().width(), m_dialog.fontMetrics().averageCharWidth() * 100);
}
