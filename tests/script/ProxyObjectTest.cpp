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
    EXPECT_EQ(proxyObjectC::liveObjectCount(), before + 1);
    EXPECT_EQ(object->addRef(), 1);
    EXPECT_EQ(object->addRef(), 2);
    EXPECT_EQ(object->release(), 1);
    EXPECT_EQ(object->release(), 0);
    EXPECT_EQ(proxyObjectC::liveObjectCount(), before);
}

TEST(ProxyObject, PointersCount)
{
    int const before = proxyObjectC::liveObjectCount();
    {
        mzComPtrT<Probe> first(new Probe);
        mzComPtrT<Probe> const second = first;
        EXPECT_EQ(second->addRef(), 3);
        EXPECT_EQ(second->release(), 2);
        EXPECT_TRUE(first == second);
        mzComPtrT<Probe> moved = std::move(first);
        EXPECT_EQ(moved->addRef(), 3);
        moved->release();
        moved = mzComPtrT<Probe>();
        EXPECT_FALSE(moved);
        EXPECT_EQ(second->addRef(), 2);
        second->release();
    }
    EXPECT_EQ(proxyObjectC::liveObjectCount(), before);
}

TEST(ProxyObject, AnswersToItsClassesAndIdentifiers)
{
    const Object object = probe();
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
    EXPECT_EQ(object->proxyCast("Probe"), object.get());
    EXPECT_EQ(object->proxyCast("BaseProbe"), object.get());
    EXPECT_EQ(object->proxyCast("proxyObjectC"), object.get());
    EXPECT_EQ(object->proxyCast("prxQVariantBaseC"), nullptr);
}

TEST(ProxyObject, RemoteConnectionsHoldReferences)
{
    int const before = proxyObjectC::liveObjectCount();
    mzComPtrT<Probe> object(new Probe);
    EXPECT_EQ(object->addRemoteConnection(mzIIDS("no such interface")), -1);
    EXPECT_EQ(object->addRemoteConnection(mzIUnknown::IID()), 1);
    EXPECT_EQ(object->addRemoteConnection(mzIIDS("Probe")), 2);
    EXPECT_EQ(object->addRemoteConnection(mzIIDS("Probe")), 3);
    Probe *raw = object.get();
    object = mzComPtrT<Probe>();
    EXPECT_EQ(raw->releaseRemoteConnection(mzIIDS("no such interface"), mzExternalConnectionClosed),
              -1);
    EXPECT_EQ(raw->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionClosed), 2);
    EXPECT_EQ(raw->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionLost), 0);
    EXPECT_EQ(proxyObjectC::liveObjectCount(), before);
}

TEST(ProxyObject, GivesBackNoConnectionThatIsNotThere)
{
    mzComPtrT<Probe> const object(new Probe);
    EXPECT_EQ(object->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionClosed), -1);
    EXPECT_EQ(object->releaseRemoteConnection(mzIUnknown::IID(), mzExternalConnectionLost), -1);
}

TEST(Dispatcher, PrefersTheClassToItsBase)
{
    EXPECT_EQ(textOf(call(probe(), "inBoth")), "probe");
    EXPECT_EQ(textOf(call(probe(), "onlyInBase")), "base");
}

TEST(Dispatcher, StopsAtTheNullName)
{
    EXPECT_EQ(call(probe(), "behindTheEnd").code, mzExceptionNoMember);
}

TEST(Dispatcher, FindsTheDefaultMemberUnderTheEmptyName)
{
    EXPECT_EQ(textOf(call(probe(), "", {1.0})), "default");
}

TEST(Dispatcher, ChoosesByKind)
{
    const Object object = probe();
    EXPECT_EQ(textOf(invoke(object, "both", proxyMethod, {})), "method");
    EXPECT_EQ(textOf(invoke(object, "both", proxyPropertyRead, {})), "read");
    EXPECT_EQ(textOf(invoke(object, "both", proxyMethod | proxyPropertyRead, {})), "method");
    EXPECT_EQ(invoke(object, "both", proxyPropertyWrite, {}).code, mzExceptionNoMember);
    EXPECT_EQ(invoke(object, "both", 0, {}).code, mzExceptionNoMember);
}

TEST(Dispatcher, ReadsAndWritesProperties)
{
    const Object object = probe();
    EXPECT_TRUE(scriptCall::write(object, "stored", 4.0).ok);
    EXPECT_EQ(scriptCall::read(object, "stored").number(), 4.0);
    const Answer answer = call(object, "stored", {5.0});
    EXPECT_TRUE(answer.object() == object);
    EXPECT_EQ(scriptCall::read(object, "stored").number(), 5.0);
}

