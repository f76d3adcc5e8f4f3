// fuzz/finding.h: how a target says that something is wrong, beyond what the sanitizers see.
#pragma once

#include <string>

/// Says on standard error what is wrong and ends the process. Works after silenceLog().
[[noreturn]] void finding(std::string const& what);
inline void require(bool holds, char const* what)
{
    if (!holds)
        finding(what);
}

/// From here on nothing that the library logs is written: bad input is reported in thousands of lines. What sanitizers
/// and finding() say is.
void silenceLog();
