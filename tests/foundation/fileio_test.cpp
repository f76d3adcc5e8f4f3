// tests/foundation/fileio_test.cpp: open files: modes, reading, writing, positions, locks.

#include "foundation/vela-fileio.h"
#include "tests/foundation/strings.h"
#include "tests/foundation/temporarydirectory.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// An open file that is closed at the end of the test.
class Opened
{
public:
    Opened(std::string const& path, int mode)
    {
        EXPECT_TRUE(FileIO_OpenA(path.c_str(), static_cast<ENU_FILE_OPEN>(mode), &m_file)) << path;
    }
    ~Opened() { FileIO_Close(m_file); }
    operator FILEDATA*() const { return m_file; }
    FILEDATA* operator->() const { return m_file; }

private:
    FILEDATA* m_file = nullptr;
};

std::string readUpTo(FILEDATA* file, unsigned long length)
{
    std::string buffer(length, 0);
    unsigned long count = 0;
    int atEnd = 0;
    EXPECT_TRUE(FileIO_Read(file, buffer.data(), length, &count, &atEnd));
    EXPECT_EQ(atEnd, count == 0);
    buffer.resize(count);
    return buffer;
}

bool writes(FILEDATA* file, std::string const& text)
{
    unsigned long count = 0;
    return FileIO_Write(file, text.data(), text.size(), &count) && count == text.size();
}

unsigned long position(FILEDATA* file)
{
    unsigned long low = 0;
    unsigned long high = 1;
    EXPECT_TRUE(FileIO_GetCurPos(file, &low, &high));
    EXPECT_EQ(high, 0u);
    return low;
}

int openError(std::string const& path, int mode)
{
    auto* file = reinterpret_cast<FILEDATA*>(1);
    EXPECT_FALSE(FileIO_OpenA(path.c_str(), static_cast<ENU_FILE_OPEN>(mode), &file));
    EXPECT_EQ(file, nullptr);
    return FileIO_GetLastErr();
}

/// Whether another process can lock the file.
bool othersCanLock(std::string const& path)
{
    pid_t const child = fork();
    if (child == 0) {
        int const descriptor = open(path.c_str(), O_RDWR);
        _exit(lockf(descriptor, F_TEST, 0) == 0 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

unsigned int permissions(std::string const& path)
{
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 0777;
}

} // namespace

TEST(FileIO, TheServiceStartsAndStops)
{
    EXPECT_TRUE(FileIO_Init());
    EXPECT_TRUE(FileIO_ShutDown());
}

TEST(FileIO, Mode0ReadsAnExistingFile)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", "content"), 0);
    EXPECT_EQ(readUpTo(file, 3), "con");
    EXPECT_EQ(readUpTo(file, 100), "tent");
    EXPECT_EQ(readUpTo(file, 100), "");
    EXPECT_FALSE(writes(file, "x"));
    EXPECT_EQ(FileIO_GetLastErr(), EBADF);
    EXPECT_EQ(openError(directory.file("missing"), 0), ENOENT);
}

TEST(FileIO, Mode1ReadsAndWritesAnExistingFile)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", "content"), 1);
    EXPECT_EQ(readUpTo(file, 3), "con");
    EXPECT_TRUE(writes(file, "TE"));
    EXPECT_EQ(directory.read("a"), "conTEnt");
    EXPECT_EQ(openError(directory.file("missing"), 1), ENOENT);
}

TEST(FileIO, Mode2MakesANewFileForBoth)
{
    TemporaryDirectory const directory;
    directory.write("a", "old content");
    Opened const file(directory.file("a"), 2);
    EXPECT_EQ(permissions(directory.file("a")), 0600u);
    EXPECT_TRUE(writes(file, "new"));
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_START, 0));
    EXPECT_EQ(readUpTo(file, 100), "new");
}

