#include "launcherfixture.h"

#include "datafilecenterimpl.h"
#include "interfacestart.h"
#include "openevents.h"
#include "reviewframeimpl.h"
#include "saccadecenterimpl.h"
#include "support/eyerecording.h"

#include <QDesktopServices>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>

#include <cmath>

namespace
{

class MainWindowTest : public LauncherFixture
{
protected:
    QPushButton* button(const char* name) const
    {
        return m_window->findChild<QPushButton*>(QString::fromLatin1(name));
    }
    QLabel* explanation() const { return m_window->findChild<QLabel*>(QStringLiteral("labelExplanation")); }
};

/// A button, and what opens when it is pressed.
struct ButtonCase
{
    const char* button;
    Qt::Key letter;
    const char* title;
};

class ModuleButtonTest : public MainWindowTest, public testing::WithParamInterface<ButtonCase>
{
};

/// Relative luminance of WCAG 2, 0 for black to 1 for white.
double luminance(const QColor& colour)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

QPalette makePalette(const QColor& text, const QColor& ground)
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Window, ground);
    return palette;
}

/// Takes the addresses that the program gives to the desktop.
class DesktopViewer : public QObject
{
    Q_OBJECT

public:
    DesktopViewer() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "show"); }
    ~DesktopViewer() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QList<QUrl> shown;

public slots:
    void show(const QUrl& url) { shown.append(url); }
};

} // namespace

TEST_F(MainWindowTest, TitleIsNameAndVersion)
{
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("KiroManager 3.12"));
    EXPECT_TRUE(m_window->isWindow());
    EXPECT_EQ(m_window->parent(), nullptr);
}

TEST_F(MainWindowTest, ButtonsStandInOrderWithIconsAndTips)
{
    const std::pair<const char*, const char*> expected[] = {{"buttonDataFiles", "File browser"},
                                                            {"buttonDataReview", "Signals browser"},
                                                            {"buttonDataSaccades", "Saccades browser"},
                                                            {"buttonSetup", "Setup   "},
                                                            {"buttonExit", "Exit"}};
    int bottom = 0;
    for (const auto& [name, text] : expected) {
        const QPushButton* const one = button(name);
        ASSERT_NE(one, nullptr) << name;
        EXPECT_EQ(one->text().remove(QLatin1Char('&')).toStdString(), text);
        EXPECT_EQ(one->accessibleName(), QString::fromLatin1(text).trimmed());
        EXPECT_FALSE(one->icon().isNull()) << name;
        EXPECT_FALSE(one->toolTip().isEmpty()) << name;
        EXPECT_GT(one->y(), bottom) << name;
        bottom = one->geometry().bottom();
    }
    EXPECT_EQ(m_window->findChildren<QPushButton*>().size(), 5);
}

TEST_F(MainWindowTest, SetupHasItsMenuInOrderWithIcons)
{
    const QMenu* const menu = button("buttonSetup")->menu();
    ASSERT_NE(menu, nullptr);
    QStringList texts;
    for (const QAction* action : menu->actions()) {
        texts.append(action->text());
        EXPECT_FALSE(action->icon().isNull()) << qPrintable(action->text());
    }
    EXPECT_EQ(texts, QStringList({QStringLiteral("Change language"), QStringLiteral("Check for updates"),
                                  QStringLiteral("Open message log file")}));
}

TEST_F(MainWindowTest, AltLettersAreUnique)
{
    QStringList letters;
    for (const QPushButton* one : m_window->findChildren<QPushButton*>())
        letters.append(QKeySequence::mnemonic(one->text()).toString());
    EXPECT_EQ(letters.removeDuplicates(), 0);
    EXPECT_FALSE(letters.contains(QString()));
}

TEST_F(MainWindowTest, FirstButtonHasTheFocusAndTabGoesDown)
{
    for (const char* name :
         {"buttonDataFiles", "buttonDataReview", "buttonDataSaccades", "buttonSetup", "buttonExit"}) {
        EXPECT_EQ(QApplication::focusWidget(), button(name)) << name;
        QTest::keyClick(m_window.get(), Qt::Key_Tab);
    }
}

