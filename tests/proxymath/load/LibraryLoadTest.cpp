#include <OrvelCore/runtime/ProcessServices.h>
#include <OrvelCore/script/ScriptLayer.h>

#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

// What the library does when it comes and when it goes, seen from outside.
namespace {

using Names = std::vector<std::string>;

const Names allClasses = {"prxVector3dC", "prxVector2dC", "prxMatrix3x3C", "prxMatrix4x4C",
                          "prxMathFactoryC"};

Names knownClasses()
{
    Names names;
    for (proxyMemberDescListS const *list : proxyFactoryC::instance().classes()) {
        names.push_back(list->name);
    }
    return names;
}

/// What happened to the accuracy singleton, and how many registration objects were there then.
struct SingletonEvent
{
    int phase;
    int registrationObjects;
};
std::vector<SingletonEvent> singletonEvents;

void noteSingleton(char const *, void (*)(), int, int phase)
{
    singletonEvents.push_back({phase, mzComServerStateEventC::waiting().size()});
}

/// The library, from dlopen to dlclose.
class Library
{
public:
    Library()
        : m_handle(dlopen(ORVELMATH_LIBRARY, RTLD_NOW | RTLD_LOCAL))
    {
        EXPECT_NE(m_handle, nullptr) << dlerror();
    }
    ~Library() { dlclose(m_handle); }

