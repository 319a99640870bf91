#include "modulewindow.h"

#include "appconfig.h"
#include "openevents.h"
#include "reviewframeimpl.h"
#include "saccadecenterimpl.h"
#include "support/eyerecording.h"
#include "support/recordingbuilder.h"
#include "windows/messagerecorder.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QtTest>

#include <gtest/gtest.h>

namespace
{

const QString Section = QStringLiteral("SIGNALS_REVIEW");

class ModuleWindowTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(appConfig().setConfigFile(m_folder.path(QStringLiteral("k.ini")))); }
    void TearDown() override
    {
        qDeleteAll(m_opened);
        EXPECT_EQ(MessageRecorder::texts(), QStringList());
    }

    template <typename Window = ReviewFrame>
    Window* open(const QString& section = Section)
    {
        auto* const window = openModuleWindow<Window>(section);
        m_opened.append(window);
        return window;
    }
    void writeSettings(const std::string& text) const { m_folder.write(QStringLiteral("k.ini"), text); }
    std::string settings() const { return fileBytes(appConfig().configFile().toLocal8Bit().constData()); }
    /// The first keys of a section.
    std::string keptGeometry(const std::string& section) const
    {
        const std::string head = "[" + section + "]\n";
        const std::string kept = settings();
        const std::size_t start = kept.find(head);
        EXPECT_NE(start, std::string::npos) << kept;
        std::size_t end = start + head.size();
        for (int line = 0; line < 3; ++line)
            end = kept.find('\n', end) + 1;
        return kept.substr(start + head.size(), end - start - head.size());
    }

    TestFolder m_folder;
    MessageRecorder m_messages;

private:
    QList<QPointer<QWidget>> m_opened;
};

} // namespace

TEST_F(ModuleWindowTest, FirstOneIsShownInItsOwnSizeAndCentred)
{
    const QSize own = ReviewFrame().size();
    const QWidget* const window = open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isMaximized());
    EXPECT_EQ(window->size(), own);
    const QSize desktop = QGuiApplication::primaryScreen()->size();
    EXPECT_NEAR(window->x(), desktop.width() / 2 - own.width() / 2, 1);
    EXPECT_NEAR(window->y(), desktop.height() / 2 - own.height() / 2, 1);
}

TEST_F(ModuleWindowTest, StandsWhereTheSectionSays)
{
    writeSettings("[SIGNALS_REVIEW]\nwin_pos=12,34\nwin_size=1456,821\n");
    const QWidget* const window = open();
    EXPECT_EQ(window->pos(), QPoint(12, 34));
    EXPECT_EQ(window->size(), QSize(1456, 821));
}

TEST_F(ModuleWindowTest, IsMaximizedIfTheSectionSaysSo)
{
    writeSettings("[SIGNALS_REVIEW]\nwin_max=1\n");
    EXPECT_TRUE(open()->isMaximized());
}

TEST_F(ModuleWindowTest, ReadsNoOtherSection)
{
    writeSettings("[SACCADE_CENTER]\nwin_pos=12,34\nwin_size=456,321\nwin_max=1\n");
    EXPECT_NE(open()->pos(), QPoint(12, 34));
    EXPECT_EQ(open<SaccadeCenter>(SaccadeCenter::section())->isMaximized(), true);
}

TEST_F(ModuleWindowTest, ClosingReplacesItsSectionAndDestroysIt)
{
    writeSettings("[GENERAL]\nlanguage=English\n\n[SIGNALS_REVIEW]\nold_key=1\nwin_max=1\n");
    const QPointer<QWidget> window = open();
    window->showNormal();
    window->move(12, 34);
    window->resize(1456, 821);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(settings().substr(0, 28), "[GENERAL]\nlanguage=English\n\n");
    EXPECT_EQ(keptGeometry("SIGNALS_REVIEW"), "win_max=0\nwin_pos=12,34\nwin_size=1456,821\n");
    EXPECT_EQ(settings().find("old_key"), std::string::npos);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

TEST_F(ModuleWindowTest, OfTwoSideBySideTheLastClosedWins)
{
    QWidget* const first = open();
    QWidget* const second = open();
    first->move(10, 20);
    first->resize(1400, 800);
    second->move(30, 40);
    second->resize(1410, 810);
    second->close();
    EXPECT_EQ(keptGeometry("SIGNALS_REVIEW"), "win_max=0\nwin_pos=30,40\nwin_size=1410,810\n");
    EXPECT_TRUE(first->isVisible());
    first->close();
    EXPECT_EQ(keptGeometry("SIGNALS_REVIEW"), "win_max=0\nwin_pos=10,20\nwin_size=1400,800\n");
}

TEST_F(ModuleWindowTest, WindowsOfTwoModulesKeepEachOthersSections)
{
    QWidget* const review = open();
    QWidget* const saccades = open<SaccadeCenter>(SaccadeCenter::section());
    review->move(10, 20);
    review->resize(1400, 800);
    saccades->move(30, 40);
    saccades->resize(1310, 910);
    review->close();
    saccades->close();
    EXPECT_EQ(keptGeometry("SACCADE_CENTER"), "win_max=0\nwin_pos=30,40\nwin_size=1310,910\n");
    EXPECT_EQ(keptGeometry("SIGNALS_REVIEW"), "win_max=0\nwin_pos=10,20\nwin_size=1400,800\n");
}

TEST_F(ModuleWindowTest, TitleTellsTheFileOfAnOpenFileEventOnly)
{
    QWidget* const window = open<SaccadeCenter>(SaccadeCenter::section());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Saccades browser"));
    OpenSaccFileEvent other(QStringLiteral("/data/other.sacc"));
    QCoreApplication::sendEvent(window, &other);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Saccades browser"));
    const QString path = writeSaccadeFile(m_folder, QStringLiteral("%1 żółw"));
    OpenFileEvent file(path);
    QCoreApplication::sendEvent(window, &file);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Saccades browser - ") + path);
}

TEST_F(ModuleWindowTest, CtrlWClosesOneAndCtrlQAll)
{
    QWidget* const first = open();
    QWidget* const second = open();
    QWidget* const third = open<SaccadeCenter>(SaccadeCenter::section());
    ASSERT_TRUE(QTest::qWaitForWindowActive(third));
    QTest::keyClick(third, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(first->isVisible() && second->isVisible());
    second->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(second));
    QTest::keyClick(second, Qt::Key_Q, Qt::ControlModifier);
    for (const QWidget* widget : QApplication::topLevelWidgets())
        EXPECT_FALSE(widget->isVisible());
}
