#include "mainwindowimpl.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <gtest/gtest.h>

#include <cmath>

namespace
{

/// What the platform without a display says of every window.
const QString PlatformNote = QStringLiteral("This plugin does not support propagateSizeHints()");

/// Collects what Qt prints while it lives.
class MessageRecorder
{
public:
    MessageRecorder()
    {
        texts().clear();
        m_handlerBefore =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
                if (text != PlatformNote)
                    texts().append(text);
            });
    }
    ~MessageRecorder() { qInstallMessageHandler(m_handlerBefore); }

    static QStringList& texts()
    {
        static QStringList list;
        return list;
    }

private:
    Q_DISABLE_COPY(MessageRecorder)
    QtMessageHandler m_handlerBefore;
};

/// A shown launcher; any message of Qt on the way fails the test.
class MainWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    void TearDown() override { EXPECT_EQ(MessageRecorder::texts(), QStringList()); }

    QPushButton* exitButton() const { return m_window.findChild<QPushButton*>(QStringLiteral("buttonExit")); }
    QLabel* explanation() const { return m_window.findChild<QLabel*>(QStringLiteral("labelExplanation")); }

    MessageRecorder m_recorder;
    MainWindow m_window;
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

} // namespace

TEST_F(MainWindowTest, TitleIsNameAndVersion)
{
    EXPECT_EQ(m_window.windowTitle(), QStringLiteral("KiroManager 3.12"));
    EXPECT_TRUE(m_window.isWindow());
}

TEST_F(MainWindowTest, ExitClosesByMouse)
{
    QTest::mouseClick(exitButton(), Qt::LeftButton);
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(MainWindowTest, ExitClosesByItsAltLetter)
{
    QTest::keyClick(&m_window, Qt::Key_X, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_window.isVisible(); }));
}

TEST_F(MainWindowTest, ExitIsReachedByTabAndClosesBySpace)
{
    QTest::keyClick(&m_window, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), exitButton());
    QTest::keyClick(exitButton(), Qt::Key_Space);
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(MainWindowTest, EscapeDoesNotClose)
{
    QTest::keyClick(&m_window, Qt::Key_Escape);
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(MainWindowTest, NoTextIsCutAtTheSmallestSize)
{
    m_window.resize(1, 1);
    for (const QWidget* child : m_window.findChildren<QWidget*>()) {
        EXPECT_GE(child->width(), child->sizeHint().width()) << qPrintable(child->objectName());
        EXPECT_GE(child->height(), child->sizeHint().height()) << qPrintable(child->objectName());
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
