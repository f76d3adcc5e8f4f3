// foundation/vela-tsdecoder.h: turns one chunk of 8-bit text into 16-bit units and keeps a character that straddles the
// chunk's end whole. Which code set a text declares is found here too; textstream decides when to ask.
#pragma once

#include <string>

#include "foundation/vela-array.h"

struct UConverter;

/// Decodes the chunks of one stream. The converter stays open between chunks. One thread at a time.
class tsDecoder : public velaAllocated
{
public:
    tsDecoder() = default;
    ~tsDecoder();
    tsDecoder(tsDecoder const&) = delete;
    tsDecoder& operator=(tsDecoder const&) = delete;

    /// Chooses the code set by its ICU name. One that ICU does not know widens each byte, as Latin-1 would.
    void useCodeSet(char const* name);

    struct Result
    {
        unsigned int units; ///< written to `out`
        unsigned int bytes; ///< of the chunk that produced them; the rest belongs to the next chunk
    };

    /// Decodes `count` bytes into `out`, which has room for `count` units. Unless the chunk is the last of its source
    /// it ends early where its last character may be incomplete.
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

    void close();
    void chooseKind();
    bool buildTable();
    Result decodeTable(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out) const;
    bool decodeUtf8(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out, Result& result);
    Result decodeGeneral(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out);
    bool convert(UConverter* with, unsigned char const* bytes, unsigned int count, bool flush, unsigned short* out,
                 unsigned int capacity, unsigned int& units) const;
    bool tryTail(unsigned char const* bytes, unsigned int count, Tail& tail) const;
    unsigned int guardedEnd(unsigned char const* bytes, unsigned int count, bool& failed) const;

    Kind m_kind = kWiden;
    UConverter* m_converter = nullptr; // owned
    velaBytes m_codeSet;
    bool m_isChosen = false;
    velaArray<unsigned short> m_table; // SingleByte: the unit of each byte
};

/// The code-set name that a text declares behind the word "charset" and the next "=": up to 127 letters, digits, "_"
/// and
/// "-", after blanks and one quotation mark. Empty when there is none.
velaBytes findDeclaredCodeSet(unsigned char const* bytes, unsigned int count);
