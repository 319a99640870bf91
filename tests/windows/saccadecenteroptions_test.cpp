#include "saccadecenteroptions.h"

#include "appconfig.h"
#include "inistore.h"
#include "pensetupdialog.h"
#include "previewframe.h"
#include "separatordlg.h"

#include "kiroshare/source4/dialogprobe.h"
#include "modalanswers.h"
#include "windowmessages.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

/// Settings that differ from those at the start wherever the dialog edits them.
SaccadeCenterSettings given()
{
    SaccadeCenterSettings settings;
    settings.openFolder = QStringLiteral("/data");
    settings.plot.background = QColor(250, 250, 240);
    settings.print.background = QColor(240, 250, 250);
    settings.print.saccadeLeft.setWidth(7);
    settings.timeWindowMs = 2750.0;
    return settings;
}

/// What the settings file would hold, and the choice that it does not.
std::string textOf(const SaccadeCenterSettings& settings)
{
    IniStore store;
    store.setSection(SaccadeCenterSettings::section());
    settings.save(store);
    return store.toString().toStdString() +
           (settings.indexes.commentNamesRecording ? "recording" : "saccades");
}

class SaccadeCenterOptionsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_dialog.setSettings(given());
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    template <class Widget>
    Widget* widget(const char* name)
    {
        return widgetIn<Widget>(m_dialog, name);
    }
    QList<QWidget*> pages()
    {
        const auto* tabs = widget<QTabWidget>("tabs");
        QList<QWidget*> result;
        for (int i = 0; i < tabs->count(); ++i)
            result << tabs->widget(i);
        return result;
    }
    void openPage(const char* name) { widget<QTabWidget>("tabs")->setCurrentWidget(widget<QWidget>(name)); }
    void press(QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(widget<QDialogButtonBox>("buttonBox")->button(button), Qt::LeftButton);
    }
    /// Presses the mark of a check box or radio button, which may be narrower than its text's field.
    void toggle(const char* button)
    {
        auto* const target = widget<QAbstractButton>(button);
        ASSERT_TRUE(target->isVisible()) << button;
        QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, QPoint(8, target->height() / 2));
    }
    void type(const char* spin, const char* text)
    {
        auto* const edit = widget<QSpinBox>(spin);
        ASSERT_TRUE(edit->isVisible()) << spin;
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }
    void choose(const char* combo, const char* text)
    {
        auto* const box = widget<QComboBox>(combo);
        ASSERT_TRUE(box->isVisible()) << combo;
        box->setFocus();
        QTest::keyClicks(box, QString::fromLatin1(text));
    }
    /// What the dialog gives after OK.
    std::string accepted()
    {
        press(QDialogButtonBox::Ok);
        EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
        EXPECT_FALSE(m_dialog.isVisible());
        return textOf(m_dialog.settings());
    }
    void chooseColor(const QColor& color)
    {
        m_answers.answer([color](QWidget* window) {
            auto* const chooser = qobject_cast<QColorDialog*>(window);
            ASSERT_TRUE(chooser);
            chooser->setCurrentColor(color);
            chooser->accept();
        });
    }
    /// Expects a pen dialog with this pen and background, and accepts it with another style and width.
    void choosePen(const QPen& shown, const QColor& background)
    {
        m_answers.answer([shown, background](QWidget* window) {
            auto* const chooser = qobject_cast<PenSetupDialog*>(window);
            ASSERT_TRUE(chooser);
            EXPECT_EQ(chooser->pen(), shown);
            EXPECT_EQ(widgetIn<PreviewFrame>(*chooser, "preview")->background(), background);
            widgetIn<QSpinBox>(*chooser, "spinWidth")->setValue(9);
            widgetIn<QComboBox>(*chooser, "comboStyle")->setCurrentIndex(4);
            chooser->accept();
        });
    }

    ModalAnswers m_answers;
    SaccadeCenterOptions m_dialog;
};

