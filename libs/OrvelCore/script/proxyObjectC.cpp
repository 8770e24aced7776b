#include <OrvelCore/script/proxyObjectC.h>

#include <OrvelCore/runtime/QtAllocation.h>
#include <OrvelCore/script/proxyDispatch_p.h>

#include <QtCore/QThread>

#include <new>

namespace {

std::atomic<int> liveObjects{0};

proxyMemberDescS noMembers[] = {{nullptr, 0, 0, nullptr, nullptr, nullptr, 0}};
proxyMemberDescListS *noBases[] = {nullptr};

void *castToProxy(proxyObjectC const *object)
{
    return const_cast<proxyObjectC *>(object);
}

quintptr currentThread()
{
    return reinterpret_cast<quintptr>(QThread::currentThreadId());
}

} // namespace

proxyObjectC::proxyObjectC()
{
    liveObjects.fetch_add(1, std::memory_order_relaxed);
}

proxyObjectC::~proxyObjectC()
{
    liveObjects.fetch_sub(1, std::memory_order_relaxed);
}

void *proxyObjectC::operator new(std::size_t size) noexcept
{
    try {
        return orvelAllocate(size);
    } catch (std::bad_alloc const &) {
        return nullptr;
    }
}

void proxyObjectC::operator delete(void *memory) noexcept
{
    orvelFree(memory);
}

mzIIDS const &proxyObjectC::IID()
{
    static mzIIDS const identifier("proxyObjectC");
    return identifier;
}

proxyMemberDescListS *proxyObjectC::getStaticProxyTypeInfo()
{
    static proxyMemberDescListS list = {"proxyObjectC", castToProxy,    noBases,
                                        noMembers,      nullptr,        0,
                                        nullptr,        "proxyObjectC", __LINE__};
    return &list;
}

proxyMemberDescListS const *proxyObjectC::getProxyTypeInfo() const
{
    return getStaticProxyTypeInfo();
}

bool proxyObjectC::queryInterface(mzIIDS const &identifier, mzComPtrC &target)
{
    bool const known = identifier == mzIUnknown::IID() ||
                       proxyDispatch::findClass(*getProxyTypeInfo(), identifier.name) != nullptr;
    target = known ? mzComPtrC(this) : mzComPtrC();
    return known;
}

bool proxyObjectC::invokeByName(mzComStringC const &name, unsigned int flags,
                                mzComVariantArrayC const &arguments, mzComVariantC &result,
                                mzComPtrT<mzIException> &exception)
{
    return proxyDispatch::invoke(*this, {name, flags, arguments}, result, exception);
}

quintptr proxyObjectC::getStickyThreadId(bool claim)
{
    if (m_threadSafe) {
        return 0;
    }
    quintptr owner = m_thread.load(std::memory_order_relaxed);
    if (owner == 0 && claim) {
        quintptr const caller = currentThread();
        if (m_thread.compare_exchange_strong(owner, caller, std::memory_order_relaxed)) {
            owner = caller;
        }
    }
    return owner;
}

void *proxyObjectC::proxyCast(mzComStringC const &className) const
{
    proxyMemberDescListS const *list =
        proxyDispatch::findClass(*getProxyTypeInfo(), className.utf8());
    return list != nullptr ? list->cast(this) : nullptr;
}

int proxyObjectC::addRemoteConnection(mzIIDS const &identifier)
{
    mzComPtrC target;
    if (!queryInterface(identifier, target)) {
        return -1;
    }
    addRef();
    return m_remoteConnections.fetch_add(1) + 1;
}

int proxyObjectC::releaseRemoteConnection(mzIIDS const &identifier,
                                          mzIComExternalConnectionReleaseStateE state)
{
    mzComPtrC target; // keeps the object until the end of this function
    if (!queryInterface(identifier, target)) {
        return -1;
    }
    int open = m_remoteConnections.load();
    int left = 0;
    do {
        if (open == 0) {
            return -1;
        }
        left = state == mzExternalConnectionLost ? 0 : open - 1;
    } while (!m_remoteConnections.compare_exchange_weak(open, left));
    for (int i = left; i < open; ++i) {
        release();
    }
    return left;
}

void proxyObjectC::throwAutoTypeCastException()
{
    throw proxyAutoTypeCastExceptionC();
}

int proxyObjectC::liveObjectCount()
{
    return liveObjects.load(std::memory_order_relaxed);
}

void proxyObjectC::setThreadSafe()
{
    m_threadSafe = true;
}
