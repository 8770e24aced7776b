#include "ProxyValues.h"

#include "support/AllocationCount.h"

#include <string>
#include <vector>

// Each request for memory of each member fails once: nothing is lost, and the object goes on.
using namespace proxyValues;

namespace {

using ProxyMemory = support::AllocationCounting;

template <typename T>
mzComVariantC variantOf(T const &value)
{
    return mzComVariantC::fromUserData(proxyValueTypeId<T>(), &value);
}

/// Something that a parameter of this type can take.
mzComVariantC argumentFor(std::type_info const &type)
{
    if (type == typeid(mzComStringC)) {
        return "vector3d";
    }
    if (type == typeid(Vector2)) {
        return variantOf(Vector2(3, 4));
    }
    if (type == typeid(Vector3)) {
        return variantOf(Vector3(1, 2, 2));
    }
    if (type == typeid(Matrix3)) {
        return variantOf(Matrix3::identity());
    }
    if (type == typeid(Matrix4)) {
        return variantOf(Matrix4::identity());
    }
    EXPECT_TRUE(type == typeid(double));
    return 2.0;
}

mzComVariantArrayC argumentsFor(proxyMemberDescS const &member)
{
    mzComVariantArrayC arguments;
    for (int i = 1; i <= member.parameterCount; ++i) {
        arguments.append(argumentFor(*member.signature()[i].type));
    }
    return arguments;
}

/// The calls that the members of a class are tried with.
std::vector<proxyMemberDescS> membersOf(proxyMemberDescListS const *list)
{
    std::vector<proxyMemberDescS> members;
    for (proxyMemberDescS const *member = list->members; member->name != nullptr; ++member) {
        members.push_back(*member);
    }
    return members;
}

std::vector<proxyMemberDescListS const *> classes()
{
    return {prxVector2dC::getStaticProxyTypeInfo(), prxVector3dC::getStaticProxyTypeInfo(),
            prxMatrix3x3C::getStaticProxyTypeInfo(), prxMatrix4x4C::getStaticProxyTypeInfo(),
            prxMathFactoryC::getStaticProxyTypeInfo()};
}

} // namespace

TEST_F(ProxyMemory, NoMemberLosesAnythingWhicheverRequestFails)
{
    int const before = proxyObjectC::liveObjectCount();
    int calls = 0;
    for (proxyMemberDescListS const *list : classes()) {
        for (proxyMemberDescS const &member : membersOf(list)) {
            SCOPED_TRACE(std::string(list->name) + "." + member.name);
            long const failures = support::failEachAllocation([list, &member] {
                Object const object(mzComPtrT<mzIUnknown>(list->creator()));
                if (object) { // or the object itself had no memory
                    scriptCall::invoke(object, member.name, unsigned(member.kind),
                                       argumentsFor(member));
                }
            });
            EXPECT_GE(failures, 1);
            ++calls;
        }
    }
    EXPECT_EQ(74, calls);
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST_F(ProxyMemory, ARefusedCallLosesNothingWhicheverRequestFails)
{
    Object const vector = vector3(1, 2, 3);
    support::failEachAllocation([&vector] { scriptCall::call(vector, "noSuchMember", {1.0}); });
    support::failEachAllocation([&vector] { scriptCall::call(vector, "add", {"word"}); });
    EXPECT_EQ(3.0, scriptCall::read(vector, "z").number());
}

TEST_F(ProxyMemory, ASetterThatFailsLeavesTheOldValue)
{
    Object const vector = vector3(1, 2, 3);
    int failed = 0;
    for (long index = 0;; ++index) {
        support::FailingAllocation failing(index);
        try {
            scriptCall::call(vector, "x", {5.0});
        } catch (std::bad_alloc const &) {
        }
        if (!failing.end()) {
            break;
        }
        ++failed;
        double const x = scriptCall::read(vector, "x").number();
        EXPECT_TRUE(x == 1.0 || x == 5.0) << x;
        EXPECT_EQ(2.0, scriptCall::read(vector, "y").number());
        EXPECT_TRUE(scriptCall::call(vector, "x", {1.0}).ok);
    }
    EXPECT_GE(failed, 2);
    EXPECT_EQ(5.0, scriptCall::read(vector, "x").number());
}

TEST_F(ProxyMemory, AVectorInAMatrixKeepsItsReferencesWhicheverRequestFails)
{
    int const before = proxyObjectC::liveObjectCount();
    support::failEachAllocation([] {
        mzComPtrT<prxMatrix4x4C> const matrix(new prxMatrix4x4C);
        if (!matrix) {
            return;
        }
        mzComPtrT<prxVector3dC> const axis(matrix->getXVec());
        if (axis) {
            axis->setXYZ(1, 2, 3);
            EXPECT_EQ(2.0, axis->gety());
        }
        EXPECT_EQ(2, matrix->addRef() - (axis ? 1 : 0));
        matrix->release();
    });
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST_F(ProxyMemory, StreamsAndVariantsLoseNothingWhicheverRequestFails)
{
    int const id = proxyValueTypeId<Matrix4>();
    support::failEachAllocation([id] {
        Matrix4 const value = Matrix4::identity();
        mzComDataStreamC stream;
        mzComVariantC variant = mzComVariantC::fromUserData(id, &value);
        EXPECT_TRUE(variant.writeUserData(stream));
        mzComVariantC read("preset");
        try {
            EXPECT_TRUE(read.readUserData(id, stream));
        } catch (std::bad_alloc const &) {
            EXPECT_STREQ("preset", read.toString().utf8());
            throw;
        }
    });
}
