#include <OrvelCore/runtime/OrvelAllocatorT.h>
#include <OrvelCore/runtime/PArena.h>
#include <OrvelCore/runtime/PPrivateData.h>
#include <OrvelCore/runtime/PPtrOrderedVector.h>
#include <OrvelCore/runtime/PRefPtr.h>
#include <OrvelCore/runtime/PValOrderedVector.h>
#include <OrvelCore/runtime/ProcessServices.h>

#include <QtCore/qglobal.h>

#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <thread>
#include <type_traits>
#include <vector>

// This program's qMalloc and qFree take the place of Qt's, so that a test can see what an arena
// takes and gives back.
namespace {

struct Block
{
    unsigned char *start;
    std::size_t size;
};
std::vector<Block> takenBlocks;

} // namespace

Q_DECL_EXPORT void *qMalloc(std::size_t size)
{
    void *const memory = std::malloc(size);
    if (memory != nullptr) {
        takenBlocks.push_back({static_cast<unsigned char *>(memory), size});
    }
    return memory;
}

Q_DECL_EXPORT void qFree(void *memory)
{
    auto const isThis = [memory](Block const &block) { return block.start == memory; };
    auto const taken = std::find_if(takenBlocks.begin(), takenBlocks.end(), isThis);
    EXPECT_TRUE(memory == nullptr || taken != takenBlocks.end());
    if (taken != takenBlocks.end()) {
        takenBlocks.erase(taken);
    }
    std::free(memory);
}

