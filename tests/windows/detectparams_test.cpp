#include "blinksdetectparams.h"
#include "saccdetectparams.h"

#include "modalanswers.h"
#include "recordingfile.h"
#include "windowmessages.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

#include <limits>

namespace
{

/// A shown dialog with the folder of its files.
template <class Dialog>
class DialogFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        m_dialog.setLocale(QLocale::c());
        m_dialog.profiles().setFolder(m_folder.path(QString()));
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    template <class Widget>
    Widget* widget(const char* name)
    {
        auto* const found = m_dialog.template findChild<Widget*>(QString::fromLatin1(name));
        if (!found)
            throw std::runtime_error(std::string("no widget ") + name);
        return found;
    }

    void press(const char* button) { QTest::mouseClick(widget<QPushButton>(button), Qt::LeftButton); }
    void press(QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(widget<QDialogButtonBox>("buttonBox")->button(button), Qt::LeftButton);
    }

    /// Replaces what a field holds, as a user types it.
    void type(const char* field, const char* text)
    {
        auto* const edit = widget<QWidget>(field);
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(edit, QString::fromUtf8(text));
    }

    /// What all fields show, from top to bottom.
    std::string shown()
    {
        QStringList texts;
        for (const QWidget* field : fields()) {
            if (const auto* edit = qobject_cast<const QLineEdit*>(field))
                texts << edit->text();
            else
                texts << qobject_cast<const QAbstractSpinBox*>(field)->text();
        }
        return texts.join(QLatin1Char(' ')).toStdString();
    }

    QList<QWidget*> fields()
    {
        const auto* form = widget<QFormLayout>("layoutFields");
        QList<QWidget*> result;
        for (int row = 0; row < form->rowCount(); ++row)
            result << form->itemAt(row, QFormLayout::FieldRole)->widget();
        return result;
    }

    std::string labels()
    {
        QStringList texts;
        for (QWidget* field : fields()) {
            const auto* label =
                qobject_cast<QLabel*>(widget<QFormLayout>("layoutFields")->labelForField(field));
            EXPECT_EQ(label->buddy(), field) << qPrintable(label->text());
            texts << label->text();
        }
        return texts.join(QLatin1Char('\n')).toStdString();
    }

    /// Minimum, maximum and step of each spin box by the name of its field.
    std::string limits()
    {
        QStringList texts;
        for (const QWidget* field : fields()) {
            if (const auto* whole = qobject_cast<const QSpinBox*>(field))
                texts << QStringLiteral("%1 to %2 by %3")
                             .arg(whole->minimum())
                             .arg(whole->maximum())
                             .arg(whole->singleStep());
            else if (const auto* decimal = qobject_cast<const QDoubleSpinBox*>(field))
                texts << QStringLiteral("%1 to %2 by %3, %4 decimals")
                             .arg(decimal->minimum())
                             .arg(decimal->maximum())
                             .arg(decimal->singleStep())
                             .arg(decimal->decimals());
            else
                texts << QStringLiteral("text");
        }
        return texts.join(QLatin1Char('\n')).toStdString();
    }

    /// Names of the fields and buttons that Tab reaches, from the first field on.
    std::string tabOrder()
    {
        QStringList names;
        QWidget* const first = fields().first();
        first->setFocus();
        do {
            names << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != first && names.size() < 30);
        return names.join(QLatin1Char(' ')).toStdString();
    }

    void expectHelpForEachField()
    {
        for (const QWidget* field : fields()) {
            EXPECT_FALSE(field->toolTip().isEmpty()) << qPrintable(field->objectName());
            EXPECT_FALSE(field->accessibleName().isEmpty()) << qPrintable(field->objectName());
        }
    }

    /// "title|text" of the last box.
    std::string lastBox()
    {
        return m_answers.seen().isEmpty() ? "none" : m_answers.seen().last().toStdString();
    }

    QString path(const char* name) { return m_folder.path(QString::fromLatin1(name)); }

    TestFolder m_folder;
    ModalAnswers m_answers;
    Dialog m_dialog;
};

