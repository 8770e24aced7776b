#pragma once

/// @file
/// The base of the objects that scripts see.

#include <OrvelCore/script/mzComPtrC.h>
#include <OrvelCore/script/mzComVariantC.h>
#include <OrvelCore/script/proxyAutoTypeCastC.h>
#include <OrvelCore/script/proxyMemberDescS.h>

#include <QtCore/QtGlobal>

#include <atomic>
#include <cstddef>

/// How a connection from another process ended.
enum mzIComExternalConnectionReleaseStateE {
    mzExternalConnectionClosed = 0, ///< one connection was given back
    mzExternalConnectionLost = 1    ///< the other side is gone, and all its connections with it
};

/// An option in the second argument of proxyObjectC::invokeByName, beside the kinds of
/// proxyMemberKindE: numbers and texts stand in for each other, where they can.
constexpr unsigned int proxyInvokeLenient = 0x100;

/// Base of all objects that scripts see: it counts references, finds members in the class's table
/// and calls them. New objects have no references: put them into an mzComPtrT at once, since the
/// first release that finds none left deletes the object. Copying is impossible.
///
/// References may be counted on any thread. The members belong to the thread that first calls one
/// by name, unless the class says that they may be called from any.
class ORVELCORE_EXPORT proxyObjectC : public mzIUnknown
{
public:
    /// The identifier "proxyObjectC".
    static mzIIDS const &IID();

    /// On qMalloc, so that a proxy can be released in another module than the one that made it.
    /// When memory runs out a `new` expression gives null and constructs nothing.
    static void *operator new(std::size_t size) noexcept;
    static void operator delete(void *memory) noexcept;

    /// Knows "mzIUnknown" and the names and object identifiers of the object's class and its bases.
    bool queryInterface(mzIIDS const &identifier, mzComPtrC &target) override;
    int addRef() override { return m_references.fetch_add(1, std::memory_order_relaxed) + 1; }
    int release() override
    {
        int const left = m_references.fetch_sub(1, std::memory_order_acq_rel) - 1;
        Q_ASSERT(left >= 0); // as many releases as references
        if (left == 0) {
            delete this;
        }
        return left;
    }

    /// Calls the member `name` of one of the kinds in `flags` that has as many parameters as there
    /// are `arguments`. It is looked for in the class's table, then in those of the bases; of
    /// several the first one whose parameters can take the arguments is called. On success `result`
    /// holds what the member gave, an object for a value that has a class of its own, `exception`
    /// is null and the return value is true. Otherwise `exception` tells why, `result` is empty and
    /// the return value is false. Other C++ exceptions of a handler pass through. `result` must not
    /// be one of the arguments.
    virtual bool invokeByName(mzComStringC const &name, unsigned int flags,
                              mzComVariantArrayC const &arguments, mzComVariantC &result,
                              mzComPtrT<mzIException> &exception);

    /// The thread that may call the object's members through invokeByName; 0 as long as none has,
    /// and always for a thread-safe object. With `claim` an object that is still free goes to the
    /// calling thread, for good.
    virtual quintptr getStickyThreadId(bool claim);

    /// The object as the class called `className`, one of its own class and its bases; null if it
    /// is none of these.
    virtual void *proxyCast(mzComStringC const &className) const;

    /// The description of the object's class.
    virtual proxyMemberDescListS const *getProxyTypeInfo() const;

    virtual ~proxyObjectC();

    /// A connection from another process holds a reference. Returns how many connections there are
    /// now; -1, with nothing done, if the object has no such interface.
    virtual int addRemoteConnection(mzIIDS const &identifier);
    /// Gives back one connection, or all. Returns how many are left; -1, with nothing done, if
    /// there is none or the object has no such interface. The object may be gone afterwards.
    virtual int releaseRemoteConnection(mzIIDS const &identifier,
                                        mzIComExternalConnectionReleaseStateE state);

    static proxyMemberDescListS *getStaticProxyTypeInfo();

    /// Throws proxyAutoTypeCastExceptionC.
    [[noreturn]] static void throwAutoTypeCastException();

    /// Proxies alive in the process: how a test sees that none is left behind.
    static int liveObjectCount();

protected:
    proxyObjectC();

    /// The object may be called from any thread from now on.
    void setThreadSafe();

private:
    std::atomic<int> m_references{0};
    std::atomic<int> m_remoteConnections{0};
    std::atomic<quintptr> m_thread{0};
    bool m_threadSafe = false;
};
