// foundation/vela-string-converters.h: the open ICU converters of the calling thread. Not part of the public interface.
#pragma once

struct UConverter;

/// A code set that this thread has asked for.
struct CodesetConverter
{
    char name[128];        ///< as asked for; longer names are not kept
    UConverter* converter; ///< owned; null when ICU does not know the name
    bool keepsAscii;       ///< plain ASCII is the same bytes as units
};

/// The converter for a code set, opened on first use and kept until the thread ends or other code sets push it out;
/// unused since, so reset it before use. Valid until the next call on the same thread. Opening one costs many
/// microseconds, and pages are decoded by many small conversions.
CodesetConverter const& converterFor(char const* charset);
