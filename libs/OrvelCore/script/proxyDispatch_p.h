#pragma once

#include <OrvelCore/script/proxyObjectC.h>

/// How a call by name finds its member.
namespace proxyDispatch {

/// What a caller asked for; it refers to the caller's own data.
struct Call
{
    const mzComStringC &name;
    unsigned int flags;
    const mzComVariantArrayC &arguments;
};

/// The class of that name or object identifier among `list` and its bases, or null.
const proxyMemberDescListS *findClass(const proxyMemberDescListS &list, const char *name);

/// proxyObjectC::invokeByName.
bool invoke(proxyObjectC &object, const Call &call, mzComVariantC &result,
            mzComPtrT<mzIException> &exception);

} // namespace proxyDispatch