struct PenRow
{
    const char* name;
    QPen SaccadePlotLook::*pen;
};

const PenRow PenRows[] = {{"EyeSignal", &SaccadePlotLook::eyeSignal},
                          {"SaccLeft", &SaccadePlotLook::saccadeLeft},
                          {"SaccRight", &SaccadePlotLook::saccadeRight},
                          {"SaccSelected", &SaccadePlotLook::saccadeSelected},
                          {"Blinks", &SaccadePlotLook::blinks}};

struct LookPage
{
    const char* page;
    const char* prefix;
    SaccadePlotLook SaccadeCenterSettings::*look;
};

const LookPage LookPages[] = {{"pagePlot", "", &SaccadeCenterSettings::plot},
                              {"pagePrint", "Print", &SaccadeCenterSettings::print}};

std::string joined(std::initializer_list<const char*> parts)
{
    std::string whole;
    for (const char* part : parts)
        whole += part;
    return whole;
}

/// The letters that are marked as mnemonics, in a page's labels and buttons.
QStringList mnemonics(const QWidget& page)
{
    QStringList letters;
    const auto add = [&letters](const QString& text) {
        const int mark = text.indexOf(QLatin1Char('&'));
        if (mark >= 0)
            letters << text.mid(mark + 1, 1).toLower();
    };
    for (const auto* label : page.findChildren<QLabel*>())
        add(label->text());
    for (const auto* button : page.findChildren<QAbstractButton*>())
        add(button->text());
    return letters;
}

} // namespace

TEST_F(SaccadeCenterOptionsTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<SaccadeCenterOptions>(), "");
}

TEST_F(SaccadeCenterOptionsTest, HasAPageForEachKindOfOption)
{
    QStringList titles;
    const auto* tabs = widget<QTabWidget>("tabs");
    for (int i = 0; i < tabs->count(); ++i) {
        titles << tabs->tabText(i);
        EXPECT_FALSE(tabs->tabToolTip(i).isEmpty()) << i;
    }
    EXPECT_EQ(titles.join(QLatin1Char('|')).toStdString(),
              "General|Charts|Printing|Text|Labels|Recording|Samples|Images");
    EXPECT_EQ(tabs->currentIndex(), 0);
}

TEST_F(SaccadeCenterOptionsTest, EveryFieldHasHelpAndAName)
{
    int count = 0;
    for (const QWidget* page : pages()) {
        for (const QWidget* field : page->findChildren<QWidget*>()) {
            const bool isField = qobject_cast<const QAbstractButton*>(field) ||
                                 qobject_cast<const QComboBox*>(field) ||
                                 qobject_cast<const QAbstractSpinBox*>(field);
            if (!isField)
                continue;
            ++count;
            EXPECT_FALSE(field->toolTip().isEmpty()) << qPrintable(field->objectName());
            EXPECT_FALSE(field->accessibleName().isEmpty()) << qPrintable(field->objectName());
        }
    }
    EXPECT_EQ(count, 45);
}

TEST_F(SaccadeCenterOptionsTest, MnemonicsLeadToOneFieldOfAPage)
{
    for (const QWidget* page : pages()) {
        QStringList letters = mnemonics(*page);
        EXPECT_FALSE(letters.isEmpty());
        letters.removeDuplicates();
        EXPECT_EQ(letters, mnemonics(*page)) << qPrintable(page->objectName());
        for (const auto* label : page->findChildren<QLabel*>())
            EXPECT_EQ(label->text().contains(QLatin1Char('&')), label->buddy() != nullptr)
                << qPrintable(label->objectName());
    }
}

TEST_F(SaccadeCenterOptionsTest, TabGoesFromTopToBottom)
{
    openPage("pagePlot");
    widget<QWidget>("buttonFont")->setFocus();
    const std::string order = tabOrderOf(m_dialog);
    EXPECT_EQ(order.substr(0, order.rfind(" buttonBlinks") + 13),
              "buttonFont buttonBackground buttonForeground buttonGrid buttonEyeSignal buttonSaccLeft "
              "buttonSaccRight buttonSaccSelected buttonBlinks");
}

