#include "TestProxies.h"

#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

std::vector<std::string> heard;

/// Notes what it is told.
class Listener : public mzComServerStateEventC
{
public:
    Listener(char const *name, int events)
        : mzComServerStateEventC(events)
        , m_name(name)
    {
        init();
    }
    int serverStarted() override
    {
        heard.push_back(m_name + " start");
        return 0;
    }
    int serverDone() override
    {
        heard.push_back(m_name + " done");
        return 0;
    }

private:
    std::string m_name;
};

proxyMemberDescListS temporaryClass(char const *identifier)
{
    proxyMemberDescListS list = *PairProxy::getStaticProxyTypeInfo();
    list.objectIdentifier = identifier;
    return list;
}

mzComValueMarshalS unregisteredRecord()
{
    mzComValueMarshalS record = *pairRecord();
    record.id = 0;
    return record;
}

/// Registers a class and a value type when the server starts, as a library does.
class Library : public mzComServerStateEventC
{
public:
    Library()
        : mzComServerStateEventC(mzServerStarted)
    {
        init();
    }
    int serverStarted() override
    {
        proxyFactoryC::instance().registerClass(&m_class);
        mzComVariantC::registerValueType(&m_record);
        mzComVariantC::registerUserTypeProxy(m_record.id, mzIIDS("test.temporary"));
        return 0;
    }
    int typeId() const { return m_record.id; }

private:
    proxyMemberDescListS m_class = temporaryClass("test.temporary");
    mzComValueMarshalS m_record = unregisteredRecord();
};

/// Registers value types while the server runs and takes them away again.
class TypeOwner : public mzComServerStateEventC
{
public:
    TypeOwner(mzComValueMarshalS *records, std::size_t count)
        : mzComServerStateEventC(mzServerStarted)
        , m_records(records)
        , m_count(count)
    {
        init();
    }
    int serverStarted() override
    {
        for (std::size_t i = 0; i < m_count; ++i) {
            mzComVariantC::registerValueType(&m_records[i]);
            mzComVariantC::registerUserTypeProxy(m_records[i].id, mzIIDS("test.pair"));
        }
        return 0;
    }

private:
    mzComValueMarshalS *m_records;
    std::size_t m_count;
};

/// Stops the server at the end of a test.
struct ServerGuard
{
    ~ServerGuard() { mzComServerStateEventC::stopServer(); }
};

} // namespace

TEST(Factory, CreatesByObjectIdentifier)
{
    proxyFactoryC &factory = proxyFactoryC::instance();
    factory.registerClass(Probe::getStaticProxyTypeInfo());
    mzComPtrT<proxyObjectC> const object = factory.create(mzIIDS("test.probe"));
    ASSERT_TRUE(object);
    EXPECT_STREQ("Probe", object->getProxyTypeInfo()->name);
    EXPECT_EQ(2, object->addRef());
    object->release();
    EXPECT_EQ(Probe::getStaticProxyTypeInfo(), factory.findClass(mzIIDS("test.probe")));
}

TEST(Factory, GivesNullForWhatItDoesNotKnow)
{
    proxyFactoryC &factory = proxyFactoryC::instance();
    EXPECT_FALSE(factory.create(mzIIDS("test.nothing")));
    EXPECT_FALSE(factory.create(mzIIDS("")));
    EXPECT_EQ(nullptr, factory.findClass(mzIIDS("Test.Probe")));
}

TEST(Factory, GivesNullWithoutACreator)
{
    static proxyMemberDescListS list = temporaryClass("test.without creator");
    list.creator = nullptr;
    proxyFactoryC::instance().registerClass(&list);
    EXPECT_FALSE(proxyFactoryC::instance().create(mzIIDS("test.without creator")));
}

TEST(Factory, ALaterClassTakesThePlaceOfTheOldOne)
{
    static proxyMemberDescListS first = temporaryClass("test.twice");
    static proxyMemberDescListS second = temporaryClass("test.twice");
    proxyFactoryC &factory = proxyFactoryC::instance();
    factory.registerClass(&first);
    int const count = factory.classes().size();
    factory.registerClass(&first);
    factory.registerClass(&second);
    EXPECT_EQ(count, factory.classes().size());
    EXPECT_EQ(&second, factory.findClass(mzIIDS("test.twice")));
    EXPECT_TRUE(factory.classes().contains(&second));
}

TEST(ServerState, TellsInTheOrderOfConstructionAndBack)
{
    ServerGuard const guard;
    heard.clear();
    Listener const a("a", mzServerStarted | mzServerDone);
    Listener const b("b", mzServerStarted | mzServerDone);
    EXPECT_TRUE(heard.empty());
    mzComServerStateEventC::startServer();
    mzComServerStateEventC::startServer();
    mzComServerStateEventC::stopServer();
    mzComServerStateEventC::stopServer();
    EXPECT_EQ((std::vector<std::string>{"a start", "b start", "b done", "a done"}), heard);
}

TEST(ServerState, TellsOnlyWhatWasAskedFor)
{
    ServerGuard const guard;
    heard.clear();
    Listener const a("a", mzServerStarted);
    Listener const b("b", mzServerDone);
    Listener const c("c", 1 | 2 | 4 | 8 | 32);
    mzComServerStateEventC::startServer();
    mzComServerStateEventC::stopServer();
    EXPECT_EQ((std::vector<std::string>{"a start", "b done"}), heard);
}

