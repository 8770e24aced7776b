#pragma once

#include <OrvelCore/script/ScriptLayer.h>

#include <QtCore/QByteArray>

/// Calls by name, as a script makes them.
namespace scriptCall {

using Object = mzComPtrT<mzIUnknown>;

/// What came of a call.
struct Answer
{
    bool ok = false;
    mzComVariantC value;
    int code = 0; ///< of the exception; 0 without one
    QByteArray message;

    double number() const { return value.toDouble(); }
    Object object() const { return value.toObject(); }
};

inline Answer invoke(Object const &object, char const *name, unsigned int flags,
                     mzComVariantArrayC const &arguments)
{
    mzComPtrT<proxyObjectC> proxy;
    object->queryInterface(proxyObjectC::IID(), proxy);
    Answer answer;
    mzComPtrT<mzIException> exception;
    answer.ok = proxy->invokeByName(name, flags, arguments, answer.value, exception);
    if (exception) {
        answer.code = exception->code();
        answer.message = exception->message().bytes();
    }
    return answer;
}

inline Answer call(Object const &object, char const *name, mzComVariantArrayC const &arguments = {})
{
    return invoke(object, name, proxyMethod, arguments);
}

inline Answer read(Object const &object, char const *name)
{
    return invoke(object, name, proxyPropertyRead, {});
}

inline Answer write(Object const &object, char const *name, mzComVariantC const &value)
{
    return invoke(object, name, proxyPropertyWrite, {value});
}

} // namespace scriptCall
