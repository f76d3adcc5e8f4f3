// foundation/vela-qt.h: converts text between this library and Qt. The only part that needs Qt, and so a target of its
// own (tarn_foundation_qt).
#pragma once

#include "foundation/vela-string.h"

#include <QString>
#include <QStringView>

/// The same units as a QString. Any thread.
QString sstoq(sstring const& text);
/// The same units as a string. Any thread.
sstring qtoss(QString const& text);

/// A view of the string, without a copy; valid until the string changes.
inline QStringView sstoview(sstring const& text)
{
    return text.getLength() ? QStringView(text.getUnicode(), static_cast<qsizetype>(text.getLength())) : QStringView();
}