namespace {

/// Where a block of an arena lies: in one of the chunks that it took, as a whole.
bool liesInAChunk(void const *block, std::size_t size)
{
    auto const *const start = static_cast<unsigned char const *>(block);
    return std::any_of(takenBlocks.begin(), takenBlocks.end(), [&](Block const &chunk) {
        return start >= chunk.start && start + size <= chunk.start + chunk.size;
    });
}

std::size_t bytesTaken()
{
    std::size_t sum = 0;
    for (Block const &chunk : takenBlocks) {
        sum += chunk.size;
    }
    return sum;
}

struct Counted : PRefObject
{
    Counted() { ++living; }
    Counted(Counted const &other)
        : PRefObject(other)
    {
        ++living;
    }
    Counted &operator=(Counted const &) = default;
    ~Counted() override { --living; }
    static inline int living = 0;
};

struct Derived : Counted
{
    int value = 3;
};

TEST(RefObject, LastReleaseDeletes)
{
    Counted *const object = new Counted;
    EXPECT_EQ(0, object->refCount());
    object->addRef();
    object->addRef();
    object->release();
    EXPECT_EQ(1, Counted::living);
    object->release();
    EXPECT_EQ(0, Counted::living);
}

TEST(RefObject, CopiesDoNotCopyTheCount)
{
    PRefPtr<Counted> const first(new Counted);
    PRefPtr<Counted> const second(new Counted(*first));
    EXPECT_EQ(1, second->refCount());
    *second = *first;
    EXPECT_EQ(1, second->refCount());
    EXPECT_EQ(1, first->refCount());
}

TEST(RefObject, SetStrongPtrExchangesOneReference)
{
    Counted *slot = nullptr;
    Counted *const object = new Counted;
    PRefObject::setStrongPtr(slot, object);
    EXPECT_EQ(1, object->refCount());
    PRefObject::setStrongPtr(slot, object); // the same again
    EXPECT_EQ(1, object->refCount());
    PRefObject::setStrongPtr(slot, new Counted);
    EXPECT_EQ(1, Counted::living);
    PRefObject::setStrongPtr(slot, static_cast<Counted *>(nullptr));
    EXPECT_EQ(nullptr, slot);
    EXPECT_EQ(0, Counted::living);
}

TEST(RefObject, CountsFromManyThreads)
{
    PRefPtr<Counted> const object(new Counted);
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([object] {
            for (int k = 0; k < 1000; ++k) {
                PRefPtr<Counted> const copy(object);
                EXPECT_TRUE(copy);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    threads.clear();
    EXPECT_EQ(1, object->refCount());
}

TEST(RefPtr, HoldsOneReferenceEach)
{
    {
        PRefPtr<Derived> const derived(new Derived);
        PRefPtr<Counted> base(derived);
        EXPECT_EQ(2, base->refCount());
        EXPECT_TRUE(base.get() == derived.get());
        EXPECT_EQ(3, (*derived).value);
        PRefPtr<Counted> moved(std::move(base));
        EXPECT_FALSE(base);
        EXPECT_EQ(2, moved->refCount());
        moved = nullptr;
        EXPECT_EQ(1, derived->refCount());
        PRefPtr<Counted> assigned;
        assigned = PRefPtr<Counted>(derived);
        EXPECT_EQ(2, derived->refCount());
        assigned = static_cast<Counted *>(nullptr);
        EXPECT_EQ(1, derived->refCount());
    }
    EXPECT_EQ(0, Counted::living);
    EXPECT_EQ(nullptr, PRefPtr<Counted>().get());
}

struct Public;
struct PublicPrivate : PPrivateData<Public>
{
    using PPrivateData::PPrivateData;
};
struct Public
{
};

TEST(PrivateData, KnowsItsPublicObject)
{
    Public object;
    PublicPrivate const data(&object);
    EXPECT_EQ(&object, data.q);
    EXPECT_TRUE(std::has_virtual_destructor_v<PPrivateData<Public>>);
}

TEST(Arena, BlocksAreAlignedAndDoNotOverlap)
{
    PArena arena;
    std::vector<std::pair<unsigned char *, std::size_t>> blocks;
    std::size_t const sizes[] = {1, 7, 8, 9, 0, 100, 4096, 5000, 3, 2000000, 16, 40, 1};
    for (int round = 0; round < 50; ++round) {
        for (std::size_t size : sizes) {
            auto *const block = static_cast<unsigned char *>(arena.allocateAligned(size));
            ASSERT_EQ(0u, reinterpret_cast<std::uintptr_t>(block) % 8);
            std::memset(block, int(blocks.size() % 251), size);
            blocks.emplace_back(block, size);
        }
    }
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        for (std::size_t k = 0; k < blocks[i].second; ++k) {
            ASSERT_EQ(i % 251, blocks[i].first[k]);
        }
    }
    EXPECT_GE(arena.bytesReserved(), 50u * 2000000u);
}

TEST(Arena, BlocksLieInTheChunksThatItTook)
{
    ASSERT_EQ(0u, takenBlocks.size());
    PArena arena;
    EXPECT_EQ(0u, arena.bytesReserved());
    // Each size to the end of a chunk and beyond, and blocks larger than a chunk.
    std::size_t const sizes[] = {8, 4088, 4096, 4097, 16, 100000, 1, 3000, 3000, 3000000, 8, 0};
    for (int round = 0; round < 40; ++round) {
        for (std::size_t const size : sizes) {
            void *const block = arena.allocateAligned(size);
            EXPECT_TRUE(liesInAChunk(block, size)) << size;
            EXPECT_EQ(bytesTaken(), arena.bytesReserved());
        }
    }
}

TEST(Arena, SmallBlocksShareAChunkToItsLastByte)
{
    ASSERT_EQ(0u, takenBlocks.size());
    PArena arena;
    arena.allocateAligned(1);
    ASSERT_EQ(1u, takenBlocks.size());
    EXPECT_EQ(4096u + 8u, takenBlocks[0].size); // the content and the link to the former chunk
    for (int i = 1; i < 4096 / 8; ++i) {
        arena.allocateAligned(8);
    }
    EXPECT_EQ(1u, takenBlocks.size());
    arena.allocateAligned(8);
    EXPECT_EQ(2u, takenBlocks.size());
}

TEST(Arena, ChunksGrowToAMegabyteWithWhatWasTaken)
{
    PArena arena;
    std::size_t largest = 0;
    while (arena.bytesReserved() < 8000000u) {
        std::size_t const before = arena.bytesReserved();
        arena.allocateAligned(8);
        std::size_t const taken = arena.bytesReserved() - before;
        if (taken != 0) {
            EXPECT_EQ(std::clamp<std::size_t>(before, 4096, 1 << 20) + 8, taken);
            largest = taken;
        }
    }
    EXPECT_EQ((1u << 20) + 8, largest);
}

TEST(Arena, ALargeBlockLeavesTheRestOfTheChunkInUse)
{
    PArena arena;
    auto *const first = static_cast<unsigned char *>(arena.allocateAligned(8));
    arena.allocateAligned(100000);
    EXPECT_EQ(first + 8, arena.allocateAligned(8));
}

TEST(Arena, GivesEveryChunkBack)
{
    {
        PArena arena;
        for (std::size_t size = 1; size < 5000000; size *= 3) {
            arena.allocateAligned(size);
        }
        EXPECT_LT(3u, takenBlocks.size());
    }
    EXPECT_EQ(0u, takenBlocks.size());
}

using ArenaMemory = support::AllocationCounting;

TEST_F(ArenaMemory, AFailedRequestLeavesTheArenaAsItWas)
{
    takenBlocks.reserve(1000);
    long const failures = support::failEachAllocation([] {
        static int destroyed;
        destroyed = 0;
        int registered = 0;
        {
            PArena arena;
            auto const leavesItAsItWas = [&arena](auto const &step) {
                std::size_t const before = arena.bytesReserved();
                try {
                    step();
                } catch (std::bad_alloc const &) {
                    EXPECT_EQ(before, arena.bytesReserved());
                }
            };
            for (int i = 0; i < 5; ++i) {
                leavesItAsItWas([&] {
                    arena.addDestructor(&destroyed, [](void *n) { ++*static_cast<int *>(n); });
                    ++registered;
                });
                leavesItAsItWas([&] { arena.allocateAligned(20000); });
            }
        }
        EXPECT_EQ(registered, destroyed);
        EXPECT_EQ(0u, takenBlocks.size());
    });
    EXPECT_GE(failures, 3);
}

TEST(Arena, DestructorsRunLastFirst)
{
    static std::vector<int> order;
    order.clear();
    int first = 1;
    int second = 2;
    {
        PArena arena;
        auto const note = [](void *object) { order.push_back(*static_cast<int *>(object)); };
        arena.addDestructor(&first, note);
        arena.addDestructor(&second, note);
        EXPECT_TRUE(order.empty());
    }
    EXPECT_EQ((std::vector<int>{2, 1}), order);
}

TEST(Arena, SizesThatCannotBeServedThrow)
{
    PArena arena;
    EXPECT_THROW(arena.allocateAligned(SIZE_MAX), std::bad_alloc);
    EXPECT_THROW(arena.allocateAligned(SIZE_MAX - 7), std::bad_alloc);
    EXPECT_EQ(0u, PArena::alignUpTo8(0));
    EXPECT_EQ(8u, PArena::alignUpTo8(1));
    EXPECT_EQ(8u, PArena::alignUpTo8(8));
    EXPECT_EQ(16u, PArena::alignUpTo8(9));
}

TEST(Allocator, ServesContainersAndRefusesWhatCannotBeTold)
{
    std::vector<int, OrvelAllocatorT<int>> values{1, 2, 3};
    values.resize(1000, 7);
    EXPECT_EQ(7, values.back());
    EXPECT_TRUE(OrvelAllocatorT<int>() == OrvelAllocatorT<int>(OrvelAllocatorT<double>()));
    EXPECT_FALSE(OrvelAllocatorT<int>() != OrvelAllocatorT<int>());
    EXPECT_THROW(OrvelAllocatorT<double>().allocate(SIZE_MAX / 4), std::bad_alloc);
}

TEST(OrderedVectors, KeepOrderAndShareUntilWritten)
{
    PValOrderedVector<double> values{1.5};
    values.append(2.5);
    PValOrderedVector<double> copy(values);
    copy[0] = 9.0;
    EXPECT_EQ(2, values.size());
    EXPECT_EQ(1.5, values[0]);
    EXPECT_EQ(9.0, copy[0]);
    EXPECT_EQ(2.5, copy[1]);
    values.clear();
    EXPECT_TRUE(values.isEmpty());

    int a = 1;
    int b = 2;
    PPtrOrderedVector<int> pointers;
    EXPECT_TRUE(pointers.isEmpty());
    pointers.append(&b);
    pointers.append(&a);
    EXPECT_EQ(2, pointers.size());
    EXPECT_EQ(&b, pointers[0]);
    EXPECT_EQ(&a, pointers[1]);
}

TEST(OrderedVectors, AreEmptyAfterAMove)
{
    PValOrderedVector<double> values{1.5, 2.5};
    PValOrderedVector<double> movedValues(std::move(values));
    EXPECT_TRUE(values.isEmpty());
    values = std::move(movedValues);
    EXPECT_TRUE(movedValues.isEmpty());
    EXPECT_EQ(2, values.size());

    int a = 1;
    PPtrOrderedVector<int> pointers{&a};
    PPtrOrderedVector<int> movedPointers(std::move(pointers));
    EXPECT_TRUE(pointers.isEmpty());
    pointers = std::move(movedPointers);
    EXPECT_TRUE(movedPointers.isEmpty());
    EXPECT_EQ(&a, pointers[0]);
}

TEST(ExchangeInt, WritesOnlyWhenTheExpectedValueStands)
{
    int word = 3;
    EXPECT_FALSE(mzThreadSafeExchangeInt(&word, 2, 9));
    EXPECT_EQ(3, word);
    EXPECT_TRUE(mzThreadSafeExchangeInt(&word, 3, 9));
    EXPECT_EQ(9, word);
}

TEST(Sleep, LastsAtLeastAsToldAndNotAtAllForZero)
{
    auto const start = std::chrono::steady_clock::now();
    mzSleep(0);
    mzSleep(-5);
    mzSleep(30);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

std::vector<int> ran;

TEST(GlobalCleanup, RunsLastFirstAndEachOnce)
{
    ran.clear();
    auto const one = +[] { ran.push_back(1); };
    auto const two = +[] { ran.push_back(2); };
    auto const registers = +[] {
        ran.push_back(3);
        mzRegisterGlobalCleanup(
            +[] { ran.push_back(4); }, 0);
    };
    mzRegisterGlobalCleanup(one, 0);
    mzRegisterGlobalCleanup(registers, 0);
    mzRegisterGlobalCleanup(two, 0);
    mzRegisterGlobalCleanup(one, 0);
    void *const here = reinterpret_cast<void *>(one);
    void *const elsewhere = reinterpret_cast<void *>(&std::strlen);
    mzRunGlobalCleanupFor(elsewhere);
    EXPECT_TRUE(ran.empty());
    mzRunGlobalCleanupFor(here);
    EXPECT_EQ((std::vector<int>{1, 2, 3, 4, 1}), ran);
    mzRunGlobalCleanupFor(here);
    EXPECT_EQ(5u, ran.size());
}

TEST(SingletonNotification, ReachesTheObserver)
{
    static std::vector<int> phases;
    phases.clear();
    mzSingletonObserver const former =
        mzSetSingletonObserver([](char const *name, void (*)(), int level, int phase) {
            EXPECT_STREQ("some type", name);
            phases.push_back(10 * level + phase);
        });
    baselog_singleton_changed("some type", nullptr, 1, 2);
    mzSetSingletonObserver(former);
    baselog_singleton_changed("some type", nullptr, 0, 0);
    EXPECT_EQ(std::vector<int>{12}, phases);
}

} // namespace
