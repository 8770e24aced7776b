#pragma once

#include <OrvelCore/script/mzComVariantC.h>

/// The value types that the process knows. Reading takes no lock: each change publishes a new
/// table.
namespace valueTypeRegistry {

/// One registered type. Records of an unloaded library are null.
struct Entry
{
    const mzComValueMarshalS *record = nullptr;
    mzComStringC name;
    mzIIDS proxyClass;
    const void *owner = nullptr;
};

void add(mzComValueMarshalS *record);
/// `owner` is whoever takes the type away again, null for nobody.
void setProxyClass(int id, const mzIIDS &classIdentifier, const void *owner);
void removeOwner(const void *owner);
/// The entry of `id`, or null.
const Entry *find(int id);
int count();

} // namespace valueTypeRegistry
