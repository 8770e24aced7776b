#include "TestProxies.h"

#include <gtest/gtest.h>

#include <string>
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
    static mzComValueMarshalS freshRecord()
    {
        mzComValueMarshalS record = *pairRecord();
        record.id = 0;
        return record;
    }

    proxyMemberDescListS m_class = temporaryClass("test.temporary");
    mzComValueMarshalS m_record = freshRecord();
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
    EXPECT_STREQ(object->getProxyTypeInfo()->name, "Probe");
    EXPECT_EQ(object->addRef(), 2);
    object->release();
    EXPECT_EQ(factory.findClass(mzIIDS("test.probe")), Probe::getStaticProxyTypeInfo());
}

TEST(Factory, GivesNullForWhatItDoesNotKnow)
{
    proxyFactoryC &factory = proxyFactoryC::instance();
    EXPECT_FALSE(factory.create(mzIIDS("test.nothing")));
    EXPECT_FALSE(factory.create(mzIIDS("")));
    EXPECT_EQ(factory.findClass(mzIIDS("Test.Probe")), nullptr);
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
    EXPECT_EQ(factory.classes().size(), count);
    EXPECT_EQ(factory.findClass(mzIIDS("test.twice")), &second);
    EXPECT_TRUE(factory.classes().contains(&second));
}

TEST(ServerState, TellsInTheOrderOfConstructionAndBack)
{
    const ServerGuard guard;
    heard.clear();
    const Listener a("a", mzServerStarted | mzServerDone);
    const Listener b("b", mzServerStarted | mzServerDone);
    EXPECT_TRUE(heard.empty());
    mzComServerStateEventC::startServer();
    mzComServerStateEventC::startServer();
    mzComServerStateEventC::stopServer();
    mzComServerStateEventC::stopServer();
    EXPECT_EQ(heard, (std::vector<std::string>{"a start", "b start", "b done", "a done"}));
}

TEST(ServerState, TellsOnlyWhatWasAskedFor)
{
    const ServerGuard guard;
    heard.clear();
    const Listener a("a", mzServerStarted);
    const Listener b("b", mzServerDone);
    const Listener c("c", 1 | 2 | 4 | 8 | 32);
    mzComServerStateEventC::startServer();
    mzComServerStateEventC::stopServer();
    EXPECT_EQ(heard, (std::vector<std::string>{"a start", "b done"}));
}

TEST(ServerState, TellsALateOneAtOnce)
{
    const ServerGuard guard;
    heard.clear();
    mzComServerStateEventC::startServer();
    const Listener late("late", 80);
    EXPECT_EQ(heard, (std::vector<std::string>{"late start"}));
}

TEST(ServerState, KnowsWhoWaits)
{
    int const before = mzComServerStateEventC::waiting().size();
    {
        const Listener a("a", 80);
        ASSERT_EQ(mzComServerStateEventC::waiting().size(), before + 1);
        EXPECT_EQ(mzComServerStateEventC::waiting().last(), &a);
    }
    EXPECT_EQ(mzComServerStateEventC::waiting().size(), before);
}

TEST(ServerState, WhatALibraryRegisteredGoesWithIt)
{
    const ServerGuard guard;
    int id = 0;
    {
        const Library library;
        EXPECT_EQ(proxyFactoryC::instance().findClass(mzIIDS("test.temporary")), nullptr);
        mzComServerStateEventC::startServer();
        EXPECT_NE(proxyFactoryC::instance().findClass(mzIIDS("test.temporary")), nullptr);
        id = library.typeId();
        EXPECT_TRUE(mzComVariantC::fromUserData(id, nullptr).toScriptObject().isObject());
    }
    EXPECT_EQ(proxyFactoryC::instance().findClass(mzIIDS("test.temporary")), nullptr);
    EXPECT_TRUE(mzComVariantC::fromUserData(id, nullptr).isEmpty());
}
