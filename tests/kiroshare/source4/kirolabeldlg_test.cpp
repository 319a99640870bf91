#include "kirolabeldlg.h"

#include "colorsample.h"
#include "descriptionedit.h"
#include "labeldialogfixture.h"
#include "windows/windowmessages.h"

#include <QPushButton>
#include <QToolButton>

namespace
{

const QColor GivenColor(10, 20, 30);

KiroLabel labelOf(KiroLabel::Type type)
{
    KiroLabel label;
    label.type = type;
    label.time = 1500;
    label.endTime = 2250;
    label.value = -7.5;
    label.signal = 1;
    label.color = GivenColor;
    label.setName(QStringLiteral("blink"));
    label.setDescription(QStringLiteral("both\neyes"));
    return label;
}

/// "type signal time endTime value name/description/color"
std::string textOf(const KiroLabel& label)
{
    return QStringLiteral("%1 %2 %3 %4 %5 %6/%7/%8")
        .arg(label.type)
        .arg(label.signal)
        .arg(label.time)
        .arg(label.endTime)
        .arg(label.value)
        .arg(label.name(), label.description(), label.color.name())
        .toStdString();
}

class KiroLabelDlgTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_dialog.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        show(labelOf(KiroLabel::Point));
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    /// Of the signals "A", "B" and "C" only "B" has a unit; the recording takes 20 s.
    void show(const KiroLabel& label, int templates = 3)
    {
        m_dialog.setData({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")},
                         {QString(), QStringLiteral("deg")}, 20.0, label, numberedTemplates(templates));
    }
    QLineEdit* edit(const char* name) { return widgetIn<QLineEdit>(m_dialog, name); }
    QComboBox* box(const char* name) { return widgetIn<QComboBox>(m_dialog, name); }
    DescriptionEdit* description() { return widgetIn<DescriptionEdit>(m_dialog, "editDescription"); }
    QColor sampleColor()
    {
        return widgetIn<ColorSample>(m_dialog, "sampleColor")->palette().color(QPalette::Window);
    }
    std::string positionUnit()
    {
        return widgetIn<QLabel>(m_dialog, "labelPositionUnit")->text().toStdString();
    }
    bool isOkEnabled()
    {
        return widgetIn<QDialogButtonBox>(m_dialog, "buttonBox")->button(QDialogButtonBox::Ok)->isEnabled();
    }
    void type(const char* name, const char* text)
    {
        edit(name)->selectAll();
        QTest::keyClick(edit(name), Qt::Key_Delete);
        QTest::keyClicks(edit(name), QString::fromLatin1(text));
    }
    void chooseType(KiroLabel::Type type) { chooseRow(box("comboType"), int(type) - 1); }
    /// Which of the fields that depend on the type are shown, with their captions and units.
    std::string fields()
    {
        QStringList shown;
        for (const char* name :
             {"labelSignal", "comboSignal", "labelPosition", "editPosition", "labelPositionUnit",
              "labelStartTime", "editStartTime", "labelEndTime", "editEndTime", "labelEndTimeUnit"}) {
            if (widgetIn<QWidget>(m_dialog, name)->isVisible())
                shown << QString::fromLatin1(name);
        }
        return shown.join(QLatin1Char(' ')).toStdString();
    }
    std::string texts()
    {
        return (edit("editName")->text() + QLatin1Char('/') + description()->description() +
                QLatin1Char('/') + sampleColor().name())
            .toStdString();
    }

    ModalAnswers m_answers;
    KiroLabelDlg m_dialog;
};

constexpr char PointFields[] = "labelSignal comboSignal labelPosition editPosition labelPositionUnit "
                               "labelStartTime editStartTime";
constexpr char SignalLineFields[] = "labelSignal comboSignal labelStartTime editStartTime";
constexpr char TimeLineFields[] = "labelStartTime editStartTime";
constexpr char SignalPeriodFields[] =
    "labelSignal comboSignal labelStartTime editStartTime labelEndTime editEndTime labelEndTimeUnit";
constexpr char TimePeriodFields[] = "labelStartTime editStartTime labelEndTime editEndTime labelEndTimeUnit";
const std::pair<KiroLabel::Type, const char*> FieldsOfTypes[] = {
    {KiroLabel::SignalLine, SignalLineFields},
    {KiroLabel::TimePeriod, TimePeriodFields},
    {KiroLabel::SignalPeriod, SignalPeriodFields},
    {KiroLabel::TimeLine, TimeLineFields},
    {KiroLabel::Point, PointFields}};

} // namespace