TEST(FileIO, Mode3Appends)
{
    TemporaryDirectory const directory;
    {
        Opened const file(directory.write("a", "old"), 3);
        EXPECT_EQ(position(file), 3u);
        EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_START, 0));
        EXPECT_TRUE(writes(file, "+new"));
        EXPECT_EQ(directory.read("a"), "old+new");
    }
    Opened const created(directory.file("b"), 3);
    EXPECT_EQ(permissions(directory.file("b")), 0600u);
    EXPECT_TRUE(writes(created, "first"));
    EXPECT_EQ(directory.read("b"), "first");
}

TEST(FileIO, Mode4LeavesAnEmptyFileWithPermissions0600)
{
    TemporaryDirectory const directory;
    directory.write("a", "old content");
    Opened const file(directory.file("a"), 4);
    EXPECT_EQ(permissions(directory.file("a")), 0600u);
    unsigned long size = 1;
    EXPECT_TRUE(FileIO_GetSizeA(file, &size));
    EXPECT_EQ(size, 0u);
    char byte = 0;
    unsigned long count = 0;
    int atEnd = 0;
    EXPECT_FALSE(FileIO_Read(file, &byte, 1, &count, &atEnd));
}

TEST(FileIO, ModesThatReplaceFailWhenTheOldFileCanNotBeDeleted)
{
    TemporaryDirectory const directory;
    EXPECT_EQ(openError(directory.path(), 2), EISDIR);
    EXPECT_EQ(openError(directory.path(), 4), EISDIR);
}

TEST(FileIO, AnyOtherModeOpensReadOnly)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", "content"), 77);
    EXPECT_EQ(readUpTo(file, 7), "content");
    EXPECT_FALSE(writes(file, "x"));
}

TEST(FileIO, TheRecordKeepsThePathAsPassed)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", ""), 0);
    EXPECT_STREQ(file->path, directory.file("a").c_str());
    EXPECT_EQ(file->reserved, 0u);
    EXPECT_EQ(file->locked, 0);
    EXPECT_GE(file->descriptor, 0);
}

TEST(FileIO, NullEmptyAndOverlongPathsFail)
{
    FILEDATA* file = nullptr;
    EXPECT_FALSE(FileIO_OpenA(nullptr, FILE_OPEN_READ, &file));
    EXPECT_EQ(FileIO_GetLastErr(), EINVAL);
    EXPECT_EQ(openError("", 0), EINVAL);
    EXPECT_FALSE(FileIO_OpenA("/", FILE_OPEN_READ, nullptr));
    EXPECT_FALSE(FileIO_OpenW(nullptr, FILE_OPEN_READ, &file));
    EXPECT_EQ(openError(std::string(4096, 'x'), 4), ENAMETOOLONG);
    EXPECT_EQ(openError(std::string(100000, 'x'), 4), ENAMETOOLONG);
    EXPECT_FALSE(FileIO_OpenW(sstring(std::string(4096, 'x').c_str()), FILE_OPEN_READ, &file));
    EXPECT_EQ(FileIO_GetLastErr(), ENAMETOOLONG);
    EXPECT_FALSE(FileIO_OpenW(sstring(std::string(1000000, 'x').c_str()), FILE_OPEN_READ, &file));
    EXPECT_EQ(FileIO_GetLastErr(), ENAMETOOLONG);
}

