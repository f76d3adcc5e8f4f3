// bench/window-page.cpp: a typical program, which opens the given page and handles its events. bench-window.cpp starts
// it.

#include "host/native/nativehost.h"

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    NativeHost host({.folder = TARN_BENCH_FOLDER});
    NativeWindow window = host.window(argv[1]);
    if (!window.isValid() || !window.open())
        return 1;
    host.run();
}
