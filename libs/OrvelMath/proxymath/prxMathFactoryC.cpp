#include <OrvelMath/proxymath/prxMathFactoryC.h>

#include <OrvelMath/proxymath/prxMatrix3x3C.h>
#include <OrvelMath/proxymath/prxMatrix4x4C.h>
#include <OrvelMath/proxymath/prxVector2dC.h>
#include <OrvelMath/proxymath/prxVector3dC.h>

prxMathFactoryC::prxMathFactoryC()
{
    setThreadSafe();
}

prxMathFactoryC::~prxMathFactoryC() = default;

prxMatrix4x4C *prxMathFactoryC::createMat4x4() const
{
    return new prxMatrix4x4C;
}

prxMatrix3x3C *prxMathFactoryC::createMat3x3() const
{
    return new prxMatrix3x3C;
}

prxVector3dC *prxMathFactoryC::createVec3d() const
{
    return new prxVector3dC;
}

prxVector2dC *prxMathFactoryC::createVec2d() const
{
    return new prxVector2dC;
}

proxyObjectC *prxMathFactoryC::create(mzComStringC const &name) const
{
    if (name == "matrix3x3") {
        return createMat3x3();
    }
    if (name == "matrix4x4") {
        return createMat4x4();
    }
    if (name == "vector3d") {
        return createVec3d();
    }
    if (name == "vector2d") {
        return createVec2d();
    }
    return nullptr;
}