TEST(FileIO, NullArgumentsFail)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", "x"), 1);
    char byte = 0;
    unsigned long number = 0;
    int flag = 0;
    EXPECT_FALSE(FileIO_Close(nullptr));
    EXPECT_FALSE(FileIO_Read(nullptr, &byte, 1, &number, &flag));
    EXPECT_FALSE(FileIO_Read(file, nullptr, 1, &number, &flag));
    EXPECT_FALSE(FileIO_Read(file, &byte, 1, nullptr, &flag));
    EXPECT_FALSE(FileIO_Read(file, &byte, 1, &number, nullptr));
    EXPECT_FALSE(FileIO_Write(nullptr, &byte, 1, &number));
    EXPECT_FALSE(FileIO_Write(file, nullptr, 1, &number));
    EXPECT_FALSE(FileIO_Write(file, &byte, 1, nullptr));
    EXPECT_FALSE(FileIO_Seek(nullptr, FILE_SEEK_START, 0));
    EXPECT_FALSE(FileIO_Seek(file, static_cast<ENU_FILE_SEEK>(3), 0));
    EXPECT_FALSE(FileIO_GetCurPos(nullptr, &number, &number));
    EXPECT_FALSE(FileIO_GetCurPos(file, nullptr, &number));
    EXPECT_FALSE(FileIO_GetCurPos(file, &number, nullptr));
    EXPECT_FALSE(FileIO_Lock(nullptr, 0));
    EXPECT_FALSE(FileIO_UnLock(nullptr));
    EXPECT_FALSE(FileIO_GetSizeA(static_cast<FILEDATA*>(nullptr), &number));
    EXPECT_FALSE(FileIO_GetSizeA(file, nullptr));
    EXPECT_FALSE(FileIO_GetLastMod(file, nullptr));
    EXPECT_FALSE(FileIO_Truncate(nullptr));
    EXPECT_EQ(FileIO_GetLastErr(), EINVAL);
    EXPECT_TRUE(FileIO_GetSizeA(file, &number));
    EXPECT_EQ(FileIO_GetLastErr(), 0);
}

TEST(FileIO, SeeksFromStartEndAndCurrentPosition)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", "0123456789"), 0);
    EXPECT_TRUE(FileIO_Seek(file, static_cast<ENU_FILE_SEEK>(1), 0));
    EXPECT_EQ(position(file), 10u);
    EXPECT_TRUE(FileIO_Seek(file, static_cast<ENU_FILE_SEEK>(0), 4));
    EXPECT_EQ(position(file), 4u);
    EXPECT_TRUE(FileIO_Seek(file, static_cast<ENU_FILE_SEEK>(2), 3));
    EXPECT_EQ(position(file), 7u);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_CURRENT, static_cast<unsigned long>(-2)));
    EXPECT_EQ(position(file), 5u);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_END, static_cast<unsigned int>(-3)));
    EXPECT_EQ(position(file), 7u);
    EXPECT_FALSE(FileIO_Seek(file, FILE_SEEK_CURRENT, static_cast<unsigned long>(-100)));
    EXPECT_EQ(FileIO_GetLastErr(), EINVAL);
}

TEST(FileIO, OnlyTheLow32BitsOfAnOffsetCount)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", "0123456789"), 0);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_START, 0x7700000002ul));
    EXPECT_EQ(position(file), 2u);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_START, 3, 99));
    EXPECT_EQ(position(file), 3u);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_START, 0xFFFFFFFFul));
    EXPECT_EQ(position(file), 0xFFFFFFFFul);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_CURRENT, 1));
    unsigned long low = 1;
    unsigned long high = 0;
    EXPECT_TRUE(FileIO_GetCurPos(file, &low, &high));
    EXPECT_EQ(low, 0u);
    EXPECT_EQ(high, 1u);
}

TEST(FileIO, TruncateCutsAtTheCurrentPosition)
{
    TemporaryDirectory const directory;
    Opened const file(directory.write("a", "0123456789"), 1);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_START, 4));
    EXPECT_TRUE(FileIO_Truncate(file));
    EXPECT_EQ(directory.read("a"), "0123");
    EXPECT_EQ(position(file), 4u);
}

