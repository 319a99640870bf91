#include "safefile.h"

#include "filesizelimit.h"
#include "recordingfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <memory>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr const char* Old = "the good old file";

class SafeFileTest : public testing::Test
{
protected:
    void SetUp() override { m_path = m_folder.write(QStringLiteral("f"), Old).toQString(); }

    std::string content() const { return fileBytes(KiroString(m_path)); }
    int filesInFolder() const
    {
        return QDir(QFileInfo(m_path).path()).entryList(QDir::Files | QDir::Hidden | QDir::System).size();
    }

    TestFolder m_folder;
    QString m_path;
};

} // namespace

TEST_F(SafeFileTest, CommitReplacesTheFile)
{
    SafeFile file(m_path);
    ASSERT_TRUE(file.open());
    EXPECT_TRUE(file.write("new ", 4));
    EXPECT_TRUE(file.write("text", 4));
    EXPECT_EQ(content(), Old);
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(content(), "new text");
    EXPECT_EQ(filesInFolder(), 1);
    EXPECT_TRUE(file.errorText().isEmpty());
}

TEST_F(SafeFileTest, CommitMakesANewFile)
{
    SafeFile file(m_folder.path(QStringLiteral("g")));
    ASSERT_TRUE(file.open());
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(fileBytes(KiroString(m_folder.path(QStringLiteral("g")))), "");
}

TEST_F(SafeFileTest, WithoutCommitTheOldFileStands)
{
    {
        SafeFile file(m_path);
        ASSERT_TRUE(file.open());
        EXPECT_TRUE(file.write("new", 3));
    }
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(SafeFileTest, CancelLeavesTheOldFileAndTakesNothingMore)
{
    SafeFile file(m_path);
    ASSERT_TRUE(file.open());
    EXPECT_TRUE(file.write("new", 3));
    file.cancel();
    EXPECT_FALSE(file.write("more", 4));
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(SafeFileTest, MissingFolderIsReported)
{
    SafeFile file(m_folder.path(QStringLiteral("no/such/file")));
    EXPECT_FALSE(file.open());
    EXPECT_FALSE(file.errorText().isEmpty());
    EXPECT_FALSE(file.write("x", 1));
    EXPECT_FALSE(file.commit());
}

TEST_F(SafeFileTest, PermissionsAreKept)
{
    ASSERT_EQ(::chmod(qPrintable(m_path), 0640), 0);
    SafeFile file(m_path);
    ASSERT_TRUE(file.open());
    ASSERT_TRUE(file.commit());
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(m_path), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, mode_t(0640));
}

TEST_F(SafeFileTest, LinksStayAndTheirFileIsReplaced)
{
    const QString link = m_folder.path(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(m_path, link));
    SafeFile file(link);
    ASSERT_TRUE(file.open());
    EXPECT_TRUE(file.write("new", 3));
    ASSERT_TRUE(file.commit());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(content(), "new");
}

// A limit on the size of files makes a large write come back short, as a full disk does.
TEST_F(SafeFileTest, ShortWritesLeaveTheOldFile)
{
    const std::string large = noise(300000);
    auto disk = std::make_unique<FileSizeLimit>(100000);
    ASSERT_TRUE(disk->isSet());
    bool committed = true;
    QString error;
    {
        SafeFile file(m_path);
        if (file.open()) {
            file.write(large.data(), qint64(large.size()));
            committed = file.commit();
            error = file.errorText();
        }
    }
    disk.reset();
    EXPECT_FALSE(committed);
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(filesInFolder(), 1);
}

namespace
{

bool writeText(const char* path, const std::string& text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly) &&
           file.write(text.data(), qint64(text.size())) == qint64(text.size());
}

/// Gives this process a tree of mounts of its own, for ordinary users by way of a user namespace.
bool takeOwnMounts()
{
    const std::string user = "0 " + std::to_string(::geteuid()) + " 1";
    const std::string group = "0 " + std::to_string(::getegid()) + " 1";
    const bool own = ::unshare(CLONE_NEWNS) == 0 ||
                     (::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writeText("/proc/self/uid_map", user) &&
                      writeText("/proc/self/setgroups", "deny") && writeText("/proc/self/gid_map", group));
    return own && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Runs in a child: 1 if a file system of 2 MiB cannot be mounted here, 0 if the old file survived a full
/// one, else a number that says where it did not.
int fillSmallDisk(const QString& folder)
{
    if (!takeOwnMounts() || ::mount("none", qPrintable(folder), "tmpfs", 0, "size=2M") != 0)
        return 1;
    const QString path = folder + QStringLiteral("/f");
    QFile old(path);
    if (!old.open(QIODevice::WriteOnly) || old.write(Old) < 0)
        return 2;
    old.close();
    const std::string large = noise(4000000);
    int result = 0;
    for (const qint64 piece : {qint64(4000000), qint64(4096), qint64(100)}) {
        SafeFile file(path);
        if (!file.open())
            result = 3;
        for (qint64 at = 0; at + piece <= qint64(large.size()) && file.write(large.data() + at, piece);
             at += piece)
            continue;
        if (file.commit() || file.errorText().isEmpty() ||
            file.errorText().contains(QStringLiteral("Unknown error")))
            result = 4;
        if (fileBytes(KiroString(path)) != Old)
            result = 5;
    }
    return result;
}

} // namespace

TEST_F(SafeFileTest, AFullDiskLeavesTheOldFile)
{
    const QString folder = m_folder.path(QStringLiteral("disk"));
    ASSERT_TRUE(QDir().mkpath(folder));
    int status = 0;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        ::_exit(fillSmallDisk(folder));
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == 1)
        GTEST_SKIP()
            << "no right to mount a small file system here; ShortWritesLeaveTheOldFile covers the rest";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}