class SaccDetectParamsTest : public DialogFixture<SaccDetectParams>
{
protected:
    static SaccadeDetectionParams given()
    {
        SaccadeDetectionParams params = SaccadeDetectionParams::atStart();
        params.local = 9;
        params.initVel = 35.5;
        params.maxAmp = 450.25;
        return params;
    }
    void SetUp() override
    {
        DialogFixture::SetUp();
        m_dialog.setParams(given());
    }
    /// The record of the dialog as a profile would hold it, in one line.
    std::string record()
    {
        const SaccadeDetectionParams p = m_dialog.params();
        QStringList texts;
        for (const int count : {p.local, p.gap, p.minTime, p.maxTime})
            texts << QString::number(count);
        for (const double value : {p.initVel, p.minSpeed, p.minSlope, p.minAmp, p.maxAmp})
            texts << QString::number(value, 'g', 17);
        return texts.join(QLatin1Char(' ')).toStdString();
    }
};

const std::string Given = "9 50 20 300 35.5 100 15000 0 450.25";

class BlinksDetectParamsTest : public DialogFixture<BlinksDetectParams>
{
protected:
    void SetUp() override
    {
        DialogFixture::SetUp();
        m_dialog.setParams(BlinkDetectionParams::atStart());
    }
    std::string record()
    {
        const BlinkDetectionParams p = m_dialog.params();
        QStringList texts;
        for (const double value :
             {p.peakVel1, p.peakVel2, p.minVel, double(p.maxPeaksDistance), p.minAmplitude,
              p.minAmplitudeRelation, p.maxAmplitudeRelation, double(p.minDuration), double(p.maxDuration)})
            texts << QString::number(value);
        return texts.join(QLatin1Char(' ')).toStdString();
    }
};

/// Chooses a file in a file dialog whose filter for all files is selected.
void chooseWithAllFiles(ModalAnswers& answers, const QString& path)
{
    answers.answer([path](QWidget* window) {
        auto* const dialog = qobject_cast<QFileDialog*>(window);
        ASSERT_TRUE(dialog);
        dialog->selectNameFilter(QStringLiteral("All files (*.*)"));
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

/// Chooses a file in a folder that is gone when the file is to be written.
void chooseInFolderThatGoes(ModalAnswers& answers, const QString& path)
{
    answers.answer([path](QWidget* window) {
        const QString folder = QFileInfo(path).path();
        ASSERT_TRUE(QDir().mkpath(folder));
        window->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(window, "accept");
        ASSERT_TRUE(QDir(folder).removeRecursively());
    });
}

const char* const DefaultsFile = "!!! Saccade detection parameters file - DO NOT EDIT MANUALLY !!!\n"
                                 "Version: 8\n"
                                 "local: 9\n"
                                 "gap: 30\n"
                                 "min_time: 20\n"
                                 "max_time: 200\n"
                                 "init_vel: 20\n"
                                 "min_speed: 100\n"
                                 "min_slope: 1000\n"
                                 "min_amp: 1\n"
                                 "max_amp: 100\n";

} // namespace

TEST_F(SaccDetectParamsTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<SaccDetectParams>(), "");
    const SaccDetectParams dialog;
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Saccade detection parameters"));
    EXPECT_EQ(dialog.locale(), QLocale::system());
}

TEST_F(SaccDetectParamsTest, LabelsAndLimits)
{
    EXPECT_EQ(labels(), "Minimum fixation [ms]\n"
                        "Minimum duration [ms]\n"
                        "Maximum duration [ms]\n"
                        "Initial velocity [deg/s]\n"
                        "Minimum peak velocity [deg/s]\n"
                        "Minimum acceleration [deg/s<sup>2</sup>]\n"
                        "Minimum amplitude [deg]\n"
                        "Maximum amplitude [deg]");
    EXPECT_EQ(limits(), "0 to 10000 by 10\n1 to 500 by 1\n1 to 500 by 10\ntext\ntext\ntext\ntext\ntext");
    EXPECT_EQ(widget<QLabel>("labelMinSlope")->textFormat(), Qt::RichText);
    expectHelpForEachField();
}

TEST_F(SaccDetectParamsTest, TabGoesFromTopToBottom)
{
    const std::string order = tabOrder();
    EXPECT_EQ(order.substr(0, order.rfind(" buttonSave") + 11),
              "spinGap spinMinTime spinMaxTime editInitVel editMinSpeed editMinSlope editMinAmp editMaxAmp "
              "buttonDefaults buttonLoad buttonSave");
}

TEST_F(SaccDetectParamsTest, ShowsSixSignificantDigits)
{
    EXPECT_EQ(shown(), "50 20 300 35.5 100 15000 0 450.25");
    SaccadeDetectionParams params = given();
    params.initVel = 1.0 / 3.0;
    params.minSpeed = 123456.4;
    params.minSlope = 12345678.0;
    m_dialog.setParams(params);
    EXPECT_EQ(shown(), "50 20 300 0.333333 123456 1.23457e+07 0 450.25");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "9 50 20 300 0.33333299999999999 123456 12345700 0 450.25");
}

