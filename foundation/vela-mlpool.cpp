// foundation/vela-mlpool.cpp: see the header.

#include "foundation/vela-mlpool.h"

#include "foundation/vela-error.h"
#include "foundation/vela-mlsection.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdlib>
#include <cstring>
#include <random>
#include <utility>

namespace {

constexpr size_t kLastBlockBytes = 32768;
/// Larger pieces get a block of their own, which can be freed separately.
constexpr size_t kLargeBytes = 2048;
constexpr size_t kSmallestPiece = 16;
constexpr unsigned int kFirstBuckets = 8;

size_t rounded(size_t bytes) { return std::max(kSmallestPiece / 2, (bytes + 7) & ~size_t{7}); }

bool isFolded(unsigned short const* units, unsigned int length)
{
    return std::all_of(units, units + length, [](unsigned short unit) { return mlFold(unit) == unit; });
}

velaArray<unsigned short> folded(unsigned short const* units, unsigned int length)
{
    velaArray<unsigned short> result(length);
    std::transform(units, units + length, result.begin(), mlFold);
    return result;
}

/// A random number makes the hashes unpredictable, so that no page can be written whose names all fall into one bucket.
uint64_t hashSecret()
{
    static uint64_t const secret = [] {
        std::random_device random;
        return (uint64_t{random()} << 32 | random()) | 1;
    }();
    return secret;
}

uint64_t mixed(uint64_t a, uint64_t b)
{
    __extension__ using Wide = unsigned __int128;
    Wide const product = static_cast<Wide>(a) * b;
    return static_cast<uint64_t>(product) ^ static_cast<uint64_t>(product >> 64);
}

uint32_t hashOf(unsigned short const* units, unsigned int length)
{
    constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15u;
    constexpr unsigned int kStep = sizeof(uint64_t) / sizeof *units;
    uint64_t const secret = hashSecret();
    uint64_t hash = secret ^ length;
    uint64_t word = 0;
    for (; length >= kStep; units += kStep, length -= kStep) {
        std::memcpy(&word, units, sizeof word);
        hash = mixed(hash ^ word, kMultiplier ^ secret);
    }
    if (length != 0) {
        for (word = 0; length != 0; --length)
            word = word << 16 | *units++;
        hash = mixed(hash ^ word, kMultiplier ^ secret);
    }
    return static_cast<uint32_t>(hash ^ hash >> 32);
}

} // namespace

struct mlPool::Block
{
    Block* next;
};

struct mlPool::LargeBlock
{
    LargeBlock* next;
    LargeBlock* previous;
};

struct mlPool::FreePiece
{
    FreePiece* next;
};

mlPool::~mlPool()
{
    mlSection::destroyAdopted(m_adopted);
    while (m_blocks)
        std::free(std::exchange(m_blocks, m_blocks->next));
    while (m_largeBlocks)
        std::free(std::exchange(m_largeBlocks, m_largeBlocks->next));
}

void* mlPool::allocate(size_t bytes)
{
    bytes = rounded(bytes);
    if (bytes > kLargeBytes)
        return allocateLarge(bytes);
    // Every free piece of a class is at least as large as the largest request for it.
    unsigned int const kind = bytes < kSmallestPiece ? 0 : static_cast<unsigned int>(std::bit_width(bytes - 1)) - 4;
    assert(kind < kClassCount);
    if (FreePiece* piece = m_freePieces[kind]) {
        m_freePieces[kind] = piece->next;
        return piece;
    }
    if (bytes > static_cast<size_t>(m_blockEnd - m_blockAt))
        addBlock(bytes);
    assert(bytes <= static_cast<size_t>(m_blockEnd - m_blockAt));
    return std::exchange(m_blockAt, m_blockAt + bytes);
}

void mlPool::release(void* memory, size_t bytes)
{
    bytes = rounded(bytes);
    if (bytes > kLargeBytes) {
        auto* block = static_cast<LargeBlock*>(memory) - 1;
        assert(block->previous ? block->previous->next == block : m_largeBlocks == block);
        if (block->next)
            block->next->previous = block->previous;
        (block->previous ? block->previous->next : m_largeBlocks) = block->next;
        return std::free(block);
    }
    if (bytes < kSmallestPiece)
        return;
    auto* piece = static_cast<FreePiece*>(memory);
    unsigned int const kind = static_cast<unsigned int>(std::bit_width(bytes)) - 5;
    assert(kind < kClassCount && m_freePieces[kind] != piece); // not released twice
    piece->next = m_freePieces[kind];
    m_freePieces[kind] = piece;
}

