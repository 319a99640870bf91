// Saccades corrected with the mouse over the charts, and from the list.

#include "saccadecenterfixture.h"

#include "selectsignal.h"

#include <QTreeWidget>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace
{

QStringList curveNames(CurvePlot& plot)
{
    QStringList names;
    for (int i = 0; i < plot.curveCount(); ++i)
        names << plot.curve(i)->name();
    return names;
}

class SaccadeCenterEditTest : public SaccadeCenterTest
{
protected:
    void SetUp() override
    {
        SaccadeCenterTest::SetUp();
        detect();
    }

    void expectWarning(ModalAnswers& answers, const QString& text)
    {
        answers.answer([text](QWidget* box) {
            ASSERT_TRUE(qobject_cast<QMessageBox*>(box));
            EXPECT_EQ(qobject_cast<QMessageBox*>(box)->text(), text);
            box->close();
        });
    }

    void selectInList(ModalAnswers& answers, const std::vector<int>& rows)
    {
        answers.answer([rows](QWidget* dialog) {
            EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Select saccades"));
            auto* const list = dialog->findChild<QTreeWidget*>(QStringLiteral("list"));
            ASSERT_TRUE(list);
            for (const int row : rows)
                list->topLevelItem(row)->setSelected(true);
            QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("buttonOk")), Qt::LeftButton);
        });
    }

    void acknowledge(ModalAnswers& answers, const QString& buttonText)
    {
        answers.answer([buttonText](QWidget* window) {
            auto* const box = qobject_cast<QMessageBox*>(window);
            ASSERT_TRUE(box);
            EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Cancel));
            for (QAbstractButton* button : box->buttons()) {
                if (button->text() == buttonText)
                    return button->click();
            }
            ADD_FAILURE() << "no such button";
            box->close();
        });
    }

    void wheel(int delta)
    {
        const QPointF place(position().rect().center());
        QWheelEvent event(place, position().mapToGlobal(place.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&position(), &event);
    }
};

TEST_F(SaccadeCenterEditTest, AddsASaccadeByADragWithShift)
{
    drag(1.5, 1.56, Qt::ShiftModifier);
    ASSERT_EQ(document().saccades().size(), SaccadeCount + 1);
    EXPECT_EQ(document().currentSaccade(), 1);
    const KiroSaccadeEye& added = document().saccades()[1].main;
    const auto sampleAt = [this](double seconds) {
        return int(std::lround(position().horzScaleValue(position().horzScalePoints(seconds)) * 1000.0));
    };
    EXPECT_EQ(added.start, sampleAt(1.5));
    EXPECT_EQ(added.end, sampleAt(1.56));
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("2 / 6"));
    EXPECT_FALSE(curveNames(position()).contains(QStringLiteral("new saccade")));
}

TEST_F(SaccadeCenterEditTest, AddsTheSameSaccadeFromRightToLeft)
{
    drag(1.5, 1.56, Qt::ShiftModifier);
    const QList<KiroSaccade> added = document().saccades();
    trigger("actionEditUndo");
    drag(1.56, 1.5, Qt::ShiftModifier);
    EXPECT_TRUE(sameList(document().saccades(), added));
}

