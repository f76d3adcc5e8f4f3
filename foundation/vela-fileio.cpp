// foundation/vela-fileio.cpp: open files. Functions on paths are in vela-fileio-path.cpp, directory listings in
// vela-fileio-directory.cpp.

#include "foundation/vela-fileio.h"

#include "foundation/vela-alloc.h"
#include "foundation/vela-fileio-p.h"

#include <cassert>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kNewFilePermissions = 0600;

bool initialised = false;

/// What a mode does with an existing and with a missing file.
struct OpenPlan
{
    int existingFlags;
    int missingFlags;
    bool deletesExisting;
    bool seeksEnd;
};

OpenPlan planFor(ENU_FILE_OPEN mode)
{
    switch (mode) {
    case FILE_OPEN_READWRITE:
        return {O_RDWR, O_RDWR, false, false};
    case FILE_OPEN_CREATE:
        return {O_RDWR, O_RDWR | O_CREAT, true, false};
    case FILE_OPEN_APPEND:
        return {O_WRONLY | O_APPEND, O_WRONLY | O_CREAT, false, true};
    case FILE_OPEN_CREATEWRITE:
        return {O_WRONLY, O_WRONLY | O_CREAT, true, false};
    default:
        return {O_RDONLY, O_RDONLY, false, false};
    }
}

/// The descriptor, or -1 with errno set.
int openDescriptor(char const* path, OpenPlan const& plan)
{
    struct stat status = {};
    bool exists = stat(path, &status) == 0;
    if (exists && plan.deletesExisting) {
        if (unlink(path) != 0)
            return -1;
        exists = false;
    }
    errno = 0;
    int const descriptor = exists ? open(path, plan.existingFlags | O_CLOEXEC)
                                  : open(path, plan.missingFlags | O_CLOEXEC, kNewFilePermissions);
    if (descriptor >= 0 && plan.seeksEnd)
        lseek(descriptor, 0, SEEK_END);
    return descriptor;
}

} // namespace

int FileIO_Init()
{
    initialised = true;
    return 1;
}

int FileIO_ShutDown()
{
    initialised = false;
    return 1;
}

int FileIO_OpenA(char const* path, ENU_FILE_OPEN mode, FILEDATA** file)
{
    beginFileCall();
    if (!file)
        return failFileCall(EINVAL);
    *file = nullptr;
    if (int const error = pathError(path))
        return failFileCall(error);
    std::unique_ptr<FILEDATA, velaFreed> record(static_cast<FILEDATA*>(velaCalloc(1, sizeof(FILEDATA))));
    if (!record)
        return failFileCall(ENOMEM);
    assert(std::strlen(path) < sizeof record->path);
    std::strcpy(record->path, path);
    record->descriptor = openDescriptor(path, planFor(mode));
    if (record->descriptor < 0)
        return failFileCall(errno);
    *file = record.release();
    return endFileCall(true);
}

int FileIO_OpenW(unsigned short const* path, ENU_FILE_OPEN mode, FILEDATA** file)
{
    if (file)
        *file = nullptr;
    return withNarrowPath(path, FileIO_OpenA, mode, file);
}

int FileIO_Close(FILEDATA* file)
{
    beginFileCall();
    if (!file)
        return failFileCall(EINVAL);
    assert(file->descriptor >= 0);
    bool const closed = close(file->descriptor) == 0;
    int const result = endFileCall(closed);
    std::free(file);
    return result;
}

int FileIO_Read(FILEDATA* file, void* buffer, unsigned long length, unsigned long* read, int* atEnd)
{
    beginFileCall();
    if (!file || !buffer || !read || !atEnd)
        return failFileCall(EINVAL);
    ssize_t count = 0;
    do
        count = ::read(file->descriptor, buffer, length);
    while (count < 0 && errno == EINTR);
    *read = count > 0 ? static_cast<unsigned long>(count) : 0;
    assert(*read <= length);
    *atEnd = count == 0;
    return endFileCall(count >= 0);
}

