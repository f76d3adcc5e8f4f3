// controls/readavi.h: reads movies from memory: AVI files of uncompressed frames with PCM sound, and AVZ files, which
// are RIFF files of picture files and one sound file. Files are not trusted: every size is checked against the bytes
// that are left before it is used.
#pragma once

#include "controls/guipicturememory.h"
#include "controls/readriff.h"

#include <QPixmap>
#include <cstddef>
#include <vector>

/// One picture of a movie.
struct VideoFrame
{
    QPixmap image;
    unsigned duration = 0; ///< milliseconds that it stays on the screen
};

/// What a movie holds.
struct guiVideo
{
    std::vector<unsigned char> audio; ///< a WAV file; empty without sound
    std::vector<VideoFrame> frames;
    guiPictureMemory memory; ///< that of the frames
    bool isCut = false;      ///< there was no memory left for the other frames
};

/// Reads a movie. 1 when it has sound or at least one frame; else 0, and `video` is empty. Reading ends at the first
/// error; what comes before it is kept. GUI thread.
int loadVideo(void const* data, std::size_t size, guiVideo& video);