TEST_F(MainWindowTest, ExitClosesByMouse)
{
    QTest::mouseClick(button("buttonExit"), Qt::LeftButton);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(MainWindowTest, ExitClosesByItsAltLetterAndBySpace)
{
    QTest::keyClick(m_window.get(), Qt::Key_X, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_window->isVisible(); }));
    m_window->show();
    QTest::keyClick(button("buttonExit"), Qt::Key_Space);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(MainWindowTest, EscapeDoesNotClose)
{
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(MainWindowTest, NoTextIsCutAtTheSmallestSize)
{
    m_window->resize(1, 1);
    for (const char* name :
         {"buttonDataFiles", "buttonDataReview", "buttonDataSaccades", "buttonSetup", "buttonExit"}) {
        const QPushButton* const one = button(name);
        EXPECT_GE(one->width(), one->sizeHint().width()) << name;
        EXPECT_GE(one->height(), one->sizeHint().height()) << name;
        EXPECT_GT(one->width(), one->fontMetrics().horizontalAdvance(one->text()) + one->iconSize().width());
    }
    EXPECT_GE(explanation()->width(), explanation()->sizeHint().width());
}

TEST_F(MainWindowTest, ButtonsDrawIconAndTextAtTheLeadingEdge)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QPushButton* const one = button("buttonDataFiles");
        one->setLayoutDirection(direction);
        const QImage with = one->grab().toImage();
        one->setIcon(QIcon());
        const QImage without = one->grab().toImage();
        int first = with.width();
        int last = -1;
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x) {
                if (with.pixel(x, y) != without.pixel(x, y)) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
            }
        }
        ASSERT_GE(last, first) << "the icon is drawn";
        const int fromEdge = direction == Qt::LeftToRight ? last : with.width() - 1 - first;
        EXPECT_LT(fromEdge, 48) << "within the icon's 32 pixels and its margins";
        m_window = std::make_unique<MainWindow>();
        m_window->show();
    }
}

TEST_F(MainWindowTest, ExplanationIsReadableOnLightAndDarkDesktops)
{
    const QPalette before = QApplication::palette();
    for (const auto& [text, ground] : {std::pair<QColor, QColor>(Qt::black, QColor(239, 239, 239)),
                                       std::pair<QColor, QColor>(Qt::white, QColor(53, 53, 53))}) {
        QApplication::setPalette(makePalette(text, ground));
        const QColor muted = explanation()->palette().color(QPalette::WindowText);
        EXPECT_GT(contrast(muted, ground), 4.5);
        EXPECT_LT(contrast(muted, ground), contrast(text, ground));
    }
    QApplication::setPalette(before);
}

TEST_P(ModuleButtonTest, OpensOneMoreWindowEachTimeByMouseAndLetter)
{
    const std::string title = GetParam().title;
    QTest::mouseClick(button(GetParam().button), Qt::LeftButton);
    EXPECT_EQ(moduleTitles(), title);
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), GetParam().letter, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return moduleTitles() == title + "; " + title; }));
}

INSTANTIATE_TEST_SUITE_P(Modules, ModuleButtonTest,
                         testing::Values(ButtonCase{"buttonDataFiles", Qt::Key_F, "File browser"},
                                         ButtonCase{"buttonDataReview", Qt::Key_S, "Signals browser"},
                                         ButtonCase{"buttonDataSaccades", Qt::Key_C, "Saccades browser"}),
                         [](const auto& row) { return std::string(row.param.button); });

TEST_F(MainWindowTest, ModuleSlotsReturnTheirWindowsWithoutParent)
{
    const QWidget* const windows[] = {m_window->onDataFiles(), m_window->onDataReview(),
                                      m_window->onDataSaccades()};
    for (const QWidget* window : windows) {
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(window->parent(), nullptr);
        EXPECT_TRUE(window->testAttribute(Qt::WA_DeleteOnClose));
    }
}

TEST_F(MainWindowTest, EachModuleStandsWhereItsSectionSays)
{
    writeSettings("[DATAFILE_CENTER]\nwin_pos=11,12\nwin_size=700,500\n[SIGNALS_REVIEW]\nwin_pos=21,22\n"
                  "win_size=610,410\n[SACCADE_CENTER]\nwin_pos=31,32\nwin_size=620,420\n");
    EXPECT_EQ(m_window->onDataFiles()->pos(), QPoint(11, 12));
    EXPECT_EQ(m_window->onDataReview()->pos(), QPoint(21, 22));
    EXPECT_EQ(m_window->onDataSaccades()->pos(), QPoint(31, 32));
}

TEST_F(MainWindowTest, CtrlOOpensAFileBrowser)
{
    QTest::keyClick(m_window.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return moduleTitles() == "File browser"; }));
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(MainWindowTest, CtrlWClosesTheLauncherAlone)
{
    const ReviewFrame* const module = m_window->onDataReview();
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_window->isVisible(); }));
    EXPECT_TRUE(module->isVisible());
}

TEST_F(MainWindowTest, CtrlQClosesAllWindowsAndEachKeepsItsSettings)
{
    m_window->onDataReview();
    m_window->onDataSaccades();
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return shownWindows().isEmpty(); }));
    for (const char* section : {"[MAIN]\nwin_pos=", "[SACCADE_CENTER]\nwin_max=0\nwin_pos=",
                                "[SIGNALS_REVIEW]\nwin_max=0\nwin_pos="})
        EXPECT_NE(settings().find(section), std::string::npos) << section;
}

TEST_F(MainWindowTest, RecordingEventOpensASignalsBrowserWithTheFile)
{
    const QString path = writeRecording(m_folder, QStringLiteral("żółw.kiro"));
    QCoreApplication::postEvent(m_window.get(), new OpenKiroFileEvent(path));
    handleEvents();
    EXPECT_EQ(moduleTitles(), "Signals browser - " + path.toStdString());
}

