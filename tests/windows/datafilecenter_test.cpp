#include "datafilecenterimpl.h"

#include "appconfig.h"
#include "fatalrecorder.h"
#include "inistore.h"
#include "messagerecorder.h"
#include "modalanswers.h"
#include "openevents.h"
#include "recordingfile.h"
#include "windowmessages.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace
{

const char* const Title = "File browser";
const QString CorruptedText = QStringLiteral(
    "The file you are trying to open is the valid kiro data file, which seems to be corrupted.\n"
    "Would you like the DataFileCenter to repair it?");
const QStringList ToolButtons = {QStringLiteral("buttonSaveBinary"), QStringLiteral("buttonSaveAscii"),
                                 QStringLiteral("buttonExport"),     QStringLiteral("buttonFillGaps"),
                                 QStringLiteral("buttonProcess"),    QStringLiteral("buttonAnalysis")};

class DataFileCenterTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QLocale::setDefault(QLocale::c());
        ASSERT_TRUE(appConfig().setConfigFile(m_folder.path(QStringLiteral("settings.ini"))));
    }

    /// A recording of one 2-byte signal, 250 Hz, one sample a frame.
    QString writeRecording(std::uint32_t declared, int stored, int extraBytes = 0)
    {
        KiroHeader header = makeHeader({makeSignal("Eye movement", KiroValue::SignedInt, 2, 1)}, declared);
        header.setStoringProgram("Recorder 1");
        header.setNotes("two\nlines");
        header.setTechnicalParameters("Gain\t8\n\nNoTab\n");
        header.setDay(2);
        header.setMonth(1);
        header.setYear(2012);
        header.setHour(10);
        header.setMinute(20);
        header.setSecond(30);
        header.setMillisecond(400);
        const std::string data = countingWords(stored) + std::string(std::size_t(extraBytes), 'x');
        return m_folder.write(QStringLiteral("r.kiro"), recordingBytes(header, data)).toQString();
    }

    QString shown(const char* label) { return widget<QLabel>(label)->text(); }

    template <class Widget>
    Widget* widget(const char* name)
    {
        auto* const found = m_window->findChild<Widget*>(QString::fromLatin1(name));
        if (!found)
            throw std::runtime_error(std::string("no widget ") + name);
        return found;
    }

    void expectTools(bool enabled)
    {
        for (const QString& name : ToolButtons)
            EXPECT_EQ(widget<QAbstractButton>(qPrintable(name))->isEnabled(), enabled) << qPrintable(name);
    }

    TestFolder m_folder;
    ModalAnswers m_answers;
    std::unique_ptr<DataFileCenter> m_window = std::make_unique<DataFileCenter>();
};

QString box(const QString& title, const QString& text)
{
    return title + QLatin1Char('|') + text;
}

} // namespace

TEST_F(DataFileCenterTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<DataFileCenter>(), "");
    const DataFileCenter window;
    EXPECT_EQ(window.windowTitle(), QString::fromLatin1(Title));
}

TEST_F(DataFileCenterTest, WithoutAFileOnlyOpenImportAndCloseWork)
{
    expectTools(false);
    for (const char* name : {"buttonOpen", "buttonImport", "buttonClose"})
        EXPECT_TRUE(widget<QAbstractButton>(name)->isEnabled()) << name;
    EXPECT_FALSE(widget<QTreeWidget>("viewSignal")->isEnabled());
    EXPECT_FALSE(widget<QGroupBox>("groupNotes")->isEnabled());
    EXPECT_FALSE(widget<QGroupBox>("groupTechnicalParameters")->isEnabled());
    EXPECT_EQ(widget<QStackedWidget>("stackContent")->currentWidget()->objectName(),
              QStringLiteral("pageEmpty"));
}