TEST_F(SaccDetectParamsTest, OkTakesTheFieldsAndKeepsTheWindowOfAPeak)
{
    type("spinGap", "60");
    type("spinMinTime", "21");
    type("spinMaxTime", "301");
    type("editInitVel", "36.5");
    type("editMinSpeed", "-101");
    type("editMinSlope", "1.5e4");
    type("editMinAmp", " 0.5 ");
    type("editMaxAmp", "499.125");
    EXPECT_EQ(record(), Given);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_FALSE(m_dialog.isVisible());
    EXPECT_EQ(record(), "9 60 21 301 36.5 -101 15000 0.5 499.125");
}

TEST_F(SaccDetectParamsTest, EnterIsOk)
{
    type("editMinAmp", "2");
    QTest::keyClick(widget<QLineEdit>("editMinAmp"), Qt::Key_Return);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(record(), "9 50 20 300 35.5 100 15000 2 450.25");
}

TEST_F(SaccDetectParamsTest, CancelLeavesTheRecord)
{
    type("spinGap", "60");
    press("buttonDefaults");
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_EQ(record(), Given);
}

TEST_F(SaccDetectParamsTest, ALongMaximumDurationIsCut)
{
    SaccadeDetectionParams params = given();
    params.maxTime = 5000;
    params.minTime = 0;
    params.gap = -5;
    m_dialog.setParams(params);
    EXPECT_EQ(shown(), "0 1 500 35.5 100 15000 0 450.25");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "9 0 1 500 35.5 100 15000 0 450.25");
}

TEST_F(SaccDetectParamsTest, DefaultsFillTheFieldsOnly)
{
    press("buttonDefaults");
    EXPECT_EQ(shown(), "30 20 200 20 100 1000 1 100");
    EXPECT_EQ(record(), Given);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "9 30 20 200 20 100 1000 1 100");
}

namespace
{

/// A field and what is said when it holds no number.
struct BadField
{
    const char* field;
    const char* notAccepted;
    const char* notSaved;
};

const BadField BadFields[] = {
    {"editInitVel", "Invalid initial velocity threshold field",
     "Invalid format of the initial velocity threshold value"},
    {"editMinSpeed", "Invalid speed threshold field", "Invalid format of the speed threshold value"},
    {"editMinSlope", "Invalid slope threshold field", "Invalid format of the slope threshold value"},
    {"editMinAmp", "Invalid minimum amplitude field", "Invalid minimum amplitude field"},
    {"editMaxAmp", "Invalid maximum amplitude field", "Invalid maximum amplitude field"},
};

const std::string TitleBefore = "Saccade detection parameters|";

} // namespace

TEST_F(SaccDetectParamsTest, AFieldWithoutANumberIsNotAccepted)
{
    for (const BadField& bad : BadFields) {
        for (const char* text : {"", "fast", "1,5", "1.5 deg", "inf", "nan", "1e999"}) {
            m_dialog.setParams(given());
            type(bad.field, text);
            if (*text == '\0')
                widget<QLineEdit>(bad.field)->clear();
            m_answers.press(QMessageBox::Ok);
            press(QDialogButtonBox::Ok);
            EXPECT_EQ(lastBox(), TitleBefore + bad.notAccepted) << text;
            EXPECT_TRUE(m_dialog.isVisible());
            EXPECT_EQ(m_dialog.focusWidget(), widget<QLineEdit>(bad.field)) << text;
            EXPECT_EQ(record(), Given);
        }
    }
}

