// foundation/vela-qt.h: text between the foundation library and the toolkit. Needs Qt, so it is a library target of its
// own (tarn_foundation_qt); the rest of the folder builds without.
#pragma once

#include "foundation/vela-string.h"

#include <QString>
#include <QStringView>

/// The string as the toolkit's text, unit by unit. Any thread.
QString sstoq(sstring const& text);
/// The toolkit's text as a string, unit by unit.
sstring qtoss(QString const& text);

/// The string's units without a copy; valid until the string changes.
inline QStringView sstoview(sstring const& text)
{
    return text.getLength() ? QStringView(text.getUnicode(), static_cast<qsizetype>(text.getLength())) : QStringView();
}
