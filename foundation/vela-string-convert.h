// foundation/vela-string-convert.h: converts between 8-bit text in any code set and 16-bit text, with ICU. localize2.h
// knows the code set of a locale; each thread keeps its converters open (vela-string-converters.cpp).
#pragma once

struct LOCALE;
struct UConverter;

/// Converts a zero-terminated text. `charset` is a name that ICU knows; null or empty means the code set of the default
/// locale. `out` has room for `capacity` units or bytes; the rest is filled with zeros, so a result of exactly that
/// length has no terminator. Characters that can not be represented are substituted. Returns non-zero on success.
/// Returns 0, with undefined output, if the code set is unknown, the result does not fit, or a pointer is null. Any
/// thread.
int ConvertToUnicode(char const* charset, unsigned short* out, unsigned char const* in, unsigned int capacity);
int ConvertToOEM(char const* charset, unsigned char* out, unsigned short const* in, unsigned int capacity);

/// The same for the code set of `locale` (null: the process default). If the conversion fails, each byte is widened or
/// each unit narrowed instead, up to the capacity. Return 0 only if there is no locale at all or a pointer is null.
int AnsiToUnicode(unsigned short* out, unsigned char const* in, unsigned int capacity, LOCALE* locale = nullptr);
int UnicodeToAnsi(unsigned char* out, unsigned short const* in, unsigned int capacity, LOCALE* locale = nullptr);
/// AnsiToUnicode() for a code set instead of a locale.
int AnsiToUnicodeIn(char const* charset, unsigned short* out, unsigned char const* in, unsigned int capacity);

/// The text converted by the default locale, in a static buffer that the next call of the same function overwrites;
/// null for null. One thread at a time.
unsigned char* ToAnsi16(unsigned short const* text);
unsigned short* ToUnicode8(unsigned char const* text);

/// A new ICU converter, which the caller closes; null for an empty or unknown name. "IBM-1381", which ICU no longer
/// has, opens "GBK".
UConverter* OpenConverter(char const* charset);
void CloseConverter(UConverter* converter);

/// Whether the code set of `locale` (null: the process default) keeps plain ASCII unchanged in both directions, so that
/// such text can be copied instead of converted.
bool keepsPlainAscii(LOCALE* locale);
/// Whether the text is plain ASCII: 0x01 to 0x7E without 0x1A and 0x1C, which some code sets permute with 0x7F.
bool isPlainAscii(unsigned char const* text, unsigned int length);
bool isPlainAscii(unsigned short const* text, unsigned int length);
