#include <OrvelCore/script/mzIUnknown.h>

mzIIDS const &mzIUnknown::IID()
{
    static mzIIDS const identifier("mzIUnknown");
    return identifier;
}

mzIIDS const &mzIException::IID()
{
    static mzIIDS const identifier("mzIException");
    return identifier;
}
