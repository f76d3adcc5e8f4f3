// foundation/vela-log.h: the component's error lines. Whoever finds a mistake in what came from outside writes one line
// that names the class, the method and the culprit.
#pragma once

#include <string>

class sstring;

/// Writes a printf-style message to the standard error stream and adds nothing to it: each message carries its own
/// newline. Any thread.
void velaLog(char const* format, ...) __attribute__((format(printf, 1, 2)));

/// A text as it goes into a message: UTF-8 whatever the locale, since names of files and elements are in any script. A
/// surrogate without its other half becomes "?".
std::string velaPrintable(sstring const& text);
