// tests/foundation/fileio-path_test.cpp: paths and directories, searching and canonicalizing.

#include "foundation/localize2.h"
#include "foundation/vela-fileio.h"
#include "tests/foundation/strings.h"
#include "tests/foundation/temporarydirectory.h"

#include <cerrno>
#include <cstring>
#include <map>
#include <string>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Changes the current directory during a test.
class WorkingIn
{
public:
    explicit WorkingIn(std::string const& path) : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(path);
    }
    ~WorkingIn() { std::filesystem::current_path(m_before); }

private:
    std::filesystem::path m_before;
};

/// Sets or removes the search path during a test.
class SearchPath
{
public:
    explicit SearchPath(char const* value) : m_before(std::getenv("PATH") ? std::getenv("PATH") : "")
    {
        if (value)
            setenv("PATH", value, 1);
        else
            unsetenv("PATH");
    }
    ~SearchPath() { setenv("PATH", m_before.c_str(), 1); }

private:
    std::string m_before;
};

std::string canonical(std::string const& path) { return FileIO_CanonicalizePath(path.c_str()).c_str(); }

std::string foundInPath(char const* name)
{
    char result[kMaxPathBytes] = "untouched";
    return FileIO_FindFileInPathA(name, result) ? result : "failed: " + std::string(result);
}

std::string fullPathOf(std::string const& argv0)
{
    char result[kMaxPathBytes];
    return FileIO_GetCurrentProcessFullPathA(argv0.c_str(), result) ? result : "failed";
}

} // namespace

TEST(FileNames, ExistenceAndReadability)
{
    TemporaryDirectory const directory;
    std::string const file = directory.write("a", "x");
    EXPECT_TRUE(FileIO_FileExistsA(file.c_str()));
    EXPECT_TRUE(FileIO_FileExistsW(sstring(file.c_str())));
    EXPECT_TRUE(FileIO_IsFileReadableA(file.c_str()));
    EXPECT_TRUE(FileIO_IsFileReadableW(sstring(file.c_str())));
    EXPECT_TRUE(FileIO_DirectoryExistsA(directory.path().c_str()));
    EXPECT_TRUE(FileIO_DirectoryExistsW(sstring(directory.path().c_str())));
    EXPECT_FALSE(FileIO_DirectoryExistsA(file.c_str()));
    EXPECT_EQ(FileIO_GetLastErr(), ENOTDIR);
    EXPECT_FALSE(FileIO_FileExistsA(directory.file("b").c_str()));
    EXPECT_EQ(FileIO_GetLastErr(), ENOENT);
    EXPECT_FALSE(FileIO_IsFileReadableA(directory.file("b").c_str()));
    EXPECT_FALSE(FileIO_DirectoryExistsA(directory.file("b").c_str()));
    EXPECT_FALSE(FileIO_FileExistsA(nullptr));
    EXPECT_FALSE(FileIO_FileExistsW(nullptr));
    EXPECT_EQ(FileIO_GetLastErr(), EINVAL);
    EXPECT_FALSE(FileIO_FileExistsA(std::string(5000, 'a').c_str()));
    EXPECT_EQ(FileIO_GetLastErr(), ENAMETOOLONG);
}

TEST(FileNames, DeletesFilesAndMakesAndRemovesDirectories)
{
    TemporaryDirectory const directory;
    std::string const file = directory.write("a", "x");
    std::string const folder = directory.file("folder");
    EXPECT_TRUE(FileIO_FileDeleteA(file.c_str()));
    EXPECT_FALSE(FileIO_FileDeleteA(file.c_str()));
    EXPECT_EQ(FileIO_GetLastErr(), ENOENT);
    directory.write("a", "x");
    EXPECT_TRUE(FileIO_FileDeleteW(sstring(file.c_str())));
    EXPECT_TRUE(FileIO_CreateDirectoryA(folder.c_str()));
    EXPECT_TRUE(FileIO_DirectoryExistsA(folder.c_str()));
    EXPECT_FALSE(FileIO_CreateDirectoryW(sstring(folder.c_str())));
    EXPECT_EQ(FileIO_GetLastErr(), EEXIST);
    EXPECT_TRUE(FileIO_RemoveDirectoryA(folder.c_str()));
    EXPECT_FALSE(FileIO_RemoveDirectoryW(sstring(folder.c_str())));
}

