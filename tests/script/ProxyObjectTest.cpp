#include "TestProxies.h"

#include "support/ScriptCall.h"

#include <gtest/gtest.h>

#include <new>
#include <thread>

using scriptCall::Answer;
using scriptCall::call;
using scriptCall::invoke;
using scriptCall::Object;

namespace {

Object probe()
{
    return Object(new Probe);
}

QByteArray textOf(Answer const &answer)
{
    return answer.value.toString().bytes();
}

} // namespace

TEST(ProxyObject, LivesAsLongAsItHasReferences)
{
    int const before = proxyObjectC::liveObjectCount();
    Probe *object = new Probe;
    EXPECT_EQ(before + 1, proxyObjectC::liveObjectCount());
    EXPECT_EQ(1, object->addRef());
    EXPECT_EQ(2, object->addRef());
    EXPECT_EQ(1, object->release());
    EXPECT_EQ(0, object->release());
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST(ProxyObject, PointersCount)
{
    int const before = proxyObjectC::liveObjectCount();
    {
        mzComPtrT<Probe> first(new Probe);
        mzComPtrT<Probe> const second = first;
        EXPECT_EQ(3, second->addRef());
        EXPECT_EQ(2, second->release());
        EXPECT_TRUE(first == second);
        mzComPtrT<Probe> moved = std::move(first);
        EXPECT_EQ(3, moved->addRef());
        moved->release();
        moved = mzComPtrT<Probe>();
        EXPECT_FALSE(moved);
        EXPECT_EQ(2, second->addRef());
        second->release();
    }
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST(ProxyObject, AnswersToItsClassesAndIdentifiers)
{
    Object const object = probe();
    for (char const *name : {"mzIUnknown", "Probe", "test.probe", "BaseProbe", "proxyObjectC"}) {
        mzComPtrC target;
        EXPECT_TRUE(object->queryInterface(mzIIDS(name), target)) << name;
        EXPECT_TRUE(target == object);
    }
    for (char const *name : {"mzIException", "PairProxy", "probe", ""}) {
        mzComPtrC target = object;
        EXPECT_FALSE(object->queryInterface(mzIIDS(name), target)) << name;
        EXPECT_FALSE(target);
    }
}

TEST(ProxyObject, CastsToItsClassesOnly)
{
    mzComPtrT<Probe> const object(new Probe);
    EXPECT_EQ(object.get(), object->proxyCast("Probe"));
    EXPECT_EQ(object.get(), object->proxyCast("BaseProbe"));
    EXPECT_EQ(object.get(), object->proxyCast("proxyObjectC"));
    EXPECT_EQ(nullptr, object->proxyCast("prxQVariantBaseC"));
}

TEST(ProxyObject, RemoteConnectionsHoldReferences)
{
    int const before = proxyObjectC::liveObjectCount();
    mzComPtrT<Probe> object(new Probe);
    EXPECT_EQ(-1, object->addRemoteConnection(mzIIDS("no such interface")));
    EXPECT_EQ(1, object->addRemoteConnection(mzIUnknown::IID()));
    EXPECT_EQ(2, object->addRemoteConnection(mzIIDS("Probe")));
    EXPECT_EQ(3, object->addRemoteConnection(mzIIDS("Probe")));
    Probe *raw = object.get();
    object = mzComPtrT<Probe>();
    EXPECT_EQ(
        -1, raw->releaseRemoteConnection(mzIIDS("no such interface"), mzExternalConnectionClosed));
    EXPECT_EQ(2, raw->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionClosed));
    EXPECT_EQ(0, raw->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionLost));
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST(ProxyObject, GivesBackNoConnectionThatIsNotThere)
{
    mzComPtrT<Probe> const object(new Probe);
    EXPECT_EQ(-1, object->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionClosed));
    EXPECT_EQ(-1, object->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionLost));
}

TEST(Dispatcher, PrefersTheClassToItsBase)
{
    EXPECT_EQ("probe", textOf(call(probe(), "inBoth")));
    EXPECT_EQ("base", textOf(call(probe(), "onlyInBase")));
}

TEST(Dispatcher, StopsAtTheNullName)
{
    EXPECT_EQ(mzExceptionNoMember, call(probe(), "behindTheEnd").code);
}

TEST(Dispatcher, FindsTheDefaultMemberUnderTheEmptyName)
{
    EXPECT_EQ("default", textOf(call(probe(), "", {1.0})));
}

TEST(Dispatcher, ChoosesByKind)
{
    Object const object = probe();
    EXPECT_EQ("method", textOf(invoke(object, "both", proxyMethod, {})));
    EXPECT_EQ("read", textOf(invoke(object, "both", proxyPropertyRead, {})));
    EXPECT_EQ("method", textOf(invoke(object, "both", proxyMethod | proxyPropertyRead, {})));
    EXPECT_EQ(mzExceptionNoMember, invoke(object, "both", proxyPropertyWrite, {}).code);
    EXPECT_EQ(mzExceptionNoMember, invoke(object, "both", 0, {}).code);
}

TEST(Dispatcher, ReadsAndWritesProperties)
{
    Object const object = probe();
    EXPECT_TRUE(scriptCall::write(object, "stored", 4.0).ok);
    EXPECT_EQ(4.0, scriptCall::read(object, "stored").number());
    Answer const answer = call(object, "stored", {5.0});
    EXPECT_TRUE(answer.object() == object);
    EXPECT_EQ(5.0, scriptCall::read(object, "stored").number());
}

