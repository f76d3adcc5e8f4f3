// foundation/vela-fileio-p.h: what the source files of vela-fileio.h share. Internal.
#pragma once

#include "foundation/vela-fileio.h"

#include <cassert>
#include <cerrno>

/// Call at the start of a function: clears errno, so that no old error remains after a success.
void beginFileCall();
/// Call at the end of a function: stores errno as the last error and returns `succeeded`.
int endFileCall(bool succeeded);
/// Call when a function fails: stores the error and returns 0.
inline int failFileCall(int error)
{
    assert(error != 0);
    errno = error;
    endFileCall(false);
    return 0;
}
/// Returns 0 if the path is neither null nor empty nor too long, otherwise the error.
int pathError(char const* path);

/// A 16-bit path in the 8-bit code set of the default locale.
class NarrowPath
{
public:
    explicit NarrowPath(unsigned short const* path);
    /// Null if the path was null.
    char const* get() const { return m_isGiven ? m_text : nullptr; }
    /// ENAMETOOLONG if the path did not fit and was cut, otherwise 0.
    int error() const { return m_error; }

private:
    bool m_isGiven;
    int m_error = 0;
    char m_text[kMaxPathBytes] = {};
};

/// Converts a path and passes it to a function that takes an 8-bit one.
template <class Function, class... Arguments>
int withNarrowPath(unsigned short const* path, Function function, Arguments... arguments)
{
    NarrowPath const narrow(path);
    return narrow.error() ? failFileCall(narrow.error()) : function(narrow.get(), arguments...);
}

/// Converts an 8-bit result to 16 bits. `result` has room for `size` units; fails if the text and its terminator do not
/// fit.
int widenResult(char const* text, unsigned short* result, unsigned int size);
