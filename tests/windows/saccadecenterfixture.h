#pragma once

#include "saccadecenterimpl.h"

#include "appconfig.h"
#include "curveplot.h"
#include "eyerecording.h"
#include "inistore.h"
#include "modalanswers.h"
#include "recordingbuilder.h"
#include "saccadelists.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <memory>

/// A saccades browser with a settings file of its own, and recordings to detect in.
class SaccadeCenterTest : public testing::Test
{
protected:
    static constexpr int SampleCount = 8000;
    static constexpr int SaccadeCount = 5;

    void SetUp() override
    {
        QLocale::setDefault(QLocale::c());
        ASSERT_TRUE(appConfig().setConfigFile(path("settings.ini")));
        const std::vector<double> degrees = jumpingEye(SampleCount, {1000, 2000, 3000, 4000, 5000}, 10.0);
        m_folder.write(QStringLiteral("eye.kiro"), eyeRecording({{"eye position", degrees}}));
        setOption("ask_for_signals_selection_confirmation", "0");
    }

    QString path(const char* name) const { return m_folder.path(QLatin1String(name)); }

    /// Writes a recording of these signals, each the same jumps times its number.
    QString record(const char* file, const std::vector<const char*>& names, bool calibrated = true)
    {
        std::vector<EyeRecordingSignal> signalTable;
        double amplitude = 10.0;
        for (const char* name : names) {
            signalTable.push_back({name, jumpingEye(SampleCount, {1000, 2000, 3000, 4000, 5000}, amplitude),
                                   calibrated, 100.0, calibrated ? 20.0 : 0.0});
            amplitude *= 0.5;
        }
        m_folder.write(QLatin1String(file), eyeRecording(signalTable));
        return path(file);
    }

    void setOption(const char* key, const char* value)
    {
        IniStore store;
        store.load(path("settings.ini"));
        store.setSection(SaccadeCenter::section());
        store.setValue(QLatin1String(key), QLatin1String(value));
        ASSERT_TRUE(store.saveAs(path("settings.ini")));
    }

    SaccadeCenter& window()
    {
        if (!m_window) {
            m_window = std::make_unique<SaccadeCenter>();
            m_window->resize(1200, 800);
            m_window->show();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
            QTest::qWait(1);
        }
        return *m_window;
    }
    /// Another window in place of the present one, which is gone without being closed.
    void dropWindow() { m_window.reset(); }

    template <class Widget>
    Widget& find(const char* name)
    {
        auto* const widget = window().findChild<Widget*>(QLatin1String(name));
        EXPECT_TRUE(widget) << name;
        return *widget;
    }
    QAction& action(const char* name) { return find<QAction>(name); }
    void trigger(const char* name) { action(name).trigger(); }
    void click(const char* button) { QTest::mouseClick(&find<QWidget>(button), Qt::LeftButton); }
    QString label(const char* name) { return find<QLabel>(name).text(); }
    QScrollBar& scroll() { return find<QScrollBar>("scrollTime"); }
    CurvePlot& position() { return find<CurvePlot>("plotRightHorzPosition"); }
    CurvePlot& velocity() { return find<CurvePlot>("plotRightHorzVelocity"); }

    const SaccadeDocument& document() { return window().document(); }
    bool isDirty() { return action("actionFileSave").isEnabled(); }
    void detect(const char* file = "eye.kiro") { window().detectIn(path(file), false); }

    /// A saved file of the detection, whose window is gone.
    QString savedFile()
    {
        detect();
        ModalAnswers answers;
        answers.chooseFile(path("eye.sacc"));
        trigger("actionFileSaveAs");
        dropWindow();
        return path("eye.sacc");
    }

    /// Shows a saccade file with a change that cannot be saved in its place.
    void showWhatCannotBeSaved()
    {
        const QString file = savedFile();
        window().openFile(file);
        trigger("actionSaccRemoveCurrent");
        ASSERT_TRUE(QFile::remove(file));
        ASSERT_TRUE(QDir().mkdir(file));
    }

    static void pressAnswer(ModalAnswers& answers, int number)
    {
        answers.answer([number](QWidget* dialog) {
            auto* const button = dialog->findChild<QPushButton*>(QStringLiteral("button%1").arg(number));
            if (button)
                return button->click();
            ADD_FAILURE() << "not a question: " << dialog->metaObject()->className();
            dialog->close();
        });
    }

    /// Drags over the position chart from one time to another, in seconds.
    void drag(double from, double to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        CurvePlot& plot = position();
        const QPoint start(plot.horzScalePoints(from), plot.height() / 2);
        const QPoint end(plot.horzScalePoints(to), plot.height() / 2);
        QTest::mousePress(&plot, Qt::LeftButton, modifiers, start);
        moveTo(plot, (start + end) / 2, modifiers);
        moveTo(plot, end, modifiers);
        QTest::mouseRelease(&plot, Qt::LeftButton, modifiers, end);
    }

    static void moveTo(QWidget& widget, const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          modifiers);
        QApplication::sendEvent(&widget, &event);
    }

    TestFolder m_folder;
    std::unique_ptr<SaccadeCenter> m_window;
};
