#include "ProxyValues.h"

#include <OrvelMath/base/Matrix4X4C.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

using namespace proxyValues;
using scriptCall::Answer;
using scriptCall::call;
using scriptCall::read;
using scriptCall::write;

namespace {

double const pi = 3.141592653589793;

Object identity3()
{
    return make<prxMatrix3x3C>(Matrix3::identity());
}

Object identity4()
{
    return make<prxMatrix4x4C>(Matrix4::identity());
}

Object rotation3(double a, double b, double c)
{
    return call(Object(new prxMatrix3x3C), "rotAngle", {a, b, c}).object();
}

Object rotation4(double a, double b, double c)
{
    return call(Object(new prxMatrix4x4C), "rotAngle", {a, b, c}).object();
}

template <typename M>
void expectNear(M const &actual, M const &expected, double tolerance)
{
    for (int i = 0; i < int(sizeof(M) / sizeof(double)); ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "cell " << i;
    }
}

} // namespace

TEST(Matrix3Proxy, MultipliesByTheTypeOfTheArgument)
{
    Object const m = make<prxMatrix3x3C>(cells<Matrix3>({1, 2, 3, 4, 5, 6, 7, 8, 10}));
    Matrix3 const square = valueOf<Matrix3>(call(m, "mul", {mzComVariantC(m)}));
    EXPECT_TRUE(square == cells<Matrix3>({30, 36, 45, 66, 81, 102, 109, 134, 169}));
    EXPECT_TRUE(valueOf<Vector3>(call(m, "mul", {mzComVariantC(vector3(1, 2, 3))})) ==
                Vector3(30, 36, 45));
    EXPECT_TRUE(valueOf<Vector2>(call(m, "mul", {mzComVariantC(vector2(1, 2))})) ==
                Vector2(16, 20));
    EXPECT_EQ(mzExceptionTypeCast, call(m, "mul", {2.0}).code);
    EXPECT_EQ(mzExceptionTypeCast, call(m, "mul", {mzComVariantC(identity4())}).code);
}

