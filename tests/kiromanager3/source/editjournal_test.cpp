#include "editjournal.h"

#include "appconfig.h"
#include "editjournaltext.h"
#include "filesizelimit.h"
#include "recordingbuilder.h"
#include "saccadestates.h"
#include "windows/messagerecorder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// A process that goes on until it is killed.
class Child
{
public:
    template <class Work>
    explicit Child(const Work& work)
    {
        if (::pipe(m_pipe) != 0)
            return;
        m_process = ::fork();
        if (m_process != 0) {
            ::close(m_pipe[1]);
            return;
        }
        work([this](int number) {
            if (::write(m_pipe[1], &number, sizeof(number)) != sizeof(number))
                ::_exit(1);
        });
        for (;;)
            ::pause();
    }
    ~Child()
    {
        kill();
        ::close(m_pipe[0]);
    }

    /// The next number that it tells; -1 if it was killed and there is none left.
    int nextNumber()
    {
        int number = -1;
        return ::read(m_pipe[0], &number, sizeof(number)) == sizeof(number) ? number : -1;
    }
    void kill()
    {
        if (m_process <= 0)
            return;
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        m_process = 0;
    }

private:
    Q_DISABLE_COPY(Child)
    int m_pipe[2] = {-1, -1};
    pid_t m_process = -1;
};

class EditJournalTest : public testing::Test
{
protected:
    QString folder() const { return m_folder.path(QStringLiteral("x.unsaved")); }
    QString file(const QString& name) const { return folder() + QLatin1Char('/') + name; }
    QString journal() const { return file(QStringLiteral("1.edits")); }
    QStringList files() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden | QDir::System); }

    static QByteArray contentOf(const QString& path)
    {
        QFile opened(path);
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << path.toStdString();
        return opened.readAll();
    }
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile opened(path);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        ASSERT_EQ(opened.write(bytes), bytes.size());
    }
    /// What the file of a journal, whoever owns it, is read as.
    std::string kept() const
    {
        SaccadeState found;
        QString problem;
        const bool read = EditJournalText::read(contentOf(journal()), found, problem);
        EXPECT_EQ(problem.toStdString(), "");
        return read ? StateBits(found).bytes() : "unreadable";
    }
    static std::string readOf(const LeftEdits& edits)
    {
        SaccadeState found;
        return edits.read(found) ? StateBits(found).bytes() : "unreadable";
    }
    /// Lets a journal of these states be left behind.
    void leave(const std::vector<SaccadeState>& states) const
    {
        EditJournal left(folder());
        for (const SaccadeState& next : states)
            left.keep(next);
        ASSERT_TRUE(left.isKept());
    }

    TestFolder m_folder;
    StateDice dice{7};
    SaccadeState state = dice.anyState(5);
};

} // namespace

TEST_F(EditJournalTest, NothingIsWrittenBeforeSomethingIsKept)
{
    EditJournal owner(folder());
    EXPECT_FALSE(owner.isKept());
    owner.drop();
    EXPECT_FALSE(QFileInfo::exists(folder()));
}

TEST_F(EditJournalTest, StateIsReadBackAfterTheOwnerHasGone)
{
    {
        EditJournal owner(folder());
        owner.keep(state);
        EXPECT_TRUE(owner.isKept());
    }
    EXPECT_EQ(files(), QStringList{QStringLiteral("1.edits")});
    const auto left = EditJournal::leftBehind(folder());
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].saccadeFile(), state.saccadeFile);
    EXPECT_EQ(left[0].dataFile(), state.dataFile);
    EXPECT_LT(qAbs(left[0].lastWritten().secsTo(QDateTime::currentDateTime())), 60);
    EXPECT_TRUE(readOf(left[0]) == bitsOf(state));
}

TEST_F(EditJournalTest, AnEditAddsALine)
{
    EditJournal owner(folder());
    owner.keep(state);
    const QByteArray before = contentOf(journal());
    SaccadeState edited = state;
    edited.saccades.removeAt(2);
    edited.currentSaccade = 1;
    owner.keep(edited);
    const QByteArray after = contentOf(journal());
    EXPECT_TRUE(after.startsWith(before));
    EXPECT_EQ(after.count('\n'), before.count('\n') + 1);
    EXPECT_TRUE(after.mid(before.size()).startsWith("edit 1 current 1 at 2 removed 1 added 0  #"));
    EXPECT_TRUE(kept() == bitsOf(edited));
    EXPECT_TRUE(owner.isKept());
}

