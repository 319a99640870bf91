// Labels in a signals browser: made with the mouse, edited, undone.

#include "reviewframelabelsfixture.h"

#include <QPlainTextEdit>
#include <QTimer>

#include <cmath>

namespace
{

const QString FirstName = QStringLiteral("New label name");
const QString FirstDescription = QStringLiteral("New label description");

/// The milliseconds nearest to a time, halves away from zero.
quint32 nearestMs(double seconds)
{
    return quint32(std::floor(seconds * 1000.0 + 0.5));
}

TEST_F(ReviewFrameLabelsTest, APointOfACalibratedSignalKeepsItsRawValue)
{
    QString start;
    QString position;
    make("buttonModePoint", 1.5, 1, [&](QWidget* dialog) {
        EXPECT_EQ(within<QLineEdit>(dialog, "editName").text(), FirstName);
        EXPECT_EQ(within<QPlainTextEdit>(dialog, "editDescription").toPlainText(), FirstDescription);
        EXPECT_EQ(within<QComboBox>(dialog, "comboType").currentText(),
                  KiroLabel::typeToName(KiroLabel::Point));
        EXPECT_EQ(within<QComboBox>(dialog, "comboSignal").currentText(), QStringLiteral("second"));
        EXPECT_EQ(within<QComboBox>(dialog, "comboSignal").count(), 3);
        EXPECT_EQ(within<QLabel>(dialog, "labelPositionUnit").text(), QStringLiteral("[deg]"));
        start = within<QLineEdit>(dialog, "editStartTime").text();
        position = within<QLineEdit>(dialog, "editPosition").text();
    });
    EXPECT_EQ(start, QString::number(nearestMs(m_clicked.x()) / 1000.0, 'f', 3));
    EXPECT_EQ(position, QStringLiteral("5.000000"));
    ASSERT_EQ(labels().size(), 1);
    const KiroLabel label = labels()[0];
    EXPECT_EQ(label.type, KiroLabel::Point);
    EXPECT_EQ(label.signal, 1u);
    EXPECT_EQ(label.time, nearestMs(m_clicked.x()));
    EXPECT_NEAR(label.time, 1500.0, 10.0);
    EXPECT_EQ(m_clicked.y(), 5.0); // of the sample, in degrees
    EXPECT_EQ(label.value, 520.0);
    EXPECT_EQ(label.name(), FirstName);
    EXPECT_EQ(label.description(), FirstDescription);
    EXPECT_EQ(label.color, QColor(7, 8, 9));
    EXPECT_TRUE(isUnsaved());
}

TEST_F(ReviewFrameLabelsTest, APointIsWhereItsDialogSays)
{
    make("buttonModePoint", 2.5, 0, [](QWidget* dialog) {
        setText(dialog, "editStartTime", "1.2345");
        setText(dialog, "editPosition", "2.5");
        setText(dialog, "editName", "peak");
        within<QPlainTextEdit>(dialog, "editDescription").setPlainText(QStringLiteral("of the jump"));
    });
    ASSERT_EQ(labels().size(), 1);
    EXPECT_EQ(labels()[0].time, 1235u);
    EXPECT_EQ(labels()[0].value, 270.0);
    EXPECT_EQ(labels()[0].signal, 0u);
    EXPECT_EQ(labels()[0].name(), QStringLiteral("peak"));
    EXPECT_EQ(labels()[0].description(), QStringLiteral("of the jump"));
    // On a signal that is not calibrated, values are raw.
    make("buttonModePoint", 2.5, 2, [](QWidget* dialog) {
        EXPECT_EQ(within<QLabel>(dialog, "labelPositionUnit").text(), QString());
        setText(dialog, "editPosition", "125.25");
    });
    EXPECT_EQ(labels().value(1).signal, 2u);
    EXPECT_EQ(labels().value(1).value, 125.25);
}

TEST_F(ReviewFrameLabelsTest, LinesOfASignalAndOfAllSignals)
{
    make("buttonModeSignalLine", 4.0, 2);
    const quint32 signalMs = nearestMs(m_clicked.x());
    make("buttonModeTimeLine", 5.0, 1);
    const quint32 timeMs = nearestMs(m_clicked.x());
    EXPECT_NEAR(signalMs, 4000.0, 10.0);
    EXPECT_NEAR(timeMs, 5000.0, 10.0);
    const QString rest = QStringLiteral("New label name New label description #070809");
    EXPECT_EQ(texts(), QStringList({QStringLiteral("2 %1 %1 2 0 %2").arg(signalMs).arg(rest),
                                    QStringLiteral("3 %1 %1 0 0 %2").arg(timeMs).arg(rest)}));
}

TEST_F(ReviewFrameLabelsTest, PeriodsOfASignalAndOfAllSignals)
{
    const auto accept = [](ModalAnswers& answers) {
        answers.answer([](QWidget* dialog) { pressOk(dialog); });
    };
    const QString rest = QStringLiteral("New label name New label description #070809");
    QStringList expected;
    const auto expectPeriod = [&](int type, int plot) {
        expected << QStringLiteral("%1 %2 %3 %4 0 %5")
                        .arg(type)
                        .arg(nearestMs(m_period.first))
                        .arg(nearestMs(m_period.second))
                        .arg(plot)
                        .arg(rest);
        EXPECT_EQ(texts(), expected);
    };
    ModalAnswers answers;
    click("buttonModeSignalPeriod");
    accept(answers);
    drag(2.0, 3.0, Qt::NoModifier, 1);
    EXPECT_NEAR(m_period.first, 2.0, 0.01);
    EXPECT_NEAR(m_period.second, 3.0, 0.01);
    expectPeriod(4, 1);
    click("buttonModeTimePeriod");
    accept(answers);
    drag(6.0, 5.0, Qt::NoModifier, 2); // backwards
    EXPECT_NEAR(m_period.first, 5.0, 0.01);
    expectPeriod(5, 0);
    EXPECT_EQ(answers.seen().size(), 2);
}

TEST_F(ReviewFrameLabelsTest, OtherModesMakeNoLabels)
{
    for (const char* mode : {"buttonModeArrow", "buttonModeMeasure", "buttonModeSignalPeriod"}) {
        click(mode);
        doubleClick(3.0);
    }
    for (const char* mode :
         {"buttonModeArrow", "buttonModeMeasure", "buttonModePoint", "buttonModeTimeLine"}) {
        click(mode);
        drag(3.0, 4.0);
    }
    EXPECT_EQ(labels().size(), 0);
    EXPECT_FALSE(isUnsaved());
}

TEST_F(ReviewFrameLabelsTest, CancelChangesNothing)
{
    const auto cancel = [](QWidget* dialog) {
        setText(dialog, "editName", "Blink");
        within<QToolButton>(dialog, "buttonTemplate1").click();
        within<QDialogButtonBox>(dialog, "buttonBox").button(QDialogButtonBox::Cancel)->click();
    };
    ModalAnswers answers;
    for (const char* mode : {"buttonModePoint", "buttonModeSignalLine", "buttonModeTimeLine"}) {
        click(mode);
        answers.answer(cancel);
        doubleClick(3.0);
    }
    for (const char* mode : {"buttonModeSignalPeriod", "buttonModeTimePeriod"}) {
        click(mode);
        answers.answer(cancel);
        drag(2.0, 3.0);
    }
    EXPECT_EQ(answers.seen().size(), 5);
    EXPECT_EQ(labels().size(), 0);
    EXPECT_FALSE(isUnsaved());
    EXPECT_FALSE(find<QAction>("actionUndo").isEnabled());
    makeLine("x");
    EXPECT_EQ(textOf(labels()[0]).section(QLatin1Char(' '), 5),
              QStringLiteral("x New label description #070809"));
}

TEST_F(ReviewFrameLabelsTest, RemembersTheTextsOfTemplatesAndAnyColour)
{
    const auto first = [](QWidget* dialog) { within<QToolButton>(dialog, "buttonTemplate1").click(); };
    make("buttonModeTimeLine", 1.0, 0, first);
    make("buttonModeSignalLine", 2.0);
    EXPECT_EQ(labels()[1].name(), QStringLiteral("Blink"));
    EXPECT_EQ(labels()[1].description(), QStringLiteral("Eye closed"));
    EXPECT_EQ(labels()[1].color, QColor(1, 2, 3));
    // Other texts are not remembered, but the colour is.
    make("buttonModeTimeLine", 3.0, 0, [](QWidget* dialog) {
        within<QToolButton>(dialog, "buttonTemplate2").click();
        setText(dialog, "editName", "my own");
    });
    EXPECT_EQ(labels()[2].name(), QStringLiteral("my own"));
    make("buttonModeTimeLine", 4.0);
    EXPECT_EQ(labels()[3].name(), FirstName);
    EXPECT_EQ(labels()[3].description(), FirstDescription);
    EXPECT_EQ(labels()[3].color, QColor(4, 5, 6));
    // The texts of one template with the colour of another are none's.
    make("buttonModeTimeLine", 5.0, 0, [](QWidget* dialog) {
        within<QToolButton>(dialog, "buttonTemplate1").click();
        setText(dialog, "editName", "Jump");
        within<QPlainTextEdit>(dialog, "editDescription").setPlainText(QStringLiteral("Eye jumps"));
    });
    make("buttonModeTimeLine", 6.0, 0, first);
    EXPECT_EQ(labels()[5].color, QColor(1, 2, 3));
    // What is remembered lasts.
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) { within<QPushButton>(dialog, "button1").click(); });
    closeWindow();
    const QStringList kept = entriesOf("settings.ini", ReviewFrame::section());
    for (const char* line : {"label_name=Blink", "label_description=Eye closed", "label_color=1,2,3"})
        EXPECT_TRUE(kept.contains(QLatin1String(line))) << line;
}

