// foundation/vela-locale.h: locales that the classes of this library own.
#pragma once

#include "foundation/localize2.h"

#include <memory>

struct velaLocaleDestroyer
{
    void operator()(LOCALE* locale) const { Locale_Destroy(locale); }
};

using velaLocale = std::unique_ptr<LOCALE, velaLocaleDestroyer>;

/// A copy; null for null. Throws velaError 12 when out of memory: without its locale a text would be read in another
/// code set.
velaLocale velaCopyLocale(LOCALE* locale);
