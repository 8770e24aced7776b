#include <OrvelMath/proxymath/proxymath.h>

#include <OrvelCore/runtime/ProcessServices.h>
#include <OrvelMath/proxymath/proxyAutoRegisterT_p.h>

#include <cstdlib>

// All that the library does when it is loaded, in this order. When it is unloaded the clean-ups run
// first, and then the registration objects go, the last one first.
namespace {

proxyAutoRegisterT<prxVector3dC> registerVector3d;
proxyAutoRegisterT<prxVector2dC> registerVector2d;
proxyAutoRegisterT<prxMatrix3x3C> registerMatrix3x3;
proxyAutoRegisterT<prxMatrix4x4C> registerMatrix4x4;
proxyAutoRegisterT<prxMathFactoryC> registerMathFactory;

void runCleanups()
{
    mzRunGlobalCleanupFor(reinterpret_cast<void *>(&runCleanups));
}

[[maybe_unused]] int const cleanupsAreRegistered = std::atexit(runCleanups);

} // namespace