TEST_F(DataFileCenterTest, ShowsHeaderAndSignals)
{
    const QString path = writeRecording(10, 10);
    m_window->openFile(path);
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("File browser - ") + path);
    EXPECT_EQ(m_window->fileName(), path);
    EXPECT_TRUE(m_window->isValid());
    EXPECT_EQ(shown("labelProgram"), QStringLiteral("Recorder 1"));
    EXPECT_EQ(shown("labelFileVersion"), QStringLiteral("12"));
    EXPECT_EQ(shown("labelCount"), QStringLiteral("10"));
    EXPECT_EQ(shown("labelTotalTime"), QStringLiteral("00:00:00.040"));
    EXPECT_EQ(shown("labelDate"), QStringLiteral("Monday, 2 January 2012"));
    EXPECT_EQ(shown("labelTime"), QStringLiteral("10:20:30.400"));
    EXPECT_EQ(widget<QPlainTextEdit>("editNotes")->toPlainText(), QStringLiteral("two\nlines"));
    const auto* table = widget<QTreeWidget>("viewSignal");
    ASSERT_EQ(table->topLevelItemCount(), 1);
    QStringList row;
    for (int i = 0; i < table->columnCount(); ++i)
        row << table->topLevelItem(0)->text(i);
    EXPECT_EQ(row.join(QLatin1Char('|')),
              QStringLiteral("Eye movement|Eye movement|250.000|1|2|signed int||1|0"));
    expectTools(true);
    EXPECT_TRUE(table->isEnabled());
}

TEST_F(DataFileCenterTest, SignalTableHasItsHeadersAndAlignment)
{
    m_window->openFile(writeRecording(10, 10));
    const auto* table = widget<QTreeWidget>("viewSignal");
    QStringList heads;
    for (int i = 0; i < table->columnCount(); ++i)
        heads << table->headerItem()->text(i);
    EXPECT_EQ(heads.join(QLatin1Char('|')),
              QStringLiteral(
                  "Full name|Short name|Freq. [Hz]|Samples/Packet|Sample size [B]|Sample type|Calib. unit|"
                  "Calib. factor|Calib. offset"));
    const int left = Qt::AlignLeft;
    const int centre = Qt::AlignHCenter;
    const int right = Qt::AlignRight;
    const int wanted[] = {left, centre, right, right, centre, centre, centre, right, right};
    for (int i = 0; i < 9; ++i) {
        const int alignment = table->topLevelItem(0)->textAlignment(i) & Qt::AlignHorizontal_Mask;
        EXPECT_EQ(alignment == 0 ? left : alignment, wanted[i]) << i;
    }
    EXPECT_FALSE(table->isSortingEnabled());
}

