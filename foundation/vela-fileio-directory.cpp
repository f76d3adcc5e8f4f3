// foundation/vela-fileio-directory.cpp: listings of directories.

#include "foundation/vela-alloc.h"
#include "foundation/vela-fileio-p.h"

#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr unsigned int kDirectoryBit = 0x4000; // S_IFDIR

struct DirectoryCloser
{
    void operator()(DIR* directory) const { closedir(directory); }
};

struct ListingFreer
{
    void operator()(DIRDATA* listing) const { FileIO_FreeDirectoryEnumeration(listing); }
};

using OpenDirectory = std::unique_ptr<DIR, DirectoryCloser>;
using Entry = std::unique_ptr<DIRENTRYDATA, velaFreed>;
using Listing = std::unique_ptr<DIRDATA, ListingFreer>;

/// Null when out of memory.
Entry makeEntry(DIR* directory, char const* name)
{
    Entry entry(static_cast<DIRENTRYDATA*>(velaCalloc(1, sizeof(DIRENTRYDATA))));
    if (!entry)
        return nullptr;
    assert(std::strlen(name) < sizeof entry->name);
    std::strncpy(entry->name, name, sizeof entry->name - 1);
    struct stat status = {};
    if (fstatat(dirfd(directory), name, &status, 0) == 0 && S_ISDIR(status.st_mode))
        entry->isDirectory = kDirectoryBit;
    return entry;
}

/// Returns 0, or the error that ended the reading.
int readEntries(DIR* directory, DIRDATA* listing)
{
    DIRENTRYDATA** end = &listing->first;
    for (;;) {
        errno = 0;
        dirent const* found = readdir(directory);
        if (!found)
            return errno;
        *end = makeEntry(directory, found->d_name).release();
        if (!*end)
            return ENOMEM;
        end = &(*end)->next;
        ++listing->count;
    }
}

} // namespace

int FileIO_EnumerateDirectoryA(char const* path, DIRDATA** listing)
{
    beginFileCall();
    if (!listing)
        return failFileCall(EINVAL);
    *listing = nullptr;
    if (int const error = pathError(path))
        return failFileCall(error);
    OpenDirectory const directory(opendir(path));
    if (!directory)
        return endFileCall(false);
    Listing result(static_cast<DIRDATA*>(velaCalloc(1, sizeof(DIRDATA))));
    if (int const error = result ? readEntries(directory.get(), result.get()) : ENOMEM) {
        result.reset(); // before the error is stored
        return failFileCall(error);
    }
    result->cursor = result->first;
    *listing = result.release();
    return endFileCall(true);
}

int FileIO_EnumerateDirectoryW(unsigned short const* path, DIRDATA** listing)
{
    if (listing)
        *listing = nullptr;
    return withNarrowPath(path, FileIO_EnumerateDirectoryA, listing);
}

int FileIO_GetFirstDirEntryA(DIRDATA* listing, int* isDirectory, char* name, unsigned int nameSize)
{
    if (listing)
        listing->cursor = listing->first;
    return FileIO_GetNextDirEntryA(listing, isDirectory, name, nameSize);
}

int FileIO_GetNextDirEntryA(DIRDATA* listing, int* isDirectory, char* name, unsigned int nameSize)
{
    beginFileCall();
    if (!listing || !isDirectory || !name)
        return failFileCall(EINVAL);
    DIRENTRYDATA const* entry = listing->cursor;
    if (!entry)
        return failFileCall(ENOENT);
    if (std::strlen(entry->name) >= nameSize)
        return failFileCall(ENAMETOOLONG);
    std::strcpy(name, entry->name);
    *isDirectory = static_cast<int>(entry->isDirectory);
    listing->cursor = entry->next;
    return endFileCall(true);
}

int FileIO_GetFirstDirEntryW(DIRDATA* listing, int* isDirectory, unsigned short* name, unsigned int nameSize)
{
    if (listing)
        listing->cursor = listing->first;
    return FileIO_GetNextDirEntryW(listing, isDirectory, name, nameSize);
}

int FileIO_GetNextDirEntryW(DIRDATA* listing, int* isDirectory, unsigned short* name, unsigned int nameSize)
{
    beginFileCall();
    if (!listing || !isDirectory || !name)
        return failFileCall(EINVAL);
    DIRENTRYDATA* entry = listing->cursor;
    if (!entry)
        return failFileCall(ENOENT);
    if (!widenResult(entry->name, name, nameSize))
        return 0;
    *isDirectory = static_cast<int>(entry->isDirectory);
    listing->cursor = entry->next;
    return endFileCall(true);
}

int FileIO_GetNumEntries(DIRDATA* listing, unsigned long* count)
{
    beginFileCall();
    if (!listing || !count)
        return failFileCall(EINVAL);
    *count = listing->count;
    return endFileCall(true);
}

int FileIO_FreeDirectoryEnumeration(DIRDATA* listing)
{
    beginFileCall();
    if (!listing)
        return failFileCall(EINVAL);
    [[maybe_unused]] unsigned int freed = 0;
    for (DIRENTRYDATA* entry = listing->first; entry; ++freed) {
        DIRENTRYDATA* next = entry->next;
        std::free(entry);
        entry = next;
    }
    assert(freed == listing->count);
    std::free(listing);
    return endFileCall(true);
}
