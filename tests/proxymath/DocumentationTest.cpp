#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxymath.h>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

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

namespace {

/// The function of the snippet as a file has it.
std::string snippetOf(char const *file)
{
    std::ifstream stream(std::string(ORVEL_SOURCE_DIR) + file);
    std::stringstream text;
    text << stream.rdbuf();
    std::string const all = text.str();
    std::size_t const start = all.find("double lengthFromScript()\n{");
    std::size_t const end = all.find("\n}\n", start);
    return start == std::string::npos ? std::string() : all.substr(start, end - start);
}

} // namespace

TEST(Documentation, ThePageShowsTheCodeThatRunsHere)
{
    std::string const here = snippetOf("/tests/proxymath/DocumentationTest.cpp");
    EXPECT_LT(100u, here.size());
    EXPECT_EQ(here, snippetOf("/docs/scripts.md"));
}

TEST(Documentation, SnippetOfTheScriptPage)
{
    EXPECT_EQ(7.0, lengthFromScript());
    EXPECT_STREQ("linquet.vector3d", prxVector3dC::OID().name);
    mzComServerStateEventC::stopServer();
}
