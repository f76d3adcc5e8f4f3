// foundation/vela-locale.cpp: see vela-locale.h.

#include "foundation/vela-locale.h"

#include "foundation/vela-error.h"

#include <cerrno>

velaLocale velaCopyLocale(LOCALE* locale)
{
    velaLocale copy(Locale_Copy(locale));
    if (locale && !copy)
        throw velaError(ENOMEM);
    return copy;
}
