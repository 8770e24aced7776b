#include <OrvelMath/proxymath/prxVector2dC.h>

#include <OrvelMath/proxymath/prxMathFactoryC.h>

prxVector2dC::prxVector2dC() = default;

prxVector2dC::prxVector2dC(vectorC2d<double> const &value)
{
    setValue(value);
}

prxVector2dC::~prxVector2dC() = default;

double prxVector2dC::getx()
{
    return value()->x();
}

double prxVector2dC::gety()
{
    return value()->y();
}

prxVector2dC *prxVector2dC::setx(double x)
{
    value()->x() = x;
    return this;
}

prxVector2dC *prxVector2dC::sety(double y)
{
    value()->y() = y;
    return this;
}

prxVector2dC *prxVector2dC::setXY(double x, double y)
{
    setx(x);
    sety(y);
    return this;
}

prxVector2dC *prxVector2dC::perpendicular() const
{
    vectorC2d<double> const vector = getValue();
    return new prxVector2dC(vectorC2d<double>(-vector.y(), vector.x()));
}

prxMathFactoryC *prxVector2dC::getFactory() const
{
    return new prxMathFactoryC;
}
