#pragma once

/// @file
/// Typed access to the value of a proxy.

#include <OrvelCore/script/ScriptLayer.h>
#include <OrvelMath/proxymath/proxyValueType.h>

/// A proxy that stands for a value of type `T`: typed access to the variant in which
/// prxQVariantBaseC keeps it.
template <typename T>
class ORVELMATH_EXPORT prxVariantUserTypeBaseC : public prxQVariantBaseC
{
public:
    using ValueType = T;

    /// A handle for editing the value in place. It reads the value when it is made and counts a
    /// reference to the proxy. When it goes it writes the value back if anybody went through
    /// `operator->`, be it only to read, and then gives the reference back.
    class prxValWrapperC
    {
    public:
        explicit prxValWrapperC(prxVariantUserTypeBaseC *owner)
            : m_owner(owner)
            , m_value(owner->getValue())
        {
        }
        prxValWrapperC(prxValWrapperC const &) = delete;
        prxValWrapperC &operator=(prxValWrapperC const &) = delete;
        /// Throws std::bad_alloc when there is no memory for the new value; the proxy then keeps
        /// the old one.
        ~prxValWrapperC() noexcept(false)
        {
            if (m_dirty) {
                m_owner->setValue(m_value);
            }
        }

        T *operator->()
        {
            m_dirty = true;
            return &m_value;
        }

    private:
        mzComPtrT<prxVariantUserTypeBaseC> m_owner; // before the value: counted before it is read
        T m_value;
        bool m_dirty = false;
    };

    ~prxVariantUserTypeBaseC() override = default;

    /// The value; the zero value if the variant holds none of type `T`.
    virtual T getValue() const
    {
        T value{};
        getComVariant().toSkalarValue().getUserData(proxyValueTypeId<T>(), &value);
        return value;
    }
    virtual void setValue(T const &value)
    {
        setComVariant(mzComVariantC::fromUserData(proxyValueTypeId<T>(), &value));
    }
    /// A handle for editing. Const, as a way in from any member; what it edits is not.
    virtual prxValWrapperC value() const
    {
        return prxValWrapperC(const_cast<prxVariantUserTypeBaseC *>(this));
    }

protected:
    /// The zero value.
    prxVariantUserTypeBaseC()
    {
        T const zero{};
        setComVariant(mzComVariantC::fromUserData(proxyValueTypeId<T>(), &zero));
    }
    prxVariantUserTypeBaseC(T const &value)
        : prxQVariantBaseC(mzComVariantC::fromUserData(proxyValueTypeId<T>(), &value))
    {
    }
};
