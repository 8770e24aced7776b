#include "ProxyValues.h"

#include "support/Bits.h"

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <type_traits>

using namespace proxyValues;
using scriptCall::Answer;
using scriptCall::call;
using scriptCall::read;
using scriptCall::write;
using support::inf;

namespace {

/// A value proxy without a class of its own, made from a value.
class PlainProxy : public prxVariantUserTypeBaseC<Vector3>
{
public:
    explicit PlainProxy(Vector3 const &value)
        : prxVariantUserTypeBaseC<Vector3>(value)
    {
    }
};

} // namespace

TEST(Vector3Proxy, StartsAtZero)
{
    EXPECT_TRUE(valueOf<Vector3>(Object(new prxVector3dC)) == Vector3(0, 0, 0));
    EXPECT_TRUE(valueOf<Vector2>(Object(new prxVector2dC)) == Vector2(0, 0));
}

TEST(ValueProxies, AreMadeFromAValueWithoutNamingTheClass)
{
    EXPECT_TRUE((std::is_convertible_v<Vector2, prxVector2dC>));
    EXPECT_TRUE((std::is_convertible_v<Vector3, prxVector3dC>));
    EXPECT_TRUE((std::is_convertible_v<Matrix3, prxMatrix3x3C>));
    EXPECT_TRUE((std::is_convertible_v<Matrix4, prxMatrix4x4C>));
    prxVector2dC const vector = Vector2(3, 4);
    EXPECT_EQ(5.0, vector.len());
}

TEST(Vector3Proxy, Arithmetic)
{
    Object const v = vector3(1, 2, 3);
    mzComVariantC const w(vector3(4, -5, 6));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "add", {w})) == Vector3(5, -3, 9));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "sub", {w})) == Vector3(-3, 7, -3));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "mul", {2.0})) == Vector3(2, 4, 6));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "div", {2.0})) == Vector3(0.5, 1, 1.5));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "cross", {w})) == Vector3(27, 6, -13));
    EXPECT_EQ(12.0, call(v, "skalar", {w}).number());
    EXPECT_EQ(7.0, call(vector3(2, 3, 6), "len").number());
}

TEST(Vector3Proxy, ArithmeticMakesNewObjectsAndLeavesTheOldAlone)
{
    Object const v = vector3(1, 2, 3);
    mzComVariantC const w(vector3(4, 5, 6));
    for (char const *name : {"add", "sub", "cross"}) {
        Answer const answer = call(v, name, {w});
        EXPECT_TRUE(answer.object() && answer.object() != v) << name;
    }
    for (char const *name : {"mul", "div", "norm"}) {
        EXPECT_TRUE(call(v, name, {2.0}).object() != v) << name;
    }
    EXPECT_TRUE(valueOf<Vector3>(v) == Vector3(1, 2, 3));
    EXPECT_TRUE(valueOf<Vector3>(w.toObject()) == Vector3(4, 5, 6));
}

TEST(Vector3Proxy, SettersReturnTheReceiver)
{
    Object const v = vector3(1, 2, 3);
    EXPECT_TRUE(call(call(v, "x", {5.0}).object(), "y", {6.0}).object() == v);
    EXPECT_TRUE(write(v, "z", 7.0).object() == v);
    EXPECT_TRUE(valueOf<Vector3>(v) == Vector3(5, 6, 7));
    EXPECT_EQ(5.0, read(v, "x").number());
    EXPECT_EQ(6.0, read(v, "y").number());
    EXPECT_EQ(7.0, read(v, "z").number());
    EXPECT_TRUE(call(v, "z", {8.0}).object() == v);
    EXPECT_EQ(8.0, read(v, "z").number());
}

TEST(Vector3Proxy, NormGivesTheLengthAskedFor)
{
    double const factor = 2.0 / 5.0;
    EXPECT_TRUE(valueOf<Vector3>(call(vector3(3, 4, 0), "norm", {2.0})) ==
                Vector3(3 * factor, 4 * factor, 0));
    Vector3 const result = valueOf<Vector3>(call(vector3(3, 4, 0), "norm", {2.0}));
    EXPECT_DOUBLE_EQ(1.2, result.x());
    EXPECT_DOUBLE_EQ(1.6, result.y());
    EXPECT_EQ(0.0, result.z());
    EXPECT_TRUE(valueOf<Vector3>(call(vector3(0, 0, 5), "norm", {-1.0})) == Vector3(0, 0, -1));
}

TEST(Vector3Proxy, NormOfZeroIsNan)
{
    Vector3 const result = valueOf<Vector3>(call(vector3(0, 0, 0), "norm", {2.0}));
    EXPECT_TRUE(std::isnan(result.x()) && std::isnan(result.y()) && std::isnan(result.z()));
    Vector2 const flat = valueOf<Vector2>(call(vector2(0, 0), "norm", {2.0}));
    EXPECT_TRUE(std::isnan(flat.x()) && std::isnan(flat.y()));
}

