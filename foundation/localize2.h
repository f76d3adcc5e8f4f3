// foundation/localize2.h: which language and which 8-bit code set the process, or one text, works in.
#pragma once

/// A canonical locale name such as "en_US", at most 31 characters.
struct LOCALE
{
    char name[32];
};

/// Room that Locale_GetDefaultCodeset() needs, terminator included.
constexpr unsigned int kMaxCodesetName = 64;

/// Takes the system locale from the environment and makes it the default. Runs once; every function below calls it
/// first. Returns 1.
int Locale_Init();

/// A new locale, to be given to Locale_Destroy(). A code-set name of the charset table becomes that row's locale; null
/// is "en_US"; longer names are cut. Null when there is no memory.
LOCALE* Locale_Create(char const* name);
/// The system locale itself, or a new locale of the same name; null for null.
LOCALE* Locale_Copy(LOCALE* locale);
/// Frees the locale, unless it is the system's. The default reverts to the system locale when it is the one destroyed.
void Locale_Destroy(LOCALE* locale);

LOCALE* Locale_GetFromSystem();
/// The process default. It has no lock: set it before other threads work with text.
LOCALE* Locale_GetDefault();
/// Makes `locale` the default (null: the system's), without copying it, and sets the C library's locale. Returns 1.
int Locale_SetDefault(LOCALE* locale);

/// Copies the name to `out`, at most 32 bytes. Returns 0 for null pointers.
int Locale_ToString(LOCALE* locale, char* out);
/// Copies the name of the 8-bit code set in which the locale (null or nameless: ICU's default locale) keeps text to
/// `out`, 64 bytes. Returns 0 when `out` is null.
int Locale_GetDefaultCodeset(LOCALE* locale, char* out);
/// The Windows code page of a locale name: 1252, 932, 949, 936 or 950, otherwise 0.
unsigned int Locale_GetCodepage(char const* name);
