// fuzz/finding.cpp: see finding.h.
#include "fuzz/finding.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

void finding(std::string const& what)
{
    std::string const line = "FINDING: " + what + "\n";
    // Straight to the descriptor: the C library's stream may be silenced.
    if (write(STDERR_FILENO, line.data(), line.size()) < 0)
        std::_Exit(1);
    std::abort();
}

void silenceLog()
{
    // The fuzzing engine and the sanitizers keep the descriptor; only the C library's stream leads elsewhere.
    if (FILE* nowhere = std::fopen("/dev/null", "w"))
        stderr = nowhere;
}
