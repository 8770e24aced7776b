// The script classes, called by name as a script does.

#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxymath.h>

#include <cstdio>

int main()
{
    prxMathFactoryC::getStaticProxyTypeInfo(); // keeps the classes linked
    mzComServerStateEventC::startServer();     // and makes them known

    mzComPtrT<proxyObjectC> const vector =
        proxyFactoryC::instance().create(mzIIDS("linquet.vector3d"));
    mzComVariantArrayC numbers;
    for (double const number : {2.0, 3.0, 6.0}) {
        numbers.append(mzComVariantC(number));
    }
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    vector->invokeByName("", proxyMethod, numbers, result, exception); // the default member
    vector->invokeByName("len", proxyMethod, {}, result, exception);
    std::printf("length: %g\n", result.toDouble());

    if (!vector->invokeByName("missing", proxyMethod, {}, result, exception)) {
        std::printf("refused: %s\n", exception->message().utf8());
    }
}

// Output:
// length: 7
// refused: prxVector3dC.missing(): there is no such member
