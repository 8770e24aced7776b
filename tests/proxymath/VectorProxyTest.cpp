#include "ProxyValues.h"

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

using namespace proxyValues;
using scriptCall::Answer;
using scriptCall::call;
using scriptCall::read;
using scriptCall::write;

namespace {

double const inf = std::numeric_limits<double>::infinity();
double const notANumber = std::numeric_limits<double>::quiet_NaN();

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
    const Object v = vector3(1, 2, 3);
    const mzComVariantC w(vector3(4, -5, 6));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "add", {w})) == Vector3(5, -3, 9));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "sub", {w})) == Vector3(-3, 7, -3));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "mul", {2.0})) == Vector3(2, 4, 6));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "div", {2.0})) == Vector3(0.5, 1, 1.5));
    EXPECT_TRUE(valueOf<Vector3>(call(v, "cross", {w})) == Vector3(27, 6, -13));
    EXPECT_EQ(call(v, "skalar", {w}).number(), 12.0);
    EXPECT_EQ(call(vector3(2, 3, 6), "len").number(), 7.0);
}

TEST(Vector3Proxy, ArithmeticMakesNewObjectsAndLeavesTheOldAlone)
{
    const Object v = vector3(1, 2, 3);
    const mzComVariantC w(vector3(4, 5, 6));
    for (char const *name : {"add", "sub", "cross"}) {
        const Answer answer = call(v, name, {w});
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
    const Object v = vector3(1, 2, 3);
    EXPECT_TRUE(call(call(v, "x", {5.0}).object(), "y", {6.0}).object() == v);
    EXPECT_TRUE(write(v, "z", 7.0).object() == v);
    EXPECT_TRUE(valueOf<Vector3>(v) == Vector3(5, 6, 7));
    EXPECT_EQ(read(v, "x").number(), 5.0);
    EXPECT_EQ(read(v, "y").number(), 6.0);
    EXPECT_EQ(read(v, "z").number(), 7.0);
    EXPECT_TRUE(call(v, "z", {8.0}).object() == v);
    EXPECT_EQ(read(v, "z").number(), 8.0);
}

TEST(Vector3Proxy, NormGivesTheLengthAskedFor)
{
    double const factor = 2.0 / 5.0;
    EXPECT_TRUE(valueOf<Vector3>(call(vector3(3, 4, 0), "norm", {2.0})) ==
                Vector3(3 * factor, 4 * factor, 0));
    const Vector3 result = valueOf<Vector3>(call(vector3(3, 4, 0), "norm", {2.0}));
    EXPECT_DOUBLE_EQ(result.x(), 1.2);
    EXPECT_DOUBLE_EQ(result.y(), 1.6);
    EXPECT_EQ(result.z(), 0.0);
    EXPECT_TRUE(valueOf<Vector3>(call(vector3(0, 0, 5), "norm", {-1.0})) == Vector3(0, 0, -1));
}

TEST(Vector3Proxy, NormOfZeroIsNan)
{
    const Vector3 result = valueOf<Vector3>(call(vector3(0, 0, 0), "norm", {2.0}));
    EXPECT_TRUE(std::isnan(result.x()) && std::isnan(result.y()) && std::isnan(result.z()));
    const Vector2 flat = valueOf<Vector2>(call(vector2(0, 0), "norm", {2.0}));
    EXPECT_TRUE(std::isnan(flat.x()) && std::isnan(flat.y()));
}

TEST(Vector3Proxy, DivisionHasNoGuard)
{
    const Vector3 result = valueOf<Vector3>(call(vector3(1, -1, 0), "div", {0.0}));
    EXPECT_EQ(result.x(), inf);
    EXPECT_EQ(result.y(), -inf);
    EXPECT_TRUE(std::isnan(result.z()));
}

TEST(Vector3Proxy, NanAndInfinityPassThrough)
{
    const Object v = vector3(notANumber, inf, 1);
    EXPECT_TRUE(std::isnan(call(v, "len").number()));
    EXPECT_TRUE(std::isnan(read(v, "x").number()));
    EXPECT_EQ(read(v, "y").number(), inf);
    const Vector3 sum = valueOf<Vector3>(call(v, "add", {mzComVariantC(vector3(1, 1, 1))}));
    EXPECT_TRUE(std::isnan(sum.x()));
    EXPECT_EQ(sum.y(), inf);
    EXPECT_EQ(sum.z(), 2.0);
    EXPECT_EQ(call(vector3(inf, 0, 0), "len").number(), inf);
}

TEST(Vector3Proxy, FactoryMakesANewFactory)
{
    const Answer first = read(vector3(1, 2, 3), "Factory");
    EXPECT_STREQ(first.value.typeName().utf8(), "prxMathFactoryC");
    EXPECT_TRUE(read(vector2(1, 2), "Factory").ok);
}

TEST(Vector2Proxy, Arithmetic)
{
    const Object v = vector2(3, 4);
    const mzComVariantC w(vector2(1, -2));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "add", {w})) == Vector2(4, 2));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "sub", {w})) == Vector2(2, 6));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "mul", {2.0})) == Vector2(6, 8));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "div", {2.0})) == Vector2(1.5, 2));
    EXPECT_EQ(call(v, "skalar", {w}).number(), -5.0);
    EXPECT_EQ(call(v, "len").number(), 5.0);
    EXPECT_TRUE(valueOf<Vector2>(call(v, "norm", {10.0})) == Vector2(6, 8));
    EXPECT_TRUE(valueOf<Vector2>(call(v, "perpendicular")) == Vector2(-4, 3));
    EXPECT_TRUE(valueOf<Vector2>(v) == Vector2(3, 4));
}

