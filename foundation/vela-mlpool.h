// foundation/vela-mlpool.h: the memory of sections. A page has tens of thousands of small names, texts and lists; the
// pool allocates them from large blocks, stores each name once, and frees everything at once, however deep the tree is.
#pragma once

#include "foundation/localize2.h"
#include "foundation/vela-array.h"
#include "foundation/vela-string.h"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>

class mlParser;
class mlSection;

/// One spelling of a tag or attribute name, followed by its units. Two names of a pool are equal, ignoring case, if
/// their `folded` is the same.
struct mlName
{
    mlName* nextInBucket;
    mlName* folded; ///< the name in lower case; this one if it has no capitals
    uint32_t hash;
    uint32_t length;
    uint32_t openSections; ///< open sections of the pool's parser with this name; counted in `folded`

    unsigned short* units() { return reinterpret_cast<unsigned short*>(this + 1); }
    unsigned short const* units() const { return reinterpret_cast<unsigned short const*>(this + 1); }
};

/// A text in a pool. Up to four units are stored in place of the pointer.
struct mlText
{
    static constexpr unsigned int kInlineUnits = 4;

    uint32_t storage[2] = {};
    uint32_t length = 0;

    bool isOutOfLine() const { return length > kInlineUnits; }
    unsigned short* outOfLine() const
    {
        assert(isOutOfLine()); // otherwise `storage` holds the units themselves
        unsigned short* pointer = nullptr;
        std::memcpy(&pointer, storage, sizeof pointer);
        return pointer;
    }
    unsigned short const* units() const
    {
        return isOutOfLine() ? outOfLine() : reinterpret_cast<unsigned short const*>(storage);
    }
};

/// The lower case of an ASCII letter; names fold no others.
inline unsigned short mlFold(unsigned short unit)
{
    return unit >= 'A' && unit <= 'Z' ? static_cast<unsigned short>(unit - 'A' + 'a') : unit;
}

/// The memory of a tree of sections. Throws velaError 12 when out of memory. One thread at a time.
class mlPool : public velaAllocated
{
public:
    explicit mlPool(mlParser* parser) : m_parser(parser) {}
    ~mlPool();
    mlPool(mlPool const&) = delete;
    mlPool& operator=(mlPool const&) = delete;

    /// Memory aligned for pointers. It is freed with the pool, or earlier by release() with the same size.
    void* allocate(size_t bytes);
    void release(void* memory, size_t bytes);

    /// The pool's record of a name; made if there is none.
    mlName* name(unsigned short const* units, unsigned int length);
    /// The record of the name in lower case; null if there is none.
    mlName* findFolded(unsigned short const* units, unsigned int length) const;

    void setText(mlText& text, unsigned short const* units, unsigned int length);
    void clearText(mlText& text);

    /// A string with the pool's locale.
    sstring makeString(unsigned short const* units, unsigned int length) const;
    /// Sets the locale of the strings, of which a copy is kept; null for the process default.
    void setLocale(LOCALE* wanted);

private:
    friend class mlAttr;
    friend class mlSection;
    friend class mlParser;

    struct Block;
    struct LargeBlock;
    struct FreePiece;

    static constexpr size_t kFirstBlockBytes = 512;
    static constexpr unsigned int kClassCount = 13; // sizes of free pieces, from 16 bytes to 64 KB

    void* allocateLarge(size_t bytes);
    void addBlock(size_t neededBytes);
    void growNames();
    mlName* find(unsigned short const* units, unsigned int length, uint32_t hash) const;
    mlName* makeName(unsigned short const* units, unsigned int length, uint32_t hash);

    Block* m_blocks = nullptr;
    char* m_blockAt = nullptr;
    char* m_blockEnd = nullptr;
    size_t m_nextBlockBytes = kFirstBlockBytes;
    LargeBlock* m_largeBlocks = nullptr;
    FreePiece* m_freePieces[kClassCount] = {};
    velaArray<mlName*> m_buckets; // their number is a power of two
    uint32_t m_nameCount = 0;
    LOCALE* m_locale = nullptr; // m_ownLocale or the system locale; null: the process default
    LOCALE m_ownLocale{};
    mlSection* m_adopted = nullptr;     // the first of the sections with pools of their own that go with this pool
    mlSection* m_nextAdopted = nullptr; // the one behind the section that has this pool, in the list of another pool
    bool m_isOneAttr = false;           // belongs to an attribute outside any section
    mlParser* m_parser; // of the sections in this pool; null for a section that was made outside any parser
};
