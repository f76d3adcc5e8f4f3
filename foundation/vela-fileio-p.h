// foundation/vela-fileio-p.h: what the files of the file service share. Not part of the public interface.
#pragma once

#include "foundation/vela-fileio.h"

/// Begins a function: errno is 0 from here on, so that success leaves no old error.
void beginFileCall();
/// Ends a function: keeps errno as the last error and returns `succeeded`.
int endFileCall(bool succeeded);
/// Ends a function with this error.
int failFileCall(int error);
/// 0 when the path is neither null nor empty nor too long, else the error.
int pathError(char const* path);

/// A 16-bit path in the 8-bit code set of the default locale.
class NarrowPath
{
public:
    explicit NarrowPath(unsigned short const* path);
    /// Null when the path was null.
    char const* get() const { return m_given ? m_text : nullptr; }
    /// ENAMETOOLONG when it does not fit; the text is then cut.
    int error = 0;

private:
    bool m_given;
    char m_text[kMaxPathBytes] = {};
};

/// Calls an A function with a converted path.
template <class Function, class... Arguments>
int withNarrowPath(unsigned short const* path, Function function, Arguments... arguments)
{
    const NarrowPath narrow(path);
    return narrow.error ? failFileCall(narrow.error) : function(narrow.get(), arguments...);
}

/// Converts an 8-bit result to 16 bits; `size` is what `result` holds, in units. Fails when the text and its terminator
/// do not fit.
int widenResult(char const* text, unsigned short* result, unsigned int size);
