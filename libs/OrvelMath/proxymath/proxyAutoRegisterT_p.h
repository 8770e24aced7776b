#pragma once

/// @file
/// The registration of a script class.

#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxyValueType.h>

#include <type_traits>

/// The registration object of the script class `X`: makes the class known when the server starts.
/// There is one global object per class.
template <typename X>
class proxyAutoRegisterT final : public mzComServerStateEventC
{
public:
    proxyAutoRegisterT()
        : mzComServerStateEventC(mzServerStarted + mzServerDone)
    {
        init();
    }

    int serverStarted() override
    {
        proxyFactoryC::instance().registerClass(X::getStaticProxyTypeInfo());
        registerValue<X>(nullptr);
        return 0;
    }

private:
    /// From now on a variant with a value of X reaches scripts as an X.
    template <typename Y>
    static void registerValue(typename Y::ValueType *)
    {
        mzComVariantC::registerUserTypeProxy(proxyValueTypeId<typename Y::ValueType>(), Y::OID());
    }
    /// A class without a value.
    template <typename Y>
    static void registerValue(...)
    {
    }
};