TEST_F(SaccadeCenterOptionsTest, OkWithoutAChangeGivesWhatWasSet)
{
    EXPECT_EQ(accepted(), textOf(given()));
}

TEST_F(SaccadeCenterOptionsTest, AllIsShownAsItWasSet)
{
    SaccadeCenterSettings others;
    others.askForSignals = others.ownPrintLook = others.labels.onSignal = false;
    others.text = {false, false, false, false, QStringLiteral(";")};
    others.samples = {true, false, false, false, false, false, false, false};
    others.indexes.windowMs = 1234;
    others.indexes.updateMs = 56;
    others.indexes.commentNamesRecording = true;
    others.timeUnits = TimeUnit::Minutes;
    others.screenshotSize = {640, 480};
    others.screenshotFormat = QStringLiteral("BMP");
    m_dialog.setSettings(others);
    EXPECT_EQ(accepted(), textOf(others));
}

TEST_F(SaccadeCenterOptionsTest, GeneralPage)
{
    SaccadeCenterSettings expected = given();
    openPage("pageGeneral");
    EXPECT_TRUE(widget<QCheckBox>("checkAskForSignals")->isChecked());
    EXPECT_EQ(widget<QComboBox>("comboTimeUnits")->currentText(), QStringLiteral("seconds"));
    toggle("checkAskForSignals");
    expected.askForSignals = false;
    choose("comboTimeUnits", "hou");
    expected.timeUnits = TimeUnit::Hours;
    EXPECT_EQ(textOf(m_dialog.settings()), textOf(given()));
    EXPECT_EQ(accepted(), textOf(expected));
}

TEST_F(SaccadeCenterOptionsTest, PensOfBothLooks)
{
    SaccadeCenterSettings expected = given();
    for (const LookPage& page : LookPages) {
        openPage(page.page);
        SaccadePlotLook& look = expected.*page.look;
        for (const PenRow& row : PenRows) {
            const std::string preview = joined({"preview", page.prefix, row.name});
            EXPECT_EQ(widget<PreviewFrame>(preview.c_str())->pen(), look.*row.pen) << preview;
            choosePen(look.*row.pen, look.background);
            clickOn(m_dialog, joined({"button", page.prefix, row.name}).c_str());
            (look.*row.pen).setWidth(9);
            (look.*row.pen).setStyle(Qt::DashDotLine);
            EXPECT_EQ(widget<PreviewFrame>(preview.c_str())->pen(), look.*row.pen) << preview;
        }
    }
    EXPECT_EQ(m_answers.seen().size(), 10);
    EXPECT_EQ(accepted(), textOf(expected));
}

TEST_F(SaccadeCenterOptionsTest, APenButtonTellsColourAndWidth)
{
    EXPECT_EQ(widget<QPushButton>("buttonSaccSelected")->text(), QStringLiteral("#0000ff, width 4"));
    EXPECT_EQ(widget<QPushButton>("buttonPrintSaccLeft")->text(), QStringLiteral("#ff0000, width 7"));
}

TEST_F(SaccadeCenterOptionsTest, LeavingAChoiceChangesNothing)
{
    openPage("pagePlot");
    for (const char* button : {"buttonSaccLeft", "buttonBackground", "buttonFont"}) {
        m_answers.reject();
        clickOn(m_dialog, button);
    }
    openPage("pageText");
    m_answers.reject();
    clickOn(m_dialog, "buttonSeparator");
    EXPECT_EQ(accepted(), textOf(given()));
}

