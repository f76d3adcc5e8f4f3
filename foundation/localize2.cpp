// foundation/localize2.cpp: see localize2.h.

#include "foundation/localize2.h"

#include "foundation/vela-alloc.h"
#include "foundation/vela-poison.h"

#include <atomic>
#include <cassert>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

#include <langinfo.h>
#include <strings.h>
#include <unicode/uloc.h>

namespace {

constexpr char kFallbackLocale[] = "en_US";
constexpr char kFallbackCodeset[] = "IBM-850";

struct CharsetRow
{
    char const* charset;
    char const* locale;
};

/// Code sets by the names that pages use, and the locale each stands for.
constexpr CharsetRow kCharsetTable[] = {
    {"iso8859-1", "en_US"}, {"iso-8859-1", "en_US"}, {"euc-kr", "ko_KR"},
    {"shift_jis", "ja_JP"}, {"gb2312", "zh_CN"},     {"big5", "zh_TW"},
};

struct CodepageRow
{
    char const* locale;
    char const* alias;
    char const* codeset;
};

constexpr CodepageRow kCodepageTable[] = {
    {"en_US", "en_US", "IBM-850"}, {"es_ES", "es_ES", "IBM-850"},  {"fr_FR", "fr_FR", "IBM-850"},
    {"de_DE", "de_DE", "IBM-850"}, {"it_IT", "it_IT", "IBM-850"},  {"pt_BR", "pt_BR", "IBM-850"},
    {"ja_JP", "ja_JP", "IBM-932"}, {"ko_KR", "ko_KR", "ksc_5601"}, {"zh_CN", "zh_CN", "IBM-1381"},
    {"zh_TW", "zh_TW", "BIG5"},
};

constexpr size_t kCodepageNameLength = 5; // of every locale and alias above

/// Searches all aliases first, then all locales. Every conversion calls this, so a name of another length is rejected
/// at once.
CodepageRow const* findCodepage(char const* name)
{
    if (std::strlen(name) != kCodepageNameLength)
        return nullptr;
    for (CodepageRow const& row : kCodepageTable)
        if (strcasecmp(name, row.alias) == 0)
            return &row;
    for (CodepageRow const& row : kCodepageTable)
        if (strcasecmp(name, row.locale) == 0)
            return &row;
    return nullptr;
}

char const* canonicalName(char const* name)
{
    for (CharsetRow const& row : kCharsetTable)
        if (strcasecmp(name, row.charset) == 0)
            return row.locale;
    CodepageRow const* row = findCodepage(name);
    return row ? row->locale : name;
}

void setName(LOCALE& locale, char const* name)
{
    // Cuts a longer name.
    std::snprintf(locale.name, sizeof locale.name, "%s", canonicalName(name ? name : kFallbackLocale));
    assert(!locale.name[sizeof locale.name - 1]);
}

LOCALE* makeLocale(char const* name)
{
    auto* locale = static_cast<LOCALE*>(velaCalloc(1, sizeof(LOCALE)));
    if (locale)
        setName(*locale, name);
    return locale;
}

LOCALE theSystemLocale{}; // static, so that it exists even when memory runs out: 8-bit text can not be read without it
LOCALE* const systemLocale = &theSystemLocale;
std::atomic<LOCALE*> defaultLocale{nullptr};

char const* nameFromEnvironment()
{
    if (!std::setlocale(LC_ALL, "")) {
        std::setlocale(LC_ALL, kFallbackLocale);
        return kFallbackLocale;
    }
    char const* name = uloc_getDefault();
    return name && *name ? name : kFallbackLocale;
}

void initialise()
{
    char const* name = nameFromEnvironment();
    char const* current = std::setlocale(LC_ALL, nullptr);
    if (!current || !std::strstr(current, name))
        std::setlocale(LC_ALL, name);
    setName(theSystemLocale, name);
    assert(theSystemLocale.name[0]);
    defaultLocale = systemLocale;
}

} // namespace

int Locale_Init()
{
    static std::once_flag once;
    std::call_once(once, initialise);
    return 1;
}

LOCALE* Locale_Create(char const* name)
{
    Locale_Init();
    return makeLocale(name);
}

LOCALE* Locale_Copy(LOCALE* locale)
{
    Locale_Init();
    return !locale || locale == systemLocale ? locale : makeLocale(locale->name);
}

void Locale_Destroy(LOCALE* locale)
{
    Locale_Init();
    if (!locale)
        return;
    LOCALE* expected = locale;
    defaultLocale.compare_exchange_strong(expected, systemLocale);
    if (locale == systemLocale)
        return;
    velaPoison(locale, sizeof *locale);
    std::free(locale);
}

LOCALE* Locale_GetFromSystem()
{
    Locale_Init();
    return systemLocale;
}

LOCALE* Locale_GetDefault()
{
    Locale_Init();
    assert(defaultLocale.load());
    return defaultLocale;
}

int Locale_SetDefault(LOCALE* locale)
{
    Locale_Init();
    defaultLocale = locale ? locale : systemLocale;
    std::setlocale(LC_ALL, defaultLocale.load()->name);
    return 1;
}

int Locale_ToString(LOCALE* locale, char* out)
{
    Locale_Init();
    if (!locale || !out)
        return 0;
    std::strcpy(out, locale->name);
    return 1;
}

namespace {

char const* nameOf(LOCALE* locale)
{
    if (locale && locale->name[0])
        return locale->name;
    char const* name = uloc_getDefault();
    return name && *name ? name : kFallbackLocale;
}

/// The code set that the C library reports, up to a ":".
void copyLibraryCodeset(char* out)
{
    char const* name = nl_langinfo(CODESET);
    size_t const length = name ? std::strcspn(name, ":") : 0;
    if (length == 0 || length >= kMaxCodesetName) {
        std::strcpy(out, kFallbackCodeset);
        return;
    }
    std::memcpy(out, name, length);
    out[length] = 0;
}

} // namespace

int Locale_GetDefaultCodeset(LOCALE* locale, char* out)
{
    Locale_Init();
    if (!out)
        return 0;
    CodepageRow const* row = findCodepage(nameOf(locale));
    assert(!row || std::strlen(row->codeset) < kMaxCodesetName);
    if (row)
        std::strcpy(out, row->codeset);
    else
        copyLibraryCodeset(out);
    return 1;
}

unsigned int Locale_GetCodepage(char const* name)
{
    Locale_Init();
    char language[ULOC_LANG_CAPACITY] = {};
    char country[ULOC_COUNTRY_CAPACITY] = {};
    UErrorCode error = U_ZERO_ERROR;
    uloc_getLanguage(name, language, sizeof language, &error);
    uloc_getCountry(name, country, sizeof country, &error);
    if (U_FAILURE(error))
        return 0;
    for (char const* western : {"de", "en", "es", "fr", "it", "pt"})
        if (std::strcmp(language, western) == 0)
            return 1252;
    if (std::strcmp(language, "ja") == 0)
        return 932;
    if (std::strcmp(language, "ko") == 0)
        return 949;
    if (std::strcmp(language, "zh") != 0)
        return 0;
    return std::strcmp(country, "CN") == 0 ? 936 : std::strcmp(country, "TW") == 0 ? 950 : 0;
}
