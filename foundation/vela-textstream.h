// foundation/vela-textstream.h: reads a file or a block of memory in any encoding as 16-bit units, with look-ahead and
// saved positions. vela-tsdecoder.h decodes the chunks.
#pragma once

#include "foundation/localize2.h"
#include "foundation/vela-array.h"
#include "foundation/vela-error.h"
#include "foundation/vela-fileio.h"
#include "foundation/vela-locale.h"
#include "foundation/vela-string.h"

#include <memory>

class tsDecoder;

/// A saved position in a textstream: the byte offset of a cache in the source and the unit index in that cache. As text
/// these are two numbers, "%lu %lu"; a default bookmark is an empty text. Stores only the numbers, because a parser
/// makes thousands of bookmarks and hardly uses any.
class bookmark
{
public:
    bookmark() = default;
    bookmark(unsigned int offsetBytes, unsigned int unitIndex);
    /// Reads the two numbers; a text without numbers gives a default bookmark.
    explicit bookmark(sstring const& text);

    sstring toString() const;
    operator sstring() const { return toString(); }

    bool isEmpty() const { return !m_isSet; }
    unsigned int offset() const { return m_offsetBytes; }
    unsigned int unit() const { return m_unitIndex; }
    bool operator==(bookmark const& other) const = default;

private:
    unsigned int m_offsetBytes = 0;
    unsigned int m_unitIndex = 0;
    bool m_isSet = false;
};

/// A decoded chunk of a stream's source.
struct tsCache
{
    static constexpr unsigned int kBufferUnits = 16385; ///< including a terminator
    static constexpr unsigned int kChunkSize = 16384;

    unsigned short* buffer = nullptr;   ///< kBufferUnits units, owned by the stream; null until first used
    unsigned int valid = 0;             ///< decoded units in the buffer; 0: not filled
    unsigned int readSize = kChunkSize; ///< bytes (8-bit text) or units (UTF-16) of the source to read at once
    unsigned int consumed = 0;          ///< bytes of the source that the buffer's contents come from
    unsigned int start = 0;             ///< byte offset of the contents in the source
    unsigned int position = 0;          ///< index of the next unit to read
};

/// A source of text. One thread at a time. Reading or moving in a stream that is not open throws velaError 9; being out
/// of memory throws velaError 12. Zero units in the source are skipped, because they would end a zero-terminated text.
class textstream
{
public:
    textstream();
    /// Opens the source; throws velaError with FileIO_GetLastErr() as its code on failure.
    explicit textstream(sstring const& fileName);
    textstream(unsigned char* data, unsigned int size, int ownsData);
    textstream(textstream const&) = delete;
    textstream& operator=(textstream const&) = delete;

    /// Opens a file and detects its byte order. Returns 1, or 0 with FileIO_GetLastErr() set. reopen() uses the name of
    /// the first file. Throws velaError 16 if the stream is already open.
    virtual int open(unsigned char const* fileName);
    virtual int open(unsigned short const* fileName);
    virtual int open(sstring const& fileName);
    /// The same for `size` bytes of memory, which must outlive the stream or, with `ownsData`, are freed by it with
    /// free8().
    virtual int open(unsigned char* data, unsigned int size, int ownsData);
    virtual int isOpen();
    /// Opens the same source again, at the position of close(). Returns 0 on failure. Does nothing if the stream is
    /// open.
    virtual int reopen();
    /// Saves the position, closes the file and discards the pushed positions. Keeps decoded text, so that reopening the
    /// stream need not decode it again.
    virtual void close();
    virtual ~textstream();
    virtual bookmark getPos() const;
    /// A default bookmark stands for the beginning of the text.
    virtual void setPos(bookmark const& place);
    virtual void pushPos();
    /// Throws velaError 22 if no position has been pushed.
    virtual void popPos();
    virtual void rewind();
    /// Skips up to `n` units; returns their number.
    virtual unsigned int advance(unsigned int n);
    /// The next unit, or 0 at the end.
    virtual unsigned short peek();
    /// Up to `n` units as zero-terminated 8-bit text; `out` needs 4 bytes for each unit and one more. Returns the
    /// number of units.
    virtual unsigned int peek(unsigned char* out, unsigned int n);
    /// Up to `n` units, zero-terminated; `out` needs room for n + 1. Returns their number.
    virtual unsigned int peek(unsigned short* out, unsigned int n);
    virtual unsigned int peek(sstring& out, unsigned int n);
    virtual unsigned short pop();
    virtual unsigned int pop(unsigned char* out, unsigned int n);
    virtual unsigned int pop(unsigned short* out, unsigned int n);
    virtual unsigned int pop(sstring& out, unsigned int n);
    /// The rest of the text, with the stream's locale.
    virtual sstring toString();
    /// The stream's own locale, which it keeps; null until one is set or the first chunk has been decoded.
    virtual LOCALE* getLocale();
    /// Replaces the stream's locale with a copy; null clears it.
    virtual void setLocale(LOCALE* locale);

