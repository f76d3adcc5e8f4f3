// foundation/vela-mlpool.h: where sections keep their names, texts and lists. A page has ten thousands of small ones;
// the pool takes them from large blocks, keeps each name once, and frees everything at once, however deep the tree is.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "foundation/localize2.h"
#include "foundation/vela-array.h"
#include "foundation/vela-string.h"

class mlParser;
class mlSection;

/// One spelling of a tag or attribute name. Two names of one pool are equal without regard to case when their `folded`
/// are the same.
struct mlName
{
    mlName* nextInBucket;
    mlName* folded; ///< the same name in lower case; itself when it is
    uint32_t hash;
    uint32_t length;
    uint32_t openSections; ///< how many open sections of the pool's parser have this name; counted in `folded`

    unsigned short* units() { return reinterpret_cast<unsigned short*>(this + 1); }
    unsigned short const* units() const { return reinterpret_cast<unsigned short const*>(this + 1); }
};

/// A text in a pool. Up to four units stand in the place of the pointer.
struct mlText
{
    static constexpr unsigned int kNearUnits = 4;

    uint32_t place[2] = {};
    uint32_t length = 0;

    bool isFar() const { return length > kNearUnits; }
    unsigned short* far() const
    {
        assert(isFar()); // otherwise the units stand here
        unsigned short* pointer;
        std::memcpy(&pointer, place, sizeof pointer);
        return pointer;
    }
    unsigned short const* units() const { return isFar() ? far() : reinterpret_cast<unsigned short const*>(place); }
};

/// Lower case of the ASCII letters; what lies beyond has no case in a tag's name.
inline unsigned short mlFold(unsigned short unit)
{
    return unit >= 'A' && unit <= 'Z' ? static_cast<unsigned short>(unit - 'A' + 'a') : unit;
}

/// Memory of one tree of sections. Out of memory is velaError 12. One thread at a time.
class mlPool : public velaAllocated
{
public:
    explicit mlPool(mlParser* owner) : parser(owner) {}
    ~mlPool();
    mlPool(mlPool const&) = delete;
    mlPool& operator=(mlPool const&) = delete;

    /// Memory aligned for pointers; lives as long as the pool unless given back with the same size.
    void* take(size_t bytes);
    void give(void* memory, size_t bytes);

    /// The pool's record of a name; made when it is new.
    mlName* name(unsigned short const* units, unsigned int length);
    /// The folded record of a name in any spelling; null when the pool has none.
    mlName* findFolded(unsigned short const* units, unsigned int length) const;

    void setText(mlText& text, unsigned short const* units, unsigned int length);
    void clearText(mlText& text);

    /// A string of these units in the locale of the page.
    sstring makeString(unsigned short const* units, unsigned int length) const;
    /// The locale of the strings handed out; copied, null for the process default.
    void setLocale(LOCALE* wanted);

    /// Deletes the section, which was made outside of any parser, with the pool.
    void adopt(mlSection* section)
    {
        assert(section);
        m_adopted.push_back(section);
    }

    bool isOneAttr = false; ///< the pool belongs to one attribute outside of any section
    mlParser* parser;       ///< whose sections these are; null for a section made outside of any parser

private:
    friend class mlAttr;
    friend class mlSection;
    friend class mlParser;

    struct Block;
    struct LargeBlock;
    struct FreePiece;

    static constexpr size_t kFirstBlockBytes = 512;
    static constexpr unsigned int kClassCount = 13; // free pieces of 16 bytes to 64 KB

    void* takeLarge(size_t bytes);
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
    velaArray<mlName*> m_buckets; // a power of two
    uint32_t m_nameCount = 0;
    LOCALE* m_locale = nullptr; // ownLocale or the system's; null: the process default
    LOCALE m_ownLocale{};
    velaArray<mlSection*> m_adopted;
};
