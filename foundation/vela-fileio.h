// foundation/vela-fileio.h: files, directories and paths of the operating system. Unbuffered: one call here is one
// system call there; text streams do the buffering.
//
// Every function returns non-zero for success and 0 for failure, never throws, and keeps errno (0 after a success) for
// FileIO_GetLastErr(). A null pointer fails at once with EINVAL, a path of more than 4,095 bytes with ENAMETOOLONG.
// Names ending in A take 8-bit paths, names ending in W take 16-bit paths and convert them by the default locale. Any
// thread; one open file belongs to one thread at a time.
#pragma once

#include "foundation/vela-string.h"

#include <ctime>

/// Room for any path, terminator included: what a `result` buffer of the functions below must hold, in bytes or units.
constexpr unsigned int kMaxPathBytes = 4096;

enum ENU_FILE_OPEN : int
{
    FILE_OPEN_READ = 0,       ///< an existing file; any value not listed here means the same
    FILE_OPEN_READWRITE = 1,  ///< an existing file, for reading and writing
    FILE_OPEN_CREATE = 2,     ///< a new file for reading and writing; an existing one is deleted first
    FILE_OPEN_APPEND = 3,     ///< at the end of a file, which is created when missing; write-only
    FILE_OPEN_CREATEWRITE = 4 ///< a new file, write-only; an existing one is deleted first
};

enum ENU_FILE_SEEK : int
{
    FILE_SEEK_START = 0,
    FILE_SEEK_END = 1,
    FILE_SEEK_CURRENT = 2 ///< the order is not the C library's
};

/// One open file, made by FileIO_Open and freed by FileIO_Close.
struct FILEDATA
{
    unsigned int reserved;    ///< 0
    int locked;               ///< 1 once FileIO_Lock succeeded, for good
    char path[kMaxPathBytes]; ///< as it was passed
    int descriptor;           ///< the operating system's
};

/// One name of a directory.
struct DIRENTRYDATA
{
    char name[kMaxPathBytes];
    unsigned int isDirectory; ///< 0x4000 for directories (links are followed), else 0
    DIRENTRYDATA* next;       ///< null at the end
};

/// A directory's names, all read at once, in the order in which the system gave them; "." and ".." are among them.
struct DIRDATA
{
    unsigned int count;
    DIRENTRYDATA* first;  ///< owned, with all that follow
    DIRENTRYDATA* cursor; ///< next to hand out
};

/// Set and clear an initialised flag.
int FileIO_Init();
int FileIO_ShutDown();
/// What the last function of this header on this thread left in errno.
int FileIO_GetLastErr();

/// Opens a file; a new one gets the permissions 0600. `*file` is null after a failure.
int FileIO_OpenA(char const* path, ENU_FILE_OPEN mode, FILEDATA** file);
int FileIO_OpenW(unsigned short const* path, ENU_FILE_OPEN mode, FILEDATA** file);
/// Closes and frees the record, also when it returns 0.
int FileIO_Close(FILEDATA* file);

/// Reads up to `length` bytes from the current position. `*read` is how many it were, `*atEnd` whether there were none.
int FileIO_Read(FILEDATA* file, void* buffer, unsigned long length, unsigned long* read, int* atEnd);
/// Writes up to `length` bytes; `*written` is how many it were.
int FileIO_Write(FILEDATA* file, void const* buffer, unsigned long length, unsigned long* written);

/// Moves the current position. Only the low 32 bits of the offset count; from the end and from the current position
/// they are signed, so a negative offset may be passed as unsigned long.
int FileIO_Seek(FILEDATA* file, ENU_FILE_SEEK from, unsigned long low, unsigned long high);
int FileIO_Seek(FILEDATA* file, ENU_FILE_SEEK from, unsigned long offset);
/// The current position in two halves of 32 bits.
int FileIO_GetCurPos(FILEDATA* file, unsigned long* low, unsigned long* high);

/// Takes the operating system's lock on the whole file; with `noWait` it fails (EACCES or EAGAIN) when another process
/// holds it. A file once locked by this record counts as locked for good: FileIO_UnLock releases the system's lock and
/// keeps the mark, so a later FileIO_Lock succeeds without locking.
int FileIO_Lock(FILEDATA* file, int noWait);
int FileIO_UnLock(FILEDATA* file);

