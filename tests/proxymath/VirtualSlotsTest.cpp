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
    EXPECT_EQ(slot(&proxyObjectC::queryInterface), 0u);
    EXPECT_EQ(slot(&proxyObjectC::addRef), 1u);
    EXPECT_EQ(slot(&proxyObjectC::release), 2u);
    EXPECT_EQ(slot(&proxyObjectC::invokeByName), 3u);
    EXPECT_EQ(slot(&proxyObjectC::getStickyThreadId), 4u);
    EXPECT_EQ(slot(&proxyObjectC::proxyCast), 5u);
    EXPECT_EQ(slot(&proxyObjectC::getProxyTypeInfo), 6u);
    // The destructor takes two slots, 7 and 8.
    EXPECT_EQ(slot(&proxyObjectC::addRemoteConnection), 9u);
    EXPECT_EQ(slot(&proxyObjectC::releaseRemoteConnection), 10u);
}

TEST(VirtualSlots, OfTheValueProxies)
{
    EXPECT_EQ(slot(&prxQVariantBaseC::getVariant), 11u);
    EXPECT_EQ(slot(&prxQVariantBaseC::setVariant), 12u);
    EXPECT_EQ(slot(&prxQVariantBaseC::getComVariant), 13u);
    EXPECT_EQ(slot(&prxQVariantBaseC::setComVariant), 14u);
    using Vector = prxVariantUserTypeBaseC<vectorC3d<double>>;
    EXPECT_EQ(slot(&Vector::getValue), 15u);
    EXPECT_EQ(slot(&Vector::setValue), 16u);
    EXPECT_EQ(slot(&Vector::value), 17u);
    using Matrix = prxVariantUserTypeBaseC<matrixC4x4<double>>;
    EXPECT_EQ(slot(&Matrix::getValue), 15u);
    EXPECT_EQ(slot(&Matrix::value), 17u);
}

TEST(VirtualSlots, OfTheRegistrationObjects)
{
    // The destructor takes slots 0 and 1.
    EXPECT_EQ(slot(&Event::serverStarted), 2u);
    EXPECT_EQ(slot(&Event::serverDone), 3u);
}