TEST(Dispatcher, ChoosesByParameterCount)
{
    EXPECT_EQ("number", textOf(call(probe(), "overloaded", {1.0, 2.0})));
    EXPECT_EQ(mzExceptionNoMember, call(probe(), "overloaded", {}).code);
    EXPECT_EQ(mzExceptionNoMember, call(probe(), "overloaded", {1.0, 2.0, 3.0}).code);
}

TEST(Dispatcher, ChoosesTheFirstWhoseParametersConvert)
{
    Pair const pair;
    mzComVariantC const user = mzComVariantC::fromUserData(pairTypeId(), &pair);
    EXPECT_EQ("number", textOf(call(probe(), "overloaded", {1.0})));
    EXPECT_EQ("text", textOf(call(probe(), "overloaded", {"1"})));
    EXPECT_EQ("pair", textOf(call(probe(), "overloaded", {user})));
    EXPECT_EQ("anything", textOf(call(probe(), "tie", {1.0})));
}

TEST(Dispatcher, GoesOnInTheBasesWhenNoParameterConverts)
{
    EXPECT_EQ("object", textOf(call(probe(), "overloaded", {mzComVariantC(probe())})));
}

TEST(Dispatcher, AnObjectServesAsTheValueItStandsFor)
{
    mzComPtrT<PairProxy> const proxy(new PairProxy);
    proxy->setComVariant(mzComVariantC::fromUserData(pairTypeId(), nullptr));
    EXPECT_EQ("pair", textOf(call(probe(), "overloaded", {mzComVariantC(Object(proxy.get()))})));
}

TEST(Dispatcher, LenientCallsConvertBetweenTextAndNumber)
{
    Object const object = probe();
    EXPECT_EQ(mzExceptionTypeCast, call(object, "stored", {"2.5"}).code);
    EXPECT_TRUE(invoke(object, "stored", proxyMethod | proxyInvokeLenient, {"2.5"}).ok);
    EXPECT_EQ(2.5, scriptCall::read(object, "stored").number());
    EXPECT_EQ(mzExceptionTypeCast,
              invoke(object, "stored", proxyMethod | proxyInvokeLenient, {"x"}).code);
}

TEST(Dispatcher, ReportsAMissingMember)
{
    Answer const answer = call(probe(), "missing", {1.0, "two"});
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ(mzExceptionNoMember, answer.code);
    EXPECT_EQ("Probe.missing(number, string): there is no such member", answer.message);
}

TEST(Dispatcher, ReportsArgumentsThatDoNotConvert)
{
    Answer const answer = call(probe(), "stored", {mzComVariantC(probe())});
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ(mzExceptionTypeCast, answer.code);
    EXPECT_EQ("Probe.stored(Probe): the arguments cannot be converted to the member's parameters",
              answer.message);
    EXPECT_EQ("Probe(nothing): the arguments cannot be converted to the member's parameters",
              call(probe(), "", {mzComVariantC()}).message);
}

TEST(Dispatcher, ReportsATypeCastExceptionOfTheHandler)
{
    Answer const answer = call(probe(), "refuses", {"word"});
    EXPECT_EQ(mzExceptionTypeCast, answer.code);
    EXPECT_TRUE(answer.message.startsWith("Probe.refuses(string): "));
    EXPECT_THROW(proxyObjectC::throwAutoTypeCastException(), proxyAutoTypeCastExceptionC);
}

TEST(Dispatcher, LetsOtherExceptionsPass)
{
    EXPECT_THROW(call(probe(), "throwsOther"), std::bad_alloc);
}

TEST(Dispatcher, EmptiesTheResultWhenItFails)
{
    mzComPtrT<Probe> const object(new Probe);
    mzComVariantC result("preset");
    mzComPtrT<mzIException> exception;
    EXPECT_FALSE(object->invokeByName("missing", proxyMethod, {}, result, exception));
    EXPECT_TRUE(result.isEmpty());
    ASSERT_TRUE(exception);
    mzComPtrT<mzIException> same;
    EXPECT_TRUE(exception->queryInterface(mzIException::IID(), same));
    EXPECT_EQ(mzExceptionNoMember, same->code());
    EXPECT_FALSE(exception->queryInterface(proxyObjectC::IID(), same));
}

TEST(Dispatcher, ResultsOfAUserTypeBecomeObjects)
{
    proxyFactoryC::instance().registerClass(PairProxy::getStaticProxyTypeInfo());
    mzComVariantC::registerUserTypeProxy(pairTypeId(), mzIIDS("test.pair"));
    Answer const answer = call(probe(), "makePair");
    ASSERT_TRUE(answer.object());
    EXPECT_STREQ("PairProxy", answer.value.typeName().utf8());
}

TEST(StickyThread, IsTheOneThatCallsFirst)
{
    mzComPtrT<Probe> const object(new Probe);
    EXPECT_EQ(0u, object->getStickyThreadId(false));
    std::thread([&object] {
        EXPECT_TRUE(call(Object(object.get()), "inBoth").ok);
        EXPECT_NE(0u, object->getStickyThreadId(false));
    }).join();
    Answer const answer = call(Object(object.get()), "inBoth");
    EXPECT_EQ(mzExceptionWrongThread, answer.code);
    EXPECT_EQ("Probe.inBoth(): the object belongs to another thread", answer.message);
}

TEST(StickyThread, ThreadSafeObjectsHaveNone)
{
    mzComPtrT<Probe> const object(new Probe);
    object->setThreadSafe();
    EXPECT_TRUE(call(Object(object.get()), "inBoth").ok);
    EXPECT_EQ(0u, object->getStickyThreadId(true));
    std::thread([&object] { EXPECT_TRUE(call(Object(object.get()), "inBoth").ok); }).join();
}