TEST_F(ReviewFrameLabelsTest, TemplatesThatWereEditedAreKept)
{
    const auto later = [](QWidget* dialog, const char* button) {
        QTimer::singleShot(0, &within<QPushButton>(dialog, button), &QAbstractButton::click);
    };
    click("buttonModeTimeLine");
    {
        ModalAnswers answers;
        answers.answer([later](QWidget* dialog) { later(dialog, "buttonEditTemplates"); });
        answers.answer([later](QWidget* dialog) { later(dialog, "buttonAddTemplate"); });
        answers.answer([](QWidget* dialog) {
            auto* const input = qobject_cast<QInputDialog*>(dialog);
            ASSERT_TRUE(input);
            input->setTextValue(QStringLiteral("third"));
            input->accept();
        });
        answers.answer([](QWidget* dialog) {
            setText(dialog, "editLabelName", "Third");
            pressOk(dialog);
        });
        // The templates are kept even though the label is not wanted.
        answers.reject();
        doubleClick(3.0);
    }
    EXPECT_EQ(labels().size(), 0);
    make("buttonModeTimeLine", 3.0, 0, [](QWidget* dialog) {
        EXPECT_EQ(within<QComboBox>(dialog, "comboTemplate").count(), 4);
        within<QToolButton>(dialog, "buttonTemplate3").click();
    });
    EXPECT_EQ(labels().value(0).name(), QStringLiteral("Third"));
    EXPECT_EQ(labels().value(0).color, QColor(Qt::green));
    ModalAnswers answers;
    answers.answer([](QWidget* dialog) { within<QPushButton>(dialog, "button1").click(); });
    closeWindow();
    const QStringList kept = entriesOf("settings.ini", ReviewFrame::section());
    for (const char* line :
         {"label_templates_count=3", "label_template_name_0=blink", "label_template_name_2=third"})
        EXPECT_TRUE(kept.contains(QLatin1String(line))) << line;
}