TEST(Vector2Proxy, SettersReturnTheReceiver)
{
    const Object v = vector2(3, 4);
    EXPECT_TRUE(call(call(v, "x", {5.0}).object(), "y", {6.0}).object() == v);
    EXPECT_TRUE(valueOf<Vector2>(v) == Vector2(5, 6));
    EXPECT_TRUE(call(v, "", {7.0, 8.0}).object() == v);
    EXPECT_EQ(read(v, "x").number(), 7.0);
    EXPECT_EQ(read(v, "y").number(), 8.0);
    EXPECT_TRUE(write(v, "x", 1.0).ok && write(v, "y", 2.0).ok);
    EXPECT_TRUE(valueOf<Vector2>(v) == Vector2(1, 2));
}

TEST(Vector2Proxy, HasNeitherCrossNorZ)
{
    EXPECT_EQ(call(vector2(1, 2), "cross", {mzComVariantC(vector2(1, 2))}).code,
              mzExceptionNoMember);
    EXPECT_EQ(read(vector2(1, 2), "z").code, mzExceptionNoMember);
    EXPECT_EQ(call(vector3(1, 2, 3), "perpendicular").code, mzExceptionNoMember);
}

TEST(ValueWrapper, ReadingThroughItWritesBack)
{
    mzComPtrT<Counting<prxVector3dC>> const v(new Counting<prxVector3dC>(Vector3(1, 2, 3)));
    EXPECT_EQ(v->getx(), 1.0);
    EXPECT_EQ(v->writes, 1);
    EXPECT_EQ(v->gety(), 2.0);
    EXPECT_EQ(v->getz(), 3.0);
    EXPECT_EQ(v->writes, 3);
    v->setx(4);
    EXPECT_EQ(v->writes, 4);
    v->setXYZ(5, 6, 7);
    EXPECT_EQ(v->writes, 7);
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
    EXPECT_EQ(v->writes, 0);
}

TEST(ValueWrapper, IsUsedByTheFlatVectorInTheSameWay)
{
    mzComPtrT<Counting<prxVector2dC>> const v(new Counting<prxVector2dC>);
    v->setXY(3, 4);
    EXPECT_EQ(v->writes, 2);
    EXPECT_EQ(v->getx() + v->gety(), 7.0);
    EXPECT_EQ(v->writes, 4);
    v->setx(5);
    v->sety(6);
    EXPECT_EQ(v->writes, 6);
    drop(v->perpendicular());
    drop(v->norm(1));
    EXPECT_EQ(v->len(), std::sqrt(61.0));
    EXPECT_EQ(v->writes, 6);
}