TEST(Dispatcher, ChoosesByParameterCount)
{
    EXPECT_EQ(textOf(call(probe(), "overloaded", {1.0, 2.0})), "number");
    EXPECT_EQ(call(probe(), "overloaded", {}).code, mzExceptionNoMember);
    EXPECT_EQ(call(probe(), "overloaded", {1.0, 2.0, 3.0}).code, mzExceptionNoMember);
}

TEST(Dispatcher, ChoosesTheFirstWhoseParametersConvert)
{
    const Pair pair;
    const mzComVariantC user = mzComVariantC::fromUserData(pairTypeId(), &pair);
    EXPECT_EQ(textOf(call(probe(), "overloaded", {1.0})), "number");
    EXPECT_EQ(textOf(call(probe(), "overloaded", {"1"})), "text");
    EXPECT_EQ(textOf(call(probe(), "overloaded", {user})), "pair");
    EXPECT_EQ(textOf(call(probe(), "tie", {1.0})), "anything");
}

TEST(Dispatcher, GoesOnInTheBasesWhenNoParameterConverts)
{
    EXPECT_EQ(textOf(call(probe(), "overloaded", {mzComVariantC(probe())})), "object");
}

TEST(Dispatcher, AnObjectServesAsTheValueItStandsFor)
{
    mzComPtrT<PairProxy> const proxy(new PairProxy);
    proxy->setComVariant(mzComVariantC::fromUserData(pairTypeId(), nullptr));
    EXPECT_EQ(textOf(call(probe(), "overloaded", {mzComVariantC(Object(proxy.get()))})), "pair");
}

TEST(Dispatcher, LenientCallsConvertBetweenTextAndNumber)
{
    const Object object = probe();
    EXPECT_EQ(call(object, "stored", {"2.5"}).code, mzExceptionTypeCast);
    EXPECT_TRUE(invoke(object, "stored", proxyMethod | proxyInvokeLenient, {"2.5"}).ok);
    EXPECT_EQ(scriptCall::read(object, "stored").number(), 2.5);
    EXPECT_EQ(invoke(object, "stored", proxyMethod | proxyInvokeLenient, {"x"}).code,
              mzExceptionTypeCast);
}

TEST(Dispatcher, ReportsAMissingMember)
{
    const Answer answer = call(probe(), "missing", {1.0, "two"});
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ(answer.code, mzExceptionNoMember);
    EXPECT_EQ(answer.message, "Probe.missing(number, string): there is no such member");
}

TEST(Dispatcher, ReportsArgumentsThatDoNotConvert)
{
    const Answer answer = call(probe(), "stored", {mzComVariantC(probe())});
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ(answer.code, mzExceptionTypeCast);
    EXPECT_EQ(answer.message,
              "Probe.stored(Probe): the arguments cannot be converted to the member's parameters");
    EXPECT_EQ(call(probe(), "", {mzComVariantC()}).message,
              "Probe(nothing): the arguments cannot be converted to the member's parameters");
}

TEST(Dispatcher, ReportsATypeCastExceptionOfTheHandler)
{
    const Answer answer = call(probe(), "refuses", {"word"});
    EXPECT_EQ(answer.code, mzExceptionTypeCast);
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
    EXPECT_EQ(same->code(), mzExceptionNoMember);
    EXPECT_FALSE(exception->queryInterface(proxyObjectC::IID(), same));
}

TEST(Dispatcher, ResultsOfAUserTypeBecomeObjects)
{
    proxyFactoryC::instance().registerClass(PairProxy::getStaticProxyTypeInfo());
    mzComVariantC::registerUserTypeProxy(pairTypeId(), mzIIDS("test.pair"));
    const Answer answer = call(probe(), "makePair");
    ASSERT_TRUE(answer.object());
    EXPECT_STREQ(answer.value.typeName().utf8(), "PairProxy");
}

TEST(StickyThread, IsTheOneThatCallsFirst)
{
    mzComPtrT<Probe> const object(new Probe);
    EXPECT_EQ(object->getStickyThreadId(false), 0u);
    std::thread([&object] {
        EXPECT_TRUE(call(Object(object.get()), "inBoth").ok);
        EXPECT_NE(object->getStickyThreadId(false), 0u);
    }).join();
    const Answer answer = call(Object(object.get()), "inBoth");
    EXPECT_EQ(answer.code, mzExceptionWrongThread);
    EXPECT_EQ(answer.message, "Probe.inBoth(): the object belongs to another thread");
}

TEST(StickyThread, ThreadSafeObjectsHaveNone)
{
    mzComPtrT<Probe> const object(new Probe);
    object->setThreadSafe();
    EXPECT_TRUE(call(Object(object.get()), "inBoth").ok);
    EXPECT_EQ(object->getStickyThreadId(true), 0u);
    std::thread([&object] { EXPECT_TRUE(call(Object(object.get()), "inBoth").ok); }).join();
}