TEST(Matrix3Proxy, InverseIsTheTranspose)
{
    Object const m = make<prxMatrix3x3C>(cells<Matrix3>({1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_TRUE(valueOf<Matrix3>(call(m, "inv")) == cells<Matrix3>({1, 4, 7, 2, 5, 8, 3, 6, 9}));
    Matrix3 const scaling = cells<Matrix3>({2, 0, 0, 0, 3, 0, 0, 0, 4});
    EXPECT_TRUE(valueOf<Matrix3>(call(make<prxMatrix3x3C>(scaling), "inv")) == scaling);
}

TEST(Matrix3Proxy, IdentChangesTheReceiver)
{
    Object const m(new prxMatrix3x3C);
    EXPECT_TRUE(valueOf<Matrix3>(m) == Matrix3());
    EXPECT_TRUE(call(m, "ident").object() == m);
    EXPECT_TRUE(valueOf<Matrix3>(m) == Matrix3::identity());
}

TEST(Matrix3Proxy, HasNoTranslationAndNoAngles)
{
    for (char const *name : {"T", "Roll", "Pitch", "Yaw"}) {
        Answer const answer = read(identity3(), name);
        EXPECT_EQ(mzExceptionNoMember, answer.code) << name;
    }
    EXPECT_EQ(mzExceptionNoMember, write(identity3(), "T", mzComVariantC(vector3(1, 2, 3))).code);
}

TEST(Matrix3Proxy, AxesAreItsColumns)
{
    Object const m = make<prxMatrix3x3C>(cells<Matrix3>({1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_TRUE(valueOf<Vector3>(read(m, "X")) == Vector3(1, 2, 3));
    EXPECT_TRUE(valueOf<Vector3>(read(m, "Y")) == Vector3(4, 5, 6));
    EXPECT_TRUE(valueOf<Vector3>(read(m, "Z")) == Vector3(7, 8, 9));
    EXPECT_TRUE(write(m, "X", mzComVariantC(vector3(-1, -2, -3))).object() == m);
    EXPECT_TRUE(write(m, "Y", mzComVariantC(vector3(-4, -5, -6))).object() == m);
    EXPECT_TRUE(write(m, "Z", mzComVariantC(vector3(-7, -8, -9))).object() == m);
    EXPECT_TRUE(valueOf<Matrix3>(m) == cells<Matrix3>({-1, -2, -3, -4, -5, -6, -7, -8, -9}));
    EXPECT_EQ(mzExceptionTypeCast, write(m, "X", 1.0).code);
    EXPECT_EQ(mzExceptionNoMember, call(m, "X", {mzComVariantC(vector3(1, 2, 3))}).code);
}

TEST(Matrix4Proxy, MultipliesByTheTypeOfTheArgument)
{
    Object const m =
        make<prxMatrix4x4C>(cells<Matrix4>({1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 1}));
    EXPECT_TRUE(valueOf<Matrix4>(call(m, "mul", {mzComVariantC(identity4())})) ==
                valueOf<Matrix4>(m));
    EXPECT_TRUE(valueOf<Matrix4>(call(m, "mul", {mzComVariantC(m)})) ==
                cells<Matrix4>({30, 36, 42, 0, 66, 81, 96, 0, 102, 126, 150, 0, 148, 182, 216, 1}));
    EXPECT_TRUE(valueOf<Vector3>(call(m, "mul", {mzComVariantC(vector3(1, 2, 3))})) ==
                Vector3(40, 47, 54));
    EXPECT_TRUE(valueOf<Vector3>(call(m, "mul", {mzComVariantC(vector2(1, 2))})) ==
                Vector3(19, 23, 27));
}

TEST(Matrix4Proxy, DoesNotDivideByTheFourthComponent)
{
    Matrix4 m = Matrix4::identity();
    m[15] = 2.0;
    EXPECT_TRUE(valueOf<Vector3>(call(make<prxMatrix4x4C>(m), "mul",
                                      {mzComVariantC(vector3(2, 4, 6))})) == Vector3(2, 4, 6));
}

TEST(Matrix4Proxy, InverseOfARigidMotionUndoesIt)
{
    Object const m = rotation4(20, -35, 110);
    write(m, "T", mzComVariantC(vector3(5, -6, 7)));
    Matrix4 const product =
        valueOf<Matrix4>(call(m, "mul", {mzComVariantC(call(m, "inv").object())}));
    expectNear(product, Matrix4::identity(), 1e-14);
}

TEST(Matrix4Proxy, InverseOfAScalingIsNone)
{
    Matrix4 const scaling = cells<Matrix4>({2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 1, 1, 1, 1});
    Matrix4 const inverse = valueOf<Matrix4>(call(make<prxMatrix4x4C>(scaling), "inv"));
    EXPECT_TRUE(inverse == cells<Matrix4>({2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, -2, -3, -4, 1}));
}

TEST(Matrix4Proxy, InverseKeepsTheFourthRow)
{
    Matrix4 const matrix = cells<Matrix4>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 1, 0, 0, 16});
    Matrix4 const inverse = valueOf<Matrix4>(call(make<prxMatrix4x4C>(matrix), "inv"));
    EXPECT_TRUE(inverse == cells<Matrix4>({1, 5, 9, 4, 2, 6, 10, 8, 3, 7, 11, 12, -1, -5, -9, 16}));
}

TEST(Matrix4Proxy, InverseOfTheIdentityHasANegativeZeroTranslation)
{
    Matrix4 const inverse = valueOf<Matrix4>(call(identity4(), "inv"));
    EXPECT_TRUE(inverse == Matrix4::identity());
    EXPECT_TRUE(std::signbit(inverse[12]));
}

TEST(Matrix4Proxy, AxesAndTranslationAreItsColumns)
{
    Object const m = make<prxMatrix4x4C>(
        cells<Matrix4>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
    EXPECT_TRUE(valueOf<Vector3>(read(m, "X")) == Vector3(1, 2, 3));
    EXPECT_TRUE(valueOf<Vector3>(read(m, "Y")) == Vector3(5, 6, 7));
    EXPECT_TRUE(valueOf<Vector3>(read(m, "Z")) == Vector3(9, 10, 11));
    EXPECT_TRUE(valueOf<Vector3>(read(m, "T")) == Vector3(13, 14, 15));
    for (char const *name : {"X", "Y", "Z", "T"}) {
        EXPECT_TRUE(write(m, name, mzComVariantC(vector3(-1, -2, -3))).object() == m);
    }
    EXPECT_TRUE(valueOf<Matrix4>(m) ==
                cells<Matrix4>({-1, -2, -3, 4, -1, -2, -3, 8, -1, -2, -3, 12, -1, -2, -3, 16}));
}

TEST(Matrix4Proxy, Conv3x3TakesTheUpperLeftPart)
{
    Object const m = make<prxMatrix4x4C>(
        cells<Matrix4>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
    EXPECT_TRUE(valueOf<Matrix3>(call(m, "conv3x3")) ==
                cells<Matrix3>({1, 2, 3, 5, 6, 7, 9, 10, 11}));
}

TEST(Rotation, AboutTheAxesIsTheProductOfTheThree)
{
    Object const x = rotation3(33, 0, 0);
    Object const y = rotation3(0, -71, 0);
    Object const z = rotation3(0, 0, 250);
    Object const xy = call(x, "mul", {mzComVariantC(y)}).object();
    Matrix3 const product = valueOf<Matrix3>(call(xy, "mul", {mzComVariantC(z)}));
    expectNear(valueOf<Matrix3>(rotation3(33, -71, 250)), product, 1e-15);
}

TEST(Rotation, AboutEachAxisIsRightHanded)
{
    double const c = std::cos(30.0 * pi / 180.0);
    double const s = std::sin(30.0 * pi / 180.0);
    expectNear(valueOf<Matrix3>(rotation3(30, 0, 0)), cells<Matrix3>({1, 0, 0, 0, c, s, 0, -s, c}),
               0.0);
    expectNear(valueOf<Matrix3>(rotation3(0, 30, 0)), cells<Matrix3>({c, 0, -s, 0, 1, 0, s, 0, c}),
               0.0);
    expectNear(valueOf<Matrix3>(rotation3(0, 0, 30)), cells<Matrix3>({c, s, 0, -s, c, 0, 0, 0, 1}),
               0.0);
}

TEST(Rotation, OfTheSquareMatrixReplacesAllCells)
{
    Object const m = make<prxMatrix4x4C>(
        cells<Matrix4>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
    EXPECT_TRUE(call(m, "rotAngle", {10.0, 20.0, 30.0}).object() == m);
    Matrix4 const rotation = valueOf<Matrix4>(m);
    for (int const zero : {3, 7, 11, 12, 13, 14}) {
        EXPECT_EQ(0.0, rotation[zero]);
    }
    EXPECT_EQ(1.0, rotation[15]);
    Matrix3 const upper = valueOf<Matrix3>(rotation3(10, 20, 30));
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(upper(row, column), rotation(row, column));
        }
    }
}

TEST(Rotation, IsNotThatOfTheTransformation)
{
    Matrix4X4C other;
    other.Rotate(10, 20, 30);
    matrixC4x4<double> const image = other;
    Matrix4 const rotation = valueOf<Matrix4>(rotation4(10, 20, 30));
    EXPECT_GT(std::fabs(image[1] - rotation[1]), 0.1);
}

TEST(Rotation, AboutAVectorAgreesWithTheAxes)
{
    Object const m(new prxMatrix4x4C);
    auto const about = [&m](double x, double y, double z, double angle) {
        EXPECT_TRUE(call(m, "rotVector", {mzComVariantC(vector3(x, y, z)), angle}).object() == m);
        return valueOf<Matrix4>(m);
    };
    expectNear(about(5, 0, 0, 40), valueOf<Matrix4>(rotation4(40, 0, 0)), 1e-15);
    expectNear(about(0, 0.1, 0, 40), valueOf<Matrix4>(rotation4(0, 40, 0)), 1e-15);
    expectNear(about(0, 0, 3, 40), valueOf<Matrix4>(rotation4(0, 0, 40)), 1e-15);
    expectNear(about(0, 0, -3, -40), valueOf<Matrix4>(rotation4(0, 0, 40)), 1e-15);
}

TEST(Rotation, AboutAVectorIsToTheLastBitTheFormula)
{
    Object const m(new prxMatrix4x4C);
    call(m, "rotVector", {mzComVariantC(vector3(1, -2, 3)), 25.0});
    double const length = std::sqrt(14.0);
    double const x = 1.0 / length;
    double const y = -2.0 / length;
    double const z = 3.0 / length;
    double const c = std::cos(25.0 * pi / 180.0);
    double const s = std::sin(25.0 * pi / 180.0);
    EXPECT_TRUE(
        valueOf<Matrix4>(m) ==
        cells<Matrix4>({(1 - x * x) * c + x * x, x * y * (1 - c) + s * z, x * z * (1 - c) - s * y,
                        0, x * y * (1 - c) - s * z, (1 - y * y) * c + y * y,
                        y * z * (1 - c) + s * x, 0, x * z * (1 - c) + s * y,
                        y * z * (1 - c) - s * x, (1 - z * z) * c + z * z, 0, 0, 0, 0, 1}));
}

TEST(Rotation, AboutAVectorLosesTheTranslation)
{
    Object const m = make<prxMatrix4x4C>(
        cells<Matrix4>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
    call(m, "rotVector", {mzComVariantC(vector3(1, 1, 1)), 120.0});
    // A third of a turn about the diagonal sends x to y, y to z and z to x.
    expectNear(valueOf<Matrix4>(m),
               cells<Matrix4>({0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1}), 1e-15);
}

TEST(Rotation, AboutTheZeroVectorIsNan)
{
    Object const m(new prxMatrix4x4C);
    call(m, "rotVector", {mzComVariantC(vector3(0, 0, 0)), 10.0});
    Matrix4 const rotation = valueOf<Matrix4>(m);
    EXPECT_TRUE(std::isnan(rotation[0]));
    EXPECT_TRUE(std::isnan(rotation[6]));
    EXPECT_EQ(0.0, rotation[3]);
    EXPECT_EQ(1.0, rotation[15]);
}

TEST(EulerAngles, OfTheZeroMatrixAreZero)
{
    Object const m = call(Object(new prxMathFactoryC), "createmat4x4").object();
    for (char const *name : {"Roll", "Pitch", "Yaw"}) {
        EXPECT_EQ(0.0, read(m, name).number()) << name;
    }
}

TEST(EulerAngles, OfARotationAboutOneAxisChangePlaceAndSign)
{
    auto const expectAngles = [](Object const &m, double roll, double pitch, double yaw) {
        EXPECT_NEAR(read(m, "Roll").number(), roll, 1e-13);
        EXPECT_NEAR(read(m, "Pitch").number(), pitch, 1e-13);
        EXPECT_NEAR(read(m, "Yaw").number(), yaw, 1e-13);
    };
    expectAngles(rotation4(30, 0, 0), 0, 0, -30);
    expectAngles(rotation4(0, 30, 0), -30, 0, 0);
    expectAngles(rotation4(0, 0, 30), 0, -30, 0);
}

TEST(EulerAngles, DoNotReadTheFourthRow)
{
    Matrix4 matrix = valueOf<Matrix4>(rotation4(30, 0, 0));
    matrix[3] = matrix[7] = matrix[11] = matrix[15] = 9.0;
    EXPECT_NEAR(read(make<prxMatrix4x4C>(matrix), "Yaw").number(), -30, 1e-13);
}

TEST(AxisVector, ReadsAndWritesTheMatrix)
{
    Object const m(new prxMatrix4x4C);
    call(m, "ident");
    EXPECT_TRUE(valueOf<Vector3>(read(m, "X")) == Vector3(1, 0, 0));
    Object const x = read(m, "X").object();
    EXPECT_TRUE(call(x, "x", {3.0}).object() == x);
    EXPECT_EQ(3.0, read(read(m, "X").object(), "x").number());
    EXPECT_EQ(3.0, read(x, "x").number());
    EXPECT_EQ(3.0, valueOf<Matrix4>(m)[0]);
    EXPECT_TRUE(valueOf<Vector3>(call(m, "mul", {mzComVariantC(vector3(1, 0, 0))})) ==
                Vector3(3, 0, 0));
}

TEST(AxisVector, SeesTheMatrixAsItIsNow)
{
    Object const m = identity3();
    Object const y = read(m, "Y").object();
    write(m, "Y", mzComVariantC(vector3(7, 8, 9)));
    EXPECT_TRUE(valueOf<Vector3>(y) == Vector3(7, 8, 9));
    EXPECT_EQ(24.0, call(y, "skalar", {mzComVariantC(vector3(1, 1, 1))}).number());
    EXPECT_TRUE(valueOf<Vector3>(call(y, "add", {mzComVariantC(y)})) == Vector3(14, 16, 18));
    EXPECT_TRUE(valueOf<Vector3>(y) == Vector3(7, 8, 9));
}

TEST(AxisVector, EachWritesItsOwnCells)
{
    Object const m3(new prxMatrix3x3C);
    Object const m4(new prxMatrix4x4C);
    double start = 1.0;
    for (char const *name : {"X", "Y", "Z", "T"}) {
        if (*name != 'T') {
            call(read(m3, name).object(), "", {start, start + 1, start + 2});
        }
        call(read(m4, name).object(), "", {start, start + 1, start + 2});
        start += 3;
    }
    EXPECT_TRUE(valueOf<Matrix3>(m3) == cells<Matrix3>({1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_TRUE(valueOf<Matrix4>(m4) ==
                cells<Matrix4>({1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 0}));
}

TEST(AxisVector, KeepsItsMatrixAlive)
{
    int const before = proxyObjectC::liveObjectCount();
    {
        Object x;
        {
            Object const m = identity4();
            x = read(m, "X").object();
        }
        EXPECT_EQ(before + 2, proxyObjectC::liveObjectCount());
        EXPECT_EQ(1.0, read(x, "x").number());
        EXPECT_TRUE(call(x, "y", {4.0}).ok);
        EXPECT_TRUE(valueOf<Vector3>(x) == Vector3(1, 4, 0));
    }
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST(AxisVector, CountsTheMatrixOncePerReference)
{
    mzComPtrT<prxMatrix3x3C> const m(new prxMatrix3x3C);
    prxVector3dC *x = m->getXVec();
    EXPECT_EQ(2, m->addRef());
    m->release();
    x->addRef();
    x->addRef();
    EXPECT_EQ(4, m->addRef());
    m->release();
    EXPECT_EQ(1, x->release());
    EXPECT_EQ(3, m->addRef());
    m->release();
    EXPECT_EQ(0, x->release());
    EXPECT_EQ(2, m->addRef());
    m->release();
}

TEST(AxisVector, ReadingThroughTheWrapperReachesTheMatrix)
{
    mzComPtrT<Counting<prxMatrix3x3C>> const m(new Counting<prxMatrix3x3C>);
    m->ident();
    m->writes = 0;
    mzComPtrT<prxVector3dC> const x(m->getXVec());
    EXPECT_EQ(0, m->writes);
    EXPECT_EQ(1.0, x->getx());
    EXPECT_EQ(2, m->writes); // reading the axis writes once, writing it back once more
    EXPECT_EQ(1.0, x->len());
    EXPECT_EQ(3, m->writes);
}

TEST(AxisVector, TakesAndGivesVariants)
{
    mzComPtrT<prxMatrix4x4C> const m(new prxMatrix4x4C);
    mzComPtrT<prxVector3dC> const t(m->getTVec());
    t->setComVariant(mzComVariantC(vector3(1, 2, 3)));
    EXPECT_TRUE(m->getValue().axis(3) == Vector3(1, 2, 3));
    Vector3 value;
    EXPECT_EQ(mzUserDataOk, t->getComVariant().getUserData(proxyValueTypeId<Vector3>(), &value));
    EXPECT_TRUE(value == Vector3(1, 2, 3));
    t->setComVariant(mzComVariantC("word"));
    EXPECT_TRUE(m->getValue().axis(3) == Vector3(0, 0, 0));
}

TEST(MatrixWrapper, WhichMembersOfTheSquareMatrixUseItAndWriteBack)
{
    mzComPtrT<Counting<prxMatrix4x4C>> const m(new Counting<prxMatrix4x4C>);
    auto const expectCounts = [&m](int handles, int writes, auto action) {
        m->handles = 0;
        m->writes = 0;
        action();
        EXPECT_EQ(handles, m->handles);
        EXPECT_EQ(writes, m->writes);
    };
    expectCounts(1, 1, [&] { m->ident(); });
    expectCounts(1, 1, [&] { m->setXVec(Vector3(1, 2, 3)); });
    expectCounts(1, 1, [&] { m->setYVec(Vector3(1, 2, 3)); });
    expectCounts(1, 1, [&] { m->setZVec(Vector3(1, 2, 3)); });
    expectCounts(1, 1, [&] { m->setTVec(Vector3(1, 2, 3)); });
    expectCounts(0, 1, [&] { m->rotAngle(1, 2, 3); });
    expectCounts(0, 1, [&] { m->rotVector(Vector3(1, 2, 3), 4); });
    expectCounts(12, 12, [&] { m->getRoll(); });
    expectCounts(12, 12, [&] { m->getPitch(); });
    expectCounts(12, 12, [&] { m->getYaw(); });
    expectCounts(0, 0, [&] { drop(m->inv4x4()); });
    expectCounts(0, 0, [&] { drop(m->conv3x3()); });
    expectCounts(0, 0, [&] { drop(m->mulMat4x4(Matrix4())); });
    expectCounts(0, 0, [&] { drop(m->mulVec3dMat4x4(Vector3())); });
    expectCounts(0, 0, [&] { drop(m->mulVec2dMat4x4(Vector2())); });
}

TEST(MatrixWrapper, WhichMembersOfTheSmallMatrixUseItAndWriteBack)
{
    mzComPtrT<Counting<prxMatrix3x3C>> const m(new Counting<prxMatrix3x3C>);
    auto const expectCounts = [&m](int uses, auto action) {
        m->handles = 0;
        m->writes = 0;
        action();
        EXPECT_EQ(uses, m->handles);
        EXPECT_EQ(uses, m->writes);
    };
    expectCounts(1, [&] { m->ident(); });
    expectCounts(1, [&] { m->rotAngle(1, 2, 3); });
    expectCounts(1, [&] { m->setXVec(Vector3(1, 2, 3)); });
    expectCounts(1, [&] { m->setYVec(Vector3(1, 2, 3)); });
    expectCounts(1, [&] { m->setZVec(Vector3(1, 2, 3)); });
    expectCounts(0, [&] { drop(m->inv3x3()); });
    expectCounts(0, [&] { drop(m->mulMat3x3(Matrix3())); });
    expectCounts(0, [&] { drop(m->mulVec3x3(Vector3())); });
    expectCounts(0, [&] { drop(m->mulVec2x3(Vector2())); });
}

RC_GTEST_PROP(Rotation, IsOrthonormalAndUndoneByItsInverse, ())
{
    auto const angle = [] { return *rc::gen::inRange(-720000, 720000) / 1000.0; };
    Object const m = rotation4(angle(), angle(), angle());
    Matrix4 const product =
        valueOf<Matrix4>(call(m, "mul", {mzComVariantC(call(m, "inv").object())}));
    for (int i = 0; i < 16; ++i) {
        RC_ASSERT(std::fabs(product[i] - Matrix4::identity()[i]) < 1e-14);
    }
}

RC_GTEST_PROP(Rotation, AboutAVectorLeavesItAndTurnsByTheAngle, ())
{
    auto const number = [] { return *rc::gen::inRange(1, 1000) / 100.0; };
    double const angle = *rc::gen::inRange(-180000, 180000) / 1000.0;
    Object const axis = vector3(number(), -number(), number());
    Object const m(new prxMatrix4x4C);
    call(m, "rotVector", {mzComVariantC(axis), angle});
    Vector3 const image = valueOf<Vector3>(call(m, "mul", {mzComVariantC(axis)}));
    RC_ASSERT((image - valueOf<Vector3>(axis)).length() < 1e-13);
    Matrix4 const rotation = valueOf<Matrix4>(m);
    double const trace = rotation[0] + rotation[5] + rotation[10];
    RC_ASSERT(std::fabs(trace - (1.0 + 2.0 * std::cos(angle * pi / 180.0))) < 1e-14);
}