TEST_F(DataFileCenterTest, TechnicalParametersAreNamesAndValues)
{
    m_window->openFile(writeRecording(10, 10));
    const auto* table = widget<QTreeWidget>("treeTechnicalParameters");
    ASSERT_EQ(table->topLevelItemCount(), 2);
    EXPECT_EQ(table->headerItem()->text(0), QStringLiteral("Name"));
    EXPECT_EQ(table->headerItem()->text(1), QStringLiteral("Value"));
    EXPECT_EQ(table->topLevelItem(0)->text(0), QStringLiteral("Gain"));
    EXPECT_EQ(table->topLevelItem(0)->text(1), QStringLiteral("8"));
    EXPECT_EQ(table->topLevelItem(0)->textAlignment(1), int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(table->topLevelItem(1)->text(0), QStringLiteral("NoTab"));
    EXPECT_EQ(table->topLevelItem(1)->text(1), QString());
}

TEST_F(DataFileCenterTest, CopyPutsParametersOnTheClipboard)
{
    QApplication::clipboard()->setText(QStringLiteral("before"));
    widget<QAbstractButton>("buttonCopyParameters")->click();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
    m_window->openFile(writeRecording(10, 10));
    QTest::mouseClick(widget<QAbstractButton>("buttonCopyParameters"), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Gain\t8\nNoTab\t\n"));
}

TEST_F(DataFileCenterTest, FrameCountZeroIsRepairedToAllFrames)
{
    const QString path = writeRecording(0, 1000);
    m_answers.press(QMessageBox::Yes);
    m_answers.press(QMessageBox::Ok);
    m_window->openFile(path);
    EXPECT_EQ(m_answers.seen(),
              (QStringList{box(QString::fromLatin1(Title), CorruptedText),
                           box(QString::fromLatin1(Title),
                               QStringLiteral("The corrupted file has been succesfully repaired!"))}));
    EXPECT_EQ(shown("labelCount"), QStringLiteral("1000"));
    EXPECT_TRUE(m_window->isValid());
    expectTools(true);
    KiroHeader header;
    ASSERT_TRUE(header.load(path));
    EXPECT_EQ(header.frameCount(), 1000u);
}

TEST_F(DataFileCenterTest, APartOfAFrameStaysBehindTheRepairedOnes)
{
    const QString path = writeRecording(999, 1000, 1);
    const std::string before = fileBytes(path);
    m_answers.press(QMessageBox::Yes);
    m_answers.press(QMessageBox::Ok);
    m_window->openFile(path);
    EXPECT_EQ(shown("labelCount"), QStringLiteral("1000"));
    const std::string after = fileBytes(path);
    EXPECT_EQ(after.size(), before.size());
    EXPECT_EQ(after.substr(2202 + 261), before.substr(2202 + 261));
}

TEST_F(DataFileCenterTest, DecliningRepairShowsTheFileWithToolsDisabled)
{
    const QString path = writeRecording(5, 10);
    const std::string before = fileBytes(path);
    m_answers.press(QMessageBox::No);
    m_window->openFile(path);
    EXPECT_EQ(shown("labelCount"), QStringLiteral("5"));
    EXPECT_FALSE(m_window->isValid());
    expectTools(false);
    EXPECT_TRUE(widget<QTreeWidget>("viewSignal")->isEnabled());
    EXPECT_EQ(fileBytes(path), before);
}

TEST_F(DataFileCenterTest, ClosingTheQuestionDeclinesRepair)
{
    const QString path = writeRecording(5, 10);
    const std::string before = fileBytes(path);
    m_answers.answer([](QWidget* question) { QTest::keyClick(question, Qt::Key_Escape); });
    m_window->openFile(path);
    EXPECT_FALSE(m_window->isValid());
    EXPECT_EQ(fileBytes(path), before);
}

TEST_F(DataFileCenterTest, AFileShorterThanDeclaredCannotBeRepaired)
{
    const QString path = writeRecording(11, 10);
    const std::string before = fileBytes(path);
    m_answers.press(QMessageBox::Yes);
    m_answers.press(QMessageBox::Ok);
    const MessageRecorder messages;
    m_window->openFile(path);
    EXPECT_EQ(m_answers.seen().last(),
              box(QString::fromLatin1(Title), QStringLiteral("Can't repair file \"%1\"!").arg(path)));
    EXPECT_EQ(MessageRecorder::texts(),
              QStringList(
                  QStringLiteral("DataFileCenter::repairFile(QString) - real data size (20) is smaller than "
                                 "size declared in the header (22), cannot repair file (%1)")
                      .arg(path)));
    EXPECT_FALSE(m_window->isValid());
    expectTools(false);
    EXPECT_EQ(shown("labelCount"), QStringLiteral("11"));
    EXPECT_EQ(fileBytes(path), before);
}

TEST_F(DataFileCenterTest, AFileWithoutFramesIsShownWithAWarning)
{
    const QString path = writeRecording(0, 0);
    m_answers.press(QMessageBox::Ok);
    m_window->openFile(path);
    EXPECT_EQ(m_answers.seen(), QStringList(box(QString::fromLatin1(Title),
                                                QStringLiteral("The file does not contain any data!"))));
    EXPECT_EQ(m_window->fileName(), path);
    EXPECT_FALSE(m_window->isValid());
    expectTools(false);
}

TEST_F(DataFileCenterTest, AFileThatCannotBeOpenedChangesNothing)
{
    const QString path = writeRecording(10, 10);
    m_window->openFile(path);
    const QString text = m_folder.write(QStringLiteral("letter.txt"), "Dear friend").toQString();
    m_answers.press(QMessageBox::Ok);
    m_window->openFile(text);
    EXPECT_EQ(m_answers.seen(),
              QStringList(box(
                  QStringLiteral("File browser - ") + path,
                  QStringLiteral("Can't open file %1\nKiroReader::setFile(const KiroString&) - cannot load "
                                 "file header (%1)")
                      .arg(text))));
    EXPECT_EQ(m_window->fileName(), path);
    EXPECT_EQ(shown("labelCount"), QStringLiteral("10"));
    expectTools(true);
}

TEST_F(DataFileCenterTest, RepairOfAMissingFileSaysSo)
{
    m_answers.press(QMessageBox::Ok);
    EXPECT_FALSE(m_window->repairFile(QStringLiteral("/no/such.kiro")));
    EXPECT_EQ(m_answers.seen(),
              QStringList(box(QString::fromLatin1(Title),
                              QStringLiteral("Failed to load data header from file /no/such.kiro"))));
}

// Zero frame size, more frames declared than a day holds, and names with placeholders and markup.
TEST_F(DataFileCenterTest, HostileRecordingsAreShownOrRefused)
{
    const QString path =
        m_folder.write(QStringLiteral("z%1<b>.kiro"), makeHeader({}, 5).toBytes()).toQString();
    m_answers.press(QMessageBox::Yes);
    m_answers.press(QMessageBox::Ok);
    m_window->openFile(path);
    EXPECT_EQ(m_answers.seen().last(),
              box(QString::fromLatin1(Title),
                  QStringLiteral("Can't repair file \"") + path + QStringLiteral("\"!")));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("File browser - ") + path);
    EXPECT_EQ(shown("labelTotalTime"), QString());
}

TEST_F(DataFileCenterTest, OpenButtonRemembersTheFolder)
{
    const QString path = writeRecording(10, 10);
    m_window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    m_answers.chooseFile(path);
    QTest::mouseClick(widget<QAbstractButton>("buttonOpen"), Qt::LeftButton);
    EXPECT_EQ(m_window->fileName(), path);
    m_answers.reject();
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_O, Qt::ControlModifier);
    QApplication::processEvents();
    ASSERT_EQ(m_answers.seen().size(), 2);
    EXPECT_EQ(m_answers.seen().last(), box(QStringLiteral("Select kiro data file"), QFileInfo(path).path()));
    EXPECT_EQ(m_window->fileName(), path);
}

