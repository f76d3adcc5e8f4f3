// foundation/localize2.h: the language and the 8-bit code set that the process or a single text uses.
#pragma once

/// A canonical locale name such as "en_US", at most 31 characters.
struct LOCALE
{
    char name[32];
};

/// Bytes that Locale_GetDefaultCodeset() may write, including the terminator.
constexpr unsigned int kMaxCodesetName = 64;

/// Reads the system locale from the environment and makes it the default. Every function below calls it first; only the
/// first call has an effect. Returns 1.
int Locale_Init();

/// A new locale; free it with Locale_Destroy(). The name of a known code set gives the locale that uses it, null gives
/// "en_US"; longer names are cut. Null when out of memory.
LOCALE* Locale_Create(char const* name);
/// A new locale of the same name; the system locale and null are returned as they are.
LOCALE* Locale_Copy(LOCALE* locale);
/// Frees the locale unless it is the system locale. If it was the default, the system locale becomes the default.
void Locale_Destroy(LOCALE* locale);

LOCALE* Locale_GetFromSystem();
/// The default of the process. Not locked: set it before other threads use text.
LOCALE* Locale_GetDefault();
/// Makes `locale` itself, not a copy, the default (null: the system locale) and sets the C library's locale to match.
/// Returns 1.
int Locale_SetDefault(LOCALE* locale);

/// Copies the name to `out`, at most 32 bytes. Returns 0 if either pointer is null.
int Locale_ToString(LOCALE* locale, char* out);
/// Copies the name of the locale's 8-bit code set to `out`, which has room for kMaxCodesetName bytes. A null or
/// nameless locale stands for ICU's default. Returns 0 if `out` is null.
int Locale_GetDefaultCodeset(LOCALE* locale, char* out);
/// The Windows code page for a locale name: 1252, 932, 949, 936, 950, or 0 if there is none.
unsigned int Locale_GetCodepage(char const* name);