TEST_F(SaccadeCenterEditTest, ShowsTheNewSaccadeInAllChartsWhileItIsDragged)
{
    CurvePlot& plot = position();
    const int from = plot.horzScalePoints(1.5);
    const int to = plot.horzScalePoints(1.6);
    const int y = plot.height() / 2;
    QTest::mousePress(&plot, Qt::LeftButton, Qt::ShiftModifier, QPoint(from, y));
    EXPECT_EQ(plot.cursor().shape(), Qt::IBeamCursor);
    moveTo(plot, QPoint(to, y), Qt::ShiftModifier);
    for (CurvePlot* chart : {&position(), &velocity()}) {
        const auto curve = chart->curve(chart->curveCount() - 1);
        EXPECT_EQ(curve->name(), QStringLiteral("new saccade"));
        EXPECT_EQ(curve->pen().color(), QColor(255, 0, 0, 128));
        EXPECT_EQ(curve->pen().widthF(), 3.0);
        ASSERT_FALSE(curve->points().isEmpty());
        EXPECT_NEAR(curve->points().first().x(), plot.horzScaleValue(from), 0.002);
        EXPECT_NEAR(curve->points().last().x(), plot.horzScaleValue(to), 0.002);
    }
    QTest::mouseRelease(&plot, Qt::LeftButton, Qt::ShiftModifier, QPoint(to, y));
    EXPECT_EQ(plot.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(SaccadeCenterEditTest, HoldsADragWithinTheSamples)
{
    scroll().setValue(scroll().maximum());
    drag(7.9, 9.5, Qt::ShiftModifier);
    ASSERT_EQ(document().saccades().size(), SaccadeCount + 1);
    EXPECT_EQ(document().saccades().last().main.end, SampleCount - 1);
}

TEST_F(SaccadeCenterEditTest, RefusesASaccadeThatIsTooShort)
{
    for (int i = 0; i < 20; ++i)
        click("buttonTimeZoomIn");
    scroll().setValue(1500);
    const QList<KiroSaccade> before = document().saccades();
    ModalAnswers answers;
    expectWarning(answers, QStringLiteral("A new saccade can't have duration shorter than %1 ms!")
                               .arg(std::max(5, SaccadeDetectionParams::atStart().minTime)));
    drag(1.6, 1.604, Qt::ShiftModifier);
    EXPECT_TRUE(sameList(document().saccades(), before));
    EXPECT_FALSE(curveNames(position()).contains(QStringLiteral("new saccade")));
}

TEST_F(SaccadeCenterEditTest, RefusesASaccadeOverAnother)
{
    ModalAnswers answers;
    expectWarning(answers, QStringLiteral("A new saccade can't overlap with exisiting one!"));
    drag(0.9, 1.1, Qt::ShiftModifier);
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
}

TEST_F(SaccadeCenterEditTest, MovesTheViewWithADrag)
{
    scroll().setValue(2000);
    const double least = position().vertMin();
    const double greatest = position().vertMax();
    const double otherLeast = velocity().vertMin();
    CurvePlot& plot = position();
    const QPoint start(plot.plotArea().center());
    const QPoint end = start + QPoint(-100, 20);
    QTest::mousePress(&plot, Qt::LeftButton, Qt::NoModifier, start);
    moveTo(plot, end);
    EXPECT_EQ(scroll().value(), 2000 + int(std::lround(plot.horzPoints2Scale(100) * 1000.0)));
    EXPECT_DOUBLE_EQ(plot.vertMin(), least + plot.vertPoints2Scale(20));
    EXPECT_DOUBLE_EQ(plot.vertMax(), greatest + plot.vertPoints2Scale(20));
    EXPECT_EQ(velocity().vertMin(), otherLeast);
    QTest::mouseRelease(&plot, Qt::LeftButton, Qt::NoModifier, end);
    const int place = scroll().value();
    moveTo(plot, start);
    EXPECT_EQ(scroll().value(), place) << "the drag has ended";
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
}

TEST_F(SaccadeCenterEditTest, DoesNotMoveTheViewBeyondTheEnds)
{
    CurvePlot& plot = position();
    const QPoint start(plot.plotArea().center());
    QTest::mousePress(&plot, Qt::LeftButton, Qt::NoModifier, start);
    moveTo(plot, start + QPoint(300, 0));
    EXPECT_EQ(scroll().value(), 0);
    QTest::mouseRelease(&plot, Qt::LeftButton, Qt::NoModifier, start + QPoint(300, 0));
}

TEST_F(SaccadeCenterEditTest, LeavesOtherButtonsAlone)
{
    CurvePlot& plot = position();
    const QPoint place(plot.plotArea().center());
    QTest::mousePress(&plot, Qt::RightButton, Qt::ShiftModifier, place);
    moveTo(plot, place + QPoint(50, 0));
    QTest::mouseRelease(&plot, Qt::RightButton, Qt::ShiftModifier, place + QPoint(50, 0));
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
    EXPECT_FALSE(curveNames(plot).contains(QStringLiteral("new saccade")));
}

TEST_F(SaccadeCenterEditTest, ChoosesASaccadeByADoubleClick)
{
    const KiroSaccadeEye& second = document().saccades()[1].main;
    const int middle = (second.start + second.end) / 2;
    const double value = document().eyes()[EyeAxis::RightHorizontal].position[std::size_t(middle)];
    const QPoint place(position().horzScalePoints(middle / 1000.0), position().vertScalePoints(value));
    const int before = scroll().value();
    QTest::mouseDClick(&position(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(document().currentSaccade(), 1);
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("2 / 5"));
    EXPECT_EQ(scroll().value(), before);
    EXPECT_EQ(position().curve(2)->pen().color(), QColor(Qt::blue));
    EXPECT_FALSE(action("actionEditUndo").isEnabled());
}

TEST_F(SaccadeCenterEditTest, MovesTheViewByTheWheel)
{
    scroll().setValue(2000);
    wheel(-120);
    EXPECT_EQ(scroll().value(), 2600);
    wheel(240);
    EXPECT_EQ(scroll().value(), 1400);
    EXPECT_DOUBLE_EQ(position().horzMin(), 1.4);
}

TEST_F(SaccadeCenterEditTest, RemovesTheCurrentSaccadeAndRepairsTheNextFixation)
{
    trigger("actionSaccRemoveCurrent");
    ASSERT_EQ(document().saccades().size(), SaccadeCount - 1);
    EXPECT_EQ(document().saccades()[0].main.fixation, document().saccades()[0].main.start + 1);
    EXPECT_EQ(document().currentSaccade(), 0);
    EXPECT_TRUE(isDirty());
    trigger("actionSaccNext");
    trigger("actionSaccRemoveCurrent");
    EXPECT_EQ(document().saccades()[1].main.fixation,
              document().saccades()[1].main.start - document().saccades()[0].main.end + 1);
    EXPECT_EQ(scroll().value(), document().saccades()[1].main.start - 1500);
    trigger("actionSaccLast");
    trigger("actionSaccRemoveCurrent");
    EXPECT_EQ(document().currentSaccade(), 1);
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("2 / 2"));
}

TEST_F(SaccadeCenterEditTest, RemovesTheOnlySaccadeAndUndoesAllOfIt)
{
    const QList<KiroSaccade> before = document().saccades();
    for (int i = 0; i < SaccadeCount; ++i)
        trigger("actionSaccRemoveCurrent");
    EXPECT_TRUE(document().saccades().isEmpty());
    EXPECT_TRUE(isDirty());
    EXPECT_FALSE(action("actionSaccRemoveCurrent").isEnabled());
    EXPECT_EQ(position().curveCount(), 1);
    for (int i = 0; i < SaccadeCount; ++i)
        trigger("actionEditUndo");
    EXPECT_TRUE(sameList(document().saccades(), before));
    EXPECT_FALSE(action("actionEditUndo").isEnabled());
    EXPECT_EQ(label("labelCurrent"), QStringLiteral("1 / 5"));
}

TEST_F(SaccadeCenterEditTest, RemovesThoseSelectedInTheList)
{
    ModalAnswers answers;
    selectInList(answers, {0, 2, 4});
    acknowledge(answers, QStringLiteral("Remove"));
    trigger("actionSaccRemoveSelected");
    EXPECT_EQ(
        answers.seen().last(),
        QStringLiteral("Saccades browser - %1|Please acknowledge selected removal of selected 3 saccades.")
            .arg(path("eye.kiro")));
    ASSERT_EQ(document().saccades().size(), 2);
    EXPECT_NEAR(document().saccades()[0].main.start, 2000, 15);
    EXPECT_NEAR(document().saccades()[1].main.start, 4000, 15);
    trigger("actionEditUndo");
    EXPECT_EQ(document().saccades().size(), SaccadeCount) << "one step for all";
}

TEST_F(SaccadeCenterEditTest, KeepsThoseSelectedWhenTheRemovalIsNotAcknowledged)
{
    ModalAnswers answers;
    selectInList(answers, {0, 2});
    acknowledge(answers, QStringLiteral("Cancel"));
    trigger("actionSaccRemoveSelected");
    answers.reject();
    trigger("actionSaccRemoveSelected");
    EXPECT_EQ(document().saccades().size(), SaccadeCount);
}

TEST_F(SaccadeCenterEditTest, ListsTheSaccadesWithTheirMeasures)
{
    ModalAnswers answers;
    answers.answer([this](QWidget* dialog) {
        const auto* const list = dialog->findChild<QTreeWidget*>(QStringLiteral("list"));
        QStringList heads;
        QStringList cells;
        for (int i = 0; i < list->columnCount(); ++i) {
            heads << list->headerItem()->text(i);
            cells << list->topLevelItem(1)->text(i);
        }
        EXPECT_EQ(heads,
                  QStringList({QStringLiteral("No"), QStringLiteral("Begin [s]"),
                               QStringLiteral("Duration [ms]"), QStringLiteral("Fixation [ms]"),
                               QStringLiteral("Amplitude [deg]"), QStringLiteral("Peak velocity [deg/s]")}));
        const KiroSaccadeEye& eye = document().saccades()[1].main;
        EXPECT_EQ(cells, QStringList({QStringLiteral("2"), QString::number(eye.start / 1000.0, 'f', 3),
                                      QString::number(eye.duration), QString::number(eye.fixation),
                                      QString::number(eye.amplitude, 'f', 1),
                                      QString::number(eye.peakVelocity, 'f', 1)}));
        dialog->resize(700, 500);
        dialog->close();
    });
    trigger("actionSaccRemoveSelected");
    IniStore store;
    ASSERT_TRUE(store.load(path("settings.ini")));
    EXPECT_EQ(store.value(QStringLiteral("SELECT_SACCADES_DIALOG"), QStringLiteral("win_size"), QString()),
              QStringLiteral("700,500"));
}

TEST_F(SaccadeCenterEditTest, MarksSaccadesAndBlinksOverTheSignal)
{
    EXPECT_EQ(curveNames(position()),
              QStringList({QString(), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2")}))
        << "those within three seconds";
    EXPECT_EQ(position().curve(1)->pen().color(), QColor(Qt::blue));
    EXPECT_EQ(position().curve(2)->pen().color(), QColor(Qt::green));
    const KiroSaccadeEye& first = document().saccades()[0].main;
    EXPECT_EQ(position().curve(1)->points().size(), first.duration);
    EXPECT_EQ(position().curve(1)->points().first().x(), first.start / 1000.0);
    EXPECT_EQ(velocity().curve(1)->points().first().y(),
              document().eyes()[EyeAxis::RightHorizontal].velocity[std::size_t(first.start)]);
}

} // namespace
