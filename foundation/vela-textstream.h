// foundation/vela-textstream.h: reads a file or a block of memory as 16-bit units, whatever its encoding, with one-unit
// look-ahead and saved positions. How one chunk of the source becomes units is vela-tsdecoder.h's business.
#pragma once

#include <memory>

#include "foundation/localize2.h"
#include "foundation/vela-array.h"
#include "foundation/vela-error.h"
#include "foundation/vela-fileio.h"
#include "foundation/vela-string.h"

class tsDecoder;

/// A saved position in a textstream: the byte offset in the source at which a cache begins and the unit index inside
/// that cache. Its text form is those two numbers, "%lu %lu"; a default bookmark's text is empty. Only the numbers are
/// stored, since a parser takes thousands of bookmarks and looks at almost none.
class bookmark
{
public:
    bookmark() = default;
    bookmark(unsigned int offsetBytes, unsigned int unitIndex);
    /// Reads the two numbers, separated by blanks; a text without numbers gives a default bookmark.
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

/// One decoded stretch of a stream's source.
struct tsCache
{
    static constexpr unsigned int kBufferUnits = 16385; ///< the last one is for the terminator
    static constexpr unsigned int kChunkSize = 16384;

    unsigned short* buffer = nullptr;   ///< bufferUnits units, owned by the stream; allocated on first use
    unsigned int valid = 0;             ///< decoded units in the buffer; 0: empty, to be filled
    unsigned int readSize = kChunkSize; ///< source bytes (8-bit text) or units (UTF-16) that one fill takes
    unsigned int consumed = 0;          ///< source bytes that produced the buffer's contents
    unsigned int start = 0;             ///< byte offset in the source at which the contents begin
    unsigned int position = 0;          ///< index of the next unit to hand out
};

/// A text source. Belongs to one thread at a time. Reading, positioning or advance() on a stream that is not open
/// throws velaError 9; out of memory is velaError 12. A zero unit can not stand in zero-terminated text and would read
/// as the end, so zero units of the source are left out.
class textstream
{
public:
    textstream();
    /// Opens at once; throws velaError with FileIO_GetLastErr() as its code when that fails.
    explicit textstream(sstring const& fileName);
    textstream(unsigned char* data, unsigned int size, int ownsData);
    textstream(textstream const&) = delete;
    textstream& operator=(textstream const&) = delete;

    /// Opens a file for reading and finds its byte order; 1 on success, 0 with FileIO_GetLastErr() set. The first name
    /// ever given is the one that reopen() uses. velaError 16 when the stream is open already.
    virtual int open(unsigned char const* fileName);
    virtual int open(unsigned short const* fileName);
    virtual int open(sstring const& fileName);
    /// The same over `size` bytes of memory, which must outlive the stream; with `ownsData` the stream frees them
    /// (free8).
    virtual int open(unsigned char* data, unsigned int size, int ownsData);
    virtual int isOpen();
    /// Opens the same source again, at the place where close() left it; 0 when that fails. An open stream stays as it
    /// is.
    virtual int reopen();
    /// Remembers the place, closes the file and forgets the pushed positions. Decoded text is kept, so that closing and
    /// reopening costs no decoding.
    virtual void close();
    virtual ~textstream();
    virtual bookmark getPos() const;
    /// A default bookmark means the beginning of the text.
    virtual void setPos(bookmark const& place);
    virtual void pushPos();
    /// velaError 22 when nothing was pushed.
    virtual void popPos();
    virtual void rewind();
    /// Consumes up to `n` units; returns how many there were.
    virtual unsigned int advance(unsigned int n);
    /// The next unit, or 0 at the end.
    virtual unsigned short peek();
    /// Up to `n` units as 8-bit text, zero-terminated: `out` needs 4 bytes for each unit and one more. Returns the
    /// units.
    virtual unsigned int peek(unsigned char* out, unsigned int n);
    /// Up to `n` units, zero-terminated: `out` needs n + 1. Returns how many there were.
    virtual unsigned int peek(unsigned short* out, unsigned int n);
    virtual unsigned int peek(sstring& out, unsigned int n);
    virtual unsigned short pop();
    virtual unsigned int pop(unsigned char* out, unsigned int n);
    virtual unsigned int pop(unsigned short* out, unsigned int n);
    virtual unsigned int pop(sstring& out, unsigned int n);
    /// The rest of the stream, in the stream's locale.
    virtual sstring toString();
    /// The stream's own locale; null until one is set or the first chunk was decoded. Not handed over.
    virtual LOCALE* getLocale();
    /// Replaces the stream's locale by a copy; null clears it.
    virtual void setLocale(LOCALE* locale);

    void setPos(unsigned int offsetBytes, unsigned int unitIndex);

    /// The decoded units from the position on that lie in one piece, without consuming them; `count` is 0 only at the
    /// end. Valid until the next call on the stream other than skipRun(). For scanners that can not pay a call per
    /// unit.
    unsigned short const* peekRun(unsigned int& count);
    /// Consumes `count` units of what peekRun() gave.
    void skipRun(unsigned int count);
    /// The unit of the current cache that begins it: peekRun()'s units minus this is the unit index of a bookmark.
    unsigned short const* cacheBegin() const { return m_current.buffer; }
    unsigned int cacheStart() const { return m_current.start; }

protected:
    /// Takes over `data` as UTF-16 text in the machine's own byte order without looking for a byte-order mark.
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
    FILEDATA* m_file = nullptr;        // owned while open; null for a memory stream
    unsigned char* m_memory = nullptr; // null for a file
    unsigned int m_memoryPosition = 0; // bytes
    int m_ownsMemory = 0;
    unsigned int m_dataStart = 0;         // length of the byte-order mark: 0, 2 or 3
    unsigned int m_size = 0;              // bytes of the source
    unsigned char* m_rawBuffer = nullptr; // a file's undecoded chunk and a terminator
    tsCache m_current;
    tsCache m_spare;
    velaArray<bookmark> m_positions;
    LOCALE* m_locale = nullptr;         // owned; null: not decided
    unsigned char* m_codeSet = nullptr; // owned; null: the locale's
    sstring m_scratch;
    sstring m_fileName;
    bookmark m_reopenPlace;
    bool m_localeDeclared = false; // the locale was found in the text, not set from outside
    std::unique_ptr<tsDecoder> m_decoder;
};

/// A stream over a private copy of a string's text.
class datastream : public textstream
{
public:
    explicit datastream(sstring& text);
    ~datastream() override;
};

/// True on a machine that keeps the high byte first; computed once.
bool IsBigEndian();
/// Swaps the two bytes of one unit.
void SwapEndian(unsigned short* unit);