TEST_F(MainWindowTest, SaccadeFileEventOpensASaccadesBrowserWithTheFile)
{
    const QString path = writeSaccadeFile(m_folder, QStringLiteral("żółw"));
    QCoreApplication::postEvent(m_window.get(), new OpenSaccFileEvent(path));
    handleEvents();
    EXPECT_EQ(moduleTitles(), "Saccades browser - " + path.toStdString());
}

TEST_F(MainWindowTest, SeveralEventsOpenSeveralWindows)
{
    const QString a = writeRecording(m_folder, QStringLiteral("a.kiro"));
    const QString b = writeRecording(m_folder, QStringLiteral("b.kiro"));
    for (const QString& path : {b, a, a})
        QCoreApplication::postEvent(m_window.get(), new OpenKiroFileEvent(path));
    handleEvents();
    const std::string title = "Signals browser - ";
    EXPECT_EQ(moduleTitles(),
              title + a.toStdString() + "; " + title + a.toStdString() + "; " + title + b.toStdString());
}

TEST_F(MainWindowTest, OtherEventsOpenNothing)
{
    QCoreApplication::postEvent(m_window.get(), new OpenFileEvent(QStringLiteral("/data/r.kiro")));
    QCoreApplication::postEvent(m_window.get(), new QEvent(QEvent::Type(1004)));
    QCoreApplication::postEvent(m_window.get(), new QEvent(QEvent::User));
    handleEvents();
    EXPECT_EQ(moduleTitles(), "");
}

TEST_F(MainWindowTest, ModulesLiveOnWhenTheLauncherIsDestroyed)
{
    QWidget* const first = m_window->onDataReview();
    QWidget* const second = m_window->onDataReview();
    m_window->close();
    m_window.reset();
    handleEvents();
    EXPECT_TRUE(first->isVisible());
    EXPECT_TRUE(second->isVisible());
}

TEST_F(MainWindowTest, ClosingKeepsThePositionAndNothingElseOfItsOwn)
{
    writeSettings("[GENERAL]\nlanguage=English\n\n[MAIN]\nother=1\nwin_pos=1,1\n");
    m_window->move(33, 44);
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=English\n\n[MAIN]\nother=1\nwin_pos=33,44\n\n");
}

TEST_F(MainWindowTest, ClosingIsPossibleWithoutSettings)
{
    ASSERT_TRUE(appConfig().setConfigFile(m_folder.path(QStringLiteral("other.ini"))));
    ASSERT_TRUE(QDir().mkdir(appConfig().configFile()));
    EXPECT_TRUE(m_window->close());
}

TEST_F(MainWindowTest, LogFileIsShownByTheSystemsViewer)
{
    const DesktopViewer viewer;
    m_window->onOpenMessageLogFile();
    EXPECT_EQ(viewer.shown, QList<QUrl>({QUrl::fromLocalFile(m_folder.path(QStringLiteral("k.txt")))}));
}

TEST_F(MainWindowTest, LogFileOfARelativePathIsShownByItsFullOne)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path(QString())));
    ASSERT_TRUE(appConfig().setLogFile(QStringLiteral("żółw 1.txt")));
    const DesktopViewer viewer;
    button("buttonSetup")->menu()->actions().at(2)->trigger();
    EXPECT_EQ(viewer.shown,
              QList<QUrl>({QUrl::fromLocalFile(QDir::currentPath() + QStringLiteral("/żółw 1.txt"))}));
    QDir::setCurrent(before);
}

TEST_F(MainWindowTest, StartShowsItWhereItStoodLast)
{
    m_window.reset();
    writeSettings("[GENERAL]\nlanguage=English\n\n[MAIN]\nwin_pos=55,66\n");
    const std::unique_ptr<QObject> userInterface = startInterface();
    ASSERT_EQ(shownWindows().size(), 1);
    EXPECT_EQ(shownWindows().first()->windowTitle(), QStringLiteral("KiroManager 3.12"));
    EXPECT_EQ(shownWindows().first()->pos(), QPoint(55, 66));
    EXPECT_FALSE(QApplication::windowIcon().pixmap(32).isNull());
}

TEST_F(MainWindowTest, FirstStartCentresItAndStoresTheLanguage)
{
    m_window.reset();
    const std::unique_ptr<QObject> userInterface = startInterface();
    ASSERT_EQ(shownWindows().size(), 1);
    const QWidget* const launcher = shownWindows().first();
    const QSize desktop = QGuiApplication::primaryScreen()->size();
    EXPECT_NEAR(launcher->x(), desktop.width() / 2 - launcher->width() / 2, 1);
    EXPECT_NEAR(launcher->y(), desktop.height() / 2 - launcher->height() / 2, 1);
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=English\n\n");
}

#include "mainwindow_test.moc"
