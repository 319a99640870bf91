#pragma once

#include "reviewframeimpl.h"

#include "appconfig.h"
#include "eyerecording.h"
#include "inistore.h"
#include "modalanswers.h"
#include "multiplot.h"
#include "positionselector.h"
#include "recordingbuilder.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <memory>

/// A signals browser with files of its own, and recordings to show: "eye.kiro" has 8 seconds of three signals
/// at 1000 Hz, the last of which is not calibrated.
class ReviewFrameTest : public testing::Test
{
protected:
    static constexpr int SampleCount = 8000;

    void SetUp() override
    {
        QLocale::setDefault(QLocale::c());
        ASSERT_TRUE(appConfig().setConfigFile(path("settings.ini")));
        ASSERT_TRUE(appConfig().setSignalsFile(path("signals.ini")));
        record("eye.kiro", {"first", "second", "third"});
    }

    QString path(const char* name) const { return m_folder.path(QLatin1String(name)); }

    /// Writes a recording of these signals, each the same jumps times its number; the last has no
    /// calibration.
    QString record(const char* file, const std::vector<const char*>& names)
    {
        std::vector<EyeRecordingSignal> signalTable;
        double amplitude = 10.0;
        for (const char* name : names) {
            const bool calibrated = name != names.back();
            signalTable.push_back({name, jumpingEye(SampleCount, {1000, 2000, 3000, 4000, 5000}, amplitude),
                                   calibrated, 100.0, calibrated ? 20.0 : 0.0});
            amplitude *= 0.5;
        }
        m_folder.write(QLatin1String(file), eyeRecording(signalTable));
        return path(file);
    }

    ReviewFrame& window()
    {
        if (!m_window) {
            m_window = std::make_unique<ReviewFrame>();
            m_window->show();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        }
        return *m_window;
    }
    /// Closes the window, which keeps what it has to keep.
    void closeWindow()
    {
        EXPECT_TRUE(window().close());
        m_window.reset();
    }
    void open(const char* file = "eye.kiro")
    {
        window().loadFile(path(file));
        // The dialog that showed the progress was the active window.
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    template <class Widget>
    Widget& find(const char* name)
    {
        auto* const widget = window().findChild<Widget*>(QLatin1String(name));
        EXPECT_TRUE(widget) << name;
        return *widget;
    }
    MultiPlot& strips() { return find<MultiPlot>("m_pPlot"); }
    PositionSelector& selector() { return find<PositionSelector>("rangeSelector"); }
    QListWidget& list() { return find<QListWidget>("listSignals"); }
    QComboBox& views() { return find<QComboBox>("comboFavoriteViews"); }
    QString label(const char* name) { return find<QLabel>(name).text(); }
    void click(const char* button) { QTest::mouseClick(&find<QWidget>(button), Qt::LeftButton); }

    /// The action of a menu with this text.
    QAction& actionOf(const char* menu, const QString& text)
    {
        for (QAction* action : find<QMenu>(menu).actions()) {
            if (action->text() == text)
                return *action;
        }
        ADD_FAILURE() << "no action " << text.toStdString();
        static QAction none;
        return none;
    }

    /// Which strips are shown, such as "101".
    std::string shown()
    {
        std::string text;
        for (int i = 0; i < strips().plotCount; ++i)
            text += strips().plot(i)->showPlot() ? '1' : '0';
        return text;
    }
    /// Which items of the list are selected.
    std::string selected()
    {
        std::string text;
        for (int i = 0; i < list().count(); ++i)
            text += list().item(i)->isSelected() ? '1' : '0';
        return text;
    }

    /// The pixel of a strip at that time, in the middle of its height.
    QPoint pixelAt(double seconds, int plot = 0)
    {
        const Extremes limits = strips().plot(plot)->drawnLimits();
        return strips().getScreenPoint(unsigned(plot),
                                       QPointF(seconds, (limits.least + limits.greatest) * 0.5));
    }
    void moveTo(const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent event(QEvent::MouseMove, place, strips().mapToGlobal(place), Qt::NoButton, buttons,
                          modifiers);
        QApplication::sendEvent(&strips(), &event);
    }
    void drag(double from, double to, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int plot = 0)
    {
        QTest::mousePress(&strips(), Qt::LeftButton, modifiers, pixelAt(from, plot));
        moveTo(pixelAt((from + to) * 0.5, plot), modifiers, Qt::LeftButton);
        moveTo(pixelAt(to, plot), modifiers, Qt::LeftButton);
        QTest::mouseRelease(&strips(), Qt::LeftButton, modifiers, pixelAt(to, plot));
    }
    void doubleClick(double seconds, int plot = 0, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseDClick(&strips(), Qt::LeftButton, modifiers, pixelAt(seconds, plot));
    }
    void rightClick(double seconds, int plot = 0)
    {
        QTest::mouseClick(&strips(), Qt::RightButton, Qt::NoModifier, pixelAt(seconds, plot));
    }

    TestFolder m_folder;
    std::unique_ptr<ReviewFrame> m_window;
};
