#include "selectsignalfixture.h"

#include <QHelpEvent>
#include <QToolTip>

namespace
{

/// Twenty signals of which several are to be selected.
class SelectSignalFilterTest : public SelectSignalTest
{
protected:
    void SetUp() override
    {
        m_dialog.setSelectionMode(2);
        addNumbered(20);
        show();
    }
    void filterBy(const char* words)
    {
        filter()->setFocus();
        QTest::keyClick(filter(), Qt::Key_A, Qt::ControlModifier);
        if (*words == '\0')
            QTest::keyClick(filter(), Qt::Key_Delete);
        QTest::keyClicks(filter(), QLatin1String(words));
    }
};

} // namespace

TEST_F(SelectSignalTest, TheFilterIsThereFromThirteenItemsOn)
{
    EXPECT_EQ(SelectSignal::FilterFrom, 12);
    show();
    addNumbered(12);
    EXPECT_FALSE(filter()->isVisible());
    EXPECT_FALSE(widgetIn<QWidget>(m_dialog, "labelFilter")->isVisible());
    m_dialog.addItem(QStringLiteral("one more"));
    EXPECT_TRUE(filter()->isVisible());
    EXPECT_TRUE(widgetIn<QWidget>(m_dialog, "labelFilter")->isVisible());
    EXPECT_EQ(widgetIn<QLabel>(m_dialog, "labelFilter")->buddy(), filter());
    EXPECT_TRUE(filter()->isClearButtonEnabled());
    EXPECT_NE(filter()->placeholderText(), QString());
}

TEST_F(SelectSignalFilterTest, ShowsTheItemsThatHaveAllWords)
{
    filterBy("1");
    EXPECT_EQ(rows(),
              "Signal 1\nSignal 10\nSignal 11\nSignal 12\nSignal 13\nSignal 14\nSignal 15\nSignal 16\n"
              "Signal 17\nSignal 18\nSignal 19");
    filterBy("7 SIGNAL");
    EXPECT_EQ(rows(), "Signal 7\nSignal 17");
    filterBy(" l  18 ");
    EXPECT_EQ(rows(), "Signal 18");
    filterBy("*");
    EXPECT_EQ(rows(), "");
    filterBy("");
    EXPECT_EQ(rows().size(), 20 * 8 + 10 + 19u);
}

TEST_F(SelectSignalTest, TheFilterLooksIntoEveryColumn)
{
    m_dialog.setColumns({QStringLiteral("Name"), QStringLiteral("Unit")}, {true, true});
    for (int i = 0; i < 13; ++i)
        m_dialog.addItem((i % 6 == 5 ? QStringLiteral("n%1\tmV") : QStringLiteral("n%1\tdeg")).arg(i));
    show();
    QTest::keyClicks(filter(), QStringLiteral("mv n1"));
    EXPECT_EQ(rows(), "n11|mV");
}

TEST_F(SelectSignalFilterTest, HiddenItemsStaySelectedAndAreTold)
{
    clickRow(3);
    clickRow(15);
    EXPECT_EQ(selectionText(), "2 selected");
    filterBy("15");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3, 15}));
    EXPECT_EQ(selectionText(), "2 selected, 1 of them hidden by the filter");
    EXPECT_TRUE(okEnabled());
    filterBy("8");
    EXPECT_EQ(selectionText(), "2 selected, 2 of them hidden by the filter");
    clickRow(8);
    EXPECT_EQ(selectionText(), "3 selected, 2 of them hidden by the filter");
    filterBy("");
    EXPECT_EQ(selectionText(), "3 selected");
    clickOn(m_dialog, "buttonOk");
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3, 8, 15}));
}

TEST_F(SelectSignalFilterTest, HiddenItemsCountForTheMinimum)
{
    m_dialog.setMinimumSelection(2);
    clickRow(3);
    clickRow(15);
    filterBy("no such");
    EXPECT_TRUE(okEnabled());
    clickOn(m_dialog, "buttonOk");
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3, 15}));
}

TEST_F(SelectSignalFilterTest, TheButtonsForAllActOnShownItems)
{
    clickRow(3);
    filterBy("7");
    clickOn(m_dialog, "buttonSelectAll");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3, 7, 17}));
    filterBy("17");
    clickOn(m_dialog, "buttonClearSelection");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3, 7}));
    filterBy("");
    clickOn(m_dialog, "buttonClearSelection");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>());
}

TEST_F(SelectSignalFilterTest, SelectingAllByKeyKeepsHiddenItems)
{
    clickRow(3);
    filterBy("7");
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3, 7, 17}));
}

TEST_F(SelectSignalFilterTest, ARangeLeavesHiddenItemsOut)
{
    filterBy("1");
    clickRow(10);
    clickRow(12, Qt::ShiftModifier);
    clickRow(1);
    filterBy("7");
    clickRow(7);
    clickRow(17, Qt::ShiftModifier);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({1, 7, 10, 11, 12, 17}));
}

TEST_F(SelectSignalFilterTest, SortingKeepsFilterAndSelection)
{
    clickRow(3);
    filterBy("7");
    clickRow(17);
    clickTitle(0);
    clickTitle(0);
    EXPECT_EQ(rows(), "Signal 7\nSignal 17");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({3, 17}));
}

TEST_F(SelectSignalFilterTest, ItemsAddedLaterAreFilteredToo)
{
    filterBy("7");
    m_dialog.addItem(QStringLiteral("Signal 27"));
    m_dialog.addItem(QStringLiteral("Signal 28"));
    EXPECT_EQ(rows(), "Signal 7\nSignal 17\nSignal 27");
}

TEST_F(SelectSignalFilterTest, TheDownArrowLeadsToTheFirstShownItem)
{
    filterBy("17");
    QTest::keyClick(filter(), Qt::Key_Down);
    EXPECT_EQ(m_dialog.focusWidget(), list());
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>());
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({17}));
    filterBy("no such");
    QTest::keyClick(filter(), Qt::Key_Down);
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({17}));
}

TEST_F(SelectSignalTest, InSingleSelectionTheHiddenItemIsNamed)
{
    addNumbered(20);
    show();
    EXPECT_EQ(m_dialog.focusWidget(), filter());
    clickRow(3);
    EXPECT_EQ(selectionText(), "");
    filter()->setFocus();
    QTest::keyClicks(filter(), QStringLiteral("17"));
    EXPECT_EQ(selectionText(), "Selected, but hidden by the filter: Signal 3");
    EXPECT_EQ(m_dialog.selectedSignal(), 3);
    QTest::keyClick(filter(), Qt::Key_Down);
    EXPECT_EQ(selectionText(), "");
    EXPECT_EQ(m_dialog.selectedSignals(), QList<int>({17}));
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(m_dialog.selectedIndex(), 17);
}

TEST_F(SelectSignalTest, ACutNameHasATooltipOfPlainText)
{
    m_dialog.addItem(QStringLiteral("<i>") + QString(300, QLatin1Char('x')));
    m_dialog.addItem(QStringLiteral("short"));
    show();
    const auto toolTipOf = [this](int row) {
        const QPoint at = list()->visualItemRect(list()->topLevelItem(row)).center();
        QHelpEvent event(QEvent::ToolTip, at, list()->viewport()->mapToGlobal(at));
        QApplication::sendEvent(list()->viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(toolTipOf(1), QString());
    EXPECT_EQ(toolTipOf(0), QStringLiteral("<span>&lt;i&gt;%1</span>").arg(QString(300, QLatin1Char('x'))));
}