TEST(Vector3Proxy, DivisionHasNoGuard)
{
    Vector3 const result = valueOf<Vector3>(call(vector3(1, -1, 0), "div", {0.0}));
    EXPECT_EQ(inf, result.x());
    EXPECT_EQ(-inf, result.y());
    EXPECT_TRUE(std::isnan(result.z()));
}

TEST(Vector3Proxy, NanAndInfinityPassThrough)
{
    Object const v = vector3(support::nan, inf, 1);
    EXPECT_TRUE(std::isnan(call(v, "len").number()));
    EXPECT_TRUE(std::isnan(read(v, "x").number()));
    EXPECT_EQ(inf, read(v, "y").number());
    Vector3 const sum = valueOf<Vector3>(call(v, "add", {mzComVariantC(vector3(1, 1, 1))}));
    EXPECT_TRUE(std::isnan(sum.x()));
    EXPECT_EQ(inf, sum.y());
    EXPECT_EQ(2.0, sum.z());
    EXPECT_EQ(inf, call(vector3(inf, 0, 0), "len").number());
}

TEST(Vector3Proxy, FactoryMakesANewFactory)
{
    Answer const first = read(vector3(1, 2, 3), "Factory");
    EXPECT_STREQ("prxMathFactoryC", first.value.typeName().utf8());
    EXPECT_TRUE(read(vector2(1, 2), "Factory").ok);
}

TEST(Vector2Proxy, Arithmetic)
{
    Object const v = vector2(3, 4);
    mzComVariantC const w(vector2(1, -2));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "add", {w})) == Vector2(4, 2));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "sub", {w})) == Vector2(2, 6));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "mul", {2.0})) == Vector2(6, 8));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "div", {2.0})) == Vector2(1.5, 2));
    EXPECT_EQ(-5.0, call(v, "skalar", {w}).number());
    EXPECT_EQ(5.0, call(v, "len").number());
    EXPECT_TRUE(valueOf<Vector2>(call(v, "norm", {10.0})) == Vector2(6, 8));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "perpendicular")) == Vector2(-4, 3));
    EXPECT_TRUE(valueOf<Vector2>(v) == Vector2(3, 4));
}

TEST(Vector2Proxy, SettersReturnTheReceiver)
{
    Object const v = vector2(3, 4);
    EXPECT_TRUE(call(call(v, "x", {5.0}).object(), "y", {6.0}).object() == v);
    EXPECT_TRUE(valueOf<Vector2>(v) == Vector2(5, 6));
    EXPECT_TRUE(call(v, "", {7.0, 8.0}).object() == v);
    EXPECT_EQ(7.0, read(v, "x").number());
    EXPECT_EQ(8.0, read(v, "y").number());
    EXPECT_TRUE(write(v, "x", 1.0).ok && write(v, "y", 2.0).ok);
    EXPECT_TRUE(valueOf<Vector2>(v) == Vector2(1, 2));
}

TEST(Vector2Proxy, HasNeitherCrossNorZ)
{
    EXPECT_EQ(mzExceptionNoMember,
              call(vector2(1, 2), "cross", {mzComVariantC(vector2(1, 2))}).code);
    EXPECT_EQ(mzExceptionNoMember, read(vector2(1, 2), "z").code);
    EXPECT_EQ(mzExceptionNoMember, call(vector3(1, 2, 3), "perpendicular").code);
}

TEST(ValueWrapper, ReadingThroughItWritesBack)
{
    mzComPtrT<Counting<prxVector3dC>> const v(new Counting<prxVector3dC>(Vector3(1, 2, 3)));
    EXPECT_EQ(1.0, v->getx());
    EXPECT_EQ(1, v->writes);
    EXPECT_EQ(2.0, v->gety());
    EXPECT_EQ(3.0, v->getz());
    EXPECT_EQ(3, v->writes);
    v->setx(4);
    EXPECT_EQ(4, v->writes);
    v->setXYZ(5, 6, 7);
    EXPECT_EQ(7, v->writes);
}

TEST(ValueWrapper, ArithmeticDoesNotUseIt)
{
    mzComPtrT<Counting<prxVector3dC>> const v(new Counting<prxVector3dC>(Vector3(1, 2, 3)));
    drop(v->add(Vector3(1, 1, 1)));
    drop(v->sub(Vector3(1, 1, 1)));
    drop(v->mulReal(2));
    drop(v->divReal(2));
    drop(v->norm(1));
    drop(v->cross(Vector3(1, 1, 1)));
    v->len();
    call(Object(v.get()), "skalar", {mzComVariantC(vector3(1, 1, 1))});
    EXPECT_EQ(0, v->writes);
}

