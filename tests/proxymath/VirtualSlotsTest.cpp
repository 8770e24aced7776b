#include <OrvelMath/proxymath/proxymath.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

// The order of the virtual operations is part of the binary interface. A pointer to a virtual
// member function holds, under the Itanium C++ ABI, one more than the offset of its slot.
namespace {

template <typename Function>
std::size_t slot(Function function)
{
    std::size_t word = 0;
    std::memcpy(&word, &function, sizeof word);
    return (word - 1) / sizeof(void *);
}

/// Opens what is protected.
struct Event : mzComServerStateEventC
{
    using mzComServerStateEventC::mzComServerStateEventC;
};

} // namespace

TEST(VirtualSlots, OfAllProxies)
{
    EXPECT_EQ(0u, slot(&proxyObjectC::queryInterface));
    EXPECT_EQ(1u, slot(&proxyObjectC::addRef));
    EXPECT_EQ(2u, slot(&proxyObjectC::release));
    EXPECT_EQ(3u, slot(&proxyObjectC::invokeByName));
    EXPECT_EQ(4u, slot(&proxyObjectC::getStickyThreadId));
    EXPECT_EQ(5u, slot(&proxyObjectC::proxyCast));
    EXPECT_EQ(6u, slot(&proxyObjectC::getProxyTypeInfo));
    // The destructor takes two slots, 7 and 8.
    EXPECT_EQ(9u, slot(&proxyObjectC::addRemoteConnection));
    EXPECT_EQ(10u, slot(&proxyObjectC::releaseRemoteConnection));
}

TEST(VirtualSlots, OfTheValueProxies)
{
    EXPECT_EQ(11u, slot(&prxQVariantBaseC::getVariant));
    EXPECT_EQ(12u, slot(&prxQVariantBaseC::setVariant));
    EXPECT_EQ(13u, slot(&prxQVariantBaseC::getComVariant));
    EXPECT_EQ(14u, slot(&prxQVariantBaseC::setComVariant));
    using Vector = prxVariantUserTypeBaseC<vectorC3d<double>>;
    EXPECT_EQ(15u, slot(&Vector::getValue));
    EXPECT_EQ(16u, slot(&Vector::setValue));
    EXPECT_EQ(17u, slot(&Vector::value));
    using Matrix = prxVariantUserTypeBaseC<matrixC4x4<double>>;
    EXPECT_EQ(15u, slot(&Matrix::getValue));
    EXPECT_EQ(17u, slot(&Matrix::value));
}

TEST(VirtualSlots, OfTheRegistrationObjects)
{
    // The destructor takes slots 0 and 1.
    EXPECT_EQ(2u, slot(&Event::serverStarted));
    EXPECT_EQ(3u, slot(&Event::serverDone));
}