TEST(ValueWrapper, WritesOnlyWhatWasTouched)
{
    mzComPtrT<Counting<prxVector3dC>> const v(new Counting<prxVector3dC>(Vector3(1, 2, 3)));
    {
        auto edit = v->value();
        EXPECT_EQ(v->addRef(), 3);
        v->release();
    }
    EXPECT_EQ(v->writes, 0);
    {
        auto edit = v->value();
        edit->x() = 10;
        edit->y() = 20;
        EXPECT_TRUE(v->getValue() == Vector3(1, 2, 3));
    }
    EXPECT_EQ(v->writes, 1);
    EXPECT_TRUE(v->getValue() == Vector3(10, 20, 3));
    EXPECT_EQ(v->addRef(), 2);
    v->release();
}

TEST(ValueProxy, AVariantOfAnotherTypeReadsAsZero)
{
    mzComPtrT<prxVector3dC> const v(new prxVector3dC(Vector3(1, 2, 3)));
    v->setComVariant(mzComVariantC(5.0));
    EXPECT_TRUE(v->getValue() == Vector3(0, 0, 0));
    v->setVariant(QStringLiteral("word"));
    EXPECT_EQ(v->len(), 0.0);
}

TEST(ValueProxy, IsMadeFromAValue)
{
    mzComPtrT<PlainProxy> const plain(new PlainProxy(Vector3(1, 2, 3)));
    EXPECT_TRUE(plain->getValue() == Vector3(1, 2, 3));
    EXPECT_EQ(plain->getComVariant().userType(), proxyValueTypeId<Vector3>());
}

TEST(ValueProxy, AnObjectInItsVariantIsReadAsItsValue)
{
    mzComPtrT<prxVector3dC> const v(new prxVector3dC);
    v->setComVariant(mzComVariantC(vector3(4, 5, 6)));
    EXPECT_TRUE(v->getValue() == Vector3(4, 5, 6));
}

TEST(MathFactory, MakesZeroObjects)
{
    const Object factory(new prxMathFactoryC);
    EXPECT_TRUE(valueOf<Matrix4>(call(factory, "createmat4x4")) == Matrix4());
    EXPECT_TRUE(valueOf<Matrix3>(call(factory, "createmat3x3")) == Matrix3());
    EXPECT_TRUE(valueOf<Vector3>(call(factory, "createvec3d")) == Vector3());
    EXPECT_TRUE(valueOf<Vector2>(call(factory, "createvec2d")) == Vector2());
}

TEST(MathFactory, CreatesByName)
{
    const Object factory(new prxMathFactoryC);
    char const *names[][2] = {{"matrix3x3", "prxMatrix3x3C"},
                              {"matrix4x4", "prxMatrix4x4C"},
                              {"vector3d", "prxVector3dC"},
                              {"vector2d", "prxVector2dC"}};
    for (auto const &name : names) {
        EXPECT_STREQ(call(factory, "Create", {name[0]}).value.typeName().utf8(), name[1]);
    }
    for (char const *name : {"Vector3d", "VECTOR3D", "linquet.vector3d", "vector4d", ""}) {
        const Answer answer = call(factory, "Create", {name});
        EXPECT_TRUE(answer.ok) << name;
        EXPECT_TRUE(answer.value.isEmpty()) << name;
    }
    EXPECT_EQ(call(factory, "Create", {1.0}).code, mzExceptionTypeCast);
}

RC_GTEST_PROP(Vector3Proxy, CrossIsPerpendicularToBoth, ())
{
    auto const number = [] { return *rc::gen::inRange(-1000, 1000) / 8.0; };
    const Object v = vector3(number(), number(), number());
    const mzComVariantC w(vector3(number(), number(), number()));
    const Object cross = call(v, "cross", {w}).object();
    RC_ASSERT(call(cross, "skalar", {mzComVariantC(v)}).number() == 0.0);
    RC_ASSERT(call(cross, "skalar", {w}).number() == 0.0);
}

RC_GTEST_PROP(Vector3Proxy, SubUndoesAddOnExactNumbers, ())
{
    auto const number = [] { return *rc::gen::inRange(-100000, 100000) / 16.0; };
    const Vector3 start(number(), number(), number());
    const Object v = make<prxVector3dC>(start);
    const mzComVariantC w(vector3(number(), number(), number()));
    RC_ASSERT(valueOf<Vector3>(call(call(v, "add", {w}).object(), "sub", {w})) == start);
}
