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
constexpr char kEmptyFormat[] = {0};
constexpr int kFormattedTextTooLong = 7;
/// Results up to this size are formatted on the stack.
constexpr unsigned int kStackBytes = 4096;

/// Ends the argument list even if formatting throws.
struct ArgumentsEnd
{
    va_list& list;
    ~ArgumentsEnd() { va_end(list); }
};

} // namespace

/// Does not format into the 8-bit cache, because an argument may point into it.
sformat& sformat::vformat(char const* format, va_list arguments)
{
    if (!format)
        format = kEmptyFormat;
    unsigned int const capacity = capacityFor(kFormatBytes, getCapacityA());
    char onStack[kStackBytes];
    std::unique_ptr<char, velaFreed> onHeap(capacity > kStackBytes ? static_cast<char*>(velaMalloc(capacity))
                                                                   : nullptr);
    char* result = capacity > kStackBytes ? onHeap.get() : onStack;
    if (!result)
        throw velaError(ENOMEM);
    result[0] = 0;
    int const resultLength = std::vsnprintf(result, capacity, format, arguments);
    if (resultLength >= 0 && static_cast<unsigned int>(resultLength) >= capacity)
        throw velaError(kFormattedTextTooLong);
    setSizeA(kFormatBytes);
    assert(getCapacityA() == capacity); // the limit that was checked above
    set(result);
    return *this;
}

sformat& sformat::vformat(sstring const& format, va_list arguments)
{
    sstring const copy(format);
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
    ArgumentsEnd const end{arguments};
    vformat(format, arguments);
}

sformat::sformat(unsigned char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    ArgumentsEnd const end{arguments};
    vformat(format, arguments);
}

sformat::sformat(unsigned short const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    ArgumentsEnd const end{arguments};
    vformat(format, arguments);
}

sformat& sformat::format(char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    ArgumentsEnd const end{arguments};
    return vformat(format, arguments);
}

sformat& sformat::format(unsigned char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    ArgumentsEnd const end{arguments};
    return vformat(format, arguments);
}

sformat& sformat::format(unsigned short const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    ArgumentsEnd const end{arguments};
    return vformat(format, arguments);
}
