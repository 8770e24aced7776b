#pragma once

/// @file
/// How a handler sees the arguments and the result of a call.

#include <OrvelCore/script/mzComVariantC.h>

#include <exception>

/// What a handler throws, through proxyObjectC::throwAutoTypeCastException, when a parameter cannot
/// become the type it needs. The dispatcher turns it into an mzIException.
class ORVELCORE_EXPORT proxyAutoTypeCastExceptionC : public std::exception
{
public:
    proxyAutoTypeCastExceptionC() = default;
    proxyAutoTypeCastExceptionC(proxyAutoTypeCastExceptionC const &) = default;
    proxyAutoTypeCastExceptionC &operator=(proxyAutoTypeCastExceptionC const &) = default;
    ~proxyAutoTypeCastExceptionC() override;
    char const *what() const noexcept override;
};

/// A handler's view of one parameter, or of the place for the result. It refers to a variant of the
/// caller and must not outlive it.
class ORVELCORE_EXPORT proxyAutoTypeCastC
{
public:
    /// A parameter, to be read.
    explicit proxyAutoTypeCastC(mzComVariantC const &parameter)
        : m_variant(&parameter)
    {
    }
    /// The place for a result, to be set.
    explicit proxyAutoTypeCastC(mzComVariantC *result)
        : m_variant(result)
        , m_result(result)
    {
    }

    mzComVariantC const &getVariant() const { return *m_variant; }

    /// The parameter as a `T`: double or mzComStringC. An object that stands for such a value will
    /// do. With `lenient` a text that is wholly a number serves as a number, and a number as its
    /// shortest exact text. Anything else throws proxyAutoTypeCastExceptionC.
    template <class T>
    T get(bool lenient) const;

    /// Sets the result: double, mzComStringC, mzComPtrT<mzIUnknown> or mzComVariantC. A parameter
    /// stays as it is.
    template <class T>
    void set(T const &value)
    {
        if (m_result != nullptr) {
            *m_result = mzComVariantC(value);
        }
    }

    /// Whether a handler that takes a `type` can be given this parameter.
    bool isConvertibleTo(std::type_info const &type, bool lenient) const;

private:
    mzComVariantC const *m_variant;
    mzComVariantC *m_result = nullptr;
};

template <>
ORVELCORE_EXPORT double proxyAutoTypeCastC::get<double>(bool lenient) const;
template <>
ORVELCORE_EXPORT mzComStringC proxyAutoTypeCastC::get<mzComStringC>(bool lenient) const;

/// A handler's view of the arguments of a call, which must outlive it.
class ORVELCORE_EXPORT proxyAutoParaListC
{
public:
    explicit proxyAutoParaListC(mzComVariantArrayC const &arguments)
        : m_arguments(arguments)
    {
    }

    int size() const { return m_arguments.size(); }
    /// The parameter at `index`, from 0; past the end an empty one.
    proxyAutoTypeCastC operator[](int index) const;

private:
    mzComVariantArrayC const &m_arguments;
};