TEST(FileNames, TheCurrentDirectoryMoves)
{
    TemporaryDirectory const directory;
    WorkingIn const start("/");
    char current[kMaxPathBytes];
    unsigned short wide[kMaxPathBytes];
    EXPECT_TRUE(FileIO_SetCurrentDirectoryA(directory.path().c_str()));
    EXPECT_TRUE(FileIO_GetCurrentDirectoryA(current));
    EXPECT_EQ(current, directory.path());
    EXPECT_TRUE(FileIO_SetCurrentDirectoryW(u16(u"/")));
    EXPECT_TRUE(FileIO_GetCurrentDirectoryW(wide));
    EXPECT_EQ(sstring(wide), "/");
    EXPECT_FALSE(FileIO_SetCurrentDirectoryA(directory.file("missing").c_str()));
    EXPECT_FALSE(FileIO_GetCurrentDirectoryA(nullptr));
    EXPECT_FALSE(FileIO_GetCurrentDirectoryW(nullptr));
}

TEST(FileNames, AbsoluteNamesBeginWithASlash)
{
    EXPECT_TRUE(FileIO_IsFileNameAbsoluteA("/a"));
    EXPECT_TRUE(FileIO_IsFileNameAbsoluteW(u16(u"/")));
    EXPECT_FALSE(FileIO_IsFileNameAbsoluteA("a/b"));
    EXPECT_FALSE(FileIO_IsFileNameAbsoluteA("\\a"));
    EXPECT_FALSE(FileIO_IsFileNameAbsoluteA(""));
    EXPECT_FALSE(FileIO_IsFileNameAbsoluteW(u16(u"a")));
    EXPECT_FALSE(FileIO_IsFileNameAbsoluteA(nullptr));
}

TEST(FileNames, BackslashesBecomeSlashes)
{
    char inPlace[] = "\\a\\b/c\\";
    char second[16];
    unsigned short wide[] = {'\\', 'x', 0};
    unsigned short wideSecond[4];
    sstring text("C:\\dir\\file");
    EXPECT_TRUE(FileIO_ConvertSlashesToOSTypeA(inPlace));
    EXPECT_STREQ(inPlace, "/a/b/c/");
    EXPECT_TRUE(FileIO_ConvertSlashesToOSTypeA("a\\b", second));
    EXPECT_STREQ(second, "a/b");
    EXPECT_TRUE(FileIO_ConvertSlashesToOSTypeA(text));
    EXPECT_EQ(text, "C:/dir/file");
    EXPECT_TRUE(FileIO_ConvertSlashesToOSTypeW(wide));
    EXPECT_EQ(sstring(wide), "/x");
    EXPECT_TRUE(FileIO_ConvertSlashesToOSTypeW(u16(u"a\\"), wideSecond));
    EXPECT_EQ(sstring(wideSecond), "a/");
    EXPECT_FALSE(FileIO_ConvertSlashesToOSTypeA(static_cast<char*>(nullptr)));
    EXPECT_FALSE(FileIO_ConvertSlashesToOSTypeA("a", nullptr));
}

TEST(FileNames, AWidePathIsNarrowedByTheDefaultLocale)
{
    TemporaryDirectory const directory;
    LOCALE* japanese = Locale_Create("ja_JP");
    Locale_SetDefault(japanese);
    sstring path(directory.path().c_str());
    path += "/";
    path += u16(u"\u3042");
    FILEDATA* file = nullptr;
    EXPECT_TRUE(FileIO_OpenW(path, FILE_OPEN_CREATE, &file));
    EXPECT_TRUE(FileIO_Close(file));
    // 4,000 units, but 6,000 bytes.
    EXPECT_FALSE(FileIO_FileExistsW(sstring(u16(u"/\u3042")) * 1999));
    EXPECT_EQ(FileIO_GetLastErr(), ENAMETOOLONG);
    Locale_Destroy(japanese);
    EXPECT_TRUE(FileIO_FileExistsA(directory.file("\x82\xa0").c_str()));
}

TEST(Directories, AListingHoldsEveryNameInTheSystemsOrder)
{
    TemporaryDirectory const directory;
    directory.write("file", "x");
    std::filesystem::create_directory(directory.file("folder"));
    std::filesystem::create_symlink("missing", directory.file("dangling"));
    std::filesystem::create_symlink("folder", directory.file("link"));
    DIRDATA* listing = nullptr;
    ASSERT_TRUE(FileIO_EnumerateDirectoryA(directory.path().c_str(), &listing));
    unsigned long count = 0;
    EXPECT_TRUE(FileIO_GetNumEntries(listing, &count));
    EXPECT_EQ(count, 6u);
    std::map<std::string, int> entries;
    std::string order;
    char name[kMaxPathBytes];
    int isDirectory = -1;
    for (int more = FileIO_GetFirstDirEntryA(listing, &isDirectory, name, sizeof name); more;
         more = FileIO_GetNextDirEntryA(listing, &isDirectory, name, sizeof name)) {
        entries[name] = isDirectory;
        order += std::string(name) + "/";
    }
    EXPECT_EQ(FileIO_GetLastErr(), ENOENT);
    std::map<std::string, int> const expected{{".", 0x4000},      {"..", 0x4000}, {"dangling", 0},
                                              {"folder", 0x4000}, {"file", 0},    {"link", 0x4000}};
    EXPECT_EQ(entries, expected);
    std::string systemOrder;
    DIR* opened = opendir(directory.path().c_str());
    while (dirent const* entry = readdir(opened))
        systemOrder += std::string(entry->d_name) + "/";
    closedir(opened);
    EXPECT_EQ(order, systemOrder);
    EXPECT_TRUE(FileIO_FreeDirectoryEnumeration(listing));
}

