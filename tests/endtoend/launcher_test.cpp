#include "support/eyerecording.h"
#include "support/translationbuilder.h"
#include "virtualdisplay.h"

#include <QFile>

#include <gtest/gtest.h>

namespace
{

/// The real program on a display, as it is seen from outside.
class LauncherTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_display.isRunning()); }

    QString path(const char* name) const { return m_folder.path(QString::fromUtf8(name)); }
    void write(const char* name, const std::string& bytes) const
    {
        m_folder.write(QString::fromUtf8(name), bytes);
    }
    void start(const QStringList& files, const QString& program = QStringLiteral(KIROMANAGER))
    {
        m_display.start(program,
                        QStringList{QStringLiteral("-config"), path("k.ini"), QStringLiteral("-signals"),
                                    path("k.sig"), QStringLiteral("-log"), path("k.txt")} +
                            files);
    }
    std::string settings() const { return fileBytes(path("k.ini").toLocal8Bit().constData()); }

    TestFolder m_folder;
    VirtualDisplay m_display;
};

const std::string Launcher = "KiroManager 3.12";

} // namespace

TEST_F(LauncherTest, OpensTheFilesThatItCanAndEndsWithTheLastWindow)
{
    writeRecording(m_folder, QStringLiteral("r.kiro"));
    write("notes.txt", "");
    write("CAPITALS.KIRO", "");
    start({path("r.kiro"), path("missing.sacc"), path("notes.txt"), path("CAPITALS.KIRO")});
    const std::string module = "Signals browser - " + path("r.kiro").toStdString();
    EXPECT_EQ(m_display.waitForTitles(2), Launcher + "; " + module);
    EXPECT_TRUE(m_display.staysWith(2)) << "no further window, no box";

    m_display.press(Launcher, "ctrl+w");
    EXPECT_EQ(m_display.waitForTitles(1), module);
    EXPECT_TRUE(m_display.isProgramRunning()) << "the module lives on";
    m_display.press(module, "ctrl+w");
    EXPECT_EQ(m_display.exitCode(), 0);
}

TEST_F(LauncherTest, SeveralFilesOpenSeveralWindows)
{
    for (const char* name : {"a.kiro", "żółw.kiro"})
        writeRecording(m_folder, QString::fromUtf8(name));
    writeSaccadeFile(m_folder, QStringLiteral("b"));
    start({path("a.kiro"), path("b.sacc"), path("żółw.kiro")});
    EXPECT_EQ(m_display.waitForTitles(4), Launcher + "; Saccades browser - " + path("b.sacc").toStdString() +
                                              "; Signals browser - " + path("a.kiro").toStdString() +
                                              "; Signals browser - " + path("żółw.kiro").toStdString());
    m_display.press(Launcher, "ctrl+q");
    EXPECT_EQ(m_display.exitCode(), 0);
    EXPECT_EQ(settings().substr(0, 28), "[GENERAL]\nlanguage=English\n\n");
}

TEST_F(LauncherTest, ValueOfSignalsCountsAsAFileThoseOfConfigAndLogDoNot)
{
    for (const char* name : {"c.kiro", "l.kiro", "s.kiro"})
        write(name, "");
    m_display.start(QStringLiteral(KIROMANAGER),
                    {QStringLiteral("-config"), path("c.kiro"), QStringLiteral("-log"), path("l.kiro"),
                     QStringLiteral("-signals"), path("s.kiro")});
    // The signals file is no recording, which a box says.
    EXPECT_EQ(m_display.waitForTitles(3), Launcher + "; Signals browser; Signals browser");
    EXPECT_TRUE(m_display.staysWith(3));
}

TEST_F(LauncherTest, PolishOneHasTheTextsOfTheFilesBesideIt)
{
    write("k.ini", "[GENERAL]\nlanguage=Polski\n");
    writeRecording(m_folder, QStringLiteral("r.kiro"));
    write("kiromanager_pl.qm",
          translationBytes({{"Signals browser", QStringLiteral("Przeglądarka sygnałów")}}));
    const QString program = path("kiromanager");
    ASSERT_TRUE(QFile::copy(QStringLiteral(KIROMANAGER), program));
    start({path("r.kiro")}, program);
    const std::string module = "Przeglądarka sygnałów - " + path("r.kiro").toStdString();
    EXPECT_EQ(m_display.waitForTitles(2), Launcher + "; " + module);
    m_display.press(module, "ctrl+q");
    EXPECT_EQ(m_display.exitCode(), 0);
}

TEST_F(LauncherTest, PolishOneWithoutOrWithBrokenTranslationsRuns)
{
    write("k.ini", "[GENERAL]\nlanguage=Polski\n");
    for (const char* name : {"qt_pl.qm", "kiromanager_pl.qm", "kiroshare3_pl.qm", "kiroshare4_pl.qm"})
        write(name, name[2] == 'r' ? "no translation" : "");
    const QString program = path("kiromanager");
    ASSERT_TRUE(QFile::copy(QStringLiteral(KIROMANAGER), program));
    start({}, program);
    EXPECT_EQ(m_display.waitForTitles(1), Launcher);
    m_display.press(Launcher, "ctrl+w");
    EXPECT_EQ(m_display.exitCode(), 0);
    EXPECT_EQ(settings().substr(0, 27), "[GENERAL]\nlanguage=Polski\n\n");
}
