#include <OrvelMath/proxymath/prxMatrix4x4C.h>

#include <OrvelMath/base/Matrix4X4C.h>
#include <OrvelMath/base/Quaternion4D.h>
#include <OrvelMath/proxymath/prxMathFactoryC.h>
#include <OrvelMath/proxymath/prxMatrix3x3C.h>
#include <OrvelMath/proxymath/prxVariantUserTypeRefC_p.h>
#include <OrvelMath/proxymath/prxVector2dC.h>
#include <OrvelMath/proxymath/prxVector3dC.h>
#include <OrvelMath/proxymath/rotation_p.h>

using AxisOfMatrix = prxVariantUserTypeRefC<vectorC3d<double>, prxVector3dC, prxMatrix4x4C>;

namespace {

/// The right-handed rotation about an axis of length 1 through the origin (Rodrigues).
RotationColumns rotationAboutVector(vectorC3d<double> const &axis, double angle)
{
    double const c = std::cos(engine::degreesTimesPiBy180(angle));
    double const s = std::sin(engine::degreesTimesPiBy180(angle));
    double const x = axis.x();
    double const y = axis.y();
    double const z = axis.z();
    return {{{(1.0 - x * x) * c + x * x, x * y * (1.0 - c) + s * z, x * z * (1.0 - c) - s * y},
             {x * y * (1.0 - c) - s * z, (1.0 - y * y) * c + y * y, y * z * (1.0 - c) + s * x},
             {x * z * (1.0 - c) + s * y, y * z * (1.0 - c) - s * x, (1.0 - z * z) * c + z * z}}};
}

/// The rotation without translation.
matrixC4x4<double> homogeneous(RotationColumns const &rotation)
{
    matrixC4x4<double> matrix;
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            matrix(row, column) = rotation.column[column][row];
        }
    }
    matrix(3, 3) = 1.0;
    return matrix;
}

/// As Quaternion4D::GetEuler gives them; radians.
struct EulerAngles
{
    double first;
    double second;
    double third;
};

EulerAngles eulerAnglesOf(prxMatrix4x4C &proxy)
{
    // A handle per element: each reading writes the matrix back, as a script sees that listens to
    // setComVariant.
    auto const element = [&proxy](int cell) { return proxy.value()->operator[](cell); };
    auto const column = [&element](int i) {
        return Point3D(element(4 * i), element(4 * i + 1), element(4 * i + 2));
    };
    Matrix4X4C matrix; // the identity, whose fourth row stays
    matrix.SetMatX(column(0));
    matrix.SetMatY(column(1));
    matrix.SetMatZ(column(2));
    matrix.SetMatT(column(3));

    Quaternion4D quaternion;
    quaternion.SetMatrix(matrix);
    EulerAngles angles;
    quaternion.GetEuler(angles.first, angles.second, angles.third);
    return angles;
}

} // namespace

prxMatrix4x4C::prxMatrix4x4C() = default;

prxMatrix4x4C::prxMatrix4x4C(matrixC4x4<double> const &value)
{
    setValue(value);
}

prxMatrix4x4C::~prxMatrix4x4C() = default;

prxMatrix4x4C *prxMatrix4x4C::mulMat4x4(matrixC4x4<double> const &other) const
{
    return new prxMatrix4x4C(getValue() * other);
}

prxVector3dC *prxMatrix4x4C::mulVec3dMat4x4(vectorC3d<double> const &point) const
{
    return new prxVector3dC(getValue() * point);
}

prxVector3dC *prxMatrix4x4C::mulVec2dMat4x4(vectorC2d<double> const &point) const
{
    return new prxVector3dC(getValue() * point);
}

prxMatrix4x4C *prxMatrix4x4C::inv4x4() const
{
    matrixC4x4<double> const matrix = getValue();
    matrixC4x4<double> inverse = matrix; // keeps the fourth row
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            inverse(row, column) = matrix(column, row);
        }
    }
    inverse.setAxis(3, vectorC3d<double>());
    inverse.setAxis(3, inverse * matrix.axis(3) * -1.0);
    return new prxMatrix4x4C(inverse);
}

prxMatrix4x4C *prxMatrix4x4C::rotAngle(double a, double b, double c)
{
    setValue(homogeneous(rotationAboutAxes(a, b, c)));
    return this;
}

prxMatrix4x4C *prxMatrix4x4C::rotVector(vectorC3d<double> const &axis, double angle)
{
    setValue(homogeneous(rotationAboutVector(axis / axis.length(), angle)));
    return this;
}

prxMatrix3x3C *prxMatrix4x4C::conv3x3() const
{
    matrixC4x4<double> const matrix = getValue();
    return new prxMatrix3x3C(matrixC3x3<double>(matrix.axis(0), matrix.axis(1), matrix.axis(2)));
}

prxMatrix4x4C *prxMatrix4x4C::ident()
{
    value()->operator=(matrixC4x4<double>::identity());
    return this;
}

prxVector3dC *prxMatrix4x4C::getXVec()
{
    return new AxisOfMatrix(this, &prxMatrix4x4C::getX, &prxMatrix4x4C::setX);
}

prxVector3dC *prxMatrix4x4C::getYVec()
{
    return new AxisOfMatrix(this, &prxMatrix4x4C::getY, &prxMatrix4x4C::setY);
}

prxVector3dC *prxMatrix4x4C::getZVec()
{
    return new AxisOfMatrix(this, &prxMatrix4x4C::getZ, &prxMatrix4x4C::setZ);
}

prxVector3dC *prxMatrix4x4C::getTVec()
{
    return new AxisOfMatrix(this, &prxMatrix4x4C::getT, &prxMatrix4x4C::setT);
}

prxMatrix4x4C *prxMatrix4x4C::setXVec(vectorC3d<double> const &axis)
{
    setX(axis);
    return this;
}

prxMatrix4x4C *prxMatrix4x4C::setYVec(vectorC3d<double> const &axis)
{
    setY(axis);
    return this;
}

prxMatrix4x4C *prxMatrix4x4C::setZVec(vectorC3d<double> const &axis)
{
    setZ(axis);
    return this;
}

prxMatrix4x4C *prxMatrix4x4C::setTVec(vectorC3d<double> const &translation)
{
    setT(translation);
    return this;
}

double prxMatrix4x4C::getRoll()
{
    return engine::radiansTimes180ByPi(eulerAnglesOf(*this).first);
}

double prxMatrix4x4C::getPitch()
{
    return engine::radiansTimes180ByPi(eulerAnglesOf(*this).second);
}

double prxMatrix4x4C::getYaw()
{
    return engine::radiansTimes180ByPi(eulerAnglesOf(*this).third);
}

prxMathFactoryC *prxMatrix4x4C::getFactory() const
{
    return new prxMathFactoryC;
}

vectorC3d<double> prxMatrix4x4C::getX()
{
    return value()->axis(0);
}

vectorC3d<double> prxMatrix4x4C::getY()
{
    return value()->axis(1);
}

vectorC3d<double> prxMatrix4x4C::getZ()
{
    return value()->axis(2);
}

vectorC3d<double> prxMatrix4x4C::getT()
{
    return value()->axis(3);
}

void prxMatrix4x4C::setX(vectorC3d<double> const &axis)
{
    value()->setAxis(0, axis);
}

void prxMatrix4x4C::setY(vectorC3d<double> const &axis)
{
    value()->setAxis(1, axis);
}

void prxMatrix4x4C::setZ(vectorC3d<double> const &axis)
{
    value()->setAxis(2, axis);
}

void prxMatrix4x4C::setT(vectorC3d<double> const &translation)
{
    value()->setAxis(3, translation);
}
