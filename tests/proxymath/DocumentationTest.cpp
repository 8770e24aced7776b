#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxymath.h>

#include <gtest/gtest.h>

#include <stdexcept>

// The snippet of docs/scripts.md, as it stands there.
namespace {

double lengthFromScript()
{
    mzComServerStateEventC::startServer();
    auto const vector = proxyFactoryC::instance().create(mzIIDS("linquet.vector3d"));
    mzComVariantC result;
    mzComPtrT<mzIException> exception;
    vector->invokeByName("", proxyMethod, {2.0, 3.0, 6.0}, result, exception);
    if (!vector->invokeByName("len", proxyMethod, {}, result, exception)) {
        throw std::runtime_error(exception->message().utf8());
    }
    return result.toDouble(); // 7
}

} // namespace

TEST(Documentation, SnippetOfTheScriptPage)
{
    EXPECT_EQ(7.0, lengthFromScript());
    EXPECT_STREQ("linquet.vector3d", prxVector3dC::OID().name);
    mzComServerStateEventC::stopServer();
}
