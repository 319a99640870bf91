#pragma once

#include "reviewframefixture.h"

#include "openevents.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QInputDialog>
#include <QMimeData>
#include <QPointer>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QUrl>

#include <functional>

/// Follows the progress dialogs that appear while it lives, and acts in one where it is told.
class ProgressWatch : public QObject
{
public:
    /// As soon as the dialog shows its `step`-th state, from 1, does this, or else presses Cancel. At step 0
    /// nothing.
    explicit ProgressWatch(int step = 0, std::function<void()> act = {})
        : m_actStep(step)
        , m_act(std::move(act))
    {
        qApp->installEventFilter(this);
    }

    /// The texts that were shown, in order.
    const QStringList& texts() const { return m_texts; }
    /// The values of the bar, in order.
    const QVector<int>& values() const { return m_values; }
    int maximum() const { return m_maximum; }
    bool hasActed() const { return m_acted; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const dialog = qobject_cast<QProgressDialog*>(watched);
        if (event->type() == QEvent::Show && dialog && dialog != m_dialog) {
            m_dialog = dialog;
            m_label = dialog->findChild<QLabel*>();
            m_maximum = dialog->maximum();
            auto* const bar = dialog->findChild<QProgressBar*>();
            connect(bar, &QProgressBar::valueChanged, this, &ProgressWatch::note);
            note(bar->value());
        }
        // The last text comes without a step.
        if (event->type() == QEvent::Hide && watched == m_dialog && m_label)
            noteText();
        return false;
    }

private:
    void noteText()
    {
        if (m_texts.isEmpty() || m_texts.last() != m_label->text())
            m_texts << m_label->text();
    }
    void note(int value)
    {
        noteText();
        m_values << value;
        if (m_values.size() != m_actStep)
            return;
        m_acted = true;
        if (m_act)
            return m_act();
        static_cast<QWidget*>(m_dialog)->findChild<QPushButton*>()->click();
    }

    int m_actStep;
    std::function<void()> m_act;
    QObject* m_dialog = nullptr;
    QPointer<QLabel> m_label;
    QStringList m_texts;
    QVector<int> m_values;
    int m_maximum = 0;
    bool m_acted = false;
};

/// With what files do to a signals browser.
class ReviewFrameFilesTest : public ReviewFrameTest
{
protected:
    static constexpr int ShortCount = 400; ///< samples of 0.4 seconds

    /// A short recording of the same three signals.
    QString recordShort(const QString& file)
    {
        std::vector<EyeRecordingSignal> signalTable;
        for (const char* name : {"first", "second", "third"})
            signalTable.push_back({name, jumpingEye(ShortCount, {100, 200}, 10.0)});
        m_folder.write(file, eyeRecording(signalTable));
        return m_folder.path(file);
    }

    static QString textOf(const KiroLabel& label)
    {
        return QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8")
            .arg(label.type)
            .arg(label.time)
            .arg(label.endTime)
            .arg(label.signal)
            .arg(label.value)
            .arg(label.name(), label.description(), label.color.name());
    }

    /// All that the user sees of the open file, and can do with it.
    QStringList everything()
    {
        QStringList all{window().windowTitle(), window().recording().currentFile, label("labelStatus"),
                        label("labelSelection"), views().currentText()};
        for (int i = 0; i < strips().plotCount; ++i) {
            const Plot& strip = *strips().plot(i);
            all << QStringLiteral("%1: %2 samples, %3 from %4, shown %5, scale %6 from %7 to %8, %9")
                       .arg(strip.title())
                       .arg(strip.dataSize())
                       .arg(strip.rangeCount())
                       .arg(strip.rangeStart())
                       .arg(strip.showPlot())
                       .arg(strip.scaleType)
                       .arg(strip.drawnLimits().least)
                       .arg(strip.drawnLimits().greatest)
                       .arg(strip.useCalib);
        }
        all << QStringLiteral("%1 of %2, %3 to %4")
                   .arg(selector().windowText())
                   .arg(selector().totalTo())
                   .arg(strips().horzMin)
                   .arg(strips().horzMax);
        for (const KiroLabel& each : strips().labelsList())
            all << textOf(each);
        for (int i = 0; i < list().count(); ++i)
            all << list().item(i)->text() + QString::number(list().item(i)->isSelected());
        for (int i = 0; i < views().count(); ++i)
            all << views().itemText(i);
        for (const char* name :
             {"frameSettings", "rangeSelector", "buttonZoomIn", "buttonLoad", "buttonLabels", "buttonClose"})
            all << QString::number(find<QWidget>(name).isEnabled());
        for (const QAction* action : find<QMenu>("menuLabels").actions())
            all << action->text() + QString::number(action->isEnabled());
        return all + recentFiles();
    }

    QStringList recentFiles()
    {
        QStringList paths;
        for (const QAction* action : find<QMenu>("menuRecent").actions())
            paths << action->text();
        return paths;
    }

    /// Shows that window of time through the two questions of the setup menu.
    void showTime(double position, double range)
    {
        enter("Selection time", range);
        enter("Go to time...", position);
    }
    void enter(const char* action, double value)
    {
        ModalAnswers answers;
        answers.answer([value](QWidget* dialog) {
            auto* const input = qobject_cast<QInputDialog*>(dialog);
            ASSERT_TRUE(input);
            input->setDoubleValue(value);
            input->accept();
        });
        actionOf("menuSetup", QLatin1String(action)).trigger();
    }

    /// Whether this file is shown before long, and nothing goes on.
    bool waitFor(const char* file)
    {
        return QTest::qWaitFor([&] { return window().windowTitle().endsWith(path(file)); }) &&
               QTest::qWaitFor([] { return !QApplication::activeModalWidget(); });
    }
    /// Drags files over the window and drops them if they are accepted. Whether they were.
    bool drop(const QStringList& files)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls << QUrl::fromLocalFile(file);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&window(), &enter);
        QDropEvent dropped(QPointF(9.0, 9.0), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        dropped.ignore();
        QApplication::sendEvent(&window(), &dropped);
        EXPECT_EQ(enter.isAccepted(), dropped.isAccepted());
        return dropped.isAccepted();
    }

    /// Makes a time line by a double click, without a change in its dialog; back in the mode of the arrow.
    void makeTimeLine(double seconds)
    {
        click("buttonModeTimeLine");
        ModalAnswers answers;
        answers.answer([](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->accept(); });
        doubleClick(seconds);
        click("buttonModeArrow");
    }

    /// The section of a store in a file.
    QStringList entriesOf(const char* file, const QString& section) const
    {
        IniStore store;
        store.load(path(file));
        QStringList lines;
        for (const auto& [key, value] : store.entries(section))
            lines << key + QLatin1Char('=') + value;
        return lines;
    }
    void writeSection(const char* file, const QString& section, const QStringList& lines) const
    {
        IniStore store;
        store.load(path(file));
        store.setSection(section);
        for (const QString& line : lines)
            store.setValue(line.section(QLatin1Char('='), 0, 0), line.section(QLatin1Char('='), 1));
        ASSERT_TRUE(store.saveAs(path(file)));
    }
    /// Keeps favourite views in the settings file, before the window reads it.
    void keepViews(const QVector<FavoriteView>& kept) const
    {
        FavoriteViews favorites;
        for (const FavoriteView& view : kept)
            favorites.add(view.name, view.allSignals, view.viewSignals);
        IniStore store;
        store.setSection(ReviewFrame::section());
        favorites.save(store, ReviewFrame::section());
        ASSERT_TRUE(store.saveAs(path("settings.ini")));
    }
};
