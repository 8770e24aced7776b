#include "TestProxies.h"

#include "support/Bits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>
#include <utility>
#include <vector>

namespace {

mzComVariantC pairVariant(double first, double second)
{
    Pair const pair = {first, second};
    return mzComVariantC::fromUserData(pairTypeId(), &pair);
}

mzComPtrT<mzIUnknown> pairProxy(double first, double second)
{
    mzComPtrT<PairProxy> proxy(new PairProxy);
    proxy->setComVariant(pairVariant(first, second));
    return mzComPtrT<mzIUnknown>(proxy.get());
}

} // namespace

TEST(ComString, ComparesByteForByte)
{
    EXPECT_TRUE(mzComStringC("vector3d") == mzComStringC("vector3d"));
    EXPECT_FALSE(mzComStringC("vector3d") == mzComStringC("Vector3d"));
    EXPECT_TRUE(mzComStringC("a") != mzComStringC("ab"));
    EXPECT_TRUE(mzComStringC(static_cast<char const *>(nullptr)) == mzComStringC());
    EXPECT_TRUE(mzComStringC().isEmpty());
}

TEST(ComString, KeepsUtf8)
{
    mzComStringC const text("gr\xc3\xb6\xc3\x9f"
                            "er");
    EXPECT_EQ(6, text.toQString().size());
    EXPECT_TRUE(mzComStringC(text.toQString()) == text);
    EXPECT_STREQ("gr\xc3\xb6\xc3\x9f"
                 "er",
                 text.utf8());
    EXPECT_STREQ("<gr\xc3\xb6\xc3\x9f"
                 "er>",
                 ("<" + text + ">").utf8());
}

TEST(ComString, IsEmptyAfterAMove)
{
    mzComStringC from("one");
    mzComStringC to(std::move(from));
    EXPECT_TRUE(from.isEmpty());
    EXPECT_STREQ("one", to.utf8());
    from = "two";
    to = std::move(from);
    EXPECT_TRUE(from.isEmpty());
    EXPECT_STREQ("two", to.utf8());
}

TEST(Identifier, EqualsByText)
{
    char const copy[] = "mzIUnknown";
    EXPECT_TRUE(mzIIDS(copy) == mzIUnknown::IID());
    EXPECT_TRUE(mzIIDS() != mzIUnknown::IID());
    EXPECT_TRUE(mzIIDS() == mzIIDS(""));
}

TEST(DataStream, GivesBackWhatWasWrittenInOrder)
{
    mzComDataStreamC stream;
    stream << 1.5 << -0.0 << support::inf << support::nan;
    EXPECT_EQ(32, stream.data().size());
    double a = 9.0, b = 9.0, c = 9.0, d = 9.0;
    stream >> a >> b >> c >> d;
    EXPECT_TRUE(stream.isOk());
    EXPECT_EQ(1.5, a);
    EXPECT_EQ(0.0, b);
    EXPECT_TRUE(std::signbit(b));
    EXPECT_EQ(support::inf, c);
    EXPECT_TRUE(std::isnan(d));
}

TEST(DataStream, WritesLeastSignificantByteFirst)
{
    mzComDataStreamC stream;
    stream << 1.0;
    EXPECT_EQ(QByteArray::fromHex("000000000000f03f"), stream.data());
}

TEST(DataStream, RunsDryAndStaysDry)
{
    mzComDataStreamC stream(QByteArray(12, '\0'));
    double first = 9.0;
    double second = 9.0;
    stream >> first;
    EXPECT_TRUE(stream.isOk());
    stream >> second;
    EXPECT_FALSE(stream.isOk());
    EXPECT_EQ(0.0, first);
    EXPECT_EQ(9.0, second);
    stream << 1.0;
    stream >> second;
    EXPECT_FALSE(stream.isOk());
    EXPECT_EQ(9.0, second);
}

TEST(DataStream, IsAsNewAfterAMove)
{
    mzComDataStreamC from;
    double value = 0.0;
    from << 1.0 << 2.0;
    from >> value;
    mzComDataStreamC to(std::move(from));
    to >> value;
    EXPECT_EQ(2.0, value);
    EXPECT_TRUE(from.data().isEmpty());
    from << 3.0; // and may be used again
    from >> value;
    EXPECT_TRUE(from.isOk());
    EXPECT_EQ(3.0, value);

    to >> value; // runs dry
    from = std::move(to);
    EXPECT_FALSE(from.isOk());
    EXPECT_TRUE(to.isOk());
    EXPECT_TRUE(to.data().isEmpty());
    from = mzComDataStreamC(to);
    EXPECT_TRUE(from.isOk());
}

