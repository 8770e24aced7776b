#pragma once

/// @file
/// How a call by name finds its member.

#include <OrvelCore/script/proxyObjectC.h>

/// How a call by name finds its member.
namespace proxyDispatch {

/// What a caller asked for; it refers to the caller's own data.
struct Call
{
    mzComStringC const &name;
    unsigned int flags;
    mzComVariantArrayC const &arguments;
};

/// The class of that name or object identifier among `list` and its bases, or null.
proxyMemberDescListS const *findClass(proxyMemberDescListS const &list, char const *name);

/// proxyObjectC::invokeByName.
bool invoke(proxyObjectC &object, Call const &call, mzComVariantC &result,
            mzComPtrT<mzIException> &exception);

} // namespace proxyDispatch
