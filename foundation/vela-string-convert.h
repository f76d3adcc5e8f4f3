// foundation/vela-string-convert.h: between 8-bit text in some code set and 16-bit text, by ICU converters. Which code
// set a locale means is asked of localize2.h; the open converters are kept per thread (vela-string-converters.cpp).
#pragma once

struct LOCALE;
struct UConverter;

/// Converts the whole zero-terminated input in one call. `charset` is a code-set name as ICU knows it; null or empty
/// means the code set of the process default locale. `capacity` is what `out` holds, in units or bytes; whatever the
/// text leaves of it is zeroed, so a result that fills it exactly has no terminator. Characters without a counterpart
/// are substituted. Returns non-zero on success (an empty input is one), 0 when there is no such code set, the result
/// does not fit, or a pointer is null; then nothing in `out` counts. Any thread.
int ConvertToUnicode(char const* charset, unsigned short* out, unsigned char const* in, unsigned int capacity);
int ConvertToOEM(char const* charset, unsigned char* out, unsigned short const* in, unsigned int capacity);

/// The same in the code set of `locale` (null: the process default). Where the converter can not be opened or fails,
/// each byte is widened or each unit narrowed, up to the capacity. Return 0 only when there is no locale at all or a
/// pointer is null.
int AnsiToUnicode(unsigned short* out, unsigned char const* in, unsigned int capacity, LOCALE* locale = nullptr);
int UnicodeToAnsi(unsigned char* out, unsigned short const* in, unsigned int capacity, LOCALE* locale = nullptr);
/// AnsiToUnicode() under a code-set name instead of a locale, with the same fallback.
int AnsiToUnicodeIn(char const* charset, unsigned short* out, unsigned char const* in, unsigned int capacity);

/// The text converted in the process default locale, in one static buffer per function that the next call overwrites;
/// null for null. One thread at a time.
unsigned char* ToAnsi16(unsigned short const* text);
unsigned short* ToUnicode8(unsigned char const* text);

/// A new ICU converter, to be closed by the caller; null for an empty or unknown name. "IBM-1381", which ICU no longer
/// carries, opens as "GBK".
UConverter* OpenConverter(char const* charset);
void CloseConverter(UConverter* converter);

/// Whether the code set of `locale` (null: the process default) leaves plain ASCII as it is in both directions, so that
/// such text can be copied instead of converted.
bool keepsPlainAscii(LOCALE* locale);
/// Whether the text is plain ASCII: bytes 0x01 to 0x7E without 0x1A and 0x1C, which some code sets exchange with 0x7F.
bool isPlainAscii(unsigned char const* text, unsigned int length);
bool isPlainAscii(unsigned short const* text, unsigned int length);
