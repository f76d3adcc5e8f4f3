// host/node/nodetext.h: text between its three forms: the component's sstring, the values of this host (UTF-16) and
// file names (UTF-8). Even reading an sstring changes it, so nothing here keeps one: values own plain UTF-16.
#pragma once

#include "foundation/vela-string.h"

#include <string>
#include <string_view>

/// The characters of `text`, zeros inside it included.
std::u16string toText(sstring const& text);
sstring toSstring(std::u16string_view text);
sstring toSstring(std::u16string const& text);

/// Unpaired surrogates become U+FFFD; each byte that is not UTF-8 becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
std::u16string fromUtf8(std::string_view bytes);

/// A number as script prints it: "3", "0.1", "1e+21", "NaN", "-Infinity".
std::u16string numberToText(double number);