TEST_F(SaccadeCenterOptionsTest, ColoursOfBothLooks)
{
    SaccadeCenterSettings expected = given();
    const std::pair<const char*, QColor SaccadePlotLook::*> Rows[] = {
        {"Background", &SaccadePlotLook::background},
        {"Foreground", &SaccadePlotLook::foreground},
        {"Grid", &SaccadePlotLook::grid}};
    int red = 0;
    for (const LookPage& page : LookPages) {
        openPage(page.page);
        for (const auto& [name, color] : Rows) {
            const std::string button = joined({"button", page.prefix, name});
            const QColor chosen(++red, 20, 30);
            EXPECT_EQ(widget<QPushButton>(button.c_str())->text(), (expected.*page.look.*color).name());
            chooseColor(chosen);
            clickOn(m_dialog, button.c_str());
            expected.*page.look.*color = chosen;
            EXPECT_EQ(widget<QPushButton>(button.c_str())->text(), chosen.name());
        }
        for (const PenRow& row : PenRows)
            EXPECT_EQ(widget<PreviewFrame>(joined({"preview", page.prefix, row.name}).c_str())->background(),
                      (expected.*page.look).background);
    }
    EXPECT_EQ(accepted(), textOf(expected));
}

TEST_F(SaccadeCenterOptionsTest, TheColourIsOnItsButtonInAFrame)
{
    const QImage patch = widget<QPushButton>("buttonBackground")->icon().pixmap(16, 16).toImage();
    EXPECT_EQ(patch.pixelColor(patch.rect().center()), given().plot.background);
    EXPECT_EQ(patch.pixelColor(0, 0), m_dialog.palette().color(QPalette::ButtonText));
}

TEST_F(SaccadeCenterOptionsTest, FontsOfBothLooks)
{
    SaccadeCenterSettings expected = given();
    int size = 15;
    for (const LookPage& page : LookPages) {
        openPage(page.page);
        QFont font = (expected.*page.look).font;
        font.setPointSize(++size);
        m_answers.answer([font](QWidget* window) {
            auto* const chooser = qobject_cast<QFontDialog*>(window);
            ASSERT_TRUE(chooser);
            chooser->setCurrentFont(font);
            chooser->accept();
        });
        clickOn(m_dialog, joined({"button", page.prefix, "Font"}).c_str());
        const QString text = widget<QPushButton>(joined({"button", page.prefix, "Font"}).c_str())->text();
        EXPECT_TRUE(text.endsWith(QStringLiteral(", %1 pt").arg(size))) << qPrintable(text);
    }
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.settings().plot.font.pointSize(), 16);
    EXPECT_EQ(m_dialog.settings().print.font.pointSize(), 17);
}

TEST_F(SaccadeCenterOptionsTest, AFontOfAnyNameAndKindFitsItsButton)
{
    const int width = m_dialog.sizeHint().width();
    SaccadeCenterSettings settings;
    settings.plot.font.setFamily(QStringLiteral("R&D ") + QString(300, QLatin1Char('W')));
    settings.plot.font.setPixelSize(20);
    settings.text.separator = QString(300, QLatin1Char('W'));
    m_dialog.setSettings(settings);
    EXPECT_TRUE(widget<QPushButton>("buttonFont")->text().startsWith(QStringLiteral("R&&D W")));
    EXPECT_LE(m_dialog.sizeHint().width(), width + 200);
    settings.plot.font.setFamily(QStringLiteral("Mono"));
    m_dialog.setSettings(settings);
    EXPECT_EQ(widget<QPushButton>("buttonFont")->text(), QStringLiteral("Mono, 20 px"));
}

TEST_F(SaccadeCenterOptionsTest, ThePrintPageIsThereForAnOwnLook)
{
    openPage("pagePrint");
    auto* const fields = widget<QWidget>("panelPrintLook");
    EXPECT_TRUE(fields->isEnabled());
    toggle("checkCustomPrintScheme");
    EXPECT_FALSE(fields->isEnabled());
    SaccadeCenterSettings expected = given();
    expected.ownPrintLook = false;
    EXPECT_EQ(accepted(), textOf(expected));
    m_dialog.setSettings(given());
    EXPECT_TRUE(fields->isEnabled());
    m_dialog.setSettings(expected);
    EXPECT_FALSE(fields->isEnabled());
}

