// page/guifiletype.cpp: see guifiletype.h.
#include "page/guifiletype.h"

#include "page/guinumbers.h"

#include <algorithm>
#include <initializer_list>

namespace {

bool hasOneOf(sstring const& extension, std::initializer_list<char const*> known)
{
    return std::any_of(known.begin(), known.end(), [&](char const* each) { return guiIsWord(extension, each); });
}

} // namespace

int getFindFileType(sstring const& name)
{
    unsigned const dot = name.rfind('.');
    sstring const extension = dot == sstring::npos ? sstring() : name.subString(dot);
    if (hasOneOf(extension, {".wav", ".avi", ".avz"}))
        return kFileMovie;
    return hasOneOf(extension, {".bmp", ".gif", ".jpg", ".jpeg", ".png"}) ? kFilePicture : kFileOther;
}
