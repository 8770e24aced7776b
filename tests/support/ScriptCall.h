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

inline Answer invoke(const Object &object, const char *name, unsigned int flags,
                     const mzComVariantArrayC &arguments)
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

inline Answer call(const Object &object, const char *name, const mzComVariantArrayC &arguments = {})
{
    return invoke(object, name, proxyMethod, arguments);
}

inline Answer read(const Object &object, const char *name)
{
    return invoke(object, name, proxyPropertyRead, {});
}

inline Answer write(const Object &object, const char *name, const mzComVariantC &value)
{
    return invoke(object, name, proxyPropertyWrite, {value});
}

} // namespace scriptCall
