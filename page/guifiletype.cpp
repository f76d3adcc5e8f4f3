// page/guifiletype.cpp: see guifiletype.h.
#include "page/guifiletype.h"

#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

#include <QImageReader>
#include <algorithm>
#include <initializer_list>

namespace {

bool hasOneOf(sstring const& extension, std::initializer_list<char const*> known)
{
    return std::any_of(known.begin(), known.end(), [&](char const* each) { return guiIsWord(extension, each); });
}

/// What the toolkit and its plug-ins read on this machine.
bool isRead(sstring const& extension)
{
    static QList<QByteArray> const formats = QImageReader::supportedImageFormats();
    return extension.getLength() > 1 && formats.contains(sstoq(extension).mid(1).toLower().toLatin1());
}

} // namespace

int getFindFileType(sstring const& name)
{
    unsigned const dot = name.rfind('.');
    sstring const extension = dot == sstring::npos ? sstring() : name.subString(dot);
    if (hasOneOf(extension, {".wav", ".avi", ".avz"}))
        return kFileMovie;
    if (hasOneOf(extension, {".htm", ".html"})) // most names: no plug-in need be loaded for them
        return kFileOther;
    bool const isPicture = hasOneOf(extension, {".bmp", ".gif", ".jpg", ".jpeg", ".png"}) || isRead(extension);
    return isPicture ? kFilePicture : kFileOther;
}