TEST_F(SaccDetectParamsTest, TheFirstBadFieldIsTold)
{
    for (const BadField& bad : BadFields)
        widget<QLineEdit>(bad.field)->setText(QStringLiteral("x"));
    for (const BadField& bad : BadFields) {
        m_answers.press(QMessageBox::Ok);
        press(QDialogButtonBox::Ok);
        EXPECT_EQ(lastBox(), TitleBefore + bad.notAccepted);
        widget<QLineEdit>(bad.field)->setText(QStringLiteral("1"));
    }
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "9 50 20 300 1 1 1 1 1");
}

TEST_F(SaccDetectParamsTest, AFieldWithoutANumberIsNotSaved)
{
    for (const BadField& bad : BadFields) {
        m_dialog.setParams(given());
        widget<QLineEdit>(bad.field)->setText(QStringLiteral("x"));
        m_answers.chooseFile(path("bad.sdp"));
        m_answers.press(QMessageBox::Ok);
        press("buttonSave");
        EXPECT_EQ(lastBox(), TitleBefore + bad.notSaved);
        EXPECT_FALSE(QFile::exists(path("bad.sdp")));
    }
}

TEST_F(SaccDetectParamsTest, SaveWritesTheFieldsAndAddsTheSuffix)
{
    press("buttonDefaults");
    m_answers.chooseFile(path("mine"));
    press("buttonSave");
    EXPECT_EQ(lastBox(), "Select saccade detection profile name|" + QDir(path("")).path().toStdString());
    EXPECT_FALSE(QFile::exists(path("mine")));
    EXPECT_EQ(fileBytes(path("mine.sdp")), DefaultsFile);
    EXPECT_TRUE(m_dialog.isVisible());
    EXPECT_EQ(record(), Given);
}

TEST_F(SaccDetectParamsTest, OtherSuffixesAndAllFilesStay)
{
    m_answers.chooseFile(path("mine.txt"));
    press("buttonSave");
    chooseWithAllFiles(m_answers, path("mine"));
    press("buttonSave");
    QStringList names = QDir(path("")).entryList(QDir::Files);
    EXPECT_EQ(names.join(QLatin1Char(' ')).toStdString(), "mine mine.txt");
}

TEST_F(SaccDetectParamsTest, TheAddedSuffixReplacesNoFileUnasked)
{
    m_folder.write(QStringLiteral("mine.sdp"), "old");
    const std::string question = TitleBefore + "The file " + path("mine.sdp").toStdString() +
                                 " already exists.\nDo you want to replace it?";
    m_answers.chooseFile(path("mine"));
    m_answers.press(QMessageBox::No);
    press("buttonSave");
    EXPECT_EQ(lastBox(), question);
    EXPECT_EQ(fileBytes(path("mine.sdp")), "old");
    press("buttonDefaults");
    m_answers.chooseFile(path("mine"));
    m_answers.press(QMessageBox::Yes);
    press("buttonSave");
    EXPECT_EQ(lastBox(), question);
    EXPECT_EQ(fileBytes(path("mine.sdp")), DefaultsFile);
}

TEST_F(SaccDetectParamsTest, AFailedSaveIsTold)
{
    const QString target = path("no/folder.sdp");
    chooseInFolderThatGoes(m_answers, target);
    m_answers.press(QMessageBox::Ok);
    press("buttonSave");
    EXPECT_EQ(lastBox(), TitleBefore + "Failed to save parameters from file " + target.toStdString());
}

