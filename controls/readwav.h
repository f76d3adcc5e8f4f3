// controls/readwav.h: cuts WAV files.
#pragma once

#include <chrono>
#include <vector>

/// The part of a WAV file from this moment on as a WAV file; all of it when the file is not understood.
std::vector<unsigned char> guiSoundFrom(std::vector<unsigned char> const& file, std::chrono::milliseconds position);
