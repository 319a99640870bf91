// What a saccades browser is to the keyboard and to screen readers.

#include "saccadecenterfixture.h"

#include <QAccessible>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>

namespace
{

class SaccadeCenterAccessTest : public SaccadeCenterTest
{
protected:
    static QString accessible(QWidget* widget, QAccessible::Text kind)
    {
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(widget);
        return interface ? interface->text(kind) : QString();
    }

    /// Those that Tab goes to, in order.
    QString tabOrder()
    {
        QStringList names;
        for (QWidget* next = window().nextInFocusChain(); next != &window();
             next = next->nextInFocusChain()) {
            // Of radio buttons that exclude each other Tab goes to the one that is on.
            if ((next->focusPolicy() & Qt::TabFocus || qobject_cast<QRadioButton*>(next)) &&
                next->isVisible())
                names << next->objectName();
        }
        return names.join(QLatin1Char(' '));
    }
};

TEST_F(SaccadeCenterAccessTest, NamesAllThatTakesTheFocus)
{
    detect();
    int count = 0;
    for (QWidget* widget : window().findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible())
            continue;
        ++count;
        EXPECT_FALSE(accessible(widget, QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
    }
    EXPECT_GE(count, 21);
}

TEST_F(SaccadeCenterAccessTest, LeadsFromTheChartsToWhatStandsBelowAndBeside)
{
    record("bino.kiro", {"right eye - horizontal", "left eye - horizontal", "right eye - vertical",
                         "left eye - vertical"});
    const QStringList controls = {
        QStringLiteral("buttonTimeZoomOut"),    QStringLiteral("buttonTimeZoomIn"),
        QStringLiteral("scrollTime"),           QStringLiteral("buttonFirst"),
        QStringLiteral("buttonPrev"),           QStringLiteral("buttonNext"),
        QStringLiteral("buttonLast"),           QStringLiteral("radioPosAuto"),
        QStringLiteral("radioPosConst"),        QStringLiteral("radioPosFit"),
        QStringLiteral("buttonPosScaleZoomIn"), QStringLiteral("buttonPosScaleZoomOut"),
        QStringLiteral("buttonPosScaleReset"),  QStringLiteral("radioVelAuto"),
        QStringLiteral("radioVelConst"),        QStringLiteral("radioVelFit"),
        QStringLiteral("buttonVelScaleZoomIn"), QStringLiteral("buttonVelScaleZoomOut"),
        QStringLiteral("buttonVelScaleReset")};
    const QStringList ofOneSignal = {QStringLiteral("plotRightHorzPosition"),
                                     QStringLiteral("plotRightHorzVelocity")};
    const QStringList ofBothEyes =
        ofOneSignal +
        QStringList{QStringLiteral("plotRightVertPosition"), QStringLiteral("plotRightVertVelocity"),
                    QStringLiteral("plotLeftHorzPosition"),  QStringLiteral("plotLeftHorzVelocity"),
                    QStringLiteral("plotLeftVertPosition"),  QStringLiteral("plotLeftVertVelocity")};
    detect();
    EXPECT_EQ(tabOrder().toStdString(), (ofOneSignal + controls).join(QLatin1Char(' ')).toStdString());
    detect("bino.kiro");
    EXPECT_EQ(tabOrder().toStdString(), (ofBothEyes + controls).join(QLatin1Char(' ')).toStdString());
    detect();
    EXPECT_EQ(tabOrder().toStdString(), (ofOneSignal + controls).join(QLatin1Char(' ')).toStdString());
}

TEST_F(SaccadeCenterAccessTest, GivesEveryEntryOfAMenuItsOwnLetter)
{
    const QList<QMenu*> menus = window().findChildren<QMenu*>();
    EXPECT_GE(menus.size(), 4);
    const auto check = [](const QList<QAction*>& entries, const QString& where) {
        QStringList letters;
        for (const QAction* entry : entries) {
            if (entry->isSeparator())
                continue;
            const int mark = entry->text().indexOf(QLatin1Char('&'));
            ASSERT_GE(mark, 0) << entry->text().toStdString();
            const QString letter = entry->text().mid(mark + 1, 1).toLower();
            EXPECT_FALSE(letters.contains(letter))
                << where.toStdString() << ": " << entry->text().toStdString();
            letters << letter;
        }
    };
    check(window().menuBar()->actions(), QStringLiteral("menu bar"));
    for (const QMenu* menu : menus)
        check(menu->actions(), menu->title());
}

TEST_F(SaccadeCenterAccessTest, LeavesButtonsTheKeysThatPressThem)
{
    detect();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    const auto press = [this](const char* name, Qt::Key key) {
        find<QWidget>(name).setFocus(Qt::TabFocusReason);
        QTest::keyClick(&find<QWidget>(name), key);
    };
    press("buttonTimeZoomIn", Qt::Key_Space);
    EXPECT_EQ(window().timeWindow().length(), 2750.0);
    press("buttonNext", Qt::Key_Space);
    EXPECT_EQ(document().currentSaccade(), 1);
    press("radioPosAuto", Qt::Key_Right);
    EXPECT_TRUE(find<QRadioButton>("radioPosConst").isChecked());
    press("radioPosConst", Qt::Key_Left);
    EXPECT_TRUE(find<QRadioButton>("radioPosAuto").isChecked());
    EXPECT_EQ(document().currentSaccade(), 1);
    press("plotRightHorzPosition", Qt::Key_Right);
    EXPECT_EQ(document().currentSaccade(), 2);
}

TEST_F(SaccadeCenterAccessTest, StepsByKeysAsSoonAsThereIsData)
{
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    find<QRadioButton>("radioPosAuto").setFocus();
    detect();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    ASSERT_EQ(window().focusWidget(), &position());
    QTest::keyClick(window().focusWidget(), Qt::Key_Right);
    EXPECT_EQ(document().currentSaccade(), 1);
}

// A choice made with the mouse must not take the keys that step through the saccades.
TEST_F(SaccadeCenterAccessTest, LeavesTheFocusWhereItIsWhenTheMouseChoosesAScale)
{
    detect();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    position().setFocus();
    QTest::mouseClick(&find<QRadioButton>("radioPosConst"), Qt::LeftButton);
    QTest::mouseClick(&find<QToolButton>("buttonTimeZoomIn"), Qt::LeftButton);
    EXPECT_TRUE(find<QRadioButton>("radioPosConst").isChecked());
    EXPECT_TRUE(position().hasFocus());
}

TEST_F(SaccadeCenterAccessTest, TellsTheKeysInToolTips)
{
    int count = 0;
    for (const QAction* action : window().findChildren<QAction*>()) {
        if (action->shortcut().isEmpty())
            continue;
        ++count;
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        EXPECT_TRUE(action->toolTip().endsWith(QStringLiteral(" (%1)").arg(keys)))
            << action->toolTip().toStdString();
    }
    EXPECT_GE(count, 18);
    EXPECT_TRUE(find<QWidget>("buttonTimeZoomIn").toolTip().endsWith(QStringLiteral(" (Ctrl++)")));
    EXPECT_TRUE(find<QWidget>("buttonNext").toolTip().endsWith(QStringLiteral(" (Right)")));
}

TEST_F(SaccadeCenterAccessTest, TellsWhatTheLabelsSay)
{
    detect();
    click("buttonTimeZoomIn");
    EXPECT_EQ(accessible(&find<QLabel>("labelTimeWindow"), QAccessible::Name),
              QStringLiteral("Length of the time window in seconds"));
    EXPECT_EQ(accessible(&find<QLabel>("labelTimeWindow"), QAccessible::Description), QStringLiteral("2.75"));
    trigger("actionSaccNext");
    EXPECT_EQ(accessible(&find<QLabel>("labelCurrent"), QAccessible::Description), QStringLiteral("2 / 5"));
    EXPECT_EQ(find<QLabel>("captionBegin").buddy(), &find<QLabel>("labelBegin"));
    EXPECT_EQ(find<QLabel>("captionDetectedGap").buddy(), &find<QLabel>("labelDetectedGap"));
}

} // namespace
