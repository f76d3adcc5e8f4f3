// foundation/vela-fileio-search.cpp: finding programs through the variable "PATH", and canonicalizing paths.

#include "foundation/vela-fileio-p.h"

#include <cassert>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

/// Writes directory + "/" + name; returns false if it needs more than kMaxPathBytes.
bool joinPath(std::string_view directory, char const* name, char* result)
{
    char const* slash = !directory.empty() && directory.back() == '/' ? "" : "/";
    int const length = std::snprintf(result, kMaxPathBytes, "%.*s%s%s", static_cast<int>(directory.size()),
                                     directory.data(), slash, name);
    return length >= 0 && static_cast<unsigned int>(length) < kMaxPathBytes;
}

/// Removes the first directory from a ":"-separated list and returns it.
std::string_view nextDirectory(std::string_view& list)
{
    assert(!list.empty());
    size_t const colon = list.find(':');
    std::string_view const directory = list.substr(0, colon);
    list.remove_prefix(colon == std::string_view::npos ? list.size() : colon + 1);
    return directory;
}

} // namespace

int FileIO_FindFileInPathA(char const* name, char* result)
{
    beginFileCall();
    if (!name || !*name || !result || std::strchr(name, '/'))
        return failFileCall(EINVAL);
    char const* variable = std::getenv("PATH");
    if (!variable)
        return failFileCall(ENOENT);
    char candidate[kMaxPathBytes];
    for (std::string_view list(variable); !list.empty();) {
        std::string_view const directory = nextDirectory(list);
        if (directory.empty() || !joinPath(directory, name, candidate) || !FileIO_FileExistsA(candidate))
            continue;
        std::strcpy(result, candidate);
        return endFileCall(true);
    }
    return failFileCall(ENOENT);
}

namespace {

/// Prefixes a relative path with the current directory. `result` and `path` may be the same buffer.
int appendToCurrentDirectory(char const* path, char* result)
{
    char current[kMaxPathBytes];
    char joined[kMaxPathBytes];
    if (!FileIO_GetCurrentDirectoryA(current))
        return 0;
    if (!joinPath(current, path, joined))
        return failFileCall(ENAMETOOLONG);
    std::strcpy(result, joined);
    return endFileCall(true);
}

} // namespace

int FileIO_GetCurrentProcessFullPathA(char const* argv0, char* result)
{
    beginFileCall();
    int const error = result ? pathError(argv0) : EINVAL;
    if (error)
        return failFileCall(error);
    if (argv0[0] == '/') {
        std::strcpy(result, argv0);
        return endFileCall(true);
    }
    if (std::strchr(argv0, '/'))
        return appendToCurrentDirectory(argv0, result);
    if (!FileIO_FindFileInPathA(argv0, result))
        return 0;
    return result[0] == '.' ? appendToCurrentDirectory(result, result) : 1;
}

namespace {

using PathFunction = int (*)(char const*, char*);

int widenedResultOf(PathFunction function, unsigned short const* name, unsigned short* result)
{
    char narrow[kMaxPathBytes];
    if (!result)
        return failFileCall(EINVAL);
    return withNarrowPath(name, function, static_cast<char*>(narrow)) && widenResult(narrow, result, kMaxPathBytes);
}

} // namespace

int FileIO_FindFileInPathW(unsigned short const* name, unsigned short* result)
{
    return widenedResultOf(FileIO_FindFileInPathA, name, result);
}

int FileIO_GetCurrentProcessFullPathW(unsigned short const* argv0, unsigned short* result)
{
    return widenedResultOf(FileIO_GetCurrentProcessFullPathA, argv0, result);
}

namespace {

sstring absolutePath(sstring path)
{
    FileIO_ConvertSlashesToOSTypeA(path);
    if (path[0] == '/')
        return path;
    char current[kMaxPathBytes] = {};
    FileIO_GetCurrentDirectoryA(current);
    FileIO_ConvertSlashesToOSTypeA(current);
    return current + ("/" + path);
}

/// Whether the text begins with "/../".
bool isParentStep(unsigned short const* at) { return at[0] == '/' && at[1] == '.' && at[2] == '.' && at[3] == '/'; }

/// Removes each "/../" together with the name before it. One at the very front has no name before it and stays. A
/// single pass that cuts the result back to its last "/" keeps this linear.
void removeParentSteps(sstring& path)
{
    sstring clean;
    for (unsigned short const* at = path.getUnicode(); *at;) {
        bool const step = clean.getLength() > 0 && isParentStep(at);
        unsigned int const slash = step ? clean.rfind('/') : sstring::npos;
        if (slash == sstring::npos) {
            clean += *at++;
            continue;
        }
        assert(slash < clean.getLength());
        clean.setAt(slash, ""); // ends the text there
        at += 3;
    }
    path = clean;
}

} // namespace

sstring FileIO_CanonicalizePath(sstring const& path)
{
    sstring result = absolutePath(path);
    result.replace("/./", "/");
    result.replace("//", "/");
    assert(result.getLength() > 0 && result[0] == '/');
    if (result[result.getLength() - 1] != '/')
        result += "/";
    removeParentSteps(result);
    if (result != "/")
        result = result.subString(0, result.getLength() - 1);
    return result;
}