TEST_F(EditJournalTest, WhatDidNotChangeIsNotWritten)
{
    EditJournal owner(folder());
    owner.keep(state);
    const QByteArray before = contentOf(journal());
    owner.keep(state);
    EXPECT_EQ(contentOf(journal()), before);
    state.currentSaccade = (state.currentSaccade + 1) % 5;
    owner.keep(state);
    EXPECT_EQ(contentOf(journal()).count('\n'), before.count('\n') + 1);
    EXPECT_TRUE(kept() == bitsOf(state));
}

TEST_F(EditJournalTest, AnyOtherChangeWritesTheStateAnew)
{
    EditJournal owner(folder());
    owner.keep(state);
    const QByteArray first = contentOf(journal());
    const std::function<void(SaccadeState&)> changes[] = {
        [](SaccadeState& s) { s.blinks.append(KiroBlink()); },
        [](SaccadeState& s) { s.saccadeParams.maxAmp = 1.5; },
        [](SaccadeState& s) { s.blinkParams.minVel = 1.5; },
        [](SaccadeState& s) { s.saccadeFile += QLatin1Char('x'); },
        [](SaccadeState& s) { s.dataFile += QLatin1Char('x'); },
        [](SaccadeState& s) { s.header.params.minAmp = 1.5; },
        [](SaccadeState& s) { s.header.comment += "x"; },
        [](SaccadeState& s) { s.header.rightHorizontal.factor = 1.5; },
    };
    for (const auto& change : changes) {
        change(state);
        state.saccades.removeLast();
        state.saccades.append(dice.anySaccade());
        owner.keep(state);
        EXPECT_TRUE(owner.isKept());
        EXPECT_EQ(contentOf(journal()).count('\n'), first.count('\n'));
        EXPECT_TRUE(kept() == bitsOf(state));
    }
}

TEST_F(EditJournalTest, ManyActionsAreReadBackAfterEach)
{
    EditJournal owner(folder());
    int lines = 0;
    for (int i = 0; i < 400; ++i) {
        dice.act(state);
        owner.keep(state);
        ASSERT_TRUE(owner.isKept());
        ASSERT_TRUE(kept() == bitsOf(state)) << i;
        lines = std::max(lines, contentOf(journal()).count('\n'));
    }
    EXPECT_GT(lines, 20); // not that all were written anew
    EXPECT_EQ(files().size(), 2);
}

TEST_F(EditJournalTest, EditsDoNotGrowWithoutEnd)
{
    state.saccades = dice.anyState(2).saccades;
    state.currentSaccade = 0;
    EditJournal owner(folder());
    owner.keep(state);
    int anew = 0;
    qint64 most = 0;
    for (int i = 0; i < 2 * EditJournalText::MostEdits + 10; ++i) {
        const qint64 before = QFileInfo(journal()).size();
        state.saccades[i % 2] = dice.anySaccade();
        owner.keep(state);
        const qint64 size = QFileInfo(journal()).size();
        most = std::max(most, size);
        anew += size < before ? 1 : 0;
    }
    EXPECT_LT(most, 400000);
    EXPECT_GE(anew, 2);
    EXPECT_TRUE(kept() == bitsOf(state));
    // Shorter lines reach the limit of their number.
    anew = 0;
    for (int i = 0; i < 2 * EditJournalText::MostEdits + 10; ++i) {
        const qint64 before = QFileInfo(journal()).size();
        state.currentSaccade = i % 2;
        owner.keep(state);
        anew += QFileInfo(journal()).size() < before ? 1 : 0;
    }
    EXPECT_GE(anew, 1);
    EXPECT_TRUE(kept() == bitsOf(state));
}

TEST_F(EditJournalTest, DropRemovesAllFiles)
{
    EditJournal owner(folder());
    owner.keep(state);
    EXPECT_EQ(files().size(), 2); // with the lock
    owner.drop();
    EXPECT_FALSE(owner.isKept());
    EXPECT_TRUE(files().isEmpty());
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
}

TEST_F(EditJournalTest, KeepsAgainAfterADrop)
{
    EditJournal owner(folder());
    owner.keep(state);
    owner.drop();
    owner.keep(state);
    EXPECT_TRUE(owner.isKept());
    EXPECT_TRUE(kept() == bitsOf(state));
}

