// foundation/vela-fileio.h: files, directories and paths of the operating system. Unbuffered: each call makes a system
// call; text streams buffer.
//
// Unless stated otherwise, functions return non-zero for success and 0 for failure, do not throw, and store errno (0
// after a success) for FileIO_GetLastErr(). A null pointer gives EINVAL, a path of more than 4,095 bytes ENAMETOOLONG.
// Functions ending in A take 8-bit paths; those ending in W take 16-bit paths, which the default locale converts. Any
// thread; an open file belongs to one thread at a time.
#pragma once

#include "foundation/vela-string.h"

#include <ctime>

/// Room for any path with its terminator: the size of a `result` buffer below, in bytes or units.
constexpr unsigned int kMaxPathBytes = 4096;

enum ENU_FILE_OPEN : int
{
    FILE_OPEN_READ = 0,       ///< an existing file, read-only; as is any value not listed here
    FILE_OPEN_READWRITE = 1,  ///< an existing file, for reading and writing
    FILE_OPEN_CREATE = 2,     ///< a new file for reading and writing; an existing one is deleted first
    FILE_OPEN_APPEND = 3,     ///< write-only, at the end of a file that is created if it does not exist
    FILE_OPEN_CREATEWRITE = 4 ///< a new file, write-only; an existing one is deleted first
};

enum ENU_FILE_SEEK : int
{
    FILE_SEEK_START = 0,
    FILE_SEEK_END = 1,
    FILE_SEEK_CURRENT = 2 ///< not the C library's order
};

/// One open file, made by FileIO_Open and freed by FileIO_Close.
struct FILEDATA
{
    unsigned int reserved;    ///< 0
    int locked;               ///< 1 as soon as FileIO_Lock has succeeded once
    char path[kMaxPathBytes]; ///< as passed to FileIO_Open
    int descriptor;           ///< of the operating system
};

/// An entry of a directory.
struct DIRENTRYDATA
{
    char name[kMaxPathBytes];
    unsigned int isDirectory; ///< 0x4000 for directories and links to them, otherwise 0
    DIRENTRYDATA* next;       ///< null at the end
};

/// A directory's entries, in the order the system reports them, with "." and "..".
struct DIRDATA
{
    unsigned int count;
    DIRENTRYDATA* first;  ///< owns the whole list
    DIRENTRYDATA* cursor; ///< the next to return; null after the last
};

/// Set and clear a flag that nothing reads.
int FileIO_Init();
int FileIO_ShutDown();
/// The error of this thread's last call of a function of this header; 0 after a success.
int FileIO_GetLastErr();

/// Opens a file; new files have the permissions 0600. Sets `*file` to null on failure.
int FileIO_OpenA(char const* path, ENU_FILE_OPEN mode, FILEDATA** file);
int FileIO_OpenW(unsigned short const* path, ENU_FILE_OPEN mode, FILEDATA** file);
/// Closes the file and frees the record, even if it returns 0.
int FileIO_Close(FILEDATA* file);

/// Reads up to `length` bytes at the current position and sets `*read` to their number; `*atEnd` is 1 if there were
/// none.
int FileIO_Read(FILEDATA* file, void* buffer, unsigned long length, unsigned long* read, int* atEnd);
/// Writes up to `length` bytes and sets `*written` to their number.
int FileIO_Write(FILEDATA* file, void const* buffer, unsigned long length, unsigned long* written);

/// Moves the current position. Only the low 32 bits of the offset are used; they are signed relative to the end or the
/// current position, so a negative offset may be passed as unsigned long.
int FileIO_Seek(FILEDATA* file, ENU_FILE_SEEK from, unsigned long low, unsigned long high);
int FileIO_Seek(FILEDATA* file, ENU_FILE_SEEK from, unsigned long offset);
/// The current position as two 32-bit halves.
int FileIO_GetCurPos(FILEDATA* file, unsigned long* low, unsigned long* high);

/// Locks the whole file for this process; with `noWait` fails with EACCES or EAGAIN if another process holds the lock.
/// The record remembers the first success for good: after FileIO_UnLock another FileIO_Lock succeeds without locking.
int FileIO_Lock(FILEDATA* file, int noWait);
int FileIO_UnLock(FILEDATA* file);