TEST_F(ReviewFrameLabelsTest, TheMouseOnALabelTellsWhatItSays)
{
    make("buttonModeSignalLine", 4.0, 1, [](QWidget* dialog) {
        setText(dialog, "editName", "a < b");
        within<QPlainTextEdit>(dialog, "editDescription").setPlainText(QStringLiteral("two\nlines"));
    });
    moveTo(pixelAt(4.0, 1));
    EXPECT_EQ(strips().toolTip(), QStringLiteral("Label a < b\nDescription: two\nlines"));
    moveTo(pixelAt(4.0, 0)); // not of this strip
    EXPECT_EQ(strips().toolTip(), QString());
    moveTo(pixelAt(4.0, 1));
    moveTo(pixelAt(4.2, 1));
    EXPECT_EQ(strips().toolTip(), QString());
    moveTo(pixelAt(4.0, 1));
    moveTo(QPoint(strips().width() / 2, strips().height() - 2)); // below the strips
    EXPECT_EQ(strips().toolTip(), QString());
}

TEST_F(ReviewFrameLabelsTest, TheTextOfALabelGoesWithTheLabel)
{
    makeLine("one", 4.0);
    const auto expectGoneAfter = [this](const std::function<void()>& change) {
        moveTo(pixelAt(4.0));
        ASSERT_EQ(strips().toolTip(), QStringLiteral("Label one\nDescription: New label description"));
        change();
        EXPECT_EQ(strips().toolTip(), QString());
    };
    expectGoneAfter([this] { deleteAt(4.0, 0); });
    undo();
    expectGoneAfter([this] { redo(); });
    undo();
    ModalAnswers answers;
    expectGoneAfter([&] {
        answers.answer([](QWidget* dialog) { within<QPushButton>(dialog, "button1").click(); });
        find<QMenu>("menuRecent").actions()[0]->trigger();
    });
}

