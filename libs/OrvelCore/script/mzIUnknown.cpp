#include <OrvelCore/script/mzIUnknown.h>

mzIIDS const &mzIUnknown::IID()
{
    static const mzIIDS identifier("mzIUnknown");
    return identifier;
}

mzIIDS const &mzIException::IID()
{
    static const mzIIDS identifier("mzIException");
    return identifier;
}