TEST_F(DataFileCenterTest, WhereTheFolderIsGoneTheDialogsBeginAtHome)
{
    const QString folder = m_folder.path(QStringLiteral("sub"));
    ASSERT_TRUE(QDir().mkpath(folder));
    m_answers.chooseFile(m_folder.write(QStringLiteral("sub/none.kiro"), "x").toQString());
    m_answers.press(QMessageBox::Ok);
    QTest::mouseClick(widget<QAbstractButton>("buttonOpen"), Qt::LeftButton);
    ASSERT_TRUE(QDir(folder).removeRecursively());
    m_answers.reject();
    QTest::mouseClick(widget<QAbstractButton>("buttonOpen"), Qt::LeftButton);
    EXPECT_EQ(m_answers.seen().last(), QStringLiteral("Select kiro data file|") + QDir::homePath());
}

TEST_F(DataFileCenterTest, SettingsAreKeptFromOneWindowToTheNext)
{
    m_window->show();
    const QString path = writeRecording(10, 10);
    m_answers.chooseFile(path);
    QTest::mouseClick(widget<QAbstractButton>("buttonOpen"), Qt::LeftButton);
    widget<QTreeWidget>("viewSignal")->setColumnWidth(3, 123);
    m_window->close();
    IniStore store;
    ASSERT_TRUE(store.load(appConfig().configFile()));
    const QString section = QStringLiteral("DATAFILE_CENTER");
    EXPECT_EQ(store.value(section, QStringLiteral("counter_size"), QString()), QStringLiteral("256"));
    EXPECT_EQ(store.value(section, QStringLiteral("dir_open"), QString()), QFileInfo(path).path());
    EXPECT_EQ(store.value(section, QStringLiteral("col_3"), QString()), QStringLiteral("123"));
    EXPECT_EQ(store.value(section, QStringLiteral("win_max"), QString()), QStringLiteral("0"));
    m_window = std::make_unique<DataFileCenter>();
    EXPECT_EQ(widget<QTreeWidget>("viewSignal")->columnWidth(3), 123);
}

