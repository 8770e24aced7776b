#include <OrvelCore/script/mzIUnknown.h>

const mzIIDS &mzIUnknown::IID()
{
    static const mzIIDS identifier("mzIUnknown");
    return identifier;
}

const mzIIDS &mzIException::IID()
{
    static const mzIIDS identifier("mzIException");
    return identifier;
}
