#pragma once

/// @file
/// A pointer that holds a reference.

#include <OrvelCore/runtime/PRefObject.h>

#include <type_traits>
#include <utility>

/// Holds one reference to a reference-counted object; null means nothing.
///
/// A copy takes a reference of its own and shares the object; a move hands the reference over and
/// leaves null. A pointer belongs to one thread at a time; pointers of several threads may hold one
/// object. Nothing here asks for memory or throws.
template <typename T>
class PRefPtr
{
public:
    PRefPtr() = default;
    PRefPtr(std::nullptr_t) {}
    /// Takes a reference to `object`, which may be null.
    PRefPtr(T *object) { PRefObject::setStrongPtr(m_object, object); }
    PRefPtr(PRefPtr const &other)
        : PRefPtr(other.m_object)
    {
    }
    PRefPtr(PRefPtr &&other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    PRefPtr(PRefPtr<U> const &other)
        : PRefPtr(other.get())
    {
    }
    ~PRefPtr() { PRefObject::setStrongPtr(m_object, static_cast<T *>(nullptr)); }

    PRefPtr &operator=(PRefPtr const &other)
    {
        PRefObject::setStrongPtr(m_object, other.m_object);
        return *this;
    }
    PRefPtr &operator=(PRefPtr &&other) noexcept
    {
        PRefPtr(std::move(other)).swap(*this);
        return *this;
    }
    PRefPtr &operator=(T *object)
    {
        PRefObject::setStrongPtr(m_object, object);
        return *this;
    }

    T *get() const { return m_object; }
    T *operator->() const
    {
        Q_ASSERT(m_object);
        return m_object;
    }
    T &operator*() const
    {
        Q_ASSERT(m_object);
        return *m_object;
    }
    explicit operator bool() const { return m_object != nullptr; }

    void swap(PRefPtr &other) noexcept { std::swap(m_object, other.m_object); }

    friend bool operator==(PRefPtr const &a, PRefPtr const &b) { return a.m_object == b.m_object; }
    friend bool operator!=(PRefPtr const &a, PRefPtr const &b) { return a.m_object != b.m_object; }

private:
    T *m_object = nullptr;
};
