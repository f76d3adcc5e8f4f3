// foundation/vela-tsdecoder.h: decodes chunks of 8-bit text into 16-bit units without splitting a character at a
// chunk's end, and finds the code set that a text declares.
#pragma once

#include "foundation/vela-array.h"
#include "foundation/vela-string-converters.h"

#include <string>

/// Decodes the chunks of a stream. One thread at a time.
class tsDecoder : public velaAllocated
{
public:
    tsDecoder() = default;
    tsDecoder(tsDecoder const&) = delete;
    tsDecoder& operator=(tsDecoder const&) = delete;

    /// Sets the code set by its ICU name. If ICU does not know it, each byte is widened, as Latin-1 would be.
    void useCodeSet(char const* name);

    struct Result
    {
        unsigned int units; ///< written to `out`
        unsigned int bytes; ///< bytes of the chunk that were used; the rest belongs to the next chunk
    };

    /// Decodes `count` bytes into `out`, which has room for `count` units. Unless the chunk is the last one, leaves out
    /// a last character that may be incomplete.
    Result decode(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out);

private:
    enum Kind
    {
        kWiden,
        kSingleByte,
        kUtf8,
        kGeneral
    };

    struct Tail;

    void chooseKind();
    bool buildTable();
    Result decodeTable(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out) const;
    bool decodeUtf8(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out, Result& result);
    Result decodeGeneral(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out);
    bool convert(UConverter* with, unsigned char const* bytes, unsigned int count, bool flush, unsigned short* out,
                 unsigned int capacity, unsigned int& units) const;
    bool tryTail(unsigned char const* bytes, unsigned int count, Tail& tail) const;
    unsigned int wholeEnd(unsigned char const* bytes, unsigned int count, bool& failed) const;

    Kind m_kind = kWiden;
    velaConverter m_converter; // null: ICU does not know the code set
    velaBytes m_codeSet;
    bool m_isChosen = false;
    velaArray<unsigned short> m_table; // kSingleByte: the unit of each byte
};

/// The code set that a text declares after the word "charset" and the next "=", blanks and a quotation mark: up to 127
/// letters, digits, "_" and "-". Empty if there is none.
velaBytes findDeclaredCodeSet(unsigned char const* bytes, unsigned int count);
