// foundation/vela-string-c.h: the C library's string functions in two flavours: names ending in 8 work on bytes, names
// ending in 16 on 16-bit code units. All text is zero-terminated; pointers must not be null.
#pragma once

/// Length in bytes or units, without the terminator.
unsigned int strlen8(unsigned char const* text);
unsigned int strlen16(unsigned short const* text);

/// Copy and append; `to` must have the room. strncpy pads with zeros up to `count` and does not terminate a text that
/// fills it; strncat appends at most `count` characters and always terminates. All return `to`.
unsigned char* strcpy8(unsigned char* to, unsigned char const* from);
unsigned short* strcpy16(unsigned short* to, unsigned short const* from);
unsigned char* strcat8(unsigned char* to, unsigned char const* from);
unsigned short* strcat16(unsigned short* to, unsigned short const* from);
unsigned char* strncat8(unsigned char* to, unsigned char const* from, unsigned int count);
unsigned short* strncat16(unsigned short* to, unsigned short const* from, unsigned int count);
unsigned char* strncpy8(unsigned char* to, unsigned char const* from, unsigned int count);
unsigned short* strncpy16(unsigned short* to, unsigned short const* from, unsigned int count);

/// Negative, zero or positive. The `i` forms compare what tolower8() or tolower16() makes of each character and return
/// the difference of the first two that differ; a unit that folds to zero equals the terminator, where the comparison
/// ends. The `n` forms look at `count` characters at most.
int strcmp8(unsigned char const* left, unsigned char const* right);
int strcmp16(unsigned short const* left, unsigned short const* right);
int strncmp8(unsigned char const* left, unsigned char const* right, unsigned int count);
int strncmp16(unsigned short const* left, unsigned short const* right, unsigned int count);
int stricmp8(unsigned char const* left, unsigned char const* right);
int stricmp16(unsigned short const* left, unsigned short const* right);
int strnicmp8(unsigned char const* left, unsigned char const* right, unsigned int count);
int strnicmp16(unsigned short const* left, unsigned short const* right, unsigned int count);

/// First and last occurrence of a character (0 finds the terminator) or of a text (an empty one is found at the start,
/// or for strrstr at the terminator); null when absent. Time is proportional to the text, whatever is searched.
unsigned char* strchr8(unsigned char const* text, unsigned char character);
unsigned short* strchr16(unsigned short const* text, unsigned short unit);
unsigned char* strrchr8(unsigned char const* text, unsigned char character);
unsigned short* strrchr16(unsigned short const* text, unsigned short unit);
unsigned char* strstr8(unsigned char const* text, unsigned char const* wanted);
unsigned short* strstr16(unsigned short const* text, unsigned short const* wanted);
unsigned char* strrstr8(unsigned char const* text, unsigned char const* wanted);
unsigned short* strrstr16(unsigned short const* text, unsigned short const* wanted);

/// Length of the leading part with no (strcspn) or only (strspn) characters of the set; first character of the set, or
/// null.
unsigned int strcspn8(unsigned char const* text, unsigned char const* set);
unsigned int strcspn16(unsigned short const* text, unsigned short const* set);
unsigned int strspn8(unsigned char const* text, unsigned char const* set);
unsigned int strspn16(unsigned short const* text, unsigned short const* set);
unsigned char* strpbrk8(unsigned char const* text, unsigned char const* set);
unsigned short* strpbrk16(unsigned short const* text, unsigned short const* set);

/// A copy from malloc8() or malloc16(), to be freed with free8() or free16(); null when there is no memory.
unsigned char* strdup8(unsigned char const* text);
unsigned short* strdup16(unsigned short const* text);

/// Next token between separators, empty ones skipped, or null. Writes a terminator into the text. The position is one
/// hidden static per flavour: start with the text, go on with null, one thread at a time.
unsigned char* strtok8(unsigned char* text, unsigned char const* separators);
unsigned short* strtok16(unsigned short* text, unsigned short const* separators);

/// Case in the C library's current locale. The 16-bit forms look at the low byte only: a unit above 0xFF loses its high
/// byte.
unsigned char tolower8(unsigned char character);
unsigned short tolower16(unsigned short unit);
unsigned char toupper8(unsigned char character);
unsigned short toupper16(unsigned short unit);
/// The same for a whole text, in place; return the text.
unsigned char* strlwr8(unsigned char* text);
unsigned short* strlwr16(unsigned short* text);
unsigned char* strupr8(unsigned char* text);
unsigned short* strupr16(unsigned short* text);

/// The number that the text begins with, after white space; 0 when there is none.
int atoi8(unsigned char const* text);
int atoi16(unsigned short const* text);
long atol8(unsigned char const* text);
long atol16(unsigned short const* text);
double atof8(unsigned char const* text);
double atof16(unsigned short const* text);

/// Blocks of `count` bytes or units, null when there is no memory; free takes null.
unsigned char* malloc8(unsigned int count);
unsigned short* malloc16(unsigned int count);
void free8(void* block);
void free16(void* block);