TEST_F(KiroLabelDlgTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<KiroLabelDlg>(), "");
}

TEST_F(KiroLabelDlgTest, Texts)
{
    EXPECT_EQ(m_dialog.windowTitle(), QStringLiteral("Kiro label settings"));
    const std::tuple<const char*, const char*, const char*> captions[] = {
        {"labelName", "Label name", "editName"},
        {"labelDescription", "Label description", "editDescription"},
        {"labelColor", "Label color", "buttonColor"},
        {"labelType", "Label type", "comboType"},
        {"labelTemplate", "Label template", "comboTemplate"},
        {"labelSignal", "Signal", "comboSignal"},
        {"labelPosition", "Position", "editPosition"},
        {"labelStartTime", "Start time", "editStartTime"},
        {"labelEndTime", "End time", "editEndTime"}};
    for (const auto& [label, text, field] : captions) {
        EXPECT_EQ(plainText(widgetIn<QLabel>(m_dialog, label)->text()), text);
        EXPECT_EQ(widgetIn<QLabel>(m_dialog, label)->buddy(), widgetIn<QWidget>(m_dialog, field));
    }
    EXPECT_EQ(widgetIn<QLabel>(m_dialog, "labelEndTimeUnit")->text(), QStringLiteral("[s]"));
    QStringList types;
    for (int i = 0; i < box("comboType")->count(); ++i)
        types << box("comboType")->itemText(i);
    EXPECT_EQ(types.join(QLatin1Char('|')).toStdString(),
              "Point|Signal line|Time line|Signal period|Time period");
}

TEST_F(KiroLabelDlgTest, MnemonicsLeadToOneField)
{
    QStringList letters = mnemonicsOf(m_dialog);
    EXPECT_GE(letters.size(), 11);
    letters.removeDuplicates();
    EXPECT_EQ(letters, mnemonicsOf(m_dialog));
    EXPECT_EQ(namelessFieldsOf(m_dialog), "");
}

TEST_F(KiroLabelDlgTest, TabLeadsFromTopToBottom)
{
    widgetIn<QWidget>(m_dialog, "editName")->setFocus();
    EXPECT_EQ(tabOrderOf(m_dialog),
              "editName editDescription buttonColor comboTemplate buttonEditTemplates buttonTemplate1 "
              "buttonTemplate2 buttonTemplate3 comboType comboSignal editPosition editStartTime - -");
}

TEST_F(KiroLabelDlgTest, ShowsTheLabel)
{
    show(labelOf(KiroLabel::SignalPeriod));
    EXPECT_EQ(texts(), "blink/both\neyes/#0a141e");
    EXPECT_EQ(box("comboType")->currentText(), QStringLiteral("Signal period"));
    EXPECT_EQ(box("comboSignal")->currentText(), QStringLiteral("B"));
    EXPECT_EQ(edit("editStartTime")->text(), QStringLiteral("1.500"));
    EXPECT_EQ(edit("editEndTime")->text(), QStringLiteral("2.250"));
    EXPECT_EQ(edit("editPosition")->text(), QStringLiteral("-7.500000"));
    EXPECT_EQ(positionUnit(), "[deg]");
    EXPECT_TRUE(isOkEnabled());
    EXPECT_EQ(textOf(m_dialog.label()), textOf(labelOf(KiroLabel::SignalPeriod)));
    EXPECT_EQ(textOf(m_dialog.templates()), textOf(numberedTemplates(3)));
}