    /// Calls GetAccuracy, which builds the singleton.
    int accuracy() const
    {
        return reinterpret_cast<int (*)()>(dlsym(m_handle, "_Z11GetAccuracyv"))();
    }
    /// The id of vectorC3d<double>, which the call registers.
    int vectorTypeId() const
    {
        auto *const record = reinterpret_cast<mzComValueMarshalS *(*)()>(
            dlsym(m_handle, "_Z16proxyValueRecordI9vectorC3dIdEEP18mzComValueMarshalSv"));
        auto *const registered = reinterpret_cast<int (*)(mzComValueMarshalS *)>(
            dlsym(m_handle, "_Z22proxyRegisterValueTypeP18mzComValueMarshalS"));
        return registered(record());
    }
    static bool isLoaded()
    {
        void *handle = dlopen(ORVELMATH_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
        if (handle != nullptr) {
            dlclose(handle);
        }
        return handle != nullptr;
    }

private:
    void *m_handle;
};

class LibraryLoad : public testing::Test
{
protected:
    void TearDown() override
    {
        mzComServerStateEventC::stopServer();
        mzSetSingletonObserver(nullptr);
        EXPECT_FALSE(Library::isLoaded());
        EXPECT_EQ(proxyObjectC::liveObjectCount(), 0);
    }
};

} // namespace

TEST_F(LibraryLoad, RegistersNothingBeforeTheServerStarts)
{
    const Library library;
    EXPECT_EQ(mzComServerStateEventC::waiting().size(), 5);
    EXPECT_EQ(knownClasses(), Names());
    EXPECT_EQ(mzComVariantC::registeredValueTypeCount(), 0);
}

TEST_F(LibraryLoad, RegistersItsClassesInOrderWhenTheServerStarts)
{
    int const types = mzComVariantC::registeredValueTypeCount();
    const Library library;
    mzComServerStateEventC::startServer();
    EXPECT_EQ(knownClasses(), allClasses);
    EXPECT_EQ(mzComVariantC::registeredValueTypeCount(), types + 4);
    mzComPtrT<proxyObjectC> const vector =
        proxyFactoryC::instance().create(mzIIDS("linquet.vector3d"));
    ASSERT_TRUE(vector);
    EXPECT_EQ(mzComVariantC::registeredValueTypeCount(), types + 4);
}

TEST_F(LibraryLoad, TakesItsClassesAlongWhenItGoes)
{
    {
        const Library library;
        mzComServerStateEventC::startServer();
    }
    EXPECT_EQ(mzComServerStateEventC::waiting().size(), 0);
    EXPECT_EQ(knownClasses(), Names());
    EXPECT_FALSE(proxyFactoryC::instance().create(mzIIDS("linquet.vector3d")));
}

TEST_F(LibraryLoad, CleansUpBeforeTheRegistrationObjectsGo)
{
    mzSetSingletonObserver(noteSingleton);
    singletonEvents.clear();
    {
        const Library library;
        EXPECT_TRUE(singletonEvents.empty());
        EXPECT_EQ(library.accuracy(), 2);
        EXPECT_EQ(library.accuracy(), 2);
        ASSERT_EQ(singletonEvents.size(), 1u);
        EXPECT_EQ(singletonEvents[0].phase, 0);
    }
    ASSERT_EQ(singletonEvents.size(), 3u);
    EXPECT_EQ(singletonEvents[1].phase, 1);
    EXPECT_EQ(singletonEvents[1].registrationObjects, 5);
    EXPECT_EQ(singletonEvents[2].phase, 2);
    EXPECT_EQ(singletonEvents[2].registrationObjects, 5);
    EXPECT_EQ(mzComServerStateEventC::waiting().size(), 0);
}

TEST_F(LibraryLoad, HasNothingToCleanUpIfTheSingletonWasNotUsed)
{
    mzSetSingletonObserver(noteSingleton);
    singletonEvents.clear();
    {
        const Library library;
    }
    EXPECT_TRUE(singletonEvents.empty());
}

TEST_F(LibraryLoad, IsToldOfAStartThatHasBeen)
{
    mzComServerStateEventC::startServer();
    for (int round = 0; round < 2; ++round) {
        const Library library;
        EXPECT_EQ(knownClasses(), allClasses);
        mzComPtrT<proxyObjectC> const factory =
            proxyFactoryC::instance().create(mzIIDS("linquet.mathfactory"));
        ASSERT_TRUE(factory);
        mzComVariantC result;
        mzComPtrT<mzIException> exception;
        EXPECT_TRUE(factory->invokeByName("Create", proxyMethod, {"matrix4x4"}, result, exception));
        EXPECT_STREQ(result.typeName().utf8(), "prxMatrix4x4C");
    }
    EXPECT_EQ(knownClasses(), Names());
}

TEST_F(LibraryLoad, MemoryStaysLevelOverAThousandLoads)
{
    if (support::allocationCount() < 0) {
        GTEST_SKIP() << "allocations cannot be counted here";
    }
    mzComServerStateEventC::startServer();
    auto const loadAndUse = [] {
        Library const library;
        EXPECT_EQ(2, library.accuracy());
        EXPECT_TRUE(proxyFactoryC::instance().create(mzIIDS("linquet.matrix4x4")));
    };
    for (int round = 0; round < 10; ++round) {
        loadAndUse();
    }
    long const before = support::livingAllocations();
    for (int round = 0; round < 1000; ++round) {
        loadAndUse();
    }
    EXPECT_EQ(before, support::livingAllocations());
}

TEST_F(LibraryLoad, MemoryStaysLevelWithoutAServerToo)
{
    if (support::allocationCount() < 0) {
        GTEST_SKIP() << "allocations cannot be counted here";
    }
    auto const loadAndUse = [] {
        Library const library;
        EXPECT_GT(library.vectorTypeId(), 0);
    };
    for (int round = 0; round < 10; ++round) {
        loadAndUse();
    }
    long const before = support::livingAllocations();
    for (int round = 0; round < 1000; ++round) {
        loadAndUse();
    }
    EXPECT_EQ(before, support::livingAllocations());
}

TEST_F(LibraryLoad, AChildProcessHasALibraryOfItsOwn)
{
    mzComServerStateEventC::startServer();
    Library const library;
    EXPECT_EQ(2, library.accuracy());
    pid_t const child = fork();
    ASSERT_NE(-1, child);
    if (child == 0) {
        // Exit codes say what failed; the child runs no test of its own.
        if (library.accuracy() != 2) {
            _exit(1);
        }
        if (!proxyFactoryC::instance().create(mzIIDS("linquet.vector3d"))) {
            _exit(2);
        }
        mzComServerStateEventC::stopServer();
        mzComServerStateEventC::startServer();
        if (knownClasses() != allClasses) {
            _exit(3);
        }
        _exit(0);
    }
    int status = -1;
    EXPECT_EQ(child, waitpid(child, &status, 0));
    EXPECT_EQ(0, status);
    EXPECT_EQ(2, library.accuracy());
    EXPECT_TRUE(proxyFactoryC::instance().create(mzIIDS("linquet.vector3d")));
}