TEST(Directories, ANameIsReturnedOnlyIfItFitsTheBuffer)
{
    TemporaryDirectory const directory;
    directory.write("1234567", "x");
    DIRDATA* listing = nullptr;
    ASSERT_TRUE(FileIO_EnumerateDirectoryW(sstring(directory.path().c_str()), &listing));
    char name[16];
    unsigned short wide[16];
    int isDirectory = 0;
    bool seen = false;
    for (int i = 0; i < 3; ++i) {
        listing->cursor = i == 0 ? listing->first : listing->cursor;
        if (std::strlen(listing->cursor->name) == 7) {
            seen = true;
            EXPECT_FALSE(FileIO_GetNextDirEntryA(listing, &isDirectory, name, 7));
            EXPECT_EQ(FileIO_GetLastErr(), ENAMETOOLONG);
            EXPECT_FALSE(FileIO_GetNextDirEntryW(listing, &isDirectory, wide, 7));
            EXPECT_FALSE(FileIO_GetNextDirEntryW(listing, &isDirectory, wide, 0));
            EXPECT_EQ(FileIO_GetLastErr(), ENAMETOOLONG);
            auto const* same = listing->cursor;
            EXPECT_TRUE(FileIO_GetNextDirEntryA(listing, &isDirectory, name, 8));
            EXPECT_STREQ(name, "1234567");
            listing->cursor = const_cast<DIRENTRYDATA*>(same);
        }
        EXPECT_TRUE(FileIO_GetNextDirEntryW(listing, &isDirectory, wide, 8));
    }
    EXPECT_TRUE(seen);
    EXPECT_TRUE(FileIO_GetFirstDirEntryW(listing, &isDirectory, wide, 16));
    EXPECT_EQ(sstring(wide), listing->first->name);
    EXPECT_TRUE(FileIO_FreeDirectoryEnumeration(listing));
}

TEST(Directories, OnlyADirectoryIsEnumerated)
{
    TemporaryDirectory const directory;
    auto* listing = reinterpret_cast<DIRDATA*>(1);
    EXPECT_FALSE(FileIO_EnumerateDirectoryA(directory.write("a", "x").c_str(), &listing));
    EXPECT_EQ(listing, nullptr);
    EXPECT_EQ(FileIO_GetLastErr(), ENOTDIR);
    EXPECT_FALSE(FileIO_EnumerateDirectoryA(nullptr, &listing));
    EXPECT_FALSE(FileIO_EnumerateDirectoryA("/", nullptr));
    EXPECT_FALSE(FileIO_GetNumEntries(nullptr, nullptr));
    EXPECT_FALSE(FileIO_FreeDirectoryEnumeration(nullptr));
    char name[16];
    int isDirectory = 0;
    EXPECT_FALSE(FileIO_GetFirstDirEntryA(nullptr, &isDirectory, name, 16));
    EXPECT_FALSE(FileIO_GetNextDirEntryW(nullptr, nullptr, nullptr, 0));
    EXPECT_EQ(FileIO_GetLastErr(), EINVAL);
}

TEST(SearchPath, TheFirstDirectoryThatHasTheNameWins)
{
    TemporaryDirectory const directory;
    std::filesystem::create_directory(directory.file("one"));
    std::filesystem::create_directory(directory.file("two"));
    directory.write("two/tool", "x");
    std::string const both = directory.file("missing") + "::" + directory.file("one") + ":" + directory.file("two/");
    SearchPath const path(both.c_str());
    EXPECT_EQ(foundInPath("tool"), directory.file("two/tool"));
    directory.write("one/tool", "x");
    EXPECT_EQ(foundInPath("tool"), directory.file("one/tool"));
    EXPECT_EQ(foundInPath("nothing"), "failed: untouched");
    unsigned short wide[kMaxPathBytes];
    EXPECT_TRUE(FileIO_FindFileInPathW(u16(u"tool"), wide));
    EXPECT_EQ(sstring(wide), directory.file("one/tool").c_str());
}