TEST(ServerState, TellsALateOneAtOnce)
{
    ServerGuard const guard;
    heard.clear();
    mzComServerStateEventC::startServer();
    Listener const late("late", 80);
    EXPECT_EQ((std::vector<std::string>{"late start"}), heard);
}

TEST(ServerState, KnowsWhoWaits)
{
    int const before = mzComServerStateEventC::waiting().size();
    {
        Listener const a("a", 80);
        ASSERT_EQ(before + 1, mzComServerStateEventC::waiting().size());
        EXPECT_EQ(&a, mzComServerStateEventC::waiting().last());
    }
    EXPECT_EQ(before, mzComServerStateEventC::waiting().size());
}

TEST(ServerState, WhatALibraryRegisteredGoesWithIt)
{
    ServerGuard const guard;
    int id = 0;
    {
        Library const library;
        EXPECT_EQ(nullptr, proxyFactoryC::instance().findClass(mzIIDS("test.temporary")));
        mzComServerStateEventC::startServer();
        EXPECT_NE(nullptr, proxyFactoryC::instance().findClass(mzIIDS("test.temporary")));
        id = library.typeId();
        EXPECT_TRUE(mzComVariantC::fromUserData(id, nullptr).toScriptObject().isObject());
    }
    EXPECT_EQ(nullptr, proxyFactoryC::instance().findClass(mzIIDS("test.temporary")));
    EXPECT_TRUE(mzComVariantC::fromUserData(id, nullptr).isEmpty());
}

TEST(ValueTypes, AnIdIsNeverGivenTwice)
{
    ServerGuard const guard;
    mzComServerStateEventC::startServer();
    std::set<int> ids;
    for (int round = 0; round < 1000; ++round) {
        Library const library;
        EXPECT_GT(library.typeId(), 0);
        ids.insert(library.typeId());
        EXPECT_EQ(library.typeId(),
                  mzComVariantC::fromUserData(library.typeId(), nullptr).userType());
    }
    EXPECT_EQ(1000u, ids.size());
    for (int const id : ids) {
        EXPECT_TRUE(mzComVariantC::fromUserData(id, nullptr).isEmpty());
    }
}

TEST(ValueTypes, IdsThatWereNeverGivenNameNothing)
{
    for (int const id : {0, -1, 32767, 32768, 32768 * 65535 + 1, 2147483647, -2147483647 - 1}) {
        EXPECT_TRUE(mzComVariantC::fromUserData(id, nullptr).isEmpty()) << id;
    }
    mzComVariantC::registerUserTypeProxy(32766, mzIIDS("test.probe")); // does nothing
    EXPECT_TRUE(mzComVariantC::fromUserData(32766, nullptr).isEmpty());
}

TEST(ValueTypes, ManyTypesMayBeThereAtATime)
{
    ServerGuard const guard;
    mzComServerStateEventC::startServer();
    std::vector<mzComValueMarshalS> records(300, unregisteredRecord());
    Pair const pair = {3.0, 4.0};
    {
        TypeOwner const owner(records.data(), records.size());
        for (mzComValueMarshalS const &record : records) {
            mzComVariantC const variant = mzComVariantC::fromUserData(record.id, &pair);
            Pair read;
            EXPECT_EQ(mzUserDataOk, variant.getUserData(record.id, &read));
            EXPECT_EQ(4.0, read.second);
        }
    }
    for (mzComValueMarshalS const &record : records) {
        EXPECT_TRUE(mzComVariantC::fromUserData(record.id, &pair).isEmpty());
    }
}

using ValueTypesMemory = support::AllocationCounting;

TEST_F(ValueTypesMemory, StaysLevelHoweverOftenLibrariesComeAndGo)
{
    ServerGuard const guard;
    mzComServerStateEventC::startServer();
    {
        Library const first;
    }
    long const before = support::livingAllocations();
    for (int round = 0; round < 10000; ++round) {
        Library const library;
    }
    EXPECT_EQ(before, support::livingAllocations());
}

TEST(ValueTypesThread, ATypeThatComesOrGoesIsThereAsAWholeOrNotAtAll)
{
    ServerGuard const guard;
    mzComServerStateEventC::startServer();
    static std::vector<mzComValueMarshalS> records(2000, unregisteredRecord());
    std::atomic<int> latest{pairTypeId()};
    std::atomic<bool> done{false};
    std::vector<std::thread> readers;
    for (int i = 0; i < 7; ++i) {
        readers.emplace_back([&latest, &done] {
            Pair const pair = {1.0, 2.0};
            while (!done) {
                int const id = latest;
                mzComVariantC const variant = mzComVariantC::fromUserData(id, &pair);
                Pair read;
                if (!variant.isEmpty()) {
                    EXPECT_EQ(mzUserDataOk, variant.getUserData(id, &read));
                    EXPECT_EQ(2.0, read.second);
                }
                EXPECT_EQ(pairTypeId(),
                          mzComVariantC::fromUserData(pairTypeId(), &pair).userType());
            }
        });
    }
    for (mzComValueMarshalS &record : records) {
        TypeOwner const owner(&record, 1);
        latest = record.id;
    }
    done = true;
    for (std::thread &reader : readers) {
        reader.join();
    }
}