TEST_F(DataFileCenterTest, ClosingReplacesTheWholeSectionAndNoOther)
{
    m_folder.write(QStringLiteral("settings.ini"),
                   "[DATAFILE_CENTER]\nold=1\n\n[GENERAL]\nlanguage=Polski\n\n");
    m_window->show();
    m_window->close();
    IniStore store;
    ASSERT_TRUE(store.load(appConfig().configFile()));
    EXPECT_FALSE(store.hasKey(QStringLiteral("DATAFILE_CENTER"), QStringLiteral("old")));
    EXPECT_EQ(store.value(QStringLiteral("GENERAL"), QStringLiteral("language"), QString()),
              QStringLiteral("Polski"));
}

TEST_F(DataFileCenterTest, TwoWindowsShowTwoFiles)
{
    const QString first = writeRecording(10, 10);
    const QString second = m_folder.path(QStringLiteral("second.kiro"));
    ASSERT_TRUE(QFile::copy(first, second));
    DataFileCenter other;
    m_window->openFile(first);
    other.openFile(second);
    EXPECT_EQ(m_window->fileName(), first);
    EXPECT_EQ(other.fileName(), second);
}

TEST_F(DataFileCenterTest, AnEventOpensAFile)
{
    const QString path = writeRecording(10, 10);
    QApplication::postEvent(m_window.get(), new OpenFileEvent(path));
    QApplication::processEvents();
    EXPECT_EQ(m_window->fileName(), path);
}

TEST_F(DataFileCenterTest, ADroppedFileIsOpened)
{
    const QString path = writeRecording(10, 10);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    QApplication::processEvents();
    EXPECT_EQ(m_window->fileName(), path);
}