TEST_F(EditJournalTest, JournalOfAnotherWindowIsNotOffered)
{
    EditJournal one(folder());
    EditJournal two(folder());
    one.keep(state);
    SaccadeState other = dice.anyState(2);
    two.keep(other);
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
    EXPECT_EQ(files(), (QStringList{QStringLiteral("1.edits"), QStringLiteral("1.edits.lock"),
                                    QStringLiteral("2.edits"), QStringLiteral("2.edits.lock")}));
    one.drop();
    EXPECT_TRUE(two.isKept());
    other.saccades.removeAt(0);
    two.keep(other);
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
}

TEST_F(EditJournalTest, LeftEditsAreOfferedToOneOnly)
{
    leave({state});
    auto first = EditJournal::leftBehind(folder());
    ASSERT_EQ(first.size(), 1u);
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
    Child another([&](const auto& tell) { tell(int(EditJournal::leftBehind(folder()).size())); });
    EXPECT_EQ(another.nextNumber(), 0);
    first.clear();
    EXPECT_EQ(EditJournal::leftBehind(folder()).size(), 1u);
}

TEST_F(EditJournalTest, JournalOfALivingProcessIsNotOffered)
{
    Child owner([&](const auto& tell) {
        EditJournal kept(folder());
        kept.keep(state);
        tell(kept.isKept() ? 1 : 0);
        for (;;)
            ::pause();
    });
    ASSERT_EQ(owner.nextNumber(), 1);
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
    EditJournal another(folder());
    another.keep(dice.anyState(1));
    EXPECT_TRUE(kept() == bitsOf(state)); // it took another file
    another.drop();
    owner.kill();
    const auto left = EditJournal::leftBehind(folder());
    ASSERT_EQ(left.size(), 1u);
    EXPECT_TRUE(readOf(left[0]) == bitsOf(state));
}

TEST_F(EditJournalTest, JournalOfAnOwnerThatWorksForHoursIsNotOffered)
{
    EditJournal owner(folder());
    owner.keep(state);
    QFile lock(file(QStringLiteral("1.edits.lock")));
    ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        lock.setFileTime(QDateTime::currentDateTime().addSecs(-36000), QFileDevice::FileModificationTime));
    lock.close();
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
    state.saccades.removeAt(0);
    owner.keep(state);
    EXPECT_TRUE(kept() == bitsOf(state));
}

TEST_F(EditJournalTest, DiscardRemovesAllFiles)
{
    leave({state});
    write(file(QStringLiteral("1.edits.AbCdEf")), "of a writer that was killed");
    auto left = EditJournal::leftBehind(folder());
    ASSERT_EQ(left.size(), 1u);
    left[0].discard();
    EXPECT_TRUE(files().isEmpty());
    SaccadeState untouched;
    EXPECT_FALSE(left[0].read(untouched));
    left[0].discard();
    left.clear();
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
}

TEST_F(EditJournalTest, NewJournalLeavesThoseLeftBehindAlone)
{
    leave({state});
    EditJournal owner(folder());
    owner.keep(dice.anyState(2));
    EXPECT_TRUE(owner.isKept());
    EXPECT_TRUE(kept() == bitsOf(state));
    EXPECT_EQ(EditJournal::leftBehind(folder()).size(), 1u);
}

TEST_F(EditJournalTest, NewJournalClearsWhatAKilledWriterLeft)
{
    ASSERT_TRUE(QDir().mkpath(folder()));
    write(file(QStringLiteral("1.edits.AbCdEf")), "half a state");
    EditJournal owner(folder());
    owner.keep(state);
    EXPECT_EQ(files(), (QStringList{QStringLiteral("1.edits"), QStringLiteral("1.edits.lock")}));
}

TEST_F(EditJournalTest, LatestIsOfferedFirst)
{
    for (int i = 0; i < 3; ++i) {
        state.saccadeFile = QString::number(i);
        EditJournal left(folder());
        left.keep(state);
    }
    const QDateTime noon(QDate(2020, 1, 1), QTime(12, 0));
    const int hours[] = {2, 3, 1};
    for (int i = 0; i < 3; ++i) {
        QFile opened(file(QStringLiteral("%1.edits").arg(i + 1)));
        ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
        ASSERT_TRUE(opened.setFileTime(noon.addSecs(3600 * hours[i]), QFileDevice::FileModificationTime));
    }
    const auto left = EditJournal::leftBehind(folder());
    ASSERT_EQ(left.size(), 3u);
    EXPECT_EQ(left[0].saccadeFile(), QStringLiteral("1"));
    EXPECT_EQ(left[1].saccadeFile(), QStringLiteral("0"));
    EXPECT_EQ(left[2].saccadeFile(), QStringLiteral("2"));
    EXPECT_EQ(left[2].lastWritten(), noon.addSecs(3600));
}