int FileIO_Write(FILEDATA* file, void const* buffer, unsigned long length, unsigned long* written)
{
    beginFileCall();
    if (!file || !buffer || !written)
        return failFileCall(EINVAL);
    ssize_t count = 0;
    do
        count = write(file->descriptor, buffer, length);
    while (count < 0 && errno == EINTR);
    *written = count > 0 ? static_cast<unsigned long>(count) : 0;
    return endFileCall(count >= 0);
}

int FileIO_Seek(FILEDATA* file, ENU_FILE_SEEK from, unsigned long low, unsigned long)
{
    beginFileCall();
    if (!file)
        return failFileCall(EINVAL);
    auto const bits = static_cast<uint32_t>(low);
    off_t const relative = static_cast<int32_t>(bits);
    switch (from) {
    case FILE_SEEK_START:
        return endFileCall(lseek(file->descriptor, static_cast<off_t>(bits), SEEK_SET) >= 0);
    case FILE_SEEK_END:
        return endFileCall(lseek(file->descriptor, relative, SEEK_END) >= 0);
    case FILE_SEEK_CURRENT:
        return endFileCall(lseek(file->descriptor, relative, SEEK_CUR) >= 0);
    }
    return failFileCall(EINVAL);
}

int FileIO_Seek(FILEDATA* file, ENU_FILE_SEEK from, unsigned long offset) { return FileIO_Seek(file, from, offset, 0); }

int FileIO_GetCurPos(FILEDATA* file, unsigned long* low, unsigned long* high)
{
    beginFileCall();
    if (!file || !low || !high)
        return failFileCall(EINVAL);
    off_t const position = lseek(file->descriptor, 0, SEEK_CUR);
    if (position < 0)
        return endFileCall(false);
    *low = static_cast<unsigned long>(position) & 0xFFFFFFFF;
    *high = static_cast<unsigned long>(position) >> 32;
    return endFileCall(true);
}

namespace {

/// Locks or unlocks the whole file. lockf() starts at the current position, which is restored afterwards.
bool lockWhole(int descriptor, int command)
{
    off_t const position = lseek(descriptor, 0, SEEK_CUR);
    if (position < 0 || lseek(descriptor, 0, SEEK_SET) < 0)
        return false;
    bool const worked = lockf(descriptor, command, 0) == 0;
    int const error = errno;
    lseek(descriptor, position, SEEK_SET);
    errno = error;
    return worked;
}

} // namespace

int FileIO_Lock(FILEDATA* file, int noWait)
{
    beginFileCall();
    if (!file)
        return failFileCall(EINVAL);
    if (!file->locked && lockWhole(file->descriptor, noWait ? F_TLOCK : F_LOCK))
        file->locked = 1;
    return endFileCall(file->locked != 0);
}

int FileIO_UnLock(FILEDATA* file)
{
    beginFileCall();
    if (!file)
        return failFileCall(EINVAL);
    return endFileCall(!file->locked || lockWhole(file->descriptor, F_ULOCK));
}

int FileIO_GetSizeA(FILEDATA* file, unsigned long* size)
{
    beginFileCall();
    if (!file || !size)
        return failFileCall(EINVAL);
    struct stat status = {};
    if (fstat(file->descriptor, &status) != 0)
        return endFileCall(false);
    *size = static_cast<unsigned long>(status.st_size);
    return endFileCall(true);
}

int FileIO_GetLastMod(FILEDATA* file, tm* time)
{
    beginFileCall();
    if (!file || !time)
        return failFileCall(EINVAL);
    struct stat status = {};
    bool const known = fstat(file->descriptor, &status) == 0 && localtime_r(&status.st_mtime, time);
    return endFileCall(known);
}

int FileIO_Truncate(FILEDATA* file)
{
    beginFileCall();
    if (!file)
        return failFileCall(EINVAL);
    off_t const position = lseek(file->descriptor, 0, SEEK_CUR);
    return endFileCall(position >= 0 && ftruncate(file->descriptor, position) == 0);
}