TEST(Variant, HoldsOneKindAtATime)
{
    mzComVariantC const empty;
    mzComVariantC const number(2.5);
    mzComVariantC const text("two");
    mzComVariantC const object(pairProxy(1, 2));
    mzComVariantC const user = pairVariant(1, 2);
    EXPECT_TRUE(empty.isEmpty() && !empty.isDouble() && !empty.isString());
    EXPECT_TRUE(number.isDouble() && !number.isUserValue());
    EXPECT_TRUE(text.isString() && !text.isObject());
    EXPECT_TRUE(object.isObject() && !object.isUserValue());
    EXPECT_TRUE(user.isUserValue() && !user.isObject());
    EXPECT_EQ(2.5, number.toDouble());
    EXPECT_STREQ("two", text.toString().utf8());
    EXPECT_EQ(0.0, text.toDouble());
    EXPECT_TRUE(number.toString().isEmpty());
    EXPECT_FALSE(number.toObject());
    EXPECT_TRUE(mzComVariantC(mzComPtrT<mzIUnknown>()).isEmpty());
}

TEST(Variant, IsEmptyAfterAMove)
{
    mzComVariantC from[] = {2.5, "two", mzComVariantC(pairProxy(1, 2)), pairVariant(1, 2)};
    for (mzComVariantC &variant : from) {
        mzComStringC const type = variant.typeName();
        mzComVariantC constructed = std::move(variant);
        EXPECT_TRUE(variant.isEmpty() && variant.toDouble() == 0.0 && !variant.toObject());
        EXPECT_TRUE(constructed.typeName() == type);
        variant = std::move(constructed);
        EXPECT_TRUE(constructed.isEmpty() && constructed.toString().isEmpty());
        EXPECT_TRUE(variant.typeName() == type);
    }
}

TEST(Variant, NamesItsTypeForMessages)
{
    EXPECT_STREQ("nothing", mzComVariantC().typeName().utf8());
    EXPECT_STREQ("number", mzComVariantC(1.0).typeName().utf8());
    EXPECT_STREQ("string", mzComVariantC("1").typeName().utf8());
    EXPECT_STREQ("PairProxy", mzComVariantC(pairProxy(1, 2)).typeName().utf8());
    EXPECT_STREQ("Pair", pairVariant(1, 2).typeName().utf8());
}

TEST(Variant, CopiesUserDataOutOnlyForItsOwnType)
{
    int const id = pairTypeId();
    EXPECT_GT(id, 0);
    Pair pair = {7, 8};
    EXPECT_EQ(mzUserDataOtherType, pairVariant(1, 2).getUserData(id + 1000, &pair));
    EXPECT_EQ(mzUserDataNone, mzComVariantC(1.0).getUserData(id, &pair));
    EXPECT_EQ(mzUserDataNone, mzComVariantC().getUserData(0, &pair));
    EXPECT_EQ(7, pair.first);
    EXPECT_EQ(8, pair.second);
    EXPECT_EQ(mzUserDataOk, pairVariant(1, 2).getUserData(id, &pair));
    EXPECT_EQ(1, pair.first);
    EXPECT_EQ(2, pair.second);
    EXPECT_EQ(id, pairVariant(1, 2).userType());
    EXPECT_EQ(0, mzComVariantC(1.0).userType());
}

TEST(Variant, OfAnUnknownTypeIsEmpty)
{
    Pair const pair;
    EXPECT_TRUE(mzComVariantC::fromUserData(0, &pair).isEmpty());
    EXPECT_TRUE(mzComVariantC::fromUserData(-1, &pair).isEmpty());
    EXPECT_TRUE(mzComVariantC::fromUserData(1 << 20, &pair).isEmpty());
}