TEST_F(EditJournalTest, DamageIsToldAndEndsTheEdits)
{
    SaccadeState first = state;
    first.saccades.removeAt(0);
    SaccadeState second = first;
    second.saccades.removeAt(0);
    leave({state, first, second});
    QByteArray text = contentOf(journal());
    text[text.lastIndexOf("edit 2") + 5] = '3';
    write(journal(), text);
    const MessageRecorder messages;
    const auto left = EditJournal::leftBehind(folder());
    ASSERT_EQ(left.size(), 1u);
    EXPECT_TRUE(MessageRecorder::texts().isEmpty());
    EXPECT_TRUE(readOf(left[0]) == bitsOf(first));
    EXPECT_EQ(MessageRecorder::texts(),
              QStringList{QStringLiteral("Unsaved edits in %1: line 16 cannot be read").arg(journal())});
}

TEST_F(EditJournalTest, TornLastLineIsNoDamage)
{
    SaccadeState edited = state;
    edited.saccades.removeAt(0);
    leave({state, edited});
    write(journal(), contentOf(journal()).chopped(1));
    const MessageRecorder messages;
    const auto left = EditJournal::leftBehind(folder());
    ASSERT_EQ(left.size(), 1u);
    EXPECT_TRUE(readOf(left[0]) == bitsOf(state));
    EXPECT_TRUE(MessageRecorder::texts().isEmpty());
}

TEST_F(EditJournalTest, FilesThatAreNoJournalsArePassedOver)
{
    leave({state});
    write(file(QStringLiteral("2.edits")), "");
    write(file(QStringLiteral("3.edits")), QByteArray(100000, '\n'));
    write(file(QStringLiteral("other.txt")), "");
    ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("4.edits")));
    ASSERT_EQ(::mkfifo(qPrintable(file(QStringLiteral("5.edits"))), 0600), 0);
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), file(QStringLiteral("6.edits"))));
    QFile huge(file(QStringLiteral("7.edits")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(EditJournalText::MostBytes + 1));
    const QStringList before = files();
    const MessageRecorder messages;
    EXPECT_EQ(EditJournal::leftBehind(folder()).size(), 1u);
    QStringList wanted;
    for (const int number : {2, 3, 6, 7})
        wanted += QStringLiteral("Unsaved edits in %1: the file cannot be read")
                      .arg(file(QStringLiteral("%1.edits").arg(number)));
    EXPECT_EQ(MessageRecorder::texts(), wanted);
    EXPECT_EQ(files(), before);
}

TEST_F(EditJournalTest, NothingIsLeftInAFolderThatIsNotThere)
{
    EXPECT_TRUE(EditJournal::leftBehind(folder()).empty());
    EXPECT_TRUE(EditJournal::leftBehind(QString()).empty());
    EXPECT_FALSE(QFileInfo::exists(folder()));
}

TEST_F(EditJournalTest, FolderThatCannotBeMadeWarnsOnce)
{
    m_folder.write(QStringLiteral("x.unsaved"), "a file");
    for (const QString& path : {folder(), folder() + QStringLiteral("/deeper"), QString()}) {
        const MessageRecorder messages;
        EditJournal owner(path);
        for (int i = 0; i < 3; ++i) {
            dice.act(state);
            owner.keep(state);
            EXPECT_FALSE(owner.isKept());
        }
        owner.drop();
        EXPECT_EQ(
            MessageRecorder::texts(),
            QStringList{QStringLiteral("Unsaved edits cannot be kept in \"%1\": the folder cannot be made")
                            .arg(path)});
    }
}

