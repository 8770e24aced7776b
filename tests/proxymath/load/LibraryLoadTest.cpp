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

Names const allClasses = {"prxVector3dC", "prxVector2dC", "prxMatrix3x3C", "prxMatrix4x4C",
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
        EXPECT_NE(nullptr, m_handle) << dlerror();
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
        EXPECT_EQ(0, proxyObjectC::liveObjectCount());
    }
};

} // namespace

TEST_F(LibraryLoad, RegistersNothingBeforeTheServerStarts)
{
    Library const library;
    EXPECT_EQ(5, mzComServerStateEventC::waiting().size());
    EXPECT_EQ(Names(), knownClasses());
    EXPECT_EQ(0, mzComVariantC::registeredValueTypeCount());
}

TEST_F(LibraryLoad, RegistersItsClassesInOrderWhenTheServerStarts)
{
    int const types = mzComVariantC::registeredValueTypeCount();
    Library const library;
    mzComServerStateEventC::startServer();
    EXPECT_EQ(allClasses, knownClasses());
    EXPECT_EQ(types + 4, mzComVariantC::registeredValueTypeCount());
    mzComPtrT<proxyObjectC> const vector =
        proxyFactoryC::instance().create(mzIIDS("linquet.vector3d"));
    ASSERT_TRUE(vector);
    EXPECT_EQ(types + 4, mzComVariantC::registeredValueTypeCount());
}

TEST_F(LibraryLoad, TakesItsClassesAlongWhenItGoes)
{
    {
        Library const library;
        mzComServerStateEventC::startServer();
    }
    EXPECT_EQ(0, mzComServerStateEventC::waiting().size());
    EXPECT_EQ(Names(), knownClasses());
    EXPECT_FALSE(proxyFactoryC::instance().create(mzIIDS("linquet.vector3d")));
}

TEST_F(LibraryLoad, CleansUpBeforeTheRegistrationObjectsGo)
{
    mzSetSingletonObserver(noteSingleton);
    singletonEvents.clear();
    {
        Library const library;
        EXPECT_TRUE(singletonEvents.empty());
        EXPECT_EQ(2, library.accuracy());
        EXPECT_EQ(2, library.accuracy());
        ASSERT_EQ(1u, singletonEvents.size());
        EXPECT_EQ(0, singletonEvents[0].phase);
    }
    ASSERT_EQ(3u, singletonEvents.size());
    EXPECT_EQ(1, singletonEvents[1].phase);
    EXPECT_EQ(5, singletonEvents[1].registrationObjects);
    EXPECT_EQ(2, singletonEvents[2].phase);
    EXPECT_EQ(5, singletonEvents[2].registrationObjects);
    EXPECT_EQ(0, mzComServerStateEventC::waiting().size());
}

TEST_F(LibraryLoad, HasNothingToCleanUpIfTheSingletonWasNotUsed)
{
    mzSetSingletonObserver(noteSingleton);
    singletonEvents.clear();
    {
        Library const library;
    }
    EXPECT_TRUE(singletonEvents.empty());
}

TEST_F(LibraryLoad, IsToldOfAStartThatHasBeen)
{
    mzComServerStateEventC::startServer();
    for (int round = 0; round < 2; ++round) {
        Library const library;
        EXPECT_EQ(allClasses, knownClasses());
        mzComPtrT<proxyObjectC> const factory =
            proxyFactoryC::instance().create(mzIIDS("linquet.mathfactory"));
        ASSERT_TRUE(factory);
        mzComVariantC result;
        mzComPtrT<mzIException> exception;
        EXPECT_TRUE(factory->invokeByName("Create", proxyMethod, {"matrix4x4"}, result, exception));
        EXPECT_STREQ("prxMatrix4x4C", result.typeName().utf8());
    }
    EXPECT_EQ(Names(), knownClasses());
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