TEST(FileIO, SizeIsKnownByRecordAndByPath)
{
    TemporaryDirectory const directory;
    std::string const path = directory.write("a", "0123456789");
    Opened const file(path, 0);
    unsigned long size = 0;
    EXPECT_TRUE(FileIO_GetSizeA(file, &size));
    EXPECT_EQ(size, 10u);
    size = 0;
    EXPECT_TRUE(FileIO_GetSizeA(path.c_str(), &size));
    EXPECT_EQ(size, 10u);
    size = 0;
    EXPECT_TRUE(FileIO_GetSizeW(sstring(path.c_str()), &size));
    EXPECT_EQ(size, 10u);
    EXPECT_FALSE(FileIO_GetSizeA(directory.file("missing").c_str(), &size));
    EXPECT_EQ(FileIO_GetLastErr(), ENOENT);
}

TEST(FileIO, TheLastModificationIsInLocalTime)
{
    TemporaryDirectory const directory;
    std::string const path = directory.write("a", "x");
    timespec const times[2] = {{1000000000, 0}, {1000000000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    Opened const file(path, 0);
    tm changed{};
    EXPECT_TRUE(FileIO_GetLastMod(file, &changed));
    EXPECT_EQ(std::mktime(&changed), 1000000000);
}

TEST(FileIO, ALockKeepsOtherProcessesOutAndThePositionInPlace)
{
    TemporaryDirectory const directory;
    std::string const path = directory.write("a", "0123456789");
    Opened const file(path, 1);
    EXPECT_TRUE(FileIO_Seek(file, FILE_SEEK_START, 5));
    EXPECT_TRUE(othersCanLock(path));
    EXPECT_TRUE(FileIO_Lock(file, 1));
    EXPECT_EQ(file->locked, 1);
    EXPECT_EQ(position(file), 5u);
    EXPECT_FALSE(othersCanLock(path));
    EXPECT_TRUE(FileIO_UnLock(file));
    EXPECT_EQ(position(file), 5u);
    EXPECT_TRUE(othersCanLock(path));
}

TEST(FileIO, ASecondLockSucceedsWithoutTakingTheSystemsLock)
{
    TemporaryDirectory const directory;
    std::string const path = directory.write("a", "x");
    Opened const file(path, 1);
    EXPECT_TRUE(FileIO_UnLock(file)); // never locked, so nothing to do
    EXPECT_TRUE(FileIO_Lock(file, 0));
    EXPECT_TRUE(FileIO_UnLock(file));
    EXPECT_EQ(file->locked, 1);
    EXPECT_TRUE(FileIO_Lock(file, 0));
    EXPECT_TRUE(othersCanLock(path));
}

TEST(FileIO, WithoutWaitingALockHeldElsewhereFails)
{
    TemporaryDirectory const directory;
    std::string const path = directory.write("a", "x");
    int ready[2];
    int done[2];
    ASSERT_EQ(pipe(ready), 0);
    ASSERT_EQ(pipe(done), 0);
    pid_t const child = fork();
    if (child == 0) {
        int const descriptor = open(path.c_str(), O_RDWR);
        char byte = static_cast<char>(lockf(descriptor, F_LOCK, 0));
        byte = static_cast<char>(write(ready[1], &byte, 1));
        byte = static_cast<char>(read(done[0], &byte, 1));
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    {
        Opened const file(path, 1);
        EXPECT_FALSE(FileIO_Lock(file, 1));
        EXPECT_TRUE(FileIO_GetLastErr() == EACCES || FileIO_GetLastErr() == EAGAIN);
        EXPECT_EQ(file->locked, 0);
    }
    EXPECT_EQ(write(done[1], &byte, 1), 1);
    waitpid(child, nullptr, 0);
    for (int descriptor : {ready[0], ready[1], done[0], done[1]})
        close(descriptor);
}

TEST(FileIO, WidePathsOpenTheSameFiles)
{
    TemporaryDirectory const directory;
    FILEDATA* file = nullptr;
    ASSERT_TRUE(FileIO_OpenW(sstring(directory.file("w").c_str()), FILE_OPEN_CREATEWRITE, &file));
    EXPECT_TRUE(writes(file, "wide"));
    EXPECT_TRUE(FileIO_Close(file));
    EXPECT_EQ(directory.read("w"), "wide");
}
