// foundation/vela-string-c.h: the C library's string functions for two kinds of text: those ending in 8 work on bytes,
// those ending in 16 on 16-bit code units. Text is zero-terminated; pointers must not be null.
#pragma once

/// The length in bytes or units, without the terminator.
unsigned int strlen8(unsigned char const* text);
unsigned int strlen16(unsigned short const* text);

/// Copy or append to `to`, which must have the room, and return it. strncpy pads with zeros up to `count` and does not
/// terminate a text of `count` or more characters; strncat appends at most `count` characters and always terminates.
unsigned char* strcpy8(unsigned char* to, unsigned char const* from);
unsigned short* strcpy16(unsigned short* to, unsigned short const* from);
unsigned char* strcat8(unsigned char* to, unsigned char const* from);
unsigned short* strcat16(unsigned short* to, unsigned short const* from);
unsigned char* strncat8(unsigned char* to, unsigned char const* from, unsigned int count);
unsigned short* strncat16(unsigned short* to, unsigned short const* from, unsigned int count);
unsigned char* strncpy8(unsigned char* to, unsigned char const* from, unsigned int count);
unsigned short* strncpy16(unsigned short* to, unsigned short const* from, unsigned int count);

/// Negative, zero or positive. The `i` forms fold each character with tolower8() or tolower16() and return the
/// difference of the first two that differ; a unit that folds to zero equals the terminator, at which the comparison
/// ends. The `n` forms compare at most `count` characters.
int strcmp8(unsigned char const* left, unsigned char const* right);
int strcmp16(unsigned short const* left, unsigned short const* right);
int strncmp8(unsigned char const* left, unsigned char const* right, unsigned int count);
int strncmp16(unsigned short const* left, unsigned short const* right, unsigned int count);
int stricmp8(unsigned char const* left, unsigned char const* right);
int stricmp16(unsigned short const* left, unsigned short const* right);
int strnicmp8(unsigned char const* left, unsigned char const* right, unsigned int count);
int strnicmp16(unsigned short const* left, unsigned short const* right, unsigned int count);

/// The first or last occurrence of a character or text; null if there is none. The character 0 finds the terminator; an
/// empty text is found at the start, by strrstr at the terminator. Takes linear time.
unsigned char* strchr8(unsigned char const* text, unsigned char character);
unsigned short* strchr16(unsigned short const* text, unsigned short unit);
unsigned char* strrchr8(unsigned char const* text, unsigned char character);
unsigned short* strrchr16(unsigned short const* text, unsigned short unit);
unsigned char* strstr8(unsigned char const* text, unsigned char const* wanted);
unsigned short* strstr16(unsigned short const* text, unsigned short const* wanted);
unsigned char* strrstr8(unsigned char const* text, unsigned char const* wanted);
unsigned short* strrstr16(unsigned short const* text, unsigned short const* wanted);

/// strcspn: the length of the leading part without characters of the set; strspn: of only such characters; strpbrk: the
/// first character of the set, or null.
unsigned int strcspn8(unsigned char const* text, unsigned char const* set);
unsigned int strcspn16(unsigned short const* text, unsigned short const* set);
unsigned int strspn8(unsigned char const* text, unsigned char const* set);
unsigned int strspn16(unsigned short const* text, unsigned short const* set);
unsigned char* strpbrk8(unsigned char const* text, unsigned char const* set);
unsigned short* strpbrk16(unsigned short const* text, unsigned short const* set);

/// A copy; free it with free8() or free16(). Null when out of memory.
unsigned char* strdup8(unsigned char const* text);
unsigned short* strdup16(unsigned short const* text);

/// The next non-empty token between separators, or null. Writes a terminator into the text. Pass the text first, then
/// null. The position is static, one for each function, so only one thread at a time may use it.
unsigned char* strtok8(unsigned char* text, unsigned char const* separators);
unsigned short* strtok16(unsigned short* text, unsigned short const* separators);

/// Case conversion in the C library's locale. The 16-bit forms use only the low byte: a unit above 0xFF loses its high
/// byte.
unsigned char tolower8(unsigned char character);
unsigned short tolower16(unsigned short unit);
unsigned char toupper8(unsigned char character);
unsigned short toupper16(unsigned short unit);
/// The same for a whole text, in place. They return the text.
unsigned char* strlwr8(unsigned char* text);
unsigned short* strlwr16(unsigned short* text);
unsigned char* strupr8(unsigned char* text);
unsigned short* strupr16(unsigned short* text);

/// The number at the start of the text, after white space; 0 if there is none.
int atoi8(unsigned char const* text);
int atoi16(unsigned short const* text);
long atol8(unsigned char const* text);
long atol16(unsigned short const* text);
double atof8(unsigned char const* text);
double atof16(unsigned short const* text);

/// A block of `count` bytes or units; null when out of memory. The free functions accept null.
unsigned char* malloc8(unsigned int count);
unsigned short* malloc16(unsigned int count);
void free8(void* block);
void free16(void* block);