TEST(ValueWrapper, IsUsedByTheFlatVectorInTheSameWay)
{
    mzComPtrT<Counting<prxVector2dC>> const v(new Counting<prxVector2dC>);
    v->setXY(3, 4);
    EXPECT_EQ(2, v->writes);
    EXPECT_EQ(7.0, v->getx() + v->gety());
    EXPECT_EQ(4, v->writes);
    v->setx(5);
    v->sety(6);
    EXPECT_EQ(6, v->writes);
    drop(v->perpendicular());
    drop(v->norm(1));
    EXPECT_EQ(std::sqrt(61.0), v->len());
    EXPECT_EQ(6, v->writes);
}

TEST(ValueWrapper, WritesOnlyWhatWasTouched)
{
    mzComPtrT<Counting<prxVector3dC>> const v(new Counting<prxVector3dC>(Vector3(1, 2, 3)));
    {
        auto edit = v->value();
        EXPECT_EQ(3, v->addRef());
        v->release();
    }
    EXPECT_EQ(0, v->writes);
    {
        auto edit = v->value();
        edit->x() = 10;
        edit->y() = 20;
        EXPECT_TRUE(v->getValue() == Vector3(1, 2, 3));
    }
    EXPECT_EQ(1, v->writes);
    EXPECT_TRUE(v->getValue() == Vector3(10, 20, 3));
    EXPECT_EQ(2, v->addRef());
    v->release();
}

TEST(ValueProxy, AVariantOfAnotherTypeReadsAsZero)
{
    mzComPtrT<prxVector3dC> const v(new prxVector3dC(Vector3(1, 2, 3)));
    v->setComVariant(mzComVariantC(5.0));
    EXPECT_TRUE(v->getValue() == Vector3(0, 0, 0));
    v->setVariant(QStringLiteral("word"));
    EXPECT_EQ(0.0, v->len());
}

TEST(ValueProxy, IsMadeFromAValue)
{
    mzComPtrT<PlainProxy> const plain(new PlainProxy(Vector3(1, 2, 3)));
    EXPECT_TRUE(plain->getValue() == Vector3(1, 2, 3));
    EXPECT_EQ(proxyValueTypeId<Vector3>(), plain->getComVariant().userType());
}

TEST(ValueProxy, AnObjectInItsVariantIsReadAsItsValue)
{
    mzComPtrT<prxVector3dC> const v(new prxVector3dC);
    v->setComVariant(mzComVariantC(vector3(4, 5, 6)));
    EXPECT_TRUE(v->getValue() == Vector3(4, 5, 6));
}

TEST(MathFactory, MakesZeroObjects)
{
    Object const factory(new prxMathFactoryC);
    EXPECT_TRUE(valueOf<Matrix4>(call(factory, "createmat4x4")) == Matrix4());
    EXPECT_TRUE(valueOf<Matrix3>(call(factory, "createmat3x3")) == Matrix3());
    EXPECT_TRUE(valueOf<Vector3>(call(factory, "createvec3d")) == Vector3());
    EXPECT_TRUE(valueOf<Vector2>(call(factory, "createvec2d")) == Vector2());
}

TEST(MathFactory, CreatesByName)
{
    Object const factory(new prxMathFactoryC);
    char const *names[][2] = {{"matrix3x3", "prxMatrix3x3C"},
                              {"matrix4x4", "prxMatrix4x4C"},
                              {"vector3d", "prxVector3dC"},
                              {"vector2d", "prxVector2dC"}};
    for (auto const &name : names) {
        EXPECT_STREQ(name[1], call(factory, "Create", {name[0]}).value.typeName().utf8());
    }
    for (char const *name : {"Vector3d", "VECTOR3D", "linquet.vector3d", "vector4d", ""}) {
        Answer const answer = call(factory, "Create", {name});
        EXPECT_TRUE(answer.ok) << name;
        EXPECT_TRUE(answer.value.isEmpty()) << name;
    }
    EXPECT_EQ(mzExceptionTypeCast, call(factory, "Create", {1.0}).code);
}

RC_GTEST_PROP(Vector3Proxy, CrossIsPerpendicularToBoth, ())
{
    auto const number = [] { return *rc::gen::inRange(-1000, 1000) / 8.0; };
    Object const v = vector3(number(), number(), number());
    mzComVariantC const w(vector3(number(), number(), number()));
    Object const cross = call(v, "cross", {w}).object();
    RC_ASSERT(call(cross, "skalar", {mzComVariantC(v)}).number() == 0.0);
    RC_ASSERT(call(cross, "skalar", {w}).number() == 0.0);
}

RC_GTEST_PROP(Vector3Proxy, SubUndoesAddOnExactNumbers, ())
{
    auto const number = [] { return *rc::gen::inRange(-100000, 100000) / 16.0; };
    Vector3 const start(number(), number(), number());
    Object const v = make<prxVector3dC>(start);
    mzComVariantC const w(vector3(number(), number(), number()));
    RC_ASSERT(valueOf<Vector3>(call(call(v, "add", {w}).object(), "sub", {w})) == start);
}
