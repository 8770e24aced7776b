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
        Object const vector = vector3(1, 2, 3);
        EXPECT_EQ(allocated + 1, allocations);
        EXPECT_EQ(released, releases);
    }
    EXPECT_EQ(allocated + 1, allocations);
    EXPECT_EQ(released + 1, releases);
}

TEST(ProxyAllocation, CreatorsGiveNullWhenMemoryRunsOut)
{
    NoMemory const nothing;
    EXPECT_EQ(nullptr, prxVector2dC::getStaticProxyTypeInfo()->creator());
    EXPECT_EQ(nullptr, prxVector3dC::getStaticProxyTypeInfo()->creator());
    EXPECT_EQ(nullptr, prxMatrix3x3C::getStaticProxyTypeInfo()->creator());
    EXPECT_EQ(nullptr, prxMatrix4x4C::getStaticProxyTypeInfo()->creator());
    EXPECT_EQ(nullptr, prxMathFactoryC::getStaticProxyTypeInfo()->creator());
    EXPECT_FALSE(proxyFactoryC::instance().create(prxVector3dC::OID()));
}

TEST(ProxyAllocation, EveryMemberThatMakesAnObjectGivesNull)
{
    auto const vec2 = held<prxVector2dC>();
    auto const vec3 = held<prxVector3dC>();
    auto const mat3 = held<prxMatrix3x3C>();
    auto const mat4 = held<prxMatrix4x4C>();
    auto const factory = held<prxMathFactoryC>();
    NoMemory const nothing;
    EXPECT_EQ(nullptr, vec2->add(Vector2()));
    EXPECT_EQ(nullptr, vec2->sub(Vector2()));
    EXPECT_EQ(nullptr, vec2->mulReal(2));
    EXPECT_EQ(nullptr, vec2->divReal(2));
    EXPECT_EQ(nullptr, vec2->norm(2));
    EXPECT_EQ(nullptr, vec2->perpendicular());
    EXPECT_EQ(nullptr, vec2->getFactory());
    EXPECT_EQ(nullptr, vec3->add(Vector3()));
    EXPECT_EQ(nullptr, vec3->sub(Vector3()));
    EXPECT_EQ(nullptr, vec3->mulReal(2));
    EXPECT_EQ(nullptr, vec3->divReal(2));
    EXPECT_EQ(nullptr, vec3->norm(2));
    EXPECT_EQ(nullptr, vec3->cross(Vector3()));
    EXPECT_EQ(nullptr, vec3->getFactory());
    EXPECT_EQ(nullptr, mat3->mulMat3x3(Matrix3()));
    EXPECT_EQ(nullptr, mat3->mulVec3x3(Vector3()));
    EXPECT_EQ(nullptr, mat3->mulVec2x3(Vector2()));
    EXPECT_EQ(nullptr, mat3->inv3x3());
    EXPECT_EQ(nullptr, mat3->getXVec());
    EXPECT_EQ(nullptr, mat3->getYVec());
    EXPECT_EQ(nullptr, mat3->getZVec());
    EXPECT_EQ(nullptr, mat3->getFactory());
    EXPECT_EQ(nullptr, mat4->mulMat4x4(Matrix4()));
    EXPECT_EQ(nullptr, mat4->mulVec3dMat4x4(Vector3()));
    EXPECT_EQ(nullptr, mat4->mulVec2dMat4x4(Vector2()));
    EXPECT_EQ(nullptr, mat4->inv4x4());
    EXPECT_EQ(nullptr, mat4->conv3x3());
    EXPECT_EQ(nullptr, mat4->getXVec());
    EXPECT_EQ(nullptr, mat4->getYVec());
    EXPECT_EQ(nullptr, mat4->getZVec());
    EXPECT_EQ(nullptr, mat4->getTVec());
    EXPECT_EQ(nullptr, mat4->getFactory());
    EXPECT_EQ(nullptr, factory->createMat4x4());
    EXPECT_EQ(nullptr, factory->createMat3x3());
    EXPECT_EQ(nullptr, factory->createVec3d());
    EXPECT_EQ(nullptr, factory->createVec2d());
    EXPECT_EQ(nullptr, factory->create("matrix3x3"));
    EXPECT_EQ(nullptr, factory->create("matrix4x4"));
    EXPECT_EQ(nullptr, factory->create("vector3d"));
    EXPECT_EQ(nullptr, factory->create("vector2d"));
}

TEST(ProxyAllocation, ANullObjectReachesTheScriptAsNothing)
{
    Object const vector = vector3(1, 2, 3);
    NoMemory const nothing;
    scriptCall::Answer const answer = scriptCall::call(vector, "mul", {2.0});
    EXPECT_TRUE(answer.ok);
    EXPECT_TRUE(answer.value.isEmpty());
}

TEST(ProxyAllocation, SettersDoWithoutANewObject)
{
    Object const vector = vector3(1, 2, 3);
    NoMemory const nothing;
    EXPECT_TRUE(scriptCall::call(vector, "x", {5.0}).object() == vector);
}