TEST_F(DataFileCenterTest, SeveralDroppedFilesAreRefused)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/a")), QUrl::fromLocalFile(QStringLiteral("/b"))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QApplication::sendEvent(m_window.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(DataFileCenterTest, CtrlWClosesTheWindow)
{
    m_window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(DataFileCenterTest, CloseButtonClosesTheWindow)
{
    m_window->show();
    QTest::mouseClick(widget<QAbstractButton>("buttonClose"), Qt::LeftButton);
    EXPECT_FALSE(m_window->isVisible());
}

namespace
{

/// An EDF file of one channel of 4 samples a record, two records; a physical range of `physical`.
std::string edfBytes(const std::string& physicalMin, const std::string& physicalMax)
{
    const auto field = [](const std::string& text, std::size_t width) {
        std::string padded = text;
        padded.resize(width, ' ');
        return padded;
    };
    std::string bytes = field("0", 8) + field("patient", 80) + field("recording", 80) + field("02.01.12", 8) +
                        field("10.20.30", 8) + field("512", 8) + field("", 44) + field("2", 8) +
                        field("1", 8) + field("1", 4);
    bytes += field("EOG", 16) + field("electrode", 80) + field("uV", 8) + field(physicalMin, 8) +
             field(physicalMax, 8) + field("-100", 8) + field("100", 8) + field("", 80) + field("4", 8) +
             field("", 32);
    for (int i = 0; i < 8; ++i)
        bytes += littleEndian(static_cast<std::uint64_t>(i), 2);
    return bytes;
}

} // namespace

TEST_F(DataFileCenterTest, ImportWritesARecordingBesideTheSourceAndShowsIt)
{
    const QString source = m_folder.write(QStringLiteral("e.v1.edf"), edfBytes("-100", "100")).toQString();
    m_answers.chooseFile(source);
    QTest::mouseClick(widget<QAbstractButton>("buttonImport"), Qt::LeftButton);
    EXPECT_EQ(m_answers.seen().first().section(QLatin1Char('|'), 0, 0),
              QStringLiteral("Select BDF/EDF file"));
    EXPECT_EQ(m_window->fileName(), m_folder.path(QStringLiteral("e.v1.kiro")));
    EXPECT_EQ(shown("labelCount"), QStringLiteral("2"));
    EXPECT_TRUE(m_window->isValid());
}

TEST_F(DataFileCenterTest, ImportTellsItsRemarksInOneBoxAndInTheLog)
{
    const QString source = m_folder.write(QStringLiteral("e.edf"), edfBytes("0", "100")).toQString();
    m_answers.press(QMessageBox::Ok);
    const MessageRecorder messages;
    QApplication::postEvent(m_window.get(), new OpenFileEvent(source));
    QApplication::processEvents();
    ASSERT_EQ(m_answers.seen().size(), 1);
    ASSERT_EQ(MessageRecorder::texts().size(), 1);
    EXPECT_EQ(m_answers.seen().first(), box(QString::fromLatin1(Title), MessageRecorder::texts().first()));
    EXPECT_EQ(m_window->fileName(), m_folder.path(QStringLiteral("e.kiro")));
}

TEST_F(DataFileCenterTest, ImportOfABrokenFileIsReportedAndLeavesNoFile)
{
    const QString source = m_folder.write(QStringLiteral("e.bdf"), std::string(511, 'x')).toQString();
    m_answers.press(QMessageBox::Ok);
    m_window->importFile(source);
    EXPECT_EQ(m_answers.seen(),
              QStringList(
                  box(QString::fromLatin1(Title),
                      QStringLiteral("The file contains no data or header is invalid (size < 512 bytes)"))));
    EXPECT_TRUE(m_window->fileName().isEmpty());
    EXPECT_FALSE(QFile::exists(m_folder.path(QStringLiteral("e.kiro"))));
}

TEST_F(DataFileCenterTest, ImportReplacesAnOlderRecordingWithoutAsking)
{
    const QString source = m_folder.write(QStringLiteral("e.edf"), edfBytes("-100", "100")).toQString();
    m_folder.write(QStringLiteral("e.kiro"), "older");
    m_window->importFile(source);
    EXPECT_EQ(m_window->fileName(), m_folder.path(QStringLiteral("e.kiro")));
    EXPECT_EQ(shown("labelCount"), QStringLiteral("2"));
    EXPECT_TRUE(m_answers.seen().isEmpty());
}

TEST_F(DataFileCenterTest, AConversionThatFailsIsReportedAndShowsNothing)
{
    const QString source = m_folder.write(QStringLiteral("e.edf"), edfBytes("-100", "100")).toQString();
    ASSERT_TRUE(QDir().mkpath(m_folder.path(QStringLiteral("e.kiro")))); // a folder in the recording's place
    m_answers.press(QMessageBox::Ok);
    m_window->importFile(source);
    ASSERT_EQ(m_answers.seen().size(), 1);
    EXPECT_TRUE(m_answers.seen().first().startsWith(QStringLiteral("File browser|")));
    EXPECT_TRUE(m_window->fileName().isEmpty());
}

TEST_F(DataFileCenterTest, AFileThatGoesAwayAfterItsRepairIsFatal)
{
    const QString path = writeRecording(0, 10);
    m_answers.press(QMessageBox::Yes);
    m_answers.answer([path](QWidget* done) {
        QFile::remove(path);
        done->close();
    });
    EXPECT_EQ(fatalErrorOf([&] { m_window->openFile(path); }),
              QStringLiteral("DataFileCenter::onOpen() - can't open file \"%1\" after header correction!")
                  .arg(path)
                  .toStdString());
}

TEST_F(DataFileCenterTest, TheImportDialogShowsTheFilesOfAllKinds)
{
    const QString folder = m_folder.path(QStringLiteral("."));
    for (const char* name : {"a.bdf", "b.edf", "c.rec", "d.txt"})
        m_folder.write(QString::fromLatin1(name), "x");
    const QStringList wanted = {QStringLiteral("a.bdf"), QStringLiteral("b.edf"), QStringLiteral("c.rec")};
    QStringList filters;
    m_answers.answer([&](QWidget* window) {
        auto* const dialog = qobject_cast<QFileDialog*>(window);
        ASSERT_TRUE(dialog);
        filters = dialog->nameFilters();
        dialog->setDirectory(folder);
        const QAbstractItemView* const list =
            dialog->findChild<QAbstractItemView*>(QStringLiteral("listView"));
        ASSERT_TRUE(list);
        const auto names = [list] {
            QStringList texts;
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
                texts << list->model()->index(row, 0, list->rootIndex()).data().toString();
            texts.sort(); // the model does that later
            return texts;
        };
        // The model is filled bit by bit, and shows folders of its own meanwhile.
        constexpr int WaitMs = 20000;
        EXPECT_TRUE(QTest::qWaitFor([&] { return names() == wanted; }, WaitMs))
            << names().join(QLatin1Char(' ')).toStdString();
        dialog->reject();
    });
    QTest::mouseClick(widget<QAbstractButton>("buttonImport"), Qt::LeftButton);
    EXPECT_EQ(filters,
              (QStringList{QStringLiteral("BDF/EDF file (*.bdf *.edf *.rec)"),
                           QStringLiteral("BioSemi Data File (*.bdf)"),
                           QStringLiteral("European Data File (*.edf)"),
                           QStringLiteral("Recording file (*.rec)"), QStringLiteral("All files (*.*)")}));
}

TEST_F(DataFileCenterTest, TextsOfAFileAreNoMarkup)
{
    KiroHeader header = makeHeader({makeSignal("Eye movement", KiroValue::SignedInt, 2, 1)}, 10);
    const QString text = QStringLiteral("<table width=100000><tr><td>wide</td></tr></table>");
    header.setStoringProgram(text);
    const QString path =
        m_folder.write(QStringLiteral("h.kiro"), recordingBytes(header, countingWords(10))).toQString();
    const int before = m_window->minimumSizeHint().width();
    m_window->openFile(path);
    EXPECT_EQ(shown("labelProgram"), text);
    for (const char* name :
         {"labelProgram", "labelFileVersion", "labelCount", "labelTotalTime", "labelDate", "labelTime"})
        EXPECT_EQ(widget<QLabel>(name)->textFormat(), Qt::PlainText) << name;
    EXPECT_LT(m_window->minimumSizeHint().width(), before + 1000);
}

TEST_F(DataFileCenterTest, ClosingDuringAnImportEndsItAndLeavesNoFile)
{
    std::string bytes = edfBytes("-100", "100");
    constexpr int Records = 400000;
    std::string count = std::to_string(Records);
    count.resize(8, ' ');
    bytes.replace(236, 8, count);
    bytes.resize(512 + std::size_t(Records) * 8, '\1');
    const QString source = m_folder.write(QStringLiteral("long.edf"), bytes).toQString();
    m_window->show();
    QTimer::singleShot(0, m_window.get(), [this] { EXPECT_FALSE(m_window->close()); });
    m_window->importFile(source);
    EXPECT_TRUE(m_window->isVisible());
    QApplication::processEvents();
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_TRUE(m_window->fileName().isEmpty());
    EXPECT_FALSE(QFile::exists(m_folder.path(QStringLiteral("long.kiro"))));
}
