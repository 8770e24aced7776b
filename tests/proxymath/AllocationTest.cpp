#include "ProxyValues.h"

#include <cstdlib>
#include <new>

// This program's qMalloc and qFree take the place of Qt's, so that a test can count and let memory
// run out.
namespace {

bool memoryRunsOut = false;
int allocations = 0;
int releases = 0;

/// Lets qMalloc fail for a while.
class NoMemory
{
public:
    NoMemory() { memoryRunsOut = true; }
    ~NoMemory() { memoryRunsOut = false; }
};

} // namespace

Q_DECL_EXPORT void *qMalloc(std::size_t size)
{
    ++allocations;
    return memoryRunsOut ? nullptr : std::malloc(size);
}

Q_DECL_EXPORT void qFree(void *memory)
{
    ++releases;
    std::free(memory);
}

using namespace proxyValues;

namespace {

/// A proxy whose members are called directly, with one reference.
template <typename P>
mzComPtrT<P> held()
{
    return mzComPtrT<P>(new P);
}

} // namespace

TEST(ProxyAllocation, GoesThroughQMallocAndQFree)
{
    int const allocated = allocations;
    int const released = releases;
    {
        const Object vector = vector3(1, 2, 3);
        EXPECT_EQ(allocations, allocated + 1);
        EXPECT_EQ(releases, released);
    }
    EXPECT_EQ(allocations, allocated + 1);
    EXPECT_EQ(releases, released + 1);
}

TEST(ProxyAllocation, CreatorsGiveNullWhenMemoryRunsOut)
{
    const NoMemory nothing;
    EXPECT_EQ(prxVector2dC::getStaticProxyTypeInfo()->creator(), nullptr);
    EXPECT_EQ(prxVector3dC::getStaticProxyTypeInfo()->creator(), nullptr);
    EXPECT_EQ(prxMatrix3x3C::getStaticProxyTypeInfo()->creator(), nullptr);
    EXPECT_EQ(prxMatrix4x4C::getStaticProxyTypeInfo()->creator(), nullptr);
    EXPECT_EQ(prxMathFactoryC::getStaticProxyTypeInfo()->creator(), nullptr);
    EXPECT_FALSE(proxyFactoryC::instance().create(prxVector3dC::OID()));
}

TEST(ProxyAllocation, EveryMemberThatMakesAnObjectGivesNull)
{
    auto const vec2 = held<prxVector2dC>();
    auto const vec3 = held<prxVector3dC>();
    auto const mat3 = held<prxMatrix3x3C>();
    auto const mat4 = held<prxMatrix4x4C>();
    auto const factory = held<prxMathFactoryC>();
    const NoMemory nothing;
    EXPECT_EQ(vec2->add(Vector2()), nullptr);
    EXPECT_EQ(vec2->sub(Vector2()), nullptr);
    EXPECT_EQ(vec2->mulReal(2), nullptr);
    EXPECT_EQ(vec2->divReal(2), nullptr);
    EXPECT_EQ(vec2->norm(2), nullptr);
    EXPECT_EQ(vec2->perpendicular(), nullptr);
    EXPECT_EQ(vec2->getFactory(), nullptr);
    EXPECT_EQ(vec3->add(Vector3()), nullptr);
    EXPECT_EQ(vec3->sub(Vector3()), nullptr);
    EXPECT_EQ(vec3->mulReal(2), nullptr);
    EXPECT_EQ(vec3->divReal(2), nullptr);
    EXPECT_EQ(vec3->norm(2), nullptr);
    EXPECT_EQ(vec3->cross(Vector3()), nullptr);
    EXPECT_EQ(vec3->getFactory(), nullptr);
    EXPECT_EQ(mat3->mulMat3x3(Matrix3()), nullptr);
    EXPECT_EQ(mat3->mulVec3x3(Vector3()), nullptr);
    EXPECT_EQ(mat3->mulVec2x3(Vector2()), nullptr);
    EXPECT_EQ(mat3->inv3x3(), nullptr);
    EXPECT_EQ(mat3->getXVec(), nullptr);
    EXPECT_EQ(mat3->getYVec(), nullptr);
    EXPECT_EQ(mat3->getZVec(), nullptr);
    EXPECT_EQ(mat3->getFactory(), nullptr);
    EXPECT_EQ(mat4->mulMat4x4(Matrix4()), nullptr);
    EXPECT_EQ(mat4->mulVec3dMat4x4(Vector3()), nullptr);
    EXPECT_EQ(mat4->mulVec2dMat4x4(Vector2()), nullptr);
    EXPECT_EQ(mat4->inv4x4(), nullptr);
    EXPECT_EQ(mat4->conv3x3(), nullptr);
    EXPECT_EQ(mat4->getXVec(), nullptr);
    EXPECT_EQ(mat4->getYVec(), nullptr);
    EXPECT_EQ(mat4->getZVec(), nullptr);
    EXPECT_EQ(mat4->getTVec(), nullptr);
    EXPECT_EQ(mat4->getFactory(), nullptr);
    EXPECT_EQ(factory->createMat4x4(), nullptr);
    EXPECT_EQ(factory->createMat3x3(), nullptr);
    EXPECT_EQ(factory->createVec3d(), nullptr);
    EXPECT_EQ(factory->createVec2d(), nullptr);
    EXPECT_EQ(factory->create("matrix3x3"), nullptr);
    EXPECT_EQ(factory->create("matrix4x4"), nullptr);
    EXPECT_EQ(factory->create("vector3d"), nullptr);
    EXPECT_EQ(factory->create("vector2d"), nullptr);
}

TEST(ProxyAllocation, ANullObjectReachesTheScriptAsNothing)
{
    const Object vector = vector3(1, 2, 3);
    const NoMemory nothing;
    const scriptCall::Answer answer = scriptCall::call(vector, "mul", {2.0});
    EXPECT_TRUE(answer.ok);
    EXPECT_TRUE(answer.value.isEmpty());
}

TEST(ProxyAllocation, SettersDoWithoutANewObject)
{
    const Object vector = vector3(1, 2, 3);
    const NoMemory nothing;
    EXPECT_TRUE(scriptCall::call(vector, "x", {5.0}).object() == vector);
}
