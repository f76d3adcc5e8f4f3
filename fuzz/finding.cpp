// fuzz/finding.cpp: see finding.h.

#include "fuzz/finding.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

void finding(std::string const& what)
{
    std::string const line = "FINDING: " + what + "\n";
    // Directly to the descriptor, because the C library's stream may be silenced.
    if (write(STDERR_FILENO, line.data(), line.size()) < 0)
        std::_Exit(1);
    std::abort();
}

void silenceLog()
{
    // Redirects only the C library's stream; the fuzzing engine and the sanitizers use the descriptor.
    if (FILE* nowhere = std::fopen("/dev/null", "w"))
        stderr = nowhere;
}
