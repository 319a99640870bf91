#pragma once

#include "reviewframefilesfixture.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>

#include <functional>
#include <utility>

/// The widget of a dialog.
template <class Widget>
Widget& within(QWidget* dialog, const char* name)
{
    return *dialog->findChild<Widget*>(QLatin1String(name));
}

inline void pressOk(QWidget* dialog)
{
    within<QDialogButtonBox>(dialog, "buttonBox").button(QDialogButtonBox::Ok)->click();
}

inline void setText(QWidget* dialog, const char* edit, const char* text)
{
    within<QLineEdit>(dialog, edit).setText(QLatin1String(text));
}

/// With labels: "eye.kiro" is open, and there are two label templates, "blink" and "jump".
class ReviewFrameLabelsTest : public ReviewFrameFilesTest
{
protected:
    void SetUp() override
    {
        ReviewFrameFilesTest::SetUp();
        writeSection(
            "settings.ini", ReviewFrame::section(),
            {QStringLiteral("label_templates_count=2"), QStringLiteral("label_template_name_0=blink"),
             QStringLiteral("label_template_labelname_0=Blink"),
             QStringLiteral("label_template_labeldescription_0=Eye closed"),
             QStringLiteral("label_template_labelcolor_0=1,2,3"),
             QStringLiteral("label_template_name_1=jump"), QStringLiteral("label_template_labelname_1=Jump"),
             QStringLiteral("label_template_labeldescription_1=Eye jumps"),
             QStringLiteral("label_template_labelcolor_1=4,5,6"), QStringLiteral("label_color=7,8,9")});
        open();
        QObject::connect(&strips(), &MultiPlot::sigMouseLeftDoubleClick, &window(),
                         [this](const QPoint&, int, const QPointF& value) { m_clicked = value; });
        QObject::connect(&strips(), &MultiPlot::sigPeriodSelected, &window(),
                         [this](int, double from, double to) {
                             m_period = {from, to};
                         });
    }

    /// A double click in the mode of this button, with this done in the dialog before OK.
    void make(
        const char* mode, double seconds, int plot = 0,
        const std::function<void(QWidget*)>& edit = [](QWidget*) {})
    {
        click(mode);
        ModalAnswers answers;
        answers.answer([&edit](QWidget* dialog) {
            EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Kiro label settings"));
            edit(dialog);
            pressOk(dialog);
        });
        doubleClick(seconds, plot);
    }
    /// A time line of this name, made as a user makes it.
    void makeLine(const char* name, double seconds = 3.0)
    {
        make("buttonModeTimeLine", seconds, 0,
             [name](QWidget* dialog) { setText(dialog, "editName", name); });
    }
    void editContext(const char* action, double seconds, int plot,
                     const std::function<void(QWidget*)>& inDialog)
    {
        rightClick(seconds, plot);
        find<QMenu>("menuContext").close();
        ModalAnswers answers;
        answers.answer(inDialog);
        actionOf("menuContext", QLatin1String(action)).trigger();
    }
    void deleteAt(double seconds, int plot)
    {
        rightClick(seconds, plot);
        find<QMenu>("menuContext").close();
        actionOf("menuContext", QStringLiteral("Delete label")).trigger();
    }

    QList<KiroLabel> labels() { return strips().labelsList(); }
    /// The fields of all labels.
    QStringList texts()
    {
        QStringList all;
        for (const KiroLabel& each : labels())
            all << textOf(each);
        return all;
    }
    /// The names of all labels.
    QString names()
    {
        QStringList all;
        for (const KiroLabel& each : labels())
            all << each.name();
        return all.join(QLatin1Char(' '));
    }
    static QString namesIn(const QString& file)
    {
        QStringList all;
        for (const KiroLabel& each : KiroLabel::load(file))
            all << each.name();
        return all.join(QLatin1Char(' '));
    }
    /// Writes a label file of time lines.
    QString labelFile(const char* file, const QStringList& lineNames)
    {
        QList<KiroLabel> lines;
        for (const QString& name : lineNames) {
            KiroLabel line;
            line.setupTimeLine(uint(1000 + 100 * lines.size()), name, QString(), Qt::blue);
            lines << line;
        }
        EXPECT_TRUE(KiroLabel::save(path(file), lines));
        return path(file);
    }

    QAction& labelAction(const char* text) { return actionOf("menuLabels", QLatin1String(text)); }
    bool isUnsaved() { return labelAction("Save labels").isEnabled(); }
    void press(int key, Qt::KeyboardModifiers modifiers)
    {
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        QTest::keyClick(&strips(), Qt::Key(key), modifiers);
    }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    void save() { press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier); }

    QString warning(const QString& text) { return window().windowTitle() + QLatin1Char('|') + text; }

    QPointF m_clicked; ///< by the last double click: seconds and value as drawn
    std::pair<double, double> m_period;
};