TEST_F(SaccDetectParamsTest, LoadFillsTheFieldsOnly)
{
    m_folder.write(QStringLiteral("p.sdp"),
                   "!!! Saccade detection parameters file - DO NOT EDIT MANUALLY !!!\nVersion: 7\n"
                   "k: 0\nk: 11\nk: 12\nk: 13\nk: 14\nk: 15.5\nk: 16\nk: 17\nk: 18\nk: 19\n");
    m_answers.chooseFile(path("p.sdp"));
    press("buttonLoad");
    EXPECT_EQ(lastBox(), "Select saccade detection profile|" + QDir(path("")).path().toStdString());
    EXPECT_EQ(shown(), "12 13 14 15.5 16 17 18 19");
    EXPECT_EQ(record(), Given);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "9 12 13 14 15.5 16 17 18 19");
}

TEST_F(SaccDetectParamsTest, AProfileThatItSavedShowsNoGreatestAmplitude)
{
    m_dialog.setParams(SaccadeDetectionParams::atStart());
    EXPECT_EQ(shown(), "50 20 300 35 100 15000 0 500");
    m_answers.chooseFile(path("own.sdp"));
    press("buttonSave");
    m_answers.chooseFile(path("own.sdp"));
    press("buttonLoad");
    EXPECT_EQ(shown(), "50 20 300 35 100 15000 0 0");
}

TEST_F(SaccDetectParamsTest, AFailedLoadChangesNothing)
{
    m_folder.write(QStringLiteral("p.sdp"), "no profile");
    m_answers.chooseFile(path("p.sdp"));
    m_answers.press(QMessageBox::Ok);
    press("buttonLoad");
    EXPECT_EQ(lastBox(), TitleBefore + "Failed to load parameters from file " + path("p.sdp").toStdString());
    EXPECT_EQ(shown(), "50 20 300 35.5 100 15000 0 450.25");
}

TEST_F(SaccDetectParamsTest, EachQuestionKeepsItsFolder)
{
    QDir(path("")).mkdir(QStringLiteral("in"));
    QDir(path("")).mkdir(QStringLiteral("out"));
    m_folder.write(QStringLiteral("in/p.sdp"), DefaultsFile);
    m_answers.chooseFile(path("in/p.sdp"));
    press("buttonLoad");
    EXPECT_EQ(m_dialog.profiles().loadFolder(), path("in"));
    EXPECT_EQ(m_dialog.profiles().saveFolder(), m_folder.path(QString()));
    m_answers.chooseFile(path("out/p.sdp"));
    press("buttonSave");
    EXPECT_EQ(m_dialog.profiles().loadFolder(), path("in"));
    EXPECT_EQ(m_dialog.profiles().saveFolder(), path("out"));
    m_answers.reject();
    press("buttonLoad");
    EXPECT_EQ(lastBox(), "Select saccade detection profile|" + path("in").toStdString());
    m_answers.reject();
    press("buttonSave");
    EXPECT_EQ(lastBox(), "Select saccade detection profile name|" + path("out").toStdString());
    EXPECT_EQ(m_dialog.profiles().loadFolder(), path("in"));
    EXPECT_EQ(m_dialog.profiles().saveFolder(), path("out"));
}

TEST_F(SaccDetectParamsTest, NumbersAreInTheDialogsLocale)
{
    m_dialog.setLocale(QLocale(QLocale::Polish, QLocale::Poland));
    m_dialog.setParams(given());
    EXPECT_EQ(shown(), "50 20 300 35,5 100 15000 0 450,25");
    type("editMinAmp", "1,25");
    type("editMinSlope", "15 500");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "9 50 20 300 35.5 100 15500 1.25 450.25");
}

TEST_F(SaccDetectParamsTest, ADecimalPointIsNoNumberWhereThereIsAComma)
{
    m_dialog.setLocale(QLocale(QLocale::Polish, QLocale::Poland));
    m_dialog.setParams(given());
    type("editMinAmp", "1.25");
    m_answers.press(QMessageBox::Ok);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(lastBox(), TitleBefore + "Invalid minimum amplitude field");
}

