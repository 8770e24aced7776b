#include <OrvelMath/base/Accuracy3D.h>
#include <OrvelMath/base/PThreadStorage_p.h>
#include <OrvelMath/base/Singleton_p.h>

#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <memory>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Told
{
    std::string typeName;
    void (*cleanup)();
    int level;
    int phase;
};

// What the core was told of singletons while this object lives.
class SingletonLog
{
public:
    SingletonLog()
    {
        entries().clear();
        m_former =
            mzSetSingletonObserver([](char const *name, void (*cleanup)(), int level, int phase) {
                std::lock_guard<std::mutex> lock(mutex());
                entries().push_back({name, cleanup, level, phase});
            });
    }
    ~SingletonLog() { mzSetSingletonObserver(m_former); }

    static std::vector<Told> &entries()
    {
        static std::vector<Told> all;
        return all;
    }
    // The phases told of T, in order.
    template <typename T>
    std::vector<int> phasesOf() const
    {
        std::vector<int> phases;
        for (Told const &told : entries()) {
            if (told.typeName == typeid(T).name()) {
                EXPECT_EQ(0, told.level);
                phases.push_back(told.phase);
            }
        }
        return phases;
    }

private:
    static std::mutex &mutex()
    {
        static std::mutex m;
        return m;
    }
    mzSingletonObserver m_former;
};

struct SlowToBuild
{
    SlowToBuild()
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        ++built;
    }
    ~SlowToBuild() { ++destroyed; }
    static inline std::atomic<int> built{0};
    static inline std::atomic<int> destroyed{0};
};

TEST(SingletonThread, RacingFirstAccessesBuildOneInstance)
{
    SingletonLog log;
    std::vector<std::thread> threads;
    std::vector<SlowToBuild *> seen(32);
    std::atomic<bool> go{false};
    for (std::size_t i = 0; i < seen.size(); ++i) {
        threads.emplace_back([&, i] {
            while (!go) {
            }
            seen[i] = Singleton<SlowToBuild>::instance();
        });
    }
    go = true;
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(1, SlowToBuild::built);
    EXPECT_EQ(1u, std::set<SlowToBuild *>(seen.begin(), seen.end()).size());
    EXPECT_EQ(std::vector<int>{0}, log.phasesOf<SlowToBuild>());
    Singleton<SlowToBuild>::cleanUp();
}

TEST(SingletonThread, AccessDuringDestructionWaitsAndBuildsAnew)
{
    Singleton<SlowToBuild>::instance();
    int const built = SlowToBuild::built;
    std::thread cleaner(&Singleton<SlowToBuild>::cleanUp);
    std::thread user([] { Singleton<SlowToBuild>::instance(); });
    cleaner.join();
    user.join();
    Singleton<SlowToBuild>::instance();
    EXPECT_EQ(built + 1, SlowToBuild::built);
    Singleton<SlowToBuild>::cleanUp();
    EXPECT_EQ(SlowToBuild::built, SlowToBuild::destroyed);
}

using SingletonMemory = support::AllocationCounting;

struct Plain
{
    int value = 41;
};

TEST(Singleton, CleanUpDestroysOnceAndTheNextAccessBuildsAgain)
{
    SingletonLog log;
    Singleton<Plain>::instance()->value = 5;
    EXPECT_EQ(5, Singleton<Plain>::instance()->value);
    Singleton<Plain>::cleanUp();
    Singleton<Plain>::cleanUp();
    EXPECT_EQ((std::vector<int>{0, 1, 2}), log.phasesOf<Plain>());
    EXPECT_EQ(41, Singleton<Plain>::instance()->value);
    EXPECT_EQ((std::vector<int>{0, 1, 2, 0}), log.phasesOf<Plain>());
    // The clean-up that was registered anew is the one that is reported.
    EXPECT_EQ(&Singleton<Plain>::cleanUp, log.entries().back().cleanup);
    Singleton<Plain>::cleanUp();
}

struct Failing
{
    Failing()
    {
        if (fail) {
            throw std::runtime_error("no");
        }
    }
    static inline bool fail = true;
};

TEST(Singleton, ThrowingConstructionRestoresTheState)
{
    SingletonLog log;
    Failing::fail = true;
    EXPECT_THROW(Singleton<Failing>::instance(), std::runtime_error);
    EXPECT_THROW(Singleton<Failing>::instance(), std::runtime_error);
    Singleton<Failing>::cleanUp(); // nothing is there to be destroyed
    EXPECT_EQ((std::vector<int>{0, 0}), log.phasesOf<Failing>());
    Failing::fail = false;
    EXPECT_NE(nullptr, Singleton<Failing>::instance());
    Singleton<Failing>::cleanUp();
    EXPECT_EQ((std::vector<int>{0, 0, 0, 1, 2}), log.phasesOf<Failing>());
}