    void setPos(unsigned int offsetBytes, unsigned int unitIndex);

    /// The decoded units from the current position on, as far as they are contiguous; `count` is 0 only at the end.
    /// Valid until the next call other than skipRun(). For scanners for which a call per unit is too slow.
    unsigned short const* peekRun(unsigned int& count);
    /// Skips `count` units that peekRun() has returned.
    void skipRun(unsigned int count);
    /// The first unit of the current cache. The distance from it to peekRun() is the unit index of a bookmark.
    unsigned short const* cacheBegin() const { return m_current.buffer; }
    unsigned int cacheStart() const { return m_current.start; }

protected:
    /// Takes ownership of `data`, from malloc16(), as UTF-16 text in native byte order without a byte-order mark.
    void adopt(unsigned short* data, unsigned int lengthUnits);

private:
    enum UnitMode
    {
        kCodeSet = 0,
        kUtf16Little = 1,
        kUtf16Big = 2
    };

    void requireOpen() const;
    int openFile(sstring& path, unsigned long& length);
    void start(unsigned int sourceSize);
    void detectByteOrder();
    void forgetDecoded();
    void releaseMemory();
    unsigned int unitsLeftAtMost() const;

    unsigned int popData(unsigned short* out, unsigned int n, bool consume);
    unsigned int popText(unsigned char* out, unsigned int n, bool consume);
    unsigned int popString(sstring& out, unsigned int n, bool consume);
    unsigned short popUnit(bool consume);

    bool ensureUnits();
    bool leaveExhaustedCache();
    void fill();
    void fillUtf16();
    void fillCodeSet();
    unsigned int readSource(void* out, unsigned int offset, unsigned int count);
    void chooseCodeSet(unsigned char const* chunk, unsigned int count);
    void chooseLocale(velaBytes const& declared);

    int m_unitMode = kCodeSet;
    int m_openFlag = 0;
    FILEDATA* m_file = nullptr;        // owned while open; null for memory
    unsigned char* m_memory = nullptr; // null for a file
    unsigned int m_memoryPosition = 0; // bytes
    int m_ownsMemory = 0;
    unsigned int m_dataStart = 0;         // bytes of the byte-order mark: 0, 2 or 3
    unsigned int m_size = 0;              // bytes of the source
    unsigned char* m_rawBuffer = nullptr; // owned; an undecoded chunk of a file and a terminator
    tsCache m_current;
    tsCache m_spare;
    velaArray<bookmark> m_positions;
    velaLocale m_locale; // null: not known yet
    velaBytes m_codeSet; // declared in the text; empty: the locale's
    sstring m_scratch;
    sstring m_fileName;
    bookmark m_reopenPlace;
    bool m_localeDeclared = false; // the locale comes from the text and was not set by a caller
    std::unique_ptr<tsDecoder> m_decoder;
};

/// A stream over a copy of a string.
class datastream : public textstream
{
public:
    explicit datastream(sstring& text);
    ~datastream() override;
};

/// Whether the machine stores the high byte first.
bool IsBigEndian();
/// Swaps the bytes of a unit.
void SwapEndian(unsigned short* unit);