TEST_F(SaccadeCenterOptionsTest, TextPage)
{
    SaccadeCenterSettings expected = given();
    openPage("pageText");
    EXPECT_EQ(widget<QPushButton>("buttonSeparator")->text(), QStringLiteral("tab"));
    m_answers.answer([](QWidget* window) {
        auto* const chooser = qobject_cast<SeparatorDlg*>(window);
        ASSERT_TRUE(chooser);
        EXPECT_EQ(chooser->separator(), QStringLiteral("\t"));
        clickOn(*chooser, "radioSemicolon");
        QMetaObject::invokeMethod(chooser, "on_buttonBox_accepted");
    });
    clickOn(m_dialog, "buttonSeparator");
    EXPECT_EQ(widget<QPushButton>("buttonSeparator")->text(), QStringLiteral(";"));
    expected.text.separator = QStringLiteral(";");
    for (const auto& [name, flag] : {std::pair("checkIncludeTitle", &SaccadeTextExport::includeTitle),
                                     std::pair("checkIncludeFile", &SaccadeTextExport::includeFile),
                                     std::pair("checkIncludeFrequency", &SaccadeTextExport::includeFrequency),
                                     std::pair("checkIncludeFields", &SaccadeTextExport::includeFields)}) {
        toggle(name);
        expected.text.*flag = false;
        EXPECT_EQ(accepted(), textOf(expected)) << name;
        m_dialog.show();
    }
}

TEST_F(SaccadeCenterOptionsTest, ASeparatorOfBlanksIsQuotedOnItsButton)
{
    SaccadeCenterSettings settings;
    settings.text.separator = QStringLiteral("   ");
    m_dialog.setSettings(settings);
    EXPECT_EQ(widget<QPushButton>("buttonSeparator")->text(), QStringLiteral("\"   \""));
}

TEST_F(SaccadeCenterOptionsTest, LabelsPage)
{
    SaccadeCenterSettings expected = given();
    openPage("pageLabels");
    EXPECT_TRUE(widget<QRadioButton>("radioLabelsOnSignal")->isChecked());
    toggle("radioLabelsOnTime");
    expected.labels.onSignal = false;
    chooseColor(QColor(1, 2, 3));
    clickOn(m_dialog, "buttonLabelsColor");
    expected.labels.saccadeColor = QColor(1, 2, 3);
    chooseColor(QColor(4, 5, 6));
    clickOn(m_dialog, "buttonBlinkLabelsColor");
    expected.labels.blinkColor = QColor(4, 5, 6);
    EXPECT_EQ(accepted(), textOf(expected));
}

TEST_F(SaccadeCenterOptionsTest, RecordingPage)
{
    SaccadeCenterSettings expected = given();
    openPage("pageRecording");
    EXPECT_TRUE(widget<QRadioButton>("radioExportKiroSaccComment")->isChecked());
    toggle("radioExportKiroEyeComment");
    expected.indexes.commentNamesRecording = true;
    type("spinExportWindow", "5000");
    expected.indexes.windowMs = 5000;
    type("spinExportUpdate", "125");
    expected.indexes.updateMs = 125;
    EXPECT_EQ(accepted(), textOf(expected));
}

TEST_F(SaccadeCenterOptionsTest, TheTimesOfTheIndexesAreAboveZero)
{
    openPage("pageRecording");
    for (const char* spin : {"spinExportWindow", "spinExportUpdate"}) {
        EXPECT_EQ(widget<QSpinBox>(spin)->minimum(), 1);
        EXPECT_EQ(widget<QSpinBox>(spin)->maximum(), 3600000);
        type(spin, "0");
    }
    press(QDialogButtonBox::Ok);
    EXPECT_GE(m_dialog.settings().indexes.windowMs, 1);
    EXPECT_GE(m_dialog.settings().indexes.updateMs, 1);
}

