#include "dialogprogress.h"

#include "openevents.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QShortcut>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace
{

/// A window with a field and a shortcut that notes what reaches it.
class JobWindow : public QWidget
{
public:
    JobWindow()
    {
        field = new QLineEdit(this);
        auto* const shortcut = new QShortcut(QKeySequence(QStringLiteral("Ctrl+O")), this);
        connect(shortcut, &QShortcut::activated, this, [this] { ++shortcuts; });
        resize(300, 100);
        show();
        activateWindow();
        QApplication::processEvents();
        field->setFocus();
    }

    QLineEdit* field;
    int shortcuts = 0;
    QStringList opened;

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() == OpenFileEvent::Number)
            opened << static_cast<OpenFileEvent*>(event)->path();
    }
};

/// Counts how often a widget is drawn.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject* widget) { widget->installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

QProgressDialog* shownDialog(const QWidget& window)
{
    auto* const dialog = window.findChild<QProgressDialog*>();
    return dialog && dialog->isVisible() ? dialog : nullptr;
}

} // namespace

TEST(DialogProgressTest, ClosingTheWindowCancelsTheJobFirst)
{
    auto* const window = new JobWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    const QPointer<JobWindow> watched(window);
    {
        DialogProgress progress(window, QStringLiteral("Working"));
        EXPECT_FALSE(progress.cancelled());
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(progress.cancelled());
        progress.setValue(50);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_TRUE(watched);
    }
    EXPECT_TRUE(watched);
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(watched) << "closed once the job is over";
}

TEST(DialogProgressTest, TheWindowTakesNoInputBeforeTheDialogShows)
{
    JobWindow window;
    {
        DialogProgress progress(&window, QStringLiteral("Working"));
        QTest::keyClicks(window.field, QStringLiteral("x"));
        QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
        progress.cancelled();
        EXPECT_EQ(window.field->text(), QString());
        EXPECT_EQ(window.shortcuts, 0);
    }
    QTest::keyClicks(window.field, QStringLiteral("x"));
    EXPECT_EQ(window.field->text(), QStringLiteral("x"));
}

TEST(DialogProgressTest, FilesToOpenWaitForTheEndOfTheJob)
{
    JobWindow window;
    {
        DialogProgress progress(&window, QStringLiteral("Working"));
        QApplication::postEvent(&window, new OpenFileEvent(QStringLiteral("/a.kiro")));
        QApplication::postEvent(&window, new OpenFileEvent(QStringLiteral("/b.kiro")));
        progress.cancelled();
        EXPECT_TRUE(window.opened.isEmpty());
    }
    QApplication::processEvents();
    EXPECT_EQ(window.opened, (QStringList{QStringLiteral("/a.kiro"), QStringLiteral("/b.kiro")}));
}

TEST(DialogProgressTest, CancelEndsTheJob)
{
    JobWindow window;
    DialogProgress progress(&window, QStringLiteral("Working"));
    progress.setRange(0, 1000);
    QTest::qWait(350);
    progress.setValue(500);
    progress.setText(QStringLiteral("<b>still</b> at it"));
    QProgressDialog* const dialog = shownDialog(window);
    ASSERT_TRUE(dialog);
    auto* const label = dialog->findChild<QLabel*>();
    ASSERT_TRUE(label);
    EXPECT_EQ(label->text(), QStringLiteral("<b>still</b> at it"));
    EXPECT_EQ(label->textFormat(), Qt::PlainText) << "a file name is no markup";
    EXPECT_FALSE(progress.cancelled());
    QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_TRUE(progress.cancelled());
}

TEST(DialogProgressTest, TheBarIsDrawnNoMoreOftenThanAScreenShowsIt)
{
    constexpr int Steps = 1000;
    JobWindow window;
    DialogProgress progress(&window, QStringLiteral("Working"), 0);
    progress.setRange(0, Steps);
    progress.setValue(1);
    QProgressDialog* const dialog = shownDialog(window);
    ASSERT_TRUE(dialog);
    auto* const bar = dialog->findChild<QProgressBar*>();
    ASSERT_TRUE(bar);
    QTest::qWait(20);
    PaintCounter paints(bar);
    QElapsedTimer clock;
    clock.start();
    int steps = 0;
    while (clock.elapsed() < 200) {
        const int value = 1 + steps++ % Steps;
        progress.setValue(value);
        EXPECT_EQ(bar->value(), value);
        EXPECT_FALSE(progress.cancelled());
    }
    EXPECT_GE(paints.count, 2);
    // At the beginning and at the end it may be drawn by a hair more often, and twice when it is due.
    EXPECT_LE(paints.count, 2 * (clock.elapsed() / 16 + 2));

    // Work that asks without a step has a bar that was held follow in the end.
    while (bar->updatesEnabled())
        progress.setValue(bar->value() == Steps ? 1 : Steps);
    QTest::qWait(20);
    paints.count = 0;
    EXPECT_FALSE(progress.cancelled());
    EXPECT_EQ(paints.count, 1);
}

TEST(DialogProgressTest, TheBarIsDrawnAsSoonAsItIsSeen)
{
    JobWindow window;
    DialogProgress progress(&window, QStringLiteral("Working"), 0);
    auto* const bar = window.findChild<QProgressBar*>();
    ASSERT_TRUE(bar);
    PaintCounter paints(bar);
    progress.setRange(0, 10);
    progress.setValue(1);
    EXPECT_FALSE(progress.cancelled());
    ASSERT_TRUE(shownDialog(window));
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GE(paints.count, 1);
}

TEST(DialogProgressTest, ShortJobsShowNoDialog)
{
    JobWindow window;
    DialogProgress progress(&window, QStringLiteral("Working"));
    progress.setRange(0, 2);
    progress.setValue(1);
    EXPECT_FALSE(shownDialog(window));
}

TEST(DialogProgressTest, WorksWithoutAWindow)
{
    DialogProgress progress(nullptr, QStringLiteral("Working"));
    progress.setRange(0, 2);
    progress.setValue(1);
    EXPECT_FALSE(progress.cancelled());
}