TEST(Variant, FromNullUserDataIsZero)
{
    Pair pair = {7, 8};
    EXPECT_EQ(mzUserDataOk,
              mzComVariantC::fromUserData(pairTypeId(), nullptr).getUserData(pairTypeId(), &pair));
    EXPECT_EQ(0, pair.first);
    EXPECT_EQ(0, pair.second);
}

TEST(Variant, ScalarValueOfAnObjectIsWhatItStandsFor)
{
    Pair pair;
    mzComVariantC const scalar = mzComVariantC(pairProxy(3, 4)).toSkalarValue();
    EXPECT_EQ(mzUserDataOk, scalar.getUserData(pairTypeId(), &pair));
    EXPECT_EQ(4, pair.second);
    EXPECT_EQ(2.0, mzComVariantC(2.0).toSkalarValue().toDouble());
    mzComVariantC const probe(mzComPtrT<mzIUnknown>(new Probe));
    EXPECT_TRUE(probe.toSkalarValue().isObject());
}

TEST(Variant, ReachesAScriptAsTheRegisteredClass)
{
    proxyFactoryC::instance().registerClass(PairProxy::getStaticProxyTypeInfo());
    mzComVariantC::registerUserTypeProxy(pairTypeId(), mzIIDS("test.pair"));
    mzComVariantC const object = pairVariant(5, 6).toScriptObject();
    ASSERT_TRUE(object.isObject());
    EXPECT_STREQ("PairProxy", object.typeName().utf8());
    Pair pair;
    EXPECT_EQ(mzUserDataOk, object.toSkalarValue().getUserData(pairTypeId(), &pair));
    EXPECT_EQ(5, pair.first);
    EXPECT_EQ(1.0, mzComVariantC(1.0).toScriptObject().toDouble());

    mzComVariantC::registerUserTypeProxy(pairTypeId(), mzIIDS("test.no such class"));
    EXPECT_TRUE(pairVariant(5, 6).toScriptObject().isUserValue());
    mzComVariantC::registerUserTypeProxy(-1, mzIIDS("test.pair"));
}

TEST(Variant, TravelsThroughAStreamAsItsRecordSays)
{
    mzComDataStreamC stream;
    EXPECT_TRUE(pairVariant(1, 2).writeUserData(stream));
    EXPECT_FALSE(mzComVariantC(1.0).writeUserData(stream));
    EXPECT_EQ(16, stream.data().size());
    mzComVariantC back(3.0);
    EXPECT_FALSE(back.readUserData(0, stream));
    EXPECT_TRUE(back.readUserData(pairTypeId(), stream));
    Pair pair;
    EXPECT_EQ(mzUserDataOk, back.getUserData(pairTypeId(), &pair));
    EXPECT_EQ(1, pair.first);
    EXPECT_EQ(2, pair.second);
    mzComVariantC unread(3.0);
    EXPECT_FALSE(unread.readUserData(pairTypeId(), stream));
    EXPECT_EQ(3.0, unread.toDouble());
}

TEST(Variant, RecordsAreRegisteredOnce)
{
    int const id = pairTypeId();
    int const count = mzComVariantC::registeredValueTypeCount();
    mzComVariantC::registerValueType(pairRecord());
    EXPECT_EQ(id, pairRecord()->id);
    EXPECT_EQ(count, mzComVariantC::registeredValueTypeCount());
}

TEST(Variant, RacingRegistrationsGiveOneId)
{
    static mzComValueMarshalS record = *pairRecord();
    record.id = 0;
    int const count = mzComVariantC::registeredValueTypeCount();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([] { mzComVariantC::registerValueType(&record); });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(count + 1, mzComVariantC::registeredValueTypeCount());
    EXPECT_GT(record.id, 0);
    EXPECT_NE(pairTypeId(), record.id);
}

TEST(TypeName, IsTheSameForEveryoneAndReadable)
{
    EXPECT_TRUE(mzComTypeInfoToName(typeid(Pair)) == mzComTypeInfoToName(typeid(Pair const &)));
    EXPECT_STREQ("Pair", mzComReadableTypeName(mzComTypeInfoToName(typeid(Pair))).utf8());
    EXPECT_STREQ("no type", mzComReadableTypeName("no type").utf8());
}