TEST_F(SaccDetectParamsTest, WhatIsShownIsTakenInEveryLocale)
{
    SaccadeDetectionParams params = given();
    params.initVel = -1.5e-7;
    params.minSpeed = 1234.5;
    params.minSlope = 1.25e12;
    params.minAmp = 99999.0;
    for (const char* name :
         {"C", "en_US", "pl_PL", "de_CH", "sv_SE", "fr_FR", "en_IN", "ar_EG", "fa_IR", "bg_BG"}) {
        m_dialog.setLocale(QLocale(QString::fromLatin1(name)));
        m_dialog.setParams(params);
        press(QDialogButtonBox::Ok);
        EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted)) << name;
        EXPECT_EQ(m_dialog.params().initVel, params.initVel) << name;
        EXPECT_EQ(m_dialog.params().minSpeed, params.minSpeed) << name;
        EXPECT_EQ(m_dialog.params().minSlope, params.minSlope) << name;
        EXPECT_EQ(m_dialog.params().minAmp, params.minAmp) << name;
        m_dialog.setResult(QDialog::Rejected);
        m_dialog.show();
    }
}

// The system's locale is settled once in a process, so this test runs itself in another one.
TEST(SaccDetectParamsSystemLocale, IsWhatFieldsAreShownIn)
{
    const char* const childMark = "KIRO_TEST_CHILD";
    if (!qEnvironmentVariableIsSet(childMark)) {
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("pl_PL.UTF-8"));
        environment.insert(QString::fromLatin1(childMark), QStringLiteral("1"));
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--gtest_filter=SaccDetectParamsSystemLocale.*")});
        ASSERT_TRUE(child.waitForFinished());
        EXPECT_EQ(child.exitCode(), 0) << child.readAllStandardOutput().toStdString();
        return;
    }
    SaccDetectParams dialog;
    SaccadeDetectionParams params;
    params.minAmp = 0.25;
    dialog.setParams(params);
    EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("editMinAmp"))->text(), QStringLiteral("0,25"));
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(dialog.params().minAmp, 0.25);
}

TEST_F(BlinksDetectParamsTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<BlinksDetectParams>(), "");
    const BlinksDetectParams dialog;
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Blinks detection parameters"));
    EXPECT_EQ(dialog.locale(), QLocale::system());
}

TEST_F(BlinksDetectParamsTest, LabelsAndLimits)
{
    EXPECT_EQ(labels(), "1st peak minimum velocity [deg/s]\n"
                        "2nd peak minimum velocity [deg/s]\n"
                        "Initial (zero) velocity [deg/s]\n"
                        "Maximum peaks distance [ms]\n"
                        "Minimum amplitude [deg]\n"
                        "Minimum amplitude relation\n"
                        "Maximum amplitude relation\n"
                        "Minimum duration [ms]\n"
                        "Maximum duration [ms]");
    EXPECT_EQ(limits(), "5 to 1000 by 5, 2 decimals\n"
                        "5 to 1000 by 5, 2 decimals\n"
                        "1 to 1000 by 1, 2 decimals\n"
                        "10 to 3000 by 10\n"
                        "1 to 500 by 1, 2 decimals\n"
                        "0.1 to 5 by 0.1, 2 decimals\n"
                        "0.1 to 5 by 0.1, 2 decimals\n"
                        "10 to 3000 by 10\n"
                        "10 to 3000 by 10");
    expectHelpForEachField();
}

TEST_F(BlinksDetectParamsTest, TabGoesFromTopToBottom)
{
    const std::string order = tabOrder();
    EXPECT_EQ(order.substr(0, order.rfind(" buttonSave") + 11),
              "spinPeakVel1 spinPeakVel2 spinMinVel spinMaxPeaksDistance spinMinAmplitude "
              "spinMinAmplitudeRelation spinMaxAmplitudeRelation spinMinDuration spinMaxDuration "
              "buttonDefaults buttonLoad buttonSave");
}

TEST_F(BlinksDetectParamsTest, OkTakesTheFields)
{
    EXPECT_EQ(shown(), "200.00 100.00 20.00 150 15.00 0.60 1.40 100 500");
    type("spinPeakVel1", "205.5");
    type("spinPeakVel2", "105.25");
    type("spinMinVel", "21");
    type("spinMaxPeaksDistance", "151");
    type("spinMinAmplitude", "16");
    type("spinMinAmplitudeRelation", "0.65");
    type("spinMaxAmplitudeRelation", "1.45");
    type("spinMinDuration", "101");
    type("spinMaxDuration", "501");
    EXPECT_EQ(record(), "200 100 20 150 15 0.6 1.4 100 500");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(record(), "205.5 105.25 21 151 16 0.65 1.45 101 501");
}

