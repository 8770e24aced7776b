#pragma once

#include <OrvelCore/script/mzComVariantC.h>

/// The value types that the process knows. Reading takes no lock: each change publishes a new
/// table.
namespace valueTypeRegistry {

/// One registered type. Records of an unloaded library are null.
struct Entry
{
    mzComValueMarshalS const *record = nullptr;
    mzComStringC name;
    mzIIDS proxyClass;
    void const *owner = nullptr;
};

void add(mzComValueMarshalS *record);
/// `owner` is whoever takes the type away again, null for nobody.
void setProxyClass(int id, mzIIDS const &classIdentifier, void const *owner);
void removeOwner(void const *owner);
/// The entry of `id`, or null.
Entry const *find(int id);
int count();

} // namespace valueTypeRegistry
