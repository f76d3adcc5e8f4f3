// fuzz/finding.h: how a target reports a mistake that sanitizers do not see.
#pragma once

#include <string>

/// Prints what is wrong to standard error and ends the process. Works after silenceLog().
[[noreturn]] void finding(std::string const& what);
inline void require(bool holds, char const* what)
{
    if (!holds)
        finding(what);
}

/// From now on discards what the library logs, because bad input is reported in thousands of lines. Sanitizers and
/// finding() still print.
void silenceLog();