TEST_F(ReviewFrameLabelsTest, ALabelIsFoundWithinATwoHundredthOfTheWindow)
{
    make("buttonModeTimeLine", 3.0, 0, [](QWidget* dialog) { setText(dialog, "editStartTime", "4.000"); });
    for (const double range : {4.0, 1.0, 0.25}) {
        const double reach = range / 200.0;
        for (const double side : {1.0, -1.0}) { // the label stands at the left edge, at the right one
            showTime(4.0 + side * range * 0.5, range);
            moveTo(pixelAt(4.0 + side * 0.75 * reach));
            EXPECT_NE(strips().toolTip(), QString()) << range << ' ' << side;
            moveTo(pixelAt(4.0 + side * 1.25 * reach));
            EXPECT_EQ(strips().toolTip(), QString()) << range << ' ' << side;
            // Outside the window it is found from within.
            showTime(4.0 + side * (range * 0.5 + 0.4 * reach), range);
            moveTo(pixelAt(4.0 + side * 0.75 * reach));
            EXPECT_NE(strips().toolTip(), QString()) << range << ' ' << side;
        }
    }
}

TEST_F(ReviewFrameLabelsTest, ALabelIsEditedFromItsMenu)
{
    make("buttonModePoint", 2.5, 1, [](QWidget* dialog) { setText(dialog, "editPosition", "2.5"); });
    makeLine("line", 5.0);
    const QString file = path("edited.lab");
    {
        ModalAnswers answers;
        answers.chooseFile(file);
        save();
    }
    ASSERT_FALSE(isUnsaved());
    // Cancelled.
    editContext("Edit label", 2.5, 1, [](QWidget* dialog) {
        setText(dialog, "editName", "not wanted");
        dialog->close();
    });
    EXPECT_EQ(names(), QStringLiteral("New label name line"));
    EXPECT_FALSE(isUnsaved());
    editContext("Edit label", 2.5, 1, [](QWidget* dialog) {
        EXPECT_EQ(within<QLineEdit>(dialog, "editPosition").text(), QStringLiteral("2.500000"));
        EXPECT_EQ(within<QLabel>(dialog, "labelPositionUnit").text(), QStringLiteral("[deg]"));
        EXPECT_EQ(within<QComboBox>(dialog, "comboSignal").currentText(), QStringLiteral("second"));
        setText(dialog, "editName", "peak");
        setText(dialog, "editPosition", "3");
        setText(dialog, "editStartTime", "2.25");
        pressOk(dialog);
    });
    EXPECT_EQ(names(), QStringLiteral("line peak"));
    EXPECT_EQ(labels()[1].time, 2250u);
    EXPECT_EQ(labels()[1].signal, 1u);
    EXPECT_EQ(labels()[1].value, 320.0);
    EXPECT_TRUE(isUnsaved());
    EXPECT_EQ(namesIn(file), QStringLiteral("New label name line"));
    // A label that is edited leaves what the next one begins with.
    make("buttonModeTimeLine", 7.0);
    EXPECT_EQ(names(), QStringLiteral("line peak New label name"));
}

