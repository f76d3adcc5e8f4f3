// foundation/vela-string-converters.h: the open ICU converters of the calling thread. Internal.
#pragma once

#include "foundation/vela-string-convert.h"

#include <memory>

struct velaConverterCloser
{
    void operator()(UConverter* converter) const { CloseConverter(converter); }
};

using velaConverter = std::unique_ptr<UConverter, velaConverterCloser>;

/// A code set that this thread has used.
struct CodesetConverter
{
    char name[128];          ///< as requested; longer names are not kept
    velaConverter converter; ///< null if ICU does not know the name
    bool keepsAscii;         ///< plain ASCII has the same values in 8 and 16 bits
};

/// The converter of a code set. It is kept open until the thread ends or other code sets replace it, because opening
/// one takes many microseconds and a page is decoded by many small conversions. Reset it before use. Valid until the
/// next call on the same thread.
CodesetConverter const& converterFor(char const* charset);
