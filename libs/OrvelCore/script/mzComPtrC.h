#pragma once

/// @file
/// Counted pointers to objects of the script layer.

#include <OrvelCore/script/mzIUnknown.h>

#include <utility>

/// A counted pointer to an object of the script layer. It holds one reference, or is null. A copy
/// takes a reference of its own, a move leaves null. A pointer belongs to one thread at a time;
/// pointers of several threads may hold one object. Nothing here asks for memory or throws.
class ORVELCORE_EXPORT mzComPtrC
{
public:
    mzComPtrC() = default;
    mzComPtrC(mzIUnknown *object)
        : m_object(object)
    {
        if (m_object != nullptr) {
            m_object->addRef();
        }
    }
    mzComPtrC(mzComPtrC const &other)
        : mzComPtrC(other.m_object)
    {
    }
    mzComPtrC(mzComPtrC &&other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    ~mzComPtrC()
    {
        if (m_object != nullptr) {
            m_object->release();
        }
    }
    mzComPtrC &operator=(mzComPtrC other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    mzIUnknown *unknown() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    /// Identity: the same object.
    bool operator==(mzComPtrC const &other) const { return m_object == other.m_object; }
    bool operator!=(mzComPtrC const &other) const { return m_object != other.m_object; }

private:
    mzIUnknown *m_object = nullptr;
};

/// mzComPtrC with a type. `T` derives from mzIUnknown; a pointer filled by `queryInterface` must
/// have the type that the identifier stands for.
template <class T>
class mzComPtrT : public mzComPtrC
{
public:
    mzComPtrT() = default;
    mzComPtrT(T *object)
        : mzComPtrC(object)
    {
    }

    T *get() const { return static_cast<T *>(unknown()); }
    T *operator->() const
    {
        Q_ASSERT(get());
        return get();
    }
    T &operator*() const
    {
        Q_ASSERT(get());
        return *get();
    }
};
