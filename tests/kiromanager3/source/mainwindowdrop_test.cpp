#include "launcherfixture.h"
#include "support/eyerecording.h"

#include "windows/modalanswers.h"

#include <QDropEvent>
#include <QMimeData>

namespace
{

class MainWindowDropTest : public LauncherFixture
{
protected:
    /// Drags the files over the launcher; whether it would take them.
    bool enter(const QStringList& paths)
    {
        m_data.setUrls(urls(paths));
        QDragEnterEvent event(QPoint(20, 20), Qt::CopyAction, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.get(), &event);
        return event.isAccepted();
    }
    void drop(const QStringList& paths)
    {
        ASSERT_TRUE(enter(paths));
        QDropEvent event(QPoint(20, 20), Qt::CopyAction, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.get(), &event);
        EXPECT_TRUE(event.isAccepted());
        handleEvents();
    }

private:
    static QList<QUrl> urls(const QStringList& paths)
    {
        QList<QUrl> list;
        for (const QString& path : paths)
            list.append(QUrl::fromLocalFile(path));
        return list;
    }

    QMimeData m_data;
};

} // namespace

TEST_F(MainWindowDropTest, RecordingOpensInASignalsBrowser)
{
    const QString path = writeRecording(m_folder, QStringLiteral("r.kiro"));
    drop({path});
    EXPECT_EQ(moduleTitles(), "Signals browser - " + path.toStdString());
}

TEST_F(MainWindowDropTest, SaccadeFileOpensInASaccadesBrowser)
{
    const QString path = writeSaccadeFile(m_folder, QStringLiteral("żółw"));
    drop({path});
    EXPECT_EQ(moduleTitles(), "Saccades browser - " + path.toStdString());
}

TEST_F(MainWindowDropTest, OfSeveralFilesAllThatCanBeOpenedAre)
{
    const QString recording = writeRecording(m_folder, QStringLiteral("r.kiro"));
    const QString saccades = writeSaccadeFile(m_folder, QStringLiteral("s"));
    drop({makeFile("notes.txt"), saccades, recording});
    EXPECT_EQ(moduleTitles(), "Saccades browser - " + saccades.toStdString() + "; Signals browser - " +
                                  recording.toStdString());
}

TEST_F(MainWindowDropTest, FileForImportIsHandedToAFileBrowser)
{
    const QString path = makeFile("r.BDF");
    ModalAnswers answers;
    answers.press(QMessageBox::Ok);
    drop({path});
    EXPECT_EQ(moduleTitles(), "File browser");
    ASSERT_EQ(answers.seen().size(), 1) << "the importer says that this is no such file";
    EXPECT_TRUE(answers.seen().first().startsWith(QStringLiteral("File browser|")));
}

TEST_F(MainWindowDropTest, FilesForImportAreTakenInAnyCase)
{
    for (const char* name : {"r.bdf", "r.BDF", "r.edf", "r.rec"})
        EXPECT_TRUE(enter({makeFile(name)})) << name;
}

TEST_F(MainWindowDropTest, AllElseIsRefused)
{
    for (const char* name : {"r.txt", "r.KIRO", "r.Sacc", "kiro", "r.kiro.bak"})
        EXPECT_FALSE(enter({makeFile(name)})) << name;
    EXPECT_FALSE(enter({m_folder.path(QStringLiteral("missing.kiro"))}));
    EXPECT_FALSE(enter({m_folder.path(QString())}));
    EXPECT_FALSE(enter({}));
}