TEST_F(SaccadeCenterOptionsTest, SamplesPage)
{
    SaccadeCenterSettings expected = given();
    openPage("pageSamples");
    for (const auto& [name, flag] :
         {std::pair("checkSamplesOffset", &SaccadeSampleExport::offset),
          std::pair("checkSamplesInvert", &SaccadeSampleExport::invert),
          std::pair("checkSamplesArbitraryUnits", &SaccadeSampleExport::arbitraryUnits),
          std::pair("checkSamplesCalibFactor", &SaccadeSampleExport::calibFactor),
          std::pair("checkSamplesCalibUnit", &SaccadeSampleExport::calibUnit),
          std::pair("checkSamplesFrequency", &SaccadeSampleExport::frequency),
          std::pair("checkSamplesIndex", &SaccadeSampleExport::index),
          std::pair("checkSamplesDirection", &SaccadeSampleExport::direction)}) {
        toggle(name);
        expected.samples.*flag = !(expected.samples.*flag);
        EXPECT_EQ(accepted(), textOf(expected)) << name;
        m_dialog.show();
    }
}

TEST_F(SaccadeCenterOptionsTest, ImagesPage)
{
    SaccadeCenterSettings expected = given();
    openPage("pageImages");
    QStringList formats;
    const auto* combo = widget<QComboBox>("comboScreenshotFormat");
    for (int i = 0; i < combo->count(); ++i)
        formats << combo->itemText(i);
    EXPECT_EQ(formats.join(QLatin1Char(' ')).toStdString(), "PNG JPG BMP XPM");
    EXPECT_EQ(widget<QSpinBox>("spinScreenshotWidth")->text(), QStringLiteral("1600 px"));
    type("spinScreenshotWidth", "2048");
    type("spinScreenshotHeight", "1024");
    expected.screenshotSize = {2048, 1024};
    choose("comboScreenshotFormat", "J");
    expected.screenshotFormat = QStringLiteral("JPG");
    EXPECT_EQ(accepted(), textOf(expected));
}

TEST_F(SaccadeCenterOptionsTest, CancelLeavesTheSettings)
{
    openPage("pageGeneral");
    toggle("checkAskForSignals");
    openPage("pagePlot");
    choosePen(given().plot.blinks, given().plot.background);
    clickOn(m_dialog, "buttonBlinks");
    openPage("pageImages");
    type("spinScreenshotWidth", "2048");
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_EQ(textOf(m_dialog.settings()), textOf(given()));
}

TEST_F(SaccadeCenterOptionsTest, EnterIsOkAndEscapeIsCancel)
{
    openPage("pageImages");
    type("spinScreenshotWidth", "2048");
    QTest::keyClick(widget<QSpinBox>("spinScreenshotWidth"), Qt::Key_Return);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(m_dialog.settings().screenshotSize.width(), 2048);
    m_dialog.show();
    QTest::keyClick(&m_dialog, Qt::Key_Escape);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
}

TEST_F(SaccadeCenterOptionsTest, ValuesAreCutToTheLimits)
{
    SaccadeCenterSettings settings;
    settings.indexes.windowMs = -5;
    settings.indexes.updateMs = 4000000;
    settings.screenshotSize = {0, 100000};
    m_dialog.setSettings(settings);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.settings().indexes.windowMs, 1);
    EXPECT_EQ(m_dialog.settings().indexes.updateMs, 3600000);
    EXPECT_EQ(m_dialog.settings().screenshotSize, QSize(64, 8192));
}

