#include <OrvelMath/proxymath/prxMatrix3x3C.h>

#include <OrvelMath/proxymath/prxMathFactoryC.h>
#include <OrvelMath/proxymath/prxVariantUserTypeRefC_p.h>
#include <OrvelMath/proxymath/prxVector2dC.h>
#include <OrvelMath/proxymath/prxVector3dC.h>
#include <OrvelMath/proxymath/rotation_p.h>

using AxisOfMatrix = prxVariantUserTypeRefC<vectorC3d<double>, prxVector3dC, prxMatrix3x3C>;

prxMatrix3x3C::prxMatrix3x3C() = default;

prxMatrix3x3C::prxMatrix3x3C(matrixC3x3<double> const &value)
{
    setValue(value);
}

prxMatrix3x3C::~prxMatrix3x3C() = default;

prxMatrix3x3C *prxMatrix3x3C::mulMat3x3(matrixC3x3<double> const &other) const
{
    return new prxMatrix3x3C(getValue() * other);
}

prxVector3dC *prxMatrix3x3C::mulVec3x3(vectorC3d<double> const &vector) const
{
    return new prxVector3dC(getValue() * vector);
}

prxVector2dC *prxMatrix3x3C::mulVec2x3(vectorC2d<double> const &point) const
{
    return new prxVector2dC(getValue() * point);
}

prxMatrix3x3C *prxMatrix3x3C::inv3x3() const
{
    matrixC3x3<double> const matrix = getValue();
    matrixC3x3<double> transposed;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            transposed(row, column) = matrix(column, row);
        }
    }
    return new prxMatrix3x3C(transposed);
}

prxMatrix3x3C *prxMatrix3x3C::ident()
{
    value()->operator=(matrixC3x3<double>::identity());
    return this;
}

prxVector3dC *prxMatrix3x3C::getXVec()
{
    return new AxisOfMatrix(this, &prxMatrix3x3C::getX, &prxMatrix3x3C::setX);
}

prxVector3dC *prxMatrix3x3C::getYVec()
{
    return new AxisOfMatrix(this, &prxMatrix3x3C::getY, &prxMatrix3x3C::setY);
}

prxVector3dC *prxMatrix3x3C::getZVec()
{
    return new AxisOfMatrix(this, &prxMatrix3x3C::getZ, &prxMatrix3x3C::setZ);
}

prxMatrix3x3C *prxMatrix3x3C::setXVec(vectorC3d<double> const &axis)
{
    setX(axis);
    return this;
}

prxMatrix3x3C *prxMatrix3x3C::setYVec(vectorC3d<double> const &axis)
{
    setY(axis);
    return this;
}

prxMatrix3x3C *prxMatrix3x3C::setZVec(vectorC3d<double> const &axis)
{
    setZ(axis);
    return this;
}

prxMatrix3x3C *prxMatrix3x3C::rotAngle(double a, double b, double c)
{
    RotationColumns const rotation = rotationAboutAxes(a, b, c);
    prxValWrapperC edit = value();
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            edit->operator()(row, column) = rotation.column[column][row];
        }
    }
    return this;
}

prxMathFactoryC *prxMatrix3x3C::getFactory() const
{
    return new prxMathFactoryC;
}

vectorC3d<double> prxMatrix3x3C::getX()
{
    return value()->axis(0);
}

vectorC3d<double> prxMatrix3x3C::getY()
{
    return value()->axis(1);
}

vectorC3d<double> prxMatrix3x3C::getZ()
{
    return value()->axis(2);
}

void prxMatrix3x3C::setX(vectorC3d<double> const &axis)
{
    value()->setAxis(0, axis);
}

void prxMatrix3x3C::setY(vectorC3d<double> const &axis)
{
    value()->setAxis(1, axis);
}

void prxMatrix3x3C::setZ(vectorC3d<double> const &axis)
{
    value()->setAxis(2, axis);
}