/// Size in bytes.
int FileIO_GetSizeA(FILEDATA* file, unsigned long* size);
int FileIO_GetSizeA(char const* path, unsigned long* size);
int FileIO_GetSizeW(unsigned short const* path, unsigned long* size);
/// Time of the last change, as local time.
int FileIO_GetLastMod(FILEDATA* file, tm* time);
/// Cuts the file at the current position.
int FileIO_Truncate(FILEDATA* file);

/// Whether something, or a directory, is there under that name, or can be read.
int FileIO_FileExistsA(char const* path);
int FileIO_FileExistsW(unsigned short const* path);
int FileIO_IsFileReadableA(char const* path);
int FileIO_IsFileReadableW(unsigned short const* path);
int FileIO_DirectoryExistsA(char const* path);
int FileIO_DirectoryExistsW(unsigned short const* path);

int FileIO_FileDeleteA(char const* path);
int FileIO_FileDeleteW(unsigned short const* path);
/// A new directory gets the permissions 0700.
int FileIO_CreateDirectoryA(char const* path);
int FileIO_CreateDirectoryW(unsigned short const* path);
int FileIO_RemoveDirectoryA(char const* path);
int FileIO_RemoveDirectoryW(unsigned short const* path);
int FileIO_SetCurrentDirectoryA(char const* path);
int FileIO_SetCurrentDirectoryW(unsigned short const* path);
/// `result` holds maxPathBytes bytes or units.
int FileIO_GetCurrentDirectoryA(char* result);
int FileIO_GetCurrentDirectoryW(unsigned short* result);

/// Whether the name begins with "/".
int FileIO_IsFileNameAbsoluteA(char const* name);
int FileIO_IsFileNameAbsoluteW(unsigned short const* name);
/// Turns every "\" into "/": in place, into a second buffer that is as large, or in a string.
int FileIO_ConvertSlashesToOSTypeA(char* name);
int FileIO_ConvertSlashesToOSTypeA(char const* name, char* result);
int FileIO_ConvertSlashesToOSTypeA(sstring& name);
int FileIO_ConvertSlashesToOSTypeW(unsigned short* name);
int FileIO_ConvertSlashesToOSTypeW(unsigned short const* name, unsigned short* result);

/// Reads a directory; the listing goes back to FileIO_FreeDirectoryEnumeration.
int FileIO_EnumerateDirectoryA(char const* path, DIRDATA** listing);
int FileIO_EnumerateDirectoryW(unsigned short const* path, DIRDATA** listing);
/// Hand out one entry: the first one, or the next one. Fail with ENOENT behind the last, and with ENAMETOOLONG, without
/// going on, when the name is not shorter than the buffer (in bytes or units).
int FileIO_GetFirstDirEntryA(DIRDATA* listing, int* isDirectory, char* name, unsigned int nameSize);
int FileIO_GetFirstDirEntryW(DIRDATA* listing, int* isDirectory, unsigned short* name, unsigned int nameSize);
int FileIO_GetNextDirEntryA(DIRDATA* listing, int* isDirectory, char* name, unsigned int nameSize);
int FileIO_GetNextDirEntryW(DIRDATA* listing, int* isDirectory, unsigned short* name, unsigned int nameSize);
int FileIO_GetNumEntries(DIRDATA* listing, unsigned long* count);
int FileIO_FreeDirectoryEnumeration(DIRDATA* listing);

/// Looks for a bare name in the directories of the environment variable "PATH", in their order; fails for a name with
/// "/". `result` holds maxPathBytes bytes or units.
int FileIO_FindFileInPathA(char const* name, char* result);
int FileIO_FindFileInPathW(unsigned short const* name, unsigned short* result);
/// Where the program is that was started as `argv0`. `result` holds maxPathBytes bytes or units.
int FileIO_GetCurrentProcessFullPathA(char const* argv0, char* result);
int FileIO_GetCurrentProcessFullPathW(unsigned short const* argv0, unsigned short* result);

/// The path made absolute, with "/" for "\", and without "/./", "//", "/../" and a "/" at the end. "/./" and "//" are
/// replaced in one pass each, so of "///" a "//" stays. Only text is worked on: links are not followed and nothing
/// needs to exist. Throws velaError 12 when there is no memory.
sstring FileIO_CanonicalizePath(sstring const& path);
