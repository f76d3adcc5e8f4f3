// tests/foundation/memmgr_test.cpp: the memory hooks, growing arrays, and debug messages.

#include "foundation/vela-debug.h"
#include "foundation/vela-error.h"
#include "foundation/vela-memmgr.h"
#include "foundation/vela-poison.h"

#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

std::vector<std::string> messages;

void collect(char const* message) { messages.emplace_back(message); }

/// Collects debug messages during a test.
class Collected
{
public:
    Collected()
    {
        messages.clear();
        Debug_SetReceiver(collect);
    }
    ~Collected() { Debug_SetReceiver(nullptr); }
};

struct Array
{
    int* elements = nullptr;
    unsigned int capacity = 0;

    ~Array() { std::free(elements); }
    void grow(unsigned int needed, unsigned int granule, unsigned int elementSize = sizeof(int))
    {
        void* block = elements;
        MemReallocArrayFunction(&block, elementSize, &capacity, needed, granule);
        elements = static_cast<int*>(block);
    }
    int codeOfGrowing(unsigned int needed, unsigned int granule, unsigned int elementSize = sizeof(int))
    {
        try {
            grow(needed, granule, elementSize);
        } catch (velaError const& error) {
            return error.getCode();
        }
        return 0;
    }
};

} // namespace

TEST(MemMgr, TheAccountingAllocatorIsNotInUse)
{
    EXPECT_EQ(MemMgr_Init(), 1);
    EXPECT_EQ(MemMgr_Init(), 1);
    EXPECT_EQ(MemMgr_IsVELAMemoryManagerInUse(), 0);
    MemMgr_ShutDown();
    MemMgr_ShutDown();
    MemMgr_ShutDown();
    EXPECT_EQ(MemMgr_Init(), 1);
    MemMgr_ShutDown();
}

TEST(MemMgr, ReportsSayThatNothingIsAccounted)
{
    Collected const collected;
    MemMgr_PrintMemUsage();
    MemMgr_CheckForLeaks();
    EXPECT_TRUE(messages.empty());
    memMgr_DumpMemUsage();
    MemMgr_VerifyIntegrity();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0], "The memory manager is not active.  The attempt to print current usage failed.");
    EXPECT_EQ(messages[1], "The memory manager is not active.  The attempt to verify heap integrity failed.");
}

TEST(MemMgr, ArraysGrowInWholeGranulesWithZeroedElements)
{
    Array array;
    array.grow(1, 4);
    EXPECT_EQ(array.capacity, 4u);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(array.elements[i], 0);
        array.elements[i] = i + 1;
    }
    array.grow(9, 4);
    EXPECT_EQ(array.capacity, 12u);
    EXPECT_EQ(array.elements[0], 1);
    EXPECT_EQ(array.elements[3], 4);
    for (int i = 4; i < 12; ++i)
        EXPECT_EQ(array.elements[i], 0);
}

TEST(MemMgr, ALargeEnoughArrayIsUnchanged)
{
    Array array;
    array.grow(5, 8);
    int* before = array.elements;
    array.grow(8, 8);
    array.grow(0, 0);
    EXPECT_EQ(array.elements, before);
    EXPECT_EQ(array.capacity, 8u);
}

TEST(MemMgr, ImpossibleArraysAreErrors)
{
    Array array;
    EXPECT_EQ(array.codeOfGrowing(1, 0), 22);
    EXPECT_EQ(array.codeOfGrowing(0xFFFFFFFF, 16), 22) << "no multiple of 16 fits into 32 bits";
    EXPECT_EQ(array.codeOfGrowing(0xFFFFFFFF, 7), 22);
    EXPECT_EQ(array.codeOfGrowing(0xFFFFFFFF, 1, 0xFFFFFFFF), 12);
    EXPECT_EQ(array.codeOfGrowing(0xFFFFFFF0, 16, 0xFFFFFFFF), 12);
    EXPECT_EQ(array.elements, nullptr);
    EXPECT_EQ(array.capacity, 0u);
}

TEST(Debug, MessagesAreDiscardedUnlessSomebodyReceivesThem)
{
    Debug_Print("lost %d", 1);
    {
        Collected const collected;
        Debug_Print("seen %d", 2);
        Debug_Print("%s", std::string(5000, 'x').c_str());
        EXPECT_EQ(messages.size(), 2u);
        EXPECT_EQ(messages[0], "seen 2");
        EXPECT_EQ(messages[1], std::string(1023, 'x'));
    }
    Debug_Print("lost %d", 3);
    EXPECT_EQ(messages.size(), 2u);
}

// Sanitizers have allocation operators of their own.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(Allocation, TheOperatorsAreTheLibrarysOwn)
{
    // Not those of the C++ runtime, which are in another shared object.
    Dl_info here{};
    Dl_info owner{};
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&collect), &here), 0);
    ASSERT_NE(dladdr(reinterpret_cast<void*>(static_cast<void* (*)(size_t)>(&operator new)), &owner), 0);
    EXPECT_STREQ(owner.dli_fname, here.dli_fname);
    ASSERT_NE(dladdr(reinterpret_cast<void*>(static_cast<void (*)(void*) noexcept>(&operator delete)), &owner), 0);
    EXPECT_STREQ(owner.dli_fname, here.dli_fname);
}

TEST(Allocation, ABlockOfNoBytesHasAnAddress)
{
    void* block = operator new(0);
    void* array = operator new[](0);
    EXPECT_NE(block, nullptr);
    EXPECT_NE(array, block);
    operator delete(block);
    operator delete[](array);
}

TEST(Allocation, ImpossibleSizesThrowOrGiveNull)
{
    volatile size_t size = PTRDIFF_MAX;
    EXPECT_THROW(operator delete(operator new(size)), std::bad_alloc);
    EXPECT_THROW(operator delete[](operator new[](size)), std::bad_alloc);
    EXPECT_EQ(operator new(size, std::nothrow), nullptr);
    EXPECT_EQ(operator new[](size, std::nothrow), nullptr);
}
#endif

namespace {

/// Poisons itself in the destructor, as the library's classes do.
struct Poisoned
{
    ~Poisoned() { velaPoison(this, sizeof *this); }
    unsigned words[5] = {1, 2, 3, 4, 5};
};

} // namespace

TEST(Poison, IsStillThereAfterTheObjectsEnd)
{
    alignas(Poisoned) unsigned char place[sizeof(Poisoned)];
    (new (place) Poisoned)->~Poisoned();
    for (unsigned char byte : place)
        EXPECT_EQ(byte, 0xFE);
}
