// tests/e2e/idleprogram.cpp: opens the page that it is given in three windows and serves them. tests/e2e/idle-test.sh
// looks at what that costs.
#include <filesystem>
#include <vector>

#include "host/native/nativehost.h"

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    std::filesystem::path const page = argv[1];
    NativeHost host({.folder = page.parent_path()});
    std::vector<NativeWindow> windows;
    for (int i = 0; i < 3; ++i) {
        windows.push_back(host.window(page.filename().string()));
        if (!windows.back().open())
            return 1;
    }
    host.run();
}
