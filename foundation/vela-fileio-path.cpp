// foundation/vela-fileio-path.cpp: functions that take a path, and the conversion of 16-bit paths. Searching and
// canonicalizing paths is in vela-fileio-search.cpp.

#include "foundation/vela-fileio-p.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace {

thread_local int lastError = 0;
constexpr mode_t kNewDirectoryPermissions = 0700;

} // namespace

int FileIO_GetLastErr() { return lastError; }

void beginFileCall() { errno = 0; }

int endFileCall(bool succeeded)
{
    lastError = succeeded ? 0 : errno;
    return succeeded;
}

int pathError(char const* path)
{
    if (!path || !*path)
        return EINVAL;
    return std::strlen(path) < kMaxPathBytes ? 0 : ENAMETOOLONG;
}

NarrowPath::NarrowPath(unsigned short const* path) : m_isGiven(path != nullptr)
{
    if (!m_isGiven)
        return;
    // Each unit becomes one to four bytes, so a path of kMaxPathBytes units or more can not fit.
    unsigned char converted[kMaxPathBytes * 4] = {};
    if (strlen16(path) < kMaxPathBytes)
        UnicodeToAnsi(converted, path, sizeof converted - 1);
    else
        m_error = ENAMETOOLONG;
    if (strlen8(converted) >= kMaxPathBytes)
        m_error = ENAMETOOLONG;
    std::memcpy(m_text, converted, kMaxPathBytes - 1);
    assert(m_error || strlen8(converted) == std::strlen(m_text));
}

int widenResult(char const* text, unsigned short* result, unsigned int size)
{
    if (size == 0)
        return failFileCall(ENAMETOOLONG);
    AnsiToUnicode(result, reinterpret_cast<unsigned char const*>(text), size);
    if (std::find(result, result + size, 0) != result + size)
        return 1;
    result[size - 1] = 0;
    return failFileCall(ENAMETOOLONG);
}

namespace {

/// Checks the path, then passes it to a system call.
template <class Call>
int callWithPath(char const* path, Call call)
{
    beginFileCall();
    if (int const error = pathError(path))
        return failFileCall(error);
    return endFileCall(call(path) == 0);
}

} // namespace

int FileIO_GetSizeA(char const* path, unsigned long* size)
{
    if (!size)
        return failFileCall(EINVAL);
    struct stat status = {};
    if (!callWithPath(path, [&](char const* valid) { return stat(valid, &status); }))
        return 0;
    *size = static_cast<unsigned long>(status.st_size);
    return 1;
}

int FileIO_FileExistsA(char const* path)
{
    struct stat status = {};
    return callWithPath(path, [&](char const* valid) { return stat(valid, &status); });
}

int FileIO_IsFileReadableA(char const* path)
{
    return callWithPath(path, [](char const* valid) { return access(valid, R_OK); });
}

int FileIO_DirectoryExistsA(char const* path)
{
    struct stat status = {};
    if (!callWithPath(path, [&](char const* valid) { return stat(valid, &status); }))
        return 0;
    return S_ISDIR(status.st_mode) ? 1 : failFileCall(ENOTDIR);
}

int FileIO_FileDeleteA(char const* path) { return callWithPath(path, unlink); }
int FileIO_RemoveDirectoryA(char const* path) { return callWithPath(path, rmdir); }
int FileIO_SetCurrentDirectoryA(char const* path) { return callWithPath(path, chdir); }

int FileIO_CreateDirectoryA(char const* path)
{
    return callWithPath(path, [](char const* valid) { return mkdir(valid, kNewDirectoryPermissions); });
}

int FileIO_GetCurrentDirectoryA(char* result)
{
    beginFileCall();
    if (!result)
        return failFileCall(EINVAL);
    return endFileCall(getcwd(result, kMaxPathBytes) != nullptr);
}

int FileIO_GetCurrentDirectoryW(unsigned short* result)
{
    char narrow[kMaxPathBytes];
    if (!result)
        return failFileCall(EINVAL);
    return FileIO_GetCurrentDirectoryA(narrow) && widenResult(narrow, result, kMaxPathBytes);
}

namespace {

using SizeOfPath = int (*)(char const*, unsigned long*);

} // namespace

int FileIO_GetSizeW(unsigned short const* path, unsigned long* size)
{
    return withNarrowPath(path, static_cast<SizeOfPath>(FileIO_GetSizeA), size);
}

int FileIO_FileExistsW(unsigned short const* path) { return withNarrowPath(path, FileIO_FileExistsA); }
int FileIO_IsFileReadableW(unsigned short const* path) { return withNarrowPath(path, FileIO_IsFileReadableA); }
int FileIO_DirectoryExistsW(unsigned short const* path) { return withNarrowPath(path, FileIO_DirectoryExistsA); }
int FileIO_FileDeleteW(unsigned short const* path) { return withNarrowPath(path, FileIO_FileDeleteA); }
int FileIO_CreateDirectoryW(unsigned short const* path) { return withNarrowPath(path, FileIO_CreateDirectoryA); }
int FileIO_RemoveDirectoryW(unsigned short const* path) { return withNarrowPath(path, FileIO_RemoveDirectoryA); }
int FileIO_SetCurrentDirectoryW(unsigned short const* path)
{
    return withNarrowPath(path, FileIO_SetCurrentDirectoryA);
}

// Paths as text

int FileIO_IsFileNameAbsoluteA(char const* name)
{
    beginFileCall();
    return name ? endFileCall(name[0] == '/') : failFileCall(EINVAL);
}

int FileIO_IsFileNameAbsoluteW(unsigned short const* name)
{
    beginFileCall();
    return name ? endFileCall(name[0] == '/') : failFileCall(EINVAL);
}

namespace {

template <class Unit>
int convertSlashes(Unit const* name, Unit* result)
{
    beginFileCall();
    if (!name || !result)
        return failFileCall(EINVAL);
    for (; *name; ++name)
        *result++ = *name == '\\' ? Unit{'/'} : *name;
    *result = 0;
    return endFileCall(true);
}

} // namespace

int FileIO_ConvertSlashesToOSTypeA(char* name) { return convertSlashes<char>(name, name); }
int FileIO_ConvertSlashesToOSTypeA(char const* name, char* result) { return convertSlashes(name, result); }

int FileIO_ConvertSlashesToOSTypeA(sstring& name)
{
    return FileIO_ConvertSlashesToOSTypeW(name.getUnicode(), name.getUnicode());
}

int FileIO_ConvertSlashesToOSTypeW(unsigned short* name) { return convertSlashes<unsigned short>(name, name); }

int FileIO_ConvertSlashesToOSTypeW(unsigned short const* name, unsigned short* result)
{
    return convertSlashes(name, result);
}