/// The size in bytes.
int FileIO_GetSizeA(FILEDATA* file, unsigned long* size);
int FileIO_GetSizeA(char const* path, unsigned long* size);
int FileIO_GetSizeW(unsigned short const* path, unsigned long* size);
/// The time of the last modification, as local time.
int FileIO_GetLastMod(FILEDATA* file, tm* time);
/// Truncates the file at the current position.
int FileIO_Truncate(FILEDATA* file);

/// Whether the path exists, is readable, or is a directory.
int FileIO_FileExistsA(char const* path);
int FileIO_FileExistsW(unsigned short const* path);
int FileIO_IsFileReadableA(char const* path);
int FileIO_IsFileReadableW(unsigned short const* path);
int FileIO_DirectoryExistsA(char const* path);
int FileIO_DirectoryExistsW(unsigned short const* path);

int FileIO_FileDeleteA(char const* path);
int FileIO_FileDeleteW(unsigned short const* path);
/// New directories have the permissions 0700.
int FileIO_CreateDirectoryA(char const* path);
int FileIO_CreateDirectoryW(unsigned short const* path);
int FileIO_RemoveDirectoryA(char const* path);
int FileIO_RemoveDirectoryW(unsigned short const* path);
int FileIO_SetCurrentDirectoryA(char const* path);
int FileIO_SetCurrentDirectoryW(unsigned short const* path);
/// `result` has room for kMaxPathBytes bytes or units.
int FileIO_GetCurrentDirectoryA(char* result);
int FileIO_GetCurrentDirectoryW(unsigned short* result);

/// Whether the name begins with "/".
int FileIO_IsFileNameAbsoluteA(char const* name);
int FileIO_IsFileNameAbsoluteW(unsigned short const* name);
/// Replaces every "\" with "/", in place or into a buffer of the same size.
int FileIO_ConvertSlashesToOSTypeA(char* name);
int FileIO_ConvertSlashesToOSTypeA(char const* name, char* result);
int FileIO_ConvertSlashesToOSTypeA(sstring& name);
int FileIO_ConvertSlashesToOSTypeW(unsigned short* name);
int FileIO_ConvertSlashesToOSTypeW(unsigned short const* name, unsigned short* result);

/// Reads a directory; free the listing with FileIO_FreeDirectoryEnumeration.
int FileIO_EnumerateDirectoryA(char const* path, DIRDATA** listing);
int FileIO_EnumerateDirectoryW(unsigned short const* path, DIRDATA** listing);
/// Return the first or the next entry. They fail with ENOENT after the last entry, and with ENAMETOOLONG, without
/// advancing, if the name and its terminator need more than `nameSize` bytes or units.
int FileIO_GetFirstDirEntryA(DIRDATA* listing, int* isDirectory, char* name, unsigned int nameSize);
int FileIO_GetFirstDirEntryW(DIRDATA* listing, int* isDirectory, unsigned short* name, unsigned int nameSize);
int FileIO_GetNextDirEntryA(DIRDATA* listing, int* isDirectory, char* name, unsigned int nameSize);
int FileIO_GetNextDirEntryW(DIRDATA* listing, int* isDirectory, unsigned short* name, unsigned int nameSize);
int FileIO_GetNumEntries(DIRDATA* listing, unsigned long* count);
int FileIO_FreeDirectoryEnumeration(DIRDATA* listing);

/// Searches the directories of the environment variable "PATH" for a file; fails if the name contains "/". `result` has
/// room for kMaxPathBytes bytes or units.
int FileIO_FindFileInPathA(char const* name, char* result);
int FileIO_FindFileInPathW(unsigned short const* name, unsigned short* result);
/// The path of the program that was started as `argv0`. `result` has room for kMaxPathBytes bytes or units.
int FileIO_GetCurrentProcessFullPathA(char const* argv0, char* result);
int FileIO_GetCurrentProcessFullPathW(unsigned short const* argv0, unsigned short* result);

/// The absolute path, with "/" for "\" and without "/./", "//", "/../" and a trailing "/". "/./" and "//" are each
/// replaced in one pass, so "///" becomes "//". Works on the text alone: nothing has to exist, and links are not
/// followed. Throws velaError 12 when out of memory.
sstring FileIO_CanonicalizePath(sstring const& path);