TEST(QVariantBase, ConvertsToQtAndBack)
{
    mzComPtrT<prxQVariantBaseC> const proxy(new prxQVariantBaseC);
    EXPECT_FALSE(proxy->getVariant().isValid());
    proxy->setVariant(QVariant(2.5));
    EXPECT_EQ(2.5, proxy->getComVariant().toDouble());
    EXPECT_EQ(2.5, proxy->getVariant().toDouble());
    proxy->setVariant(QVariant(7));
    EXPECT_TRUE(proxy->getComVariant().isDouble());
    proxy->setVariant(QStringLiteral("12"));
    EXPECT_TRUE(proxy->getComVariant().isString());
    EXPECT_EQ(QStringLiteral("12"), proxy->getVariant().toString());
    proxy->setVariant(QByteArray("raw"));
    EXPECT_STREQ("raw", proxy->getComVariant().toString().utf8());
    proxy->setVariant(QVariant());
    EXPECT_TRUE(proxy->getComVariant().isEmpty());

    proxy->setComVariant(pairVariant(1, 2));
    QVariant const held = proxy->getVariant();
    proxy->setVariant(1.0);
    proxy->setVariant(held);
    EXPECT_EQ(pairTypeId(), proxy->getComVariant().userType());
}

TEST(QVariantBase, StartsWithTheValueGiven)
{
    mzComPtrT<prxQVariantBaseC> const proxy(new prxQVariantBaseC(mzComVariantC("given")));
    EXPECT_STREQ("given", proxy->getComVariant().toString().utf8());
    EXPECT_STREQ("prxQVariantBaseC", proxy->getProxyTypeInfo()->name);
}

TEST(AutoTypeCast, GetsNumbers)
{
    EXPECT_EQ(2.0, proxyAutoTypeCastC(mzComVariantC(2.0)).get<double>(false));
    mzComVariantC const text(" 2.5 ");
    EXPECT_THROW(proxyAutoTypeCastC(text).get<double>(false), proxyAutoTypeCastExceptionC);
    EXPECT_EQ(2.5, proxyAutoTypeCastC(text).get<double>(true));
    mzComVariantC const noNumber("2.5 apples");
    EXPECT_THROW(proxyAutoTypeCastC(noNumber).get<double>(true), proxyAutoTypeCastExceptionC);
    mzComVariantC const empty;
    EXPECT_THROW(proxyAutoTypeCastC(empty).get<double>(true), proxyAutoTypeCastExceptionC);
    mzComVariantC const holder(mzComPtrT<mzIUnknown>(new prxQVariantBaseC(mzComVariantC(4.0))));
    EXPECT_EQ(4.0, proxyAutoTypeCastC(holder).get<double>(false));
}

TEST(AutoTypeCast, GetsTexts)
{
    mzComVariantC const text("word");
    EXPECT_STREQ("word", proxyAutoTypeCastC(text).get<mzComStringC>(false).utf8());
    mzComVariantC const number(0.1);
    EXPECT_THROW(proxyAutoTypeCastC(number).get<mzComStringC>(false), proxyAutoTypeCastExceptionC);
    EXPECT_STREQ("0.1", proxyAutoTypeCastC(number).get<mzComStringC>(true).utf8());
}

TEST(AutoTypeCast, SetsResultsButNoParameters)
{
    mzComVariantC result;
    proxyAutoTypeCastC(&result).set<double>(3.0);
    EXPECT_EQ(3.0, result.toDouble());
    proxyAutoTypeCastC(&result).set<mzComPtrT<mzIUnknown>>(mzComPtrT<mzIUnknown>());
    EXPECT_TRUE(result.isEmpty());
    mzComVariantC const parameter(1.0);
    proxyAutoTypeCastC(parameter).set<double>(2.0);
    EXPECT_EQ(1.0, parameter.toDouble());
}

TEST(AutoParaList, IsEmptyPastItsEnds)
{
    mzComVariantArrayC const arguments = {1.0, "two"};
    proxyAutoParaListC const parameters(arguments);
    EXPECT_EQ(2, parameters.size());
    EXPECT_EQ(1.0, parameters[0].get<double>(false));
    EXPECT_TRUE(parameters[1].getVariant().isString());
    EXPECT_TRUE(parameters[2].getVariant().isEmpty());
    EXPECT_TRUE(parameters[-1].getVariant().isEmpty());
}