TEST_F(BlinksDetectParamsTest, CancelLeavesTheRecord)
{
    type("spinMinVel", "21");
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_EQ(record(), "200 100 20 150 15 0.6 1.4 100 500");
}

TEST_F(BlinksDetectParamsTest, DefaultsFillTheFieldsOnly)
{
    press("buttonDefaults");
    EXPECT_EQ(shown(), "200.00 100.00 20.00 150 15.00 0.50 1.50 200 500");
    EXPECT_EQ(record(), "200 100 20 150 15 0.6 1.4 100 500");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "200 100 20 150 15 0.5 1.5 200 500");
}

TEST_F(BlinksDetectParamsTest, ValuesAreCutToTheLimits)
{
    BlinkDetectionParams params;
    params.peakVel2 = 5000.0;
    params.maxAmplitudeRelation = std::numeric_limits<double>::infinity();
    params.maxDuration = 5000;
    m_dialog.setParams(params);
    EXPECT_EQ(shown(), "5.00 1000.00 1.00 10 1.00 0.10 5.00 10 3000");
}

TEST_F(BlinksDetectParamsTest, SavesAndLoadsProfiles)
{
    const std::string folder = QDir(path("")).path().toStdString();
    press("buttonDefaults");
    type("spinMinVel", "21.5");
    m_answers.chooseFile(path("mine"));
    press("buttonSave");
    EXPECT_EQ(lastBox(), "Select blinks detection profile name|" + folder);
    EXPECT_EQ(fileBytes(path("mine.bdp")), "!!! Blinks detection parameters file - DO NOT EDIT MANUALLY !!!\n"
                                           "Version: 1\n"
                                           "peak_vel_1: 200\n"
                                           "peak_vel_2: 100\n"
                                           "max_peaks_distance: 150\n"
                                           "min_vel: 21.5\n"
                                           "min_amplitude: 15\n"
                                           "min_amplitude_relation: 0.5\n"
                                           "max_amplitude_relation: 1.5\n"
                                           "min_duration: 200\n"
                                           "max_duration: 500\n");
    m_dialog.setParams(BlinkDetectionParams::atStart());
    m_answers.chooseFile(path("mine.bdp"));
    press("buttonLoad");
    EXPECT_EQ(lastBox(), "Select blinks detection profile|" + folder);
    EXPECT_EQ(shown(), "200.00 100.00 21.50 150 15.00 0.50 1.50 200 500");
    EXPECT_EQ(record(), "200 100 20 150 15 0.6 1.4 100 500");
}

TEST_F(BlinksDetectParamsTest, FailuresAreTold)
{
    m_folder.write(QStringLiteral("p.bdp"), "no profile");
    m_answers.chooseFile(path("p.bdp"));
    m_answers.press(QMessageBox::Ok);
    press("buttonLoad");
    EXPECT_EQ(lastBox(), "Blinks detection parameters|Failed to load parameters from file " +
                             path("p.bdp").toStdString());
    EXPECT_EQ(shown(), "200.00 100.00 20.00 150 15.00 0.60 1.40 100 500");
    const QString target = path("no/folder.bdp");
    chooseInFolderThatGoes(m_answers, target);
    m_answers.press(QMessageBox::Ok);
    press("buttonSave");
    EXPECT_EQ(lastBox(),
              "Blinks detection parameters|Failed to save parameters from file " + target.toStdString());
}

TEST_F(BlinksDetectParamsTest, NumbersAreInTheDialogsLocale)
{
    m_dialog.setLocale(QLocale(QLocale::Polish, QLocale::Poland));
    EXPECT_EQ(shown(), "200,00 100,00 20,00 150 15,00 0,60 1,40 100 500");
    type("spinMinVel", "21,5");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(record(), "200 100 21.5 150 15 0.6 1.4 100 500");
}
