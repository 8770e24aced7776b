#include <OrvelMath/proxymath/prxVector3dC.h>

#include <OrvelMath/proxymath/prxMathFactoryC.h>

prxVector3dC::prxVector3dC() = default;

prxVector3dC::prxVector3dC(vectorC3d<double> value)
{
    setValue(value);
}

prxVector3dC::~prxVector3dC() = default;

prxVector3dC *prxVector3dC::cross(vectorC3d<double> const &other) const
{
    return new prxVector3dC(getValue().cross(other));
}

double prxVector3dC::getx()
{
    return value()->x();
}

double prxVector3dC::gety()
{
    return value()->y();
}

double prxVector3dC::getz()
{
    return value()->z();
}

prxVector3dC *prxVector3dC::setx(double x)
{
    value()->x() = x;
    return this;
}

prxVector3dC *prxVector3dC::sety(double y)
{
    value()->y() = y;
    return this;
}

prxVector3dC *prxVector3dC::setz(double z)
{
    value()->z() = z;
    return this;
}

prxVector3dC *prxVector3dC::setXYZ(double x, double y, double z)
{
    setx(x);
    sety(y);
    setz(z);
    return this;
}

prxMathFactoryC *prxVector3dC::getFactory() const
{
    return new prxMathFactoryC;
}