TEST_F(ReviewFrameLabelsTest, ALabelIsDeletedFromItsMenu)
{
    makeLine("one", 2.0);
    makeLine("two", 4.0);
    deleteAt(2.0, 2);
    EXPECT_EQ(names(), QStringLiteral("two"));
    EXPECT_TRUE(isUnsaved());
    // The label is gone for the menu too.
    rightClick(2.0, 2);
    find<QMenu>("menuContext").close();
    EXPECT_FALSE(actionOf("menuContext", QStringLiteral("Delete label")).isEnabled());
    deleteAt(4.0, 0);
    EXPECT_EQ(names(), QString());
}

TEST_F(ReviewFrameLabelsTest, UndoAndRedoTellWhetherTheFileIsUpToDate)
{
    QAction& undoAction = find<QAction>("actionUndo");
    QAction& redoAction = find<QAction>("actionRedo");
    EXPECT_FALSE(undoAction.isEnabled());
    makeLine("one", 2.0);
    makeLine("two", 4.0);
    EXPECT_EQ(undoAction.text(), QStringLiteral("Undo Add label"));
    {
        ModalAnswers answers;
        answers.chooseFile(path("a.lab"));
        save();
    }
    EXPECT_FALSE(isUnsaved());
    deleteAt(2.0, 0);
    const QStringList last = texts();
    EXPECT_TRUE(isUnsaved());
    undo();
    EXPECT_EQ(names(), QStringLiteral("one two"));
    EXPECT_FALSE(isUnsaved()) << "the file holds these";
    undo();
    EXPECT_EQ(names(), QStringLiteral("one"));
    EXPECT_TRUE(isUnsaved());
    undo();
    EXPECT_EQ(names(), QString());
    EXPECT_FALSE(undoAction.isEnabled());
    undo(); // nothing more
    EXPECT_TRUE(isUnsaved());
    redo();
    redo();
    EXPECT_EQ(names(), QStringLiteral("one two"));
    EXPECT_FALSE(isUnsaved());
    redo();
    EXPECT_EQ(texts(), last);
    EXPECT_TRUE(isUnsaved());
    EXPECT_FALSE(redoAction.isEnabled());
    // A step that was undone goes with the next change, and the stored state with it.
    undo();
    undo();
    makeLine("other", 6.0);
    EXPECT_EQ(names(), QStringLiteral("one other"));
    EXPECT_FALSE(redoAction.isEnabled());
    undo();
    EXPECT_TRUE(isUnsaved());
    EXPECT_EQ(namesIn(path("a.lab")), QStringLiteral("one two"));
}

TEST_F(ReviewFrameLabelsTest, UndoneLabelsAreNotFoundByTheOpenMenu)
{
    makeLine("one", 2.0);
    rightClick(2.0);
    find<QMenu>("menuContext").close();
    undo();
    // Its label is gone meanwhile.
    actionOf("menuContext", QStringLiteral("Delete label")).trigger();
    actionOf("menuContext", QStringLiteral("Edit label")).trigger();
    EXPECT_EQ(names(), QString());
    redo();
    EXPECT_EQ(names(), QStringLiteral("one"));
}

} // namespace
