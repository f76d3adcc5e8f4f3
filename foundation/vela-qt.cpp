// foundation/vela-qt.cpp: see vela-qt.h.

#include "foundation/vela-qt.h"

QString sstoq(sstring const& text) { return sstoview(text).toString(); }

// With an explicit count zero units are copied too.
sstring qtoss(QString const& text)
{
    return sstring(reinterpret_cast<unsigned short const*>(text.utf16()), 0, static_cast<unsigned>(text.size()));
}
