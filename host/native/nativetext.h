// host/native/nativetext.h: text between the three forms that meet here: the application's UTF-8, the host's own UTF-16
// and the component's sstring. Values keep UTF-16 and make an sstring on demand, because even reading an sstring
// changes it and so must not happen on two threads.
#pragma once

#include "foundation/vela-string.h"

#include <string>
#include <string_view>

/// UTF-16 of UTF-8 text; a malformed byte becomes U+FFFD.
std::u16string nativeFromUtf8(std::string_view text);
/// UTF-8 of UTF-16 text; half of a surrogate pair becomes U+FFFD.
std::string nativeToUtf8(std::u16string_view text);
/// A copy of the component's text.
std::u16string nativeFromSString(sstring const& text);
/// The component's form of a text.
sstring nativeToSString(std::u16string_view text);

/// Writes one line to standard error: what went wrong in a handler or in a call, with the name of the thing.
void nativeReport(std::string const& line);