TEST(SearchPath, NamesWithASlashAreNotSearched)
{
    SearchPath const path("/");
    EXPECT_EQ(foundInPath("bin"), "/bin");
    EXPECT_EQ(foundInPath("../bin"), "failed: untouched");
    EXPECT_EQ(foundInPath("/bin"), "failed: untouched");
    EXPECT_EQ(foundInPath(nullptr), "failed: untouched");
    EXPECT_EQ(foundInPath(""), "failed: untouched");
    EXPECT_FALSE(FileIO_FindFileInPathA("bin", nullptr));
    EXPECT_FALSE(FileIO_FindFileInPathW(u16(u"bin"), nullptr));
    EXPECT_EQ(foundInPath(std::string(10000, 'x').c_str()), "failed: untouched");
}

TEST(SearchPath, WithoutTheVariableNothingIsFound)
{
    SearchPath const path(nullptr);
    EXPECT_EQ(foundInPath("sh"), "failed: untouched");
}

TEST(SearchPath, TheProgramsOwnPathIsMadeAbsolute)
{
    TemporaryDirectory const directory;
    directory.write("tool", "x");
    WorkingIn const working(directory.path());
    EXPECT_EQ(fullPathOf("/usr/bin/tool"), "/usr/bin/tool");
    EXPECT_EQ(fullPathOf("./tool"), directory.path() + "/./tool");
    EXPECT_EQ(fullPathOf("bin/tool"), directory.path() + "/bin/tool");
    EXPECT_EQ(fullPathOf(std::string(4090, 'x') + "/x"), "failed");
    EXPECT_EQ(fullPathOf(""), "failed");
    {
        SearchPath const path(directory.path().c_str());
        EXPECT_EQ(fullPathOf("tool"), directory.path() + "/tool");
        EXPECT_EQ(fullPathOf("nothing"), "failed");
    }
    SearchPath const path(".");
    EXPECT_EQ(fullPathOf("tool"), directory.path() + "/./tool");
    unsigned short wide[kMaxPathBytes];
    EXPECT_TRUE(FileIO_GetCurrentProcessFullPathW(u16(u"/x"), wide));
    EXPECT_EQ(sstring(wide), "/x");
}

TEST(CanonicalPath, ParentStepsAreRemoved)
{
    EXPECT_EQ(canonical("/a/b/../c"), "/a/c");
    EXPECT_EQ(canonical("/"), "/");
    EXPECT_EQ(canonical("/a/b/c/../../d"), "/a/d");
    EXPECT_EQ(canonical("/a/.."), "/");
    EXPECT_EQ(canonical("/a/"), "/a");
    EXPECT_EQ(canonical("\\a\\b\\..\\c"), "/a/c");
    EXPECT_EQ(canonical("/a/..b/c"), "/a/..b/c");
}

TEST(CanonicalPath, AParentStepAtTheFrontStays)
{
    EXPECT_EQ(canonical("/../a"), "/../a");
    EXPECT_EQ(canonical("/.."), "/..");
    EXPECT_EQ(canonical("/../a/../b"), "/../b");
    EXPECT_EQ(canonical("/../../x"), "/x");
    EXPECT_EQ(canonical("/../../../x"), "/../x");
    EXPECT_EQ(canonical("/a/../../x"), "/../x");
}

TEST(CanonicalPath, DotsAndDoubleSlashesAreReplacedInOnePassEach)
{
    EXPECT_EQ(canonical("/a/./b"), "/a/b");
    EXPECT_EQ(canonical("/a//b"), "/a/b");
    EXPECT_EQ(canonical("/a///b"), "/a//b");
    EXPECT_EQ(canonical("/a/././b"), "/a/./b");
}

TEST(CanonicalPath, RelativePathsStartInTheCurrentDirectory)
{
    TemporaryDirectory const directory;
    WorkingIn const working(directory.path());
    EXPECT_EQ(canonical("a/b"), directory.path() + "/a/b");
    EXPECT_EQ(canonical("./a"), directory.path() + "/a");
    EXPECT_EQ(canonical("x/../a"), directory.path() + "/a");
    EXPECT_EQ(canonical(""), directory.path());
}

TEST(CanonicalPath, VeryLongPathsTakeLinearTime)
{
    // Starting at the front after each step would read 10^11 units and exceed the time limit.
    std::string deep;
    for (int i = 0; i < 300000; ++i)
        deep += "/a";
    for (int i = 0; i < 299999; ++i)
        deep += "/..";
    EXPECT_EQ(canonical(deep + "/b"), "/a/b");
}
