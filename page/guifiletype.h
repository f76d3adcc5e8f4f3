// page/guifiletype.h: the kind of a file by its extension.
#pragma once

#include "foundation/vela-string.h"

/// What getFindFileType() returns.
enum guiFindFileType : int
{
    kFilePicture = 0,
    kFileMovie = 1,
    kFileOther = 2,
};

/// The kind of a file by its last extension, without regard to case: ".bmp", ".gif", ".jpg", ".jpeg", ".png" and what
/// else the toolkit can read are pictures, ".wav", ".avi" and ".avz" movies.
int getFindFileType(sstring const& name);
