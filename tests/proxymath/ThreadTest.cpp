#include "ProxyValues.h"

#include <atomic>
#include <thread>
#include <vector>

// What may be used by several threads at a time: objects of their own, and one that none changes.
using namespace proxyValues;

namespace {

constexpr int threadCount = 8;

/// Runs `call(number)` on each of the threads at the same time.
template <typename Call>
void onAllThreads(Call call)
{
    std::atomic<int> waiting{threadCount};
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&waiting, &call, number] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            call(number);
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}

} // namespace

TEST(ProxyThread, EachUsesObjectsOfItsOwn)
{
    int const before = proxyObjectC::liveObjectCount();
    onAllThreads([](int number) {
        Object const factory(new prxMathFactoryC);
        for (int i = 0; i < 100; ++i) {
            Object const matrix = scriptCall::call(factory, "createmat4x4").object();
            scriptCall::call(matrix, "ident");
            Object const axis = scriptCall::read(matrix, "T").object();
            scriptCall::call(axis, "", {double(number), double(i), 1.0});
            Object const moved =
                scriptCall::call(matrix, "mul", {mzComVariantC(vector3(1, 1, 1))}).object();
            EXPECT_TRUE(Vector3(number + 1, i + 1, 2) == valueOf<Vector3>(moved));
            EXPECT_EQ(mzExceptionTypeCast, scriptCall::call(matrix, "mul", {"word"}).code);
        }
    });
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST(ProxyThread, AllReadOneConstObject)
{
    mzComPtrT<prxVector3dC> const heldVector(new prxVector3dC(Vector3(2, 3, 6)));
    mzComPtrT<prxMatrix4x4C> const heldMatrix(new prxMatrix4x4C(Matrix4::identity()));
    prxVector3dC const &vector = *heldVector;
    prxMatrix4x4C const &matrix = *heldMatrix;
    onAllThreads([&](int number) {
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(7.0, vector.len());
            mzComPtrT<prxVector3dC> const sum(vector.add(Vector3(number, 0, 0)));
            EXPECT_TRUE(Vector3(2 + number, 3, 6) == sum->getValue());
            mzComPtrT<prxVector3dC> const image(matrix.mulVec3dMat4x4(vector.getValue()));
            EXPECT_TRUE(Vector3(2, 3, 6) == image->getValue());
            mzComPtrT<prxMatrix4x4C> const inverse(matrix.inv4x4());
            EXPECT_TRUE(Matrix4::identity() == inverse->getValue());
        }
    });
}

TEST(ProxyThread, AllUseOneFactory)
{
    Object const factory(new prxMathFactoryC);
    onAllThreads([&factory](int number) {
        for (int i = 0; i < 100; ++i) {
            Object const vector = scriptCall::call(factory, "Create", {"vector2d"}).object();
            EXPECT_TRUE(scriptCall::call(vector, "", {double(number), double(i)}).ok);
            EXPECT_TRUE(Vector2(number, i) == valueOf<Vector2>(vector));
        }
    });
}

TEST(ProxyThread, AllHoldOneObjectAndTheLastDeletesIt)
{
    int const before = proxyObjectC::liveObjectCount();
    for (int round = 0; round < 50; ++round) {
        Object shared = vector3(1, 2, 3);
        std::vector<Object> copies(threadCount, shared);
        shared = Object();
        onAllThreads([&copies](int number) {
            for (int i = 0; i < 10; ++i) {
                Object const copy = copies[std::size_t(number)];
                EXPECT_TRUE(copy);
            }
            copies[std::size_t(number)] = Object();
        });
        EXPECT_EQ(before, proxyObjectC::liveObjectCount());
    }
}

TEST(ProxyThread, DescriptionsAreBuiltOnce)
{
    std::vector<proxyMemberDescListS const *> seen(threadCount);
    onAllThreads([&seen](int number) {
        seen[std::size_t(number)] = prxMatrix3x3C::getStaticProxyTypeInfo();
        EXPECT_TRUE(prxMatrix3x3C::OID() == mzIIDS("linquet.matrix3x3"));
    });
    EXPECT_EQ(std::vector<proxyMemberDescListS const *>(threadCount,
                                                        prxMatrix3x3C::getStaticProxyTypeInfo()),
              seen);
}
