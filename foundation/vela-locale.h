// foundation/vela-locale.h: locales that this library's own classes keep.
#pragma once

#include "foundation/localize2.h"
#include "foundation/vela-error.h"

/// A copy, to be given to Locale_Destroy(); null for null. Throws velaError 12: without its locale a text would be read
/// in another code set.
inline LOCALE* velaCopyLocale(LOCALE* locale)
{
    LOCALE* copy = Locale_Copy(locale);
    if (locale && !copy)
        throw velaError(12);
    return copy;
}
