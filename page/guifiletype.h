// page/guifiletype.h: what kind of file a name stands for, by its ending.
#pragma once

#include "foundation/vela-string.h"

/// What getFindFileType() returns.
enum guiFindFileType : int
{
    kFilePicture = 0,
    kFileMovie = 1,
    kFileOther = 2,
};

/// What a file's last extension says that it is, in any case: ".bmp", ".gif", ".jpg", ".jpeg" and ".png" are pictures,
/// ".wav", ".avi" and ".avz" movies.
int getFindFileType(sstring const& name);