namespace
{

/// The dialog as the browser runs it, with a settings file of its own.
class SaccadeCenterOptionsEditTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(appConfig().setConfigFile(file())); }
    QString file() const { return m_folder.filePath(QStringLiteral("settings.ini")); }
    IniStore stored() const
    {
        IniStore store;
        store.load(file());
        return store;
    }
    /// Moves, resizes and changes the dialog that comes, then ends it.
    void end(QDialogButtonBox::StandardButton button)
    {
        m_answers.answer([button](QWidget* window) {
            ASSERT_TRUE(qobject_cast<SaccadeCenterOptions*>(window));
            EXPECT_TRUE(window->isModal());
            window->move(33, 44);
            window->resize(window->size() + QSize(20, 30));
            widgetIn<QComboBox>(*window, "comboTimeUnits")->setCurrentIndex(0);
            QTest::mouseClick(widgetIn<QDialogButtonBox>(*window, "buttonBox")->button(button),
                              Qt::LeftButton);
        });
    }

    QTemporaryDir m_folder;
    ModalAnswers m_answers;
    SaccadeCenterSettings m_settings = given();
};

} // namespace

TEST_F(SaccadeCenterOptionsEditTest, AcceptedChangesTheSettings)
{
    end(QDialogButtonBox::Ok);
    EXPECT_TRUE(SaccadeCenterOptions::edit(nullptr, m_settings));
    SaccadeCenterSettings expected = given();
    expected.timeUnits = TimeUnit::Samples;
    EXPECT_EQ(textOf(m_settings), textOf(expected));
}

TEST_F(SaccadeCenterOptionsEditTest, CancelledLeavesTheSettings)
{
    end(QDialogButtonBox::Cancel);
    EXPECT_FALSE(SaccadeCenterOptions::edit(nullptr, m_settings));
    EXPECT_EQ(textOf(m_settings), textOf(given()));
}

TEST_F(SaccadeCenterOptionsEditTest, TheDialogComesBackWhereItWas)
{
    for (const auto button : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel}) {
        QFile::remove(file());
        end(button);
        SaccadeCenterOptions::edit(nullptr, m_settings);
        const QString section = QStringLiteral("SACCADE_CENTER_OPTIONS");
        EXPECT_EQ(stored().sections(), QStringList(section));
        EXPECT_EQ(stored().pointValue(section, QStringLiteral("win_pos"), {}), QPoint(33, 44));
        EXPECT_FALSE(stored().boolValue(section, QStringLiteral("win_max"), true));
        const QPoint size = stored().pointValue(section, QStringLiteral("win_size"), {});
        QRect seen;
        m_answers.answer([&seen](QWidget* window) {
            seen = QRect(window->pos(), window->size());
            window->close();
        });
        EXPECT_FALSE(SaccadeCenterOptions::edit(nullptr, m_settings));
        EXPECT_EQ(seen, QRect(33, 44, size.x(), size.y()));
    }
}

TEST_F(SaccadeCenterOptionsEditTest, OtherSectionsOfTheFileStay)
{
    IniStore store;
    store.setSection(SaccadeCenterSettings::section());
    store.setValue(QStringLiteral("dir_open"), QStringLiteral("/kept"));
    ASSERT_TRUE(store.saveAs(file()));
    end(QDialogButtonBox::Ok);
    EXPECT_TRUE(SaccadeCenterOptions::edit(nullptr, m_settings));
    EXPECT_EQ(stored().value(SaccadeCenterSettings::section(), QStringLiteral("dir_open"), QString()),
              QStringLiteral("/kept"));
    EXPECT_EQ(stored().entries(SaccadeCenterSettings::section()).size(), 1u);
}

TEST(SaccadeCenterSettingsOnAScreen, TheStatisticsDialogBeginsInItsMiddle)
{
    const SaccadeCenterSettings settings;
    EXPECT_EQ(QRect(settings.statDialogPosition, settings.statDialogSize).center(),
              QGuiApplication::primaryScreen()->availableGeometry().center());
}

TEST(SaccadeCenterSettingsOnAScreen, FontsBeginAsTheApplications)
{
    EXPECT_EQ(SaccadeCenterSettings().plot.font, QApplication::font());
    EXPECT_EQ(SaccadeCenterSettings().print.font, QApplication::font());
}
