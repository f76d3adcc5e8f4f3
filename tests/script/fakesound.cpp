// tests/script/fakesound.cpp: stands for the library that plays sound: writes what it is told into the file that
// TARN_FAKE_SOUND_LOG names, one word a line; of a file it opens, the permissions, the size and the last byte too.
#include "controls/guisoundmodule.h"

#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int soundsOpen = 0;

void note(char const* line)
{
    if (FILE* const log = std::fopen(std::getenv("TARN_FAKE_SOUND_LOG"), "a")) {
        std::fprintf(log, "%s\n", line);
        std::fclose(log);
    }
}

int lastByte(char const* path)
{
    int last = -1;
    if (FILE* const file = std::fopen(path, "r")) {
        for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file))
            last = byte;
        std::fclose(file);
    }
    return last;
}

void* open(char const* path)
{
    struct stat info = {};
    stat(path, &info);
    char line[200];
    std::snprintf(line, sizeof line, "open %o %ld %c", static_cast<unsigned>(info.st_mode & 0777u),
                  static_cast<long>(info.st_size), lastByte(path));
    note(line);
    if (!std::getenv("TARN_FAKE_SOUND_KEEPS"))
        unlink(path);
    ++soundsOpen;
    return &soundsOpen;
}

void play(void*) { note("play"); }
void stop(void*) { note("stop"); }

void close(void*)
{
    --soundsOpen;
    note("close");
}

} // namespace

extern "C" __attribute__((visibility("default"))) TarnSoundModule const* tarnSoundModule()
{
    static constexpr TarnSoundModule module{TARN_SOUND_VERSION, open, play, stop, close};
    return &module;
}
