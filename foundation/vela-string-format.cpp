// foundation/vela-string-format.cpp: strings made from a printf-style format.

#include "foundation/vela-string.h"

#include "foundation/vela-alloc.h"
#include "foundation/vela-error.h"

#include <cassert>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr unsigned int kFormatBytes = 2048;
char const emptyFormat[] = {0};
constexpr int kFormattedTextTooLong = 7;
/// A cache of the usual size is formatted on the stack.
constexpr unsigned int kStackBytes = 4096;

struct Freed
{
    void operator()(char* block) const { std::free(block); }
};

/// Ends the argument list also when formatting throws.
struct ArgumentsEnd
{
    va_list& list;
    ~ArgumentsEnd() { va_end(list); }
};

} // namespace

/// Formats beside the cache and not into it: an argument may be this string's own 8-bit rendering.
sformat& sformat::vformat(char const* format, va_list arguments)
{
    if (!format)
        format = emptyFormat;
    unsigned int const capacity = capacityFor(kFormatBytes, getCapacityA());
    char onStack[kStackBytes];
    std::unique_ptr<char, Freed> onHeap(capacity > kStackBytes ? static_cast<char*>(velaMalloc(capacity)) : nullptr);
    char* result = capacity > kStackBytes ? onHeap.get() : onStack;
    if (!result)
        throw velaError(ENOMEM);
    result[0] = 0;
    int const resultLength = std::vsnprintf(result, capacity, format, arguments);
    if (resultLength >= 0 && static_cast<unsigned int>(resultLength) >= capacity)
        throw velaError(kFormattedTextTooLong);
    setSizeA(kFormatBytes);
    assert(getCapacityA() == capacity); // what was too long is the same before and after
    set(result);
    return *this;
}

sformat& sformat::vformat(sstring const& format, va_list arguments)
{
    const sstring copy(format);
    return vformat(copy.c_str(), arguments);
}

sformat& sformat::vformat(unsigned char const* format, va_list arguments)
{
    return vformat(reinterpret_cast<char const*>(format), arguments);
}

sformat& sformat::vformat(unsigned short const* format, va_list arguments)
{
    sstring copy;
    copy.setLocale(getLocale());
    copy.set(format);
    return vformat(copy.c_str(), arguments);
}

sformat::sformat(char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const ArgumentsEnd end{arguments};
    vformat(format, arguments);
}

sformat::sformat(unsigned char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const ArgumentsEnd end{arguments};
    vformat(format, arguments);
}

sformat::sformat(unsigned short const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const ArgumentsEnd end{arguments};
    vformat(format, arguments);
}

sformat& sformat::format(char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const ArgumentsEnd end{arguments};
    return vformat(format, arguments);
}

sformat& sformat::format(unsigned char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const ArgumentsEnd end{arguments};
    return vformat(format, arguments);
}

sformat& sformat::format(unsigned short const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const ArgumentsEnd end{arguments};
    return vformat(format, arguments);
}
