#include "TestProxies.h"

#include "support/AllocationCount.h"
#include "support/ScriptCall.h"

#include <gtest/gtest.h>

// Each request for memory of the script layer fails once: nothing is lost, and it goes on.
namespace {

using ScriptMemory = support::AllocationCounting;

/// Registers a class and a value type at the server's start, as a library does.
class Library : public mzComServerStateEventC
{
public:
    Library()
        : mzComServerStateEventC(mzServerStarted + mzServerDone)
    {
        m_record.id = 0;
        m_class.objectIdentifier = "test.faulty";
        init();
    }
    int serverStarted() override
    {
        proxyFactoryC::instance().registerClass(&m_class);
        mzComVariantC::registerValueType(&m_record);
        mzComVariantC::registerUserTypeProxy(m_record.id, mzIIDS("test.faulty"));
        return 0;
    }
    int typeId() const { return m_record.id; }

private:
    proxyMemberDescListS m_class = *PairProxy::getStaticProxyTypeInfo();
    mzComValueMarshalS m_record = *pairRecord();
};

} // namespace

TEST_F(ScriptMemory, AStartThatFailsCanBeTriedAgain)
{
    long const failures = support::failEachAllocation([] {
        Library const library;
        try {
            mzComServerStateEventC::startServer();
        } catch (std::bad_alloc const &) {
            mzComServerStateEventC::startServer(); // now there is memory
        }
        EXPECT_TRUE(mzComVariantC::fromUserData(library.typeId(), nullptr).isUserValue());
        EXPECT_NE(nullptr, proxyFactoryC::instance().findClass(mzIIDS("test.faulty")));
        try {
            mzComServerStateEventC::stopServer();
        } catch (std::bad_alloc const &) {
            mzComServerStateEventC::stopServer();
        }
    });
    EXPECT_GE(failures, 3);
    EXPECT_EQ(nullptr, proxyFactoryC::instance().findClass(mzIIDS("test.faulty")));
}

TEST_F(ScriptMemory, ALibraryThatComesLateLosesNothing)
{
    mzComServerStateEventC::startServer();
    long const failures = support::failEachAllocation([] {
        Library const library; // told at once
        EXPECT_TRUE(mzComVariantC::fromUserData(library.typeId(), nullptr).isUserValue());
    });
    EXPECT_GE(failures, 2);
    mzComServerStateEventC::stopServer();
}

TEST_F(ScriptMemory, TextsAndVariantsLoseNothing)
{
    support::failEachAllocation([] {
        mzComStringC text("a text that is too long to be kept anywhere but in memory");
        text += mzComStringC(" and more of it");
        mzComVariantC const variant(text);
        mzComVariantArrayC const copies(3, variant);
        EXPECT_TRUE(copies[2].toString() == text);
        EXPECT_TRUE(text.toQString().endsWith(QLatin1String("more of it")));
    });
}

TEST_F(ScriptMemory, CallsByNameLoseNothing)
{
    int const before = proxyObjectC::liveObjectCount();
    support::failEachAllocation([] {
        mzComPtrT<mzIUnknown> const probe(new Probe);
        if (!probe) {
            return; // proxies are null without memory
        }
        scriptCall::call(probe, "overloaded", {"text"});
        scriptCall::call(probe, "overloaded", {1.0, 2.0});
        scriptCall::call(probe, "refuses", {"no number"});
        scriptCall::call(probe, "makePair");
        scriptCall::invoke(probe, "overloaded", proxyMethod | proxyInvokeLenient, {"12"});
    });
    EXPECT_EQ(before, proxyObjectC::liveObjectCount());
}

TEST_F(ScriptMemory, AnExceptionOfAHandlerLeavesTheObjectInUse)
{
    mzComPtrT<mzIUnknown> const probe(new Probe);
    EXPECT_THROW(scriptCall::call(probe, "throwsOther"), std::bad_alloc);
    EXPECT_STREQ("probe", scriptCall::call(probe, "inBoth").value.toString().utf8());
}
