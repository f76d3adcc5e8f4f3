// tests/e2e/leaveprogram.cpp: opens the pages that it is given, serves them until they have been painted, and ends.
// tests/e2e/valgrind-test.sh looks at what it does to memory, the end of the process included.
#include <chrono>
#include <filesystem>
#include <vector>

#include "host/native/nativehost.h"

int main(int argc, char** argv)
{
    constexpr std::chrono::seconds kUntilPainted{2};
    NativeHost host({.folder = std::filesystem::current_path()});
    std::vector<NativeWindow> windows;
    for (int i = 1; i < argc; ++i) {
        windows.push_back(host.window(argv[i]));
        if (!windows.back().open())
            return 1;
    }
    host.serveUntil([] { return false; }, kUntilPainted);
}