TEST_F(KiroLabelDlgTest, TheNameIsSelectedForTyping)
{
    EXPECT_EQ(m_dialog.focusWidget(), edit("editName"));
    EXPECT_EQ(edit("editName")->selectedText(), QStringLiteral("blink"));
    QTest::keyClicks(m_dialog.focusWidget(), QStringLiteral("nystagmus"));
    QTest::keyClick(m_dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(m_dialog.label().name(), QStringLiteral("nystagmus"));
}

TEST_F(KiroLabelDlgTest, ALabelThatIsNotValidStartsWithOkDisabled)
{
    KiroLabel late = labelOf(KiroLabel::TimeLine);
    late.time = 20001;
    show(late);
    EXPECT_FALSE(isOkEnabled());
    EXPECT_EQ(textOf(m_dialog.label()), textOf(late));
    show(labelOf(KiroLabel::TimeLine));
    EXPECT_TRUE(isOkEnabled());
}

TEST_F(KiroLabelDlgTest, NumbersAreInTheLocaleOfTheDialog)
{
    m_dialog.setLocale(QLocale(QLocale::Polish, QLocale::Poland));
    show(labelOf(KiroLabel::Point));
    EXPECT_EQ(edit("editStartTime")->text(), QStringLiteral("1,500"));
    EXPECT_TRUE(isOkEnabled());
    type("editStartTime", "3,25");
    EXPECT_EQ(m_dialog.label().time, 3250u);
    type("editStartTime", "3.25");
    EXPECT_FALSE(isOkEnabled());
}

TEST_F(KiroLabelDlgTest, EachTypeOfALabelShowsItsFields)
{
    for (const auto& [type, expected] : FieldsOfTypes) {
        show(labelOf(type));
        EXPECT_EQ(fields(), expected) << type;
        EXPECT_EQ(box("comboType")->currentIndex(), int(type) - 1);
    }
}

TEST_F(KiroLabelDlgTest, ChoosingATypeShowsItsFields)
{
    for (const auto& [type, expected] : FieldsOfTypes) {
        chooseType(type);
        EXPECT_EQ(fields(), expected) << type;
        EXPECT_EQ(m_dialog.label().type, type);
    }
}

TEST_F(KiroLabelDlgTest, ALabelOfNoKnownTypeWaitsForOne)
{
    show(labelOf(KiroLabel::Type(9)));
    EXPECT_EQ(box("comboType")->currentIndex(), -1);
    EXPECT_FALSE(isOkEnabled());
    chooseType(KiroLabel::TimeLine);
    EXPECT_TRUE(isOkEnabled());
}

TEST_F(KiroLabelDlgTest, WhetherOkIsEnabledFollowsTheType)
{
    type("editPosition", "x");
    EXPECT_FALSE(isOkEnabled());
    chooseType(KiroLabel::SignalPeriod);
    EXPECT_TRUE(isOkEnabled());
    type("editEndTime", "1.5");
    EXPECT_FALSE(isOkEnabled());
    chooseType(KiroLabel::TimePeriod);
    EXPECT_FALSE(isOkEnabled());
    chooseType(KiroLabel::TimeLine);
    EXPECT_TRUE(isOkEnabled());
    chooseType(KiroLabel::Point);
    EXPECT_FALSE(isOkEnabled());
}

TEST_F(KiroLabelDlgTest, AStartAtTheDurationIsValidAndAMillisecondLaterIsNot)
{
    for (const KiroLabel::Type kind : {KiroLabel::Point, KiroLabel::SignalLine, KiroLabel::TimeLine}) {
        chooseType(kind);
        type("editStartTime", "20.000");
        EXPECT_TRUE(isOkEnabled()) << kind;
        type("editStartTime", "20.001");
        EXPECT_FALSE(isOkEnabled()) << kind;
        EXPECT_EQ(m_dialog.label().time, 20000u);
    }
}

TEST_F(KiroLabelDlgTest, AnEndAtTheStartIsNotValid)
{
    for (const KiroLabel::Type kind : {KiroLabel::SignalPeriod, KiroLabel::TimePeriod}) {
        chooseType(kind);
        type("editEndTime", "1.500");
        EXPECT_FALSE(isOkEnabled()) << kind;
        type("editEndTime", "1.501");
        EXPECT_TRUE(isOkEnabled()) << kind;
        EXPECT_EQ(m_dialog.label().endTime, 1501u);
    }
}

TEST_F(KiroLabelDlgTest, ReturnDoesNothingWhileOkIsDisabled)
{
    type("editStartTime", "x");
    QTest::keyClick(edit("editStartTime"), Qt::Key_Return);
    EXPECT_TRUE(m_dialog.isVisible());
}

TEST_F(KiroLabelDlgTest, OkGivesAllThatWasEntered)
{
    show(labelOf(KiroLabel::TimeLine));
    chooseType(KiroLabel::SignalPeriod);
    chooseRow(box("comboSignal"), 2);
    type("editName", "n");
    description()->setPlainText(QStringLiteral("d"));
    type("editStartTime", "3.0005");
    type("editEndTime", "4");
    answerColor(m_answers, QColor(200, 100, 50));
    clickOn(m_dialog, "buttonColor");
    press(m_dialog, QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(textOf(m_dialog.label()), "4 2 3001 4000 -7.5 n/d/#c86432");
}

TEST_F(KiroLabelDlgTest, OkWithoutAChangeGivesTheLabel)
{
    for (const auto& [type, ignored] : FieldsOfTypes) {
        show(labelOf(type));
        m_dialog.show();
        press(m_dialog, QDialogButtonBox::Ok);
        EXPECT_EQ(textOf(m_dialog.label()), textOf(labelOf(type)));
    }
}

TEST_F(KiroLabelDlgTest, OkWithoutAChangeKeepsTheExactPosition)
{
    for (const double value : {1e-9, -1.0 / 3.0, 123456789.123456789}) {
        KiroLabel label = labelOf(KiroLabel::Point);
        label.value = value;
        show(label);
        m_dialog.show();
        press(m_dialog, QDialogButtonBox::Ok);
        EXPECT_EQ(m_dialog.label().value, value);
    }
}

TEST_F(KiroLabelDlgTest, CancelLeavesTheLabel)
{
    const auto changeAll = [this] {
        chooseType(KiroLabel::SignalPeriod);
        chooseRow(box("comboSignal"), 2);
        type("editName", "n");
        description()->setPlainText(QStringLiteral("d"));
        type("editStartTime", "3");
        type("editEndTime", "4");
        clickOn(m_dialog, "buttonTemplate1");
    };
    changeAll();
    press(m_dialog, QDialogButtonBox::Cancel);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_EQ(textOf(m_dialog.label()), textOf(labelOf(KiroLabel::Point)));
    m_dialog.show();
    changeAll();
    QTest::keyClick(&m_dialog, Qt::Key_Escape);
    EXPECT_EQ(textOf(m_dialog.label()), textOf(labelOf(KiroLabel::Point)));
    m_dialog.show();
    changeAll();
    m_dialog.close();
    EXPECT_EQ(textOf(m_dialog.label()), textOf(labelOf(KiroLabel::Point)));
}

TEST_F(KiroLabelDlgTest, ThePositionUnitFollowsTheSignal)
{
    EXPECT_EQ(positionUnit(), "[deg]");
    for (const auto& [row, unit] : {std::pair(0, ""), std::pair(1, "[deg]"), std::pair(2, "")}) {
        chooseRow(box("comboSignal"), row);
        EXPECT_EQ(positionUnit(), unit) << row;
        EXPECT_EQ(m_dialog.label().signal, quint32(row));
    }
}

TEST_F(KiroLabelDlgTest, APointOnASignalWithoutUnitShowsNone)
{
    KiroLabel label = labelOf(KiroLabel::Point);
    label.signal = 0;
    show(label);
    EXPECT_EQ(positionUnit(), "");
}

TEST_F(KiroLabelDlgTest, ATimeLineThatBecomesAPointShowsTheUnit)
{
    show(labelOf(KiroLabel::TimeLine));
    chooseType(KiroLabel::Point);
    EXPECT_EQ(positionUnit(), "[deg]");
}

TEST_F(KiroLabelDlgTest, ASignalThatIsNotListedStaysUntilAnotherIsChosen)
{
    for (const quint32 unlisted : {3u, 0x80000000u, 0xffffffffu}) {
        KiroLabel label = labelOf(KiroLabel::Point);
        label.signal = unlisted;
        show(label);
        EXPECT_EQ(box("comboSignal")->currentIndex(), -1);
        EXPECT_EQ(positionUnit(), "");
        EXPECT_EQ(m_dialog.label().signal, unlisted);
        chooseRow(box("comboSignal"), 0);
        EXPECT_EQ(m_dialog.label().signal, 0u);
    }
}

TEST_F(KiroLabelDlgTest, AUnitIsNoRichText)
{
    m_dialog.setData({QStringLiteral("A"), QStringLiteral("B")}, {QString(), QStringLiteral("<b>V</b>")},
                     20.0, labelOf(KiroLabel::Point), {});
    EXPECT_EQ(positionUnit(), "[<b>V</b>]");
    EXPECT_EQ(widgetIn<QLabel>(m_dialog, "labelPositionUnit")->textFormat(), Qt::PlainText);
}

TEST_F(KiroLabelDlgTest, LongNamesLeaveTheWindowAsItIs)
{
    const int width = m_dialog.minimumSizeHint().width();
    const QString name(300, QLatin1Char('X'));
    KiroLabel label = labelOf(KiroLabel::Point);
    label.setName(name);
    m_dialog.setData({name, name}, {name, name}, 20.0, label, {LabelTemplate{name, name, name, Qt::red}});
    // The unit has more room than a short one, but not all that it asks for.
    EXPECT_LE(m_dialog.minimumSizeHint().width(), width);
    EXPECT_LE(m_dialog.sizeHint().width(), 3 * width / 2);
    EXPECT_EQ(edit("editName")->text(), name);
}

TEST_F(KiroLabelDlgTest, TheColorDialogGivesTheColor)
{
    answerColor(m_answers, QColor(200, 100, 50));
    clickOn(m_dialog, "buttonColor");
    EXPECT_EQ(m_answers.seen(), QStringList(QStringLiteral("Label color|")));
    EXPECT_EQ(sampleColor(), QColor(200, 100, 50));
    EXPECT_EQ(m_dialog.label().color, QColor(200, 100, 50));
}

TEST_F(KiroLabelDlgTest, LeavingTheColorDialogChangesNothing)
{
    m_answers.reject();
    clickOn(m_dialog, "buttonColor");
    EXPECT_EQ(sampleColor(), GivenColor);
    EXPECT_EQ(m_dialog.label().color, GivenColor);
}

TEST_F(KiroLabelDlgTest, TheBoxListsTheTemplatesBehindAnEmptyEntry)
{
    QStringList names;
    for (int i = 0; i < box("comboTemplate")->count(); ++i)
        names << box("comboTemplate")->itemText(i);
    EXPECT_EQ(names.join(QLatin1Char('|')).toStdString(), "|T1|T2|T3");
    EXPECT_EQ(box("comboTemplate")->currentIndex(), 0);
}

TEST_F(KiroLabelDlgTest, ChoosingATemplateAppliesIt)
{
    chooseRow(box("comboTemplate"), 2);
    EXPECT_EQ(texts(), "name 2/text 2/#020000");
    EXPECT_EQ(m_dialog.label().color, QColor(2, 0, 0));
    chooseRow(box("comboTemplate"), 0);
    EXPECT_EQ(texts(), "name 2/text 2/#020000");
    press(m_dialog, QDialogButtonBox::Ok);
    EXPECT_EQ(textOf(m_dialog.label()), "1 1 1500 2250 -7.5 name 2/text 2/#020000");
}

TEST_F(KiroLabelDlgTest, AnUnknownTemplateDoesNothing)
{
    ASSERT_TRUE(QMetaObject::invokeMethod(&m_dialog, "on_comboTemplate_activated",
                                          Q_ARG(QString, QStringLiteral("T4"))));
    ASSERT_TRUE(QMetaObject::invokeMethod(&m_dialog, "onFastTemplate", Q_ARG(int, 4)));
    ASSERT_TRUE(QMetaObject::invokeMethod(&m_dialog, "onFastTemplate", Q_ARG(int, 0)));
    EXPECT_EQ(texts(), "blink/both\neyes/#0a141e");
    EXPECT_EQ(m_dialog.label().color, GivenColor);
}

TEST_F(KiroLabelDlgTest, ElevenTemplatesFillTenButtons)
{
    show(labelOf(KiroLabel::Point), 11);
    for (int i = 1; i <= 10; ++i) {
        const QByteArray name = "buttonTemplate" + QByteArray::number(i);
        const auto* const button = widgetIn<QToolButton>(m_dialog, name.constData());
        EXPECT_TRUE(button->isEnabled());
        EXPECT_EQ(button->toolTip(), QStringLiteral("T%1").arg(i));
        EXPECT_EQ(button->icon().pixmap(22, 22).toImage().pixelColor(11, 11), QColor(i, 0, 0));
        clickOn(m_dialog, name.constData());
        EXPECT_EQ(box("comboTemplate")->currentIndex(), i);
        EXPECT_EQ(texts(),
                  QStringLiteral("name %1/text %1/%2").arg(i).arg(QColor(i, 0, 0).name()).toStdString());
        EXPECT_EQ(m_dialog.label().color, QColor(i, 0, 0));
    }
    chooseRow(box("comboTemplate"), 11);
    EXPECT_EQ(texts(), "name 11/text 11/#0b0000");
}

TEST_F(KiroLabelDlgTest, ButtonsBeyondTheListAreDisabledWithoutIcon)
{
    for (int i = 1; i <= 10; ++i) {
        const QByteArray name = "buttonTemplate" + QByteArray::number(i);
        const auto* const button = widgetIn<QToolButton>(m_dialog, name.constData());
        EXPECT_EQ(button->isEnabled(), i <= 3) << i;
        EXPECT_EQ(button->icon().isNull(), i > 3) << i;
    }
}

TEST_F(KiroLabelDlgTest, EditedTemplatesAreOfferedAtOnceAndStayAfterCancel)
{
    m_answers.answer([](QWidget* window) {
        EXPECT_EQ(window->windowTitle(), QStringLiteral("Kiro label templates"));
        EXPECT_EQ(widgetIn<QComboBox>(*window, "comboTemplate")->count(), 3);
        clickOn(*window, "buttonDelTemplate");
        widgetIn<QLineEdit>(*window, "editLabelName")->setText(QStringLiteral("changed"));
        press(*window, QDialogButtonBox::Ok);
    });
    clickOn(m_dialog, "buttonEditTemplates");
    const std::string expected = "T2=changed/text 2/#020000 T3=name 3/text 3/#030000";
    EXPECT_EQ(textOf(m_dialog.templates()), expected);
    EXPECT_EQ(box("comboTemplate")->count(), 3);
    EXPECT_EQ(widgetIn<QToolButton>(m_dialog, "buttonTemplate1")->toolTip(), QStringLiteral("T2"));
    EXPECT_FALSE(widgetIn<QToolButton>(m_dialog, "buttonTemplate3")->isEnabled());
    EXPECT_EQ(texts(), "blink/both\neyes/#0a141e");
    press(m_dialog, QDialogButtonBox::Cancel);
    EXPECT_EQ(textOf(m_dialog.templates()), expected);
}

TEST_F(KiroLabelDlgTest, LeavingTheTemplatesDialogChangesNothing)
{
    m_answers.answer([](QWidget* window) {
        clickOn(*window, "buttonDelTemplate");
        press(*window, QDialogButtonBox::Cancel);
    });
    clickOn(m_dialog, "buttonEditTemplates");
    EXPECT_EQ(textOf(m_dialog.templates()), textOf(numberedTemplates(3)));
    EXPECT_EQ(box("comboTemplate")->count(), 4);
}

TEST_F(KiroLabelDlgTest, TheDescriptionTakesTheRoomThatIsLeft)
{
    m_dialog.resize(m_dialog.minimumSizeHint());
    QApplication::processEvents();
    const int descriptionHeight = description()->height();
    const int editHeight = edit("editStartTime")->height();
    m_dialog.resize(m_dialog.width(), m_dialog.height() + 200);
    QApplication::processEvents();
    EXPECT_EQ(description()->height(), descriptionHeight + 200);
    EXPECT_EQ(edit("editStartTime")->height(), editHeight);
}
