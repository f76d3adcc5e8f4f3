// foundation/vela-mlpool.cpp: see the header.
#include "foundation/vela-mlpool.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdlib>
#include <cstring>
#include <random>
#include <utility>

#include "foundation/vela-error.h"
#include "foundation/vela-mlsection.h"

namespace {

constexpr size_t lastBlockBytes = 32768;
/// What is larger gets a block of its own, which can be freed alone.
constexpr size_t largeBytes = 2048;
constexpr size_t smallestPiece = 16;
constexpr unsigned int firstBuckets = 8;

size_t rounded(size_t bytes) { return std::max(smallestPiece / 2, (bytes + 7) & ~size_t{7}); }

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

/// Pages are foreign input: with a number that nobody can guess, nobody can write one whose names all meet in one
/// bucket.
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
    constexpr uint64_t multiplier = 0x9E3779B97F4A7C15u;
    constexpr unsigned int step = sizeof(uint64_t) / sizeof *units;
    uint64_t const secret = hashSecret();
    uint64_t hash = secret ^ length;
    uint64_t word = 0;
    for (; length >= step; units += step, length -= step) {
        std::memcpy(&word, units, sizeof word);
        hash = mixed(hash ^ word, multiplier ^ secret);
    }
    if (length != 0) {
        for (word = 0; length != 0; --length)
            word = word << 16 | *units++;
        hash = mixed(hash ^ word, multiplier ^ secret);
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
    mlSection::destroyAdopted(adopted);
    while (blocks)
        std::free(std::exchange(blocks, blocks->next));
    while (largeBlocks)
        std::free(std::exchange(largeBlocks, largeBlocks->next));
}

void* mlPool::take(size_t bytes)
{
    bytes = rounded(bytes);
    if (bytes > largeBytes)
        return takeLarge(bytes);
    // A given-back piece is used when its class promises that it is large enough.
    unsigned int const kind = bytes < smallestPiece ? 0 : static_cast<unsigned int>(std::bit_width(bytes - 1)) - 4;
    assert(kind < classCount);
    if (FreePiece* piece = freePieces[kind]) {
        freePieces[kind] = piece->next;
        return piece;
    }
    if (bytes > static_cast<size_t>(blockEnd - blockAt))
        addBlock(bytes);
    assert(bytes <= static_cast<size_t>(blockEnd - blockAt));
    return std::exchange(blockAt, blockAt + bytes);
}

void mlPool::give(void* memory, size_t bytes)
{
    bytes = rounded(bytes);
    if (bytes > largeBytes) {
        auto* block = static_cast<LargeBlock*>(memory) - 1;
        assert(block->previous ? block->previous->next == block : largeBlocks == block);
        if (block->next)
            block->next->previous = block->previous;
        (block->previous ? block->previous->next : largeBlocks) = block->next;
        return std::free(block);
    }
    if (bytes < smallestPiece)
        return;
    auto* piece = static_cast<FreePiece*>(memory);
    unsigned int const kind = static_cast<unsigned int>(std::bit_width(bytes)) - 5;
    assert(kind < classCount && freePieces[kind] != piece); // given back once
    piece->next = freePieces[kind];
    freePieces[kind] = piece;
}

void* mlPool::takeLarge(size_t bytes)
{
    auto* block = static_cast<LargeBlock*>(velaAllocate(sizeof(LargeBlock) + bytes));
    block->next = largeBlocks;
    block->previous = nullptr;
    if (largeBlocks)
        largeBlocks->previous = block;
    largeBlocks = block;
    return block + 1;
}

/// The first block is small, so that a section made alone costs little; each further one is four times as large.
void mlPool::addBlock(size_t neededBytes)
{
    size_t const bytes = std::max(nextBlockBytes, sizeof(Block) + neededBytes);
    auto* block = static_cast<Block*>(velaAllocate(bytes));
    block->next = blocks;
    blocks = block;
    blockAt = reinterpret_cast<char*>(block + 1);
    blockEnd = reinterpret_cast<char*>(block) + bytes;
    nextBlockBytes = std::min(nextBlockBytes * 4, lastBlockBytes);
}

mlName* mlPool::find(unsigned short const* units, unsigned int length, uint32_t hash) const
{
    if (buckets.empty())
        return nullptr;
    assert(std::has_single_bit(buckets.size()));
    mlName* name = buckets[hash & (buckets.size() - 1)];
    // Not memcmp(): an empty name may have no address.
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
    if (nameCount >= buckets.size())
        growNames();
    auto* made = static_cast<mlName*>(take(sizeof(mlName) + length * sizeof *units));
    mlName*& bucket = buckets[hash & (buckets.size() - 1)];
    *made = {bucket, made, hash, length, 0};
    std::copy_n(units, length, made->units());
    bucket = made;
    ++nameCount;
    assert(nameCount <= buckets.size());
    return made;
}

void mlPool::growNames()
{
    velaArray<mlName*> old(std::max<size_t>(firstBuckets, buckets.size() * 2));
    old.swap(buckets);
    for (mlName* name : old) {
        while (name) {
            mlName*& bucket = buckets[name->hash & (buckets.size() - 1)];
            mlName* const next = std::exchange(name->nextInBucket, bucket);
            bucket = std::exchange(name, next);
        }
    }
}

void mlPool::clearText(mlText& text)
{
    if (text.isFar())
        give(text.far(), text.length * sizeof(unsigned short));
    text = mlText();
}

void mlPool::setText(mlText& text, unsigned short const* units, unsigned int length)
{
    mlText made;
    made.length = length;
    if (made.isFar()) {
        auto* far = static_cast<unsigned short*>(take(length * sizeof *units));
        std::memcpy(far, units, length * sizeof *units);
        std::memcpy(made.place, &far, sizeof far);
    } else if (length != 0)
        std::memcpy(made.place, units, length * sizeof *units);
    clearText(text);
    text = made;
}

sstring mlPool::makeString(unsigned short const* units, unsigned int length) const
{
    sstring result;
    if (locale)
        result.setLocale(locale);
    result.set(units, 0, length);
    return result;
}

void mlPool::setLocale(LOCALE* wanted)
{
    if (!wanted || wanted == Locale_GetFromSystem())
        locale = wanted;
    else {
        ownLocale = *wanted;
        locale = &ownLocale;
    }
}