TEST_F(SingletonMemory, FailedRegistrationDestroysWhatWasBuilt)
{
    // The list of clean-ups asks for memory only when it has to grow.
    int failures = 0;
    for (int round = 0; round < 1000 && failures == 0; ++round) {
        support::FailingAllocation const failing(1); // 0 is the instance
        try {
            Singleton<Plain>::instance();
            Singleton<Plain>::cleanUp();
        } catch (std::bad_alloc const &) {
            ++failures;
        }
    }
    ASSERT_EQ(1, failures);
    EXPECT_EQ(41, Singleton<Plain>::instance()->value); // and doesn't wait for ever
    Singleton<Plain>::cleanUp();
}

TEST_F(SingletonMemory, NothingLeaksWhicheverRequestFails)
{
    long const failures = support::failEachAllocation([] {
        Singleton<Plain>::instance();
        Singleton<Plain>::cleanUp();
    });
    EXPECT_GE(failures, 1);
}

TEST_F(SingletonMemory, NoAccuracyIsLostWhicheverRequestFails)
{
    struct CleanUp
    {
        ~CleanUp() { mzRunGlobalCleanupFor(reinterpret_cast<void *>(&GetAccuracy)); }
    };
    {
        CleanUp const before;
    }
    long const failures = support::failEachAllocation([] {
        CleanUp const after;
        SetAccuracy(Accuracy3DClass4);
        EXPECT_EQ(4, GetAccuracy());
    });
    EXPECT_GE(failures, 2); // the storage and the cell
}

TEST(Singleton, GlobalCleanUpOfTheModuleRunsItsOwnOnly)
{
    SingletonLog log;
    Singleton<Plain>::instance();
    mzRunGlobalCleanupFor(reinterpret_cast<void *>(&Singleton<Plain>::cleanUp));
    EXPECT_EQ((std::vector<int>{0, 1, 2}), log.phasesOf<Plain>());
    mzRunGlobalCleanupFor(reinterpret_cast<void *>(&Singleton<Plain>::cleanUp));
    EXPECT_EQ((std::vector<int>{0, 1, 2}), log.phasesOf<Plain>());
}

TEST(Singleton, AccuracyIsCleanedUpByTheLibraryAndBuiltAgain)
{
    void *const insideTheLibrary = reinterpret_cast<void *>(&GetAccuracy);
    mzRunGlobalCleanupFor(insideTheLibrary);
    SingletonLog log;
    SetAccuracy(Accuracy3DFinest);
    EXPECT_EQ(6, GetAccuracy());
    mzRunGlobalCleanupFor(insideTheLibrary);
    SetAccuracy(Accuracy3DClass4);
    EXPECT_EQ(4, GetAccuracy());
    EXPECT_EQ((std::vector<int>{0, 1, 2, 0}), log.phasesOf<PThreadStorage<Accuracy3D>>());
}

struct CountedCell
{
    CountedCell() { ++living; }
    ~CountedCell() { --living; }
    static inline std::atomic<int> living{0};
};

TEST(ThreadStorage, CellIsReleasedWithItsThread)
{
    PThreadStorage<CountedCell> storage;
    EXPECT_EQ(nullptr, storage.cell());
    std::thread([&] {
        EXPECT_EQ(nullptr, storage.cell());
        CountedCell *const cell = storage.setCell(std::make_unique<CountedCell>());
        EXPECT_EQ(cell, storage.cell());
        EXPECT_EQ(1, CountedCell::living);
    }).join();
    EXPECT_EQ(0, CountedCell::living);
}

TEST(ThreadStorage, TheNextStorageDoesNotFindTheCellsOfTheFormer)
{
    {
        PThreadStorage<CountedCell> storage;
        storage.setCell(std::make_unique<CountedCell>());
        EXPECT_EQ(1, CountedCell::living);
    }
    EXPECT_EQ(0, CountedCell::living);
    PThreadStorage<CountedCell> const next;
    EXPECT_EQ(nullptr, next.cell());
}

TEST(ThreadStorage, ANewCellTakesThePlaceOfTheOldOne)
{
    PThreadStorage<CountedCell> storage;
    storage.setCell(std::make_unique<CountedCell>());
    CountedCell *const second = storage.setCell(std::make_unique<CountedCell>());
    EXPECT_EQ(second, storage.cell());
    EXPECT_EQ(1, CountedCell::living);
}

} // namespace