void* mlPool::allocateLarge(size_t bytes)
{
    auto* block = static_cast<LargeBlock*>(velaAllocate(sizeof(LargeBlock) + bytes));
    block->next = m_largeBlocks;
    block->previous = nullptr;
    if (m_largeBlocks)
        m_largeBlocks->previous = block;
    m_largeBlocks = block;
    return block + 1;
}

/// The first block is small, because a single section may have a pool of its own; each further block is four times as
/// large.
void mlPool::addBlock(size_t neededBytes)
{
    size_t const bytes = std::max(m_nextBlockBytes, sizeof(Block) + neededBytes);
    auto* block = static_cast<Block*>(velaAllocate(bytes));
    block->next = m_blocks;
    m_blocks = block;
    m_blockAt = reinterpret_cast<char*>(block + 1);
    m_blockEnd = reinterpret_cast<char*>(block) + bytes;
    m_nextBlockBytes = std::min(m_nextBlockBytes * 4, kLastBlockBytes);
}

mlName* mlPool::find(unsigned short const* units, unsigned int length, uint32_t hash) const
{
    if (m_buckets.empty())
        return nullptr;
    assert(std::has_single_bit(m_buckets.size()));
    mlName* name = m_buckets[hash & (m_buckets.size() - 1)];
    // Not memcmp(), which does not accept the null pointer of an empty name.
    while (name && !(name->hash == hash && name->length == length && std::equal(units, units + length, name->units())))
        name = name->nextInBucket;
    return name;
}

mlName* mlPool::findFolded(unsigned short const* units, unsigned int length) const
{
    mlName* known = find(units, length, hashOf(units, length));
    if (!known && !isFolded(units, length)) {
        velaArray<unsigned short> const lower = folded(units, length);
        known = find(lower.data(), length, hashOf(lower.data(), length));
    }
    return known ? known->folded : nullptr;
}

mlName* mlPool::name(unsigned short const* units, unsigned int length)
{
    uint32_t const hash = hashOf(units, length);
    if (mlName* known = find(units, length, hash))
        return known;
    mlName* made = makeName(units, length, hash);
    if (!isFolded(units, length))
        made->folded = name(folded(units, length).data(), length);
    assert(made->folded->folded == made->folded);
    return made;
}

mlName* mlPool::makeName(unsigned short const* units, unsigned int length, uint32_t hash)
{
    if (m_nameCount >= m_buckets.size())
        growNames();
    auto* made = static_cast<mlName*>(allocate(sizeof(mlName) + length * sizeof *units));
    mlName*& bucket = m_buckets[hash & (m_buckets.size() - 1)];
    *made = {bucket, made, hash, length, 0};
    std::copy_n(units, length, made->units());
    bucket = made;
    ++m_nameCount;
    assert(m_nameCount <= m_buckets.size());
    return made;
}

void mlPool::growNames()
{
    velaArray<mlName*> old(std::max<size_t>(kFirstBuckets, m_buckets.size() * 2));
    old.swap(m_buckets);
    for (mlName* name : old) {
        while (name) {
            mlName*& bucket = m_buckets[name->hash & (m_buckets.size() - 1)];
            mlName* const next = std::exchange(name->nextInBucket, bucket);
            bucket = std::exchange(name, next);
        }
    }
}

void mlPool::clearText(mlText& text)
{
    if (text.isOutOfLine())
        release(text.outOfLine(), text.length * sizeof(unsigned short));
    text = mlText();
}

void mlPool::setText(mlText& text, unsigned short const* units, unsigned int length)
{
    mlText made;
    made.length = length;
    if (made.isOutOfLine()) {
        auto* far = static_cast<unsigned short*>(allocate(length * sizeof *units));
        std::memcpy(far, units, length * sizeof *units);
        std::memcpy(made.storage, &far, sizeof far);
    } else if (length != 0)
        std::memcpy(made.storage, units, length * sizeof *units);
    clearText(text);
    text = made;
}

sstring mlPool::makeString(unsigned short const* units, unsigned int length) const
{
    sstring result;
    if (m_locale)
        result.setLocale(m_locale);
    result.set(units, 0, length);
    return result;
}

void mlPool::setLocale(LOCALE* wanted)
{
    if (!wanted || wanted == Locale_GetFromSystem())
        m_locale = wanted;
    else {
        m_ownLocale = *wanted;
        m_locale = &m_ownLocale;
    }
}