// As root permissions do not bind, so the test runs in a child that has given its rights up.
TEST_F(EditJournalTest, FolderThatCannotBeWrittenWarnsOnce)
{
    ASSERT_TRUE(QDir().mkpath(folder()));
    ASSERT_EQ(::chmod(qPrintable(folder()), 0555), 0);
    ASSERT_EQ(::chmod(qPrintable(m_folder.path(QString())), 0755), 0);
    EXPECT_EXIT(
        {
            if (::geteuid() == 0 && ::setuid(65534) != 0)
                ::_exit(9);
            const MessageRecorder messages;
            EditJournal owner(folder());
            for (int i = 0; i < 3; ++i) {
                dice.act(state);
                owner.keep(state);
            }
            const bool ok = !owner.isKept() && MessageRecorder::texts().size() == 1 &&
                            EditJournal::leftBehind(folder()).empty();
            ::_exit(ok ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    ASSERT_EQ(::chmod(qPrintable(folder()), 0755), 0);
    EXPECT_TRUE(files().isEmpty());
}

// A limit on the size of files stops a write as a full disk does.
TEST_F(EditJournalTest, FullDiskKeepsWhatWasKeptAndGoesOnLater)
{
    EditJournal owner(folder());
    owner.keep(state);
    SaccadeState edited = state;
    edited.saccades.append(dice.anySaccade());
    const MessageRecorder messages;
    {
        const FileSizeLimit disk(rlim_t(QFileInfo(journal()).size()) + 100);
        ASSERT_TRUE(disk.isSet());
        owner.keep(edited);
        EXPECT_FALSE(owner.isKept());
        owner.keep(edited);
        EXPECT_FALSE(owner.isKept());
    }
    EXPECT_EQ(MessageRecorder::texts().size(), 1);
    EXPECT_TRUE(kept() == bitsOf(state)); // behind it stands a torn line
    EXPECT_EQ(files().size(), 2);
    owner.keep(edited);
    EXPECT_TRUE(owner.isKept());
    EXPECT_TRUE(kept() == bitsOf(edited));
}

TEST_F(EditJournalTest, NameOfAJournalThatCouldNotBeWrittenYetStaysTaken)
{
    EditJournal owner(folder());
    {
        const MessageRecorder messages;
        const FileSizeLimit disk(1000);
        ASSERT_TRUE(disk.isSet());
        owner.keep(state);
    }
    EXPECT_FALSE(owner.isKept());
    EditJournal another(folder());
    another.keep(dice.anyState(1));
    EXPECT_EQ(files().filter(QStringLiteral("2.edits")).size(), 2);
    owner.keep(state);
    EXPECT_TRUE(owner.isKept());
    EXPECT_TRUE(kept() == bitsOf(state));
}

TEST_F(EditJournalTest, FileThatSomebodyElseChangedIsWrittenAnew)
{
    EditJournal owner(folder());
    owner.keep(state);
    const auto expectKeptAgain = [&] {
        state.saccades.append(dice.anySaccade());
        owner.keep(state);
        EXPECT_TRUE(owner.isKept());
        EXPECT_TRUE(kept() == bitsOf(state));
    };
    write(journal(), contentOf(journal()).chopped(10));
    expectKeptAgain();
    write(journal(), contentOf(journal()) + "x");
    expectKeptAgain();
    ASSERT_TRUE(QFile::remove(journal()));
    expectKeptAgain();
}

TEST_F(EditJournalTest, KilledProcessLosesTheLastActionAtMost)
{
    constexpr int Most = 2000;
    constexpr unsigned Seed = 8;
    std::mt19937 random(9);
    int mostActions = 0;
    for (int run = 0; run < 25; ++run) {
        Child owner([&](const auto& tell) {
            StateDice childDice(Seed);
            SaccadeState edited = childDice.anyState(3);
            EditJournal kept(folder());
            for (int i = 0; i < Most; ++i) {
                kept.keep(edited);
                tell(i);
                childDice.act(edited);
            }
        });
        const int wanted = int(random() % 120);
        int told = -1;
        while (told < wanted) {
            told = owner.nextNumber();
            ASSERT_GE(told, 0);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
        owner.kill();
        for (int number = owner.nextNumber(); number >= 0; number = owner.nextNumber())
            told = number;
        mostActions = std::max(mostActions, told);
        auto left = EditJournal::leftBehind(folder());
        ASSERT_EQ(left.size(), 1u);
        const std::string read = readOf(left[0]);
        StateDice sameDice(Seed);
        SaccadeState edited = sameDice.anyState(3);
        for (int i = 0; i < told; ++i)
            sameDice.act(edited);
        const bool all = read == bitsOf(edited);
        sameDice.act(edited);
        EXPECT_TRUE(all || read == bitsOf(edited)) << "after action " << told;
        left[0].discard();
        ASSERT_TRUE(files().isEmpty());
    }
    EXPECT_GT(mostActions, 50);
    EXPECT_LT(mostActions, Most - 1); // it was at work when it was killed
}

TEST_F(EditJournalTest, FolderStandsBesideTheSettings)
{
    const QString before = appConfig().configFile();
    ASSERT_TRUE(appConfig().setConfigFile(m_folder.path(QStringLiteral("my.settings.ini"))));
    EXPECT_EQ(EditJournal::journalFolder(), m_folder.path(QStringLiteral("my.settings.unsaved")));
    appConfig().setConfigFile(before);
}
