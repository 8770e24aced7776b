#include "TestProxies.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>
#include <utility>
#include <vector>

namespace {

mzComVariantC pairVariant(double first, double second)
{
    const Pair pair = {first, second};
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
    const mzComStringC text("gr\xc3\xb6\xc3\x9f"
                            "er");
    EXPECT_EQ(text.toQString().size(), 6);
    EXPECT_TRUE(mzComStringC(text.toQString()) == text);
    EXPECT_STREQ(text.utf8(), "gr\xc3\xb6\xc3\x9f"
                              "er");
    EXPECT_STREQ(("<" + text + ">").utf8(), "<gr\xc3\xb6\xc3\x9f"
                                            "er>");
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
    double const infinity = std::numeric_limits<double>::infinity();
    stream << 1.5 << -0.0 << infinity << std::nan("");
    EXPECT_EQ(stream.data().size(), 32);
    double a = 9.0, b = 9.0, c = 9.0, d = 9.0;
    stream >> a >> b >> c >> d;
    EXPECT_TRUE(stream.isOk());
    EXPECT_EQ(a, 1.5);
    EXPECT_EQ(b, 0.0);
    EXPECT_TRUE(std::signbit(b));
    EXPECT_EQ(c, infinity);
    EXPECT_TRUE(std::isnan(d));
}

TEST(DataStream, WritesLeastSignificantByteFirst)
{
    mzComDataStreamC stream;
    stream << 1.0;
    EXPECT_EQ(stream.data(), QByteArray::fromHex("000000000000f03f"));
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
    EXPECT_EQ(first, 0.0);
    EXPECT_EQ(second, 9.0);
    stream << 1.0;
    stream >> second;
    EXPECT_FALSE(stream.isOk());
    EXPECT_EQ(second, 9.0);
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
    const mzComVariantC empty;
    const mzComVariantC number(2.5);
    const mzComVariantC text("two");
    const mzComVariantC object(pairProxy(1, 2));
    const mzComVariantC user = pairVariant(1, 2);
    EXPECT_TRUE(empty.isEmpty() && !empty.isDouble() && !empty.isString());
    EXPECT_TRUE(number.isDouble() && !number.isUserValue());
    EXPECT_TRUE(text.isString() && !text.isObject());
    EXPECT_TRUE(object.isObject() && !object.isUserValue());
    EXPECT_TRUE(user.isUserValue() && !user.isObject());
    EXPECT_EQ(number.toDouble(), 2.5);
    EXPECT_STREQ(text.toString().utf8(), "two");
    EXPECT_EQ(text.toDouble(), 0.0);
    EXPECT_TRUE(number.toString().isEmpty());
    EXPECT_FALSE(number.toObject());
    EXPECT_TRUE(mzComVariantC(mzComPtrT<mzIUnknown>()).isEmpty());
}

TEST(Variant, IsEmptyAfterAMove)
{
    mzComVariantC from[] = {2.5, "two", mzComVariantC(pairProxy(1, 2)), pairVariant(1, 2)};
    for (mzComVariantC &variant : from) {
        const mzComStringC type = variant.typeName();
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
    EXPECT_STREQ(mzComVariantC().typeName().utf8(), "nothing");
    EXPECT_STREQ(mzComVariantC(1.0).typeName().utf8(), "number");
    EXPECT_STREQ(mzComVariantC("1").typeName().utf8(), "string");
    EXPECT_STREQ(mzComVariantC(pairProxy(1, 2)).typeName().utf8(), "PairProxy");
    EXPECT_STREQ(pairVariant(1, 2).typeName().utf8(), "Pair");
}

TEST(Variant, CopiesUserDataOutOnlyForItsOwnType)
{
    int const id = pairTypeId();
    EXPECT_GT(id, 0);
    Pair pair = {7, 8};
    EXPECT_EQ(pairVariant(1, 2).getUserData(id + 1000, &pair), mzUserDataOtherType);
    EXPECT_EQ(mzComVariantC(1.0).getUserData(id, &pair), mzUserDataNone);
    EXPECT_EQ(mzComVariantC().getUserData(0, &pair), mzUserDataNone);
    EXPECT_EQ(pair.first, 7);
    EXPECT_EQ(pair.second, 8);
    EXPECT_EQ(pairVariant(1, 2).getUserData(id, &pair), mzUserDataOk);
    EXPECT_EQ(pair.first, 1);
    EXPECT_EQ(pair.second, 2);
    EXPECT_EQ(pairVariant(1, 2).userType(), id);
    EXPECT_EQ(mzComVariantC(1.0).userType(), 0);
}

TEST(Variant, OfAnUnknownTypeIsEmpty)
{
    const Pair pair;
    EXPECT_TRUE(mzComVariantC::fromUserData(0, &pair).isEmpty());
    EXPECT_TRUE(mzComVariantC::fromUserData(-1, &pair).isEmpty());
    EXPECT_TRUE(mzComVariantC::fromUserData(1 << 20, &pair).isEmpty());
}

TEST(Variant, FromNullUserDataIsZero)
{
    Pair pair = {7, 8};
    EXPECT_EQ(mzComVariantC::fromUserData(pairTypeId(), nullptr).getUserData(pairTypeId(), &pair),
              mzUserDataOk);
    EXPECT_EQ(pair.first, 0);
    EXPECT_EQ(pair.second, 0);
}

TEST(Variant, ScalarValueOfAnObjectIsWhatItStandsFor)
{
    Pair pair;
    const mzComVariantC scalar = mzComVariantC(pairProxy(3, 4)).toSkalarValue();
    EXPECT_EQ(scalar.getUserData(pairTypeId(), &pair), mzUserDataOk);
    EXPECT_EQ(pair.second, 4);
    EXPECT_EQ(mzComVariantC(2.0).toSkalarValue().toDouble(), 2.0);
    const mzComVariantC probe(mzComPtrT<mzIUnknown>(new Probe));
    EXPECT_TRUE(probe.toSkalarValue().isObject());
}

TEST(Variant, ReachesAScriptAsTheRegisteredClass)
{
    proxyFactoryC::instance().registerClass(PairProxy::getStaticProxyTypeInfo());
    mzComVariantC::registerUserTypeProxy(pairTypeId(), mzIIDS("test.pair"));
    const mzComVariantC object = pairVariant(5, 6).toScriptObject();
    ASSERT_TRUE(object.isObject());
    EXPECT_STREQ(object.typeName().utf8(), "PairProxy");
    Pair pair;
    EXPECT_EQ(object.toSkalarValue().getUserData(pairTypeId(), &pair), mzUserDataOk);
    EXPECT_EQ(pair.first, 5);
    EXPECT_EQ(mzComVariantC(1.0).toScriptObject().toDouble(), 1.0);

    mzComVariantC::registerUserTypeProxy(pairTypeId(), mzIIDS("test.no such class"));
    EXPECT_TRUE(pairVariant(5, 6).toScriptObject().isUserValue());
    mzComVariantC::registerUserTypeProxy(-1, mzIIDS("test.pair"));
}

TEST(Variant, TravelsThroughAStreamAsItsRecordSays)
{
    mzComDataStreamC stream;
    EXPECT_TRUE(pairVariant(1, 2).writeUserData(stream));
    EXPECT_FALSE(mzComVariantC(1.0).writeUserData(stream));
    EXPECT_EQ(stream.data().size(), 16);
    mzComVariantC back(3.0);
    EXPECT_FALSE(back.readUserData(0, stream));
    EXPECT_TRUE(back.readUserData(pairTypeId(), stream));
    Pair pair;
    EXPECT_EQ(back.getUserData(pairTypeId(), &pair), mzUserDataOk);
    EXPECT_EQ(pair.first, 1);
    EXPECT_EQ(pair.second, 2);
    mzComVariantC unread(3.0);
    EXPECT_FALSE(unread.readUserData(pairTypeId(), stream));
    EXPECT_EQ(unread.toDouble(), 3.0);
}

TEST(Variant, RecordsAreRegisteredOnce)
{
    int const id = pairTypeId();
    int const count = mzComVariantC::registeredValueTypeCount();
    mzComVariantC::registerValueType(pairRecord());
    EXPECT_EQ(pairRecord()->id, id);
    EXPECT_EQ(mzComVariantC::registeredValueTypeCount(), count);
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
    EXPECT_EQ(mzComVariantC::registeredValueTypeCount(), count + 1);
    EXPECT_GT(record.id, 0);
    EXPECT_NE(pairTypeId(), record.id);
}

TEST(TypeName, IsTheSameForEveryoneAndReadable)
{
    EXPECT_TRUE(mzComTypeInfoToName(typeid(Pair)) == mzComTypeInfoToName(typeid(Pair const &)));
    EXPECT_STREQ(mzComReadableTypeName(mzComTypeInfoToName(typeid(Pair))).utf8(), "Pair");
    EXPECT_STREQ(mzComReadableTypeName("no type").utf8(), "no type");
}

TEST(QVariantBase, ConvertsToQtAndBack)
{
    mzComPtrT<prxQVariantBaseC> const proxy(new prxQVariantBaseC);
    EXPECT_FALSE(proxy->getVariant().isValid());
    proxy->setVariant(QVariant(2.5));
    EXPECT_EQ(proxy->getComVariant().toDouble(), 2.5);
    EXPECT_EQ(proxy->getVariant().toDouble(), 2.5);
    proxy->setVariant(QVariant(7));
    EXPECT_TRUE(proxy->getComVariant().isDouble());
    proxy->setVariant(QStringLiteral("12"));
    EXPECT_TRUE(proxy->getComVariant().isString());
    EXPECT_EQ(proxy->getVariant().toString(), QStringLiteral("12"));
    proxy->setVariant(QByteArray("raw"));
    EXPECT_STREQ(proxy->getComVariant().toString().utf8(), "raw");
    proxy->setVariant(QVariant());
    EXPECT_TRUE(proxy->getComVariant().isEmpty());

    proxy->setComVariant(pairVariant(1, 2));
    const QVariant held = proxy->getVariant();
    proxy->setVariant(1.0);
    proxy->setVariant(held);
    EXPECT_EQ(proxy->getComVariant().userType(), pairTypeId());
}

TEST(QVariantBase, StartsWithTheValueGiven)
{
    mzComPtrT<prxQVariantBaseC> const proxy(new prxQVariantBaseC(mzComVariantC("given")));
    EXPECT_STREQ(proxy->getComVariant().toString().utf8(), "given");
    EXPECT_STREQ(proxy->getProxyTypeInfo()->name, "prxQVariantBaseC");
}

TEST(AutoTypeCast, GetsNumbers)
{
    EXPECT_EQ(proxyAutoTypeCastC(mzComVariantC(2.0)).get<double>(false), 2.0);
    const mzComVariantC text(" 2.5 ");
    EXPECT_THROW(proxyAutoTypeCastC(text).get<double>(false), proxyAutoTypeCastExceptionC);
    EXPECT_EQ(proxyAutoTypeCastC(text).get<double>(true), 2.5);
    const mzComVariantC noNumber("2.5 apples");
    EXPECT_THROW(proxyAutoTypeCastC(noNumber).get<double>(true), proxyAutoTypeCastExceptionC);
    const mzComVariantC empty;
    EXPECT_THROW(proxyAutoTypeCastC(empty).get<double>(true), proxyAutoTypeCastExceptionC);
    const mzComVariantC holder(mzComPtrT<mzIUnknown>(new prxQVariantBaseC(mzComVariantC(4.0))));
    EXPECT_EQ(proxyAutoTypeCastC(holder).get<double>(false), 4.0);
}

TEST(AutoTypeCast, GetsTexts)
{
    const mzComVariantC text("word");
    EXPECT_STREQ(proxyAutoTypeCastC(text).get<mzComStringC>(false).utf8(), "word");
    const mzComVariantC number(0.1);
    EXPECT_THROW(proxyAutoTypeCastC(number).get<mzComStringC>(false), proxyAutoTypeCastExceptionC);
    EXPECT_STREQ(proxyAutoTypeCastC(number).get<mzComStringC>(true).utf8(), "0.1");
}

TEST(AutoTypeCast, SetsResultsButNoParameters)
{
    mzComVariantC result;
    proxyAutoTypeCastC(&result).set<double>(3.0);
    EXPECT_EQ(result.toDouble(), 3.0);
    proxyAutoTypeCastC(&result).set<mzComPtrT<mzIUnknown>>(mzComPtrT<mzIUnknown>());
    EXPECT_TRUE(result.isEmpty());
    const mzComVariantC parameter(1.0);
    proxyAutoTypeCastC(parameter).set<double>(2.0);
    EXPECT_EQ(parameter.toDouble(), 1.0);
}

TEST(AutoParaList, IsEmptyPastItsEnds)
{
    const mzComVariantArrayC arguments = {1.0, "two"};
    const proxyAutoParaListC parameters(arguments);
    EXPECT_EQ(parameters.size(), 2);
    EXPECT_EQ(parameters[0].get<double>(false), 1.0);
    EXPECT_TRUE(parameters[1].getVariant().isString());
    EXPECT_TRUE(parameters[2].getVariant().isEmpty());
    EXPECT_TRUE(parameters[-1].getVariant().isEmpty());
}
