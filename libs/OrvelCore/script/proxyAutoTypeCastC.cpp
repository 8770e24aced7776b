#include <OrvelCore/script/proxyAutoTypeCastC.h>

#include <OrvelCore/script/proxyObjectC.h>
#include <OrvelCore/script/valueTypeRegistry_p.h>

#include <QtCore/QLocale>

#include <cstring>
#include <optional>

namespace {

std::optional<double> toNumber(mzComVariantC const &variant, bool lenient)
{
    mzComVariantC const value = variant.toSkalarValue();
    if (value.isDouble()) {
        return value.toDouble();
    }
    if (lenient && value.isString()) {
        bool isNumber = false;
        double const number = value.toString().bytes().toDouble(&isNumber);
        if (isNumber) {
            return number;
        }
    }
    return std::nullopt;
}

std::optional<mzComStringC> toText(mzComVariantC const &variant, bool lenient)
{
    mzComVariantC const value = variant.toSkalarValue();
    if (value.isString()) {
        return value.toString();
    }
    if (lenient && value.isDouble()) {
        return mzComStringC(
            QByteArray::number(value.toDouble(), 'g', QLocale::FloatingPointShortest));
    }
    return std::nullopt;
}

} // namespace

proxyAutoTypeCastExceptionC::~proxyAutoTypeCastExceptionC() = default;

char const *proxyAutoTypeCastExceptionC::what() const noexcept
{
    return "a parameter cannot be converted";
}

template <>
double proxyAutoTypeCastC::get<double>(bool lenient) const
{
    if (m_variant->isDouble()) {
        return m_variant->toDouble();
    }
    std::optional<double> const number = toNumber(*m_variant, lenient);
    if (!number) {
        proxyObjectC::throwAutoTypeCastException();
    }
    return *number;
}

template <>
mzComStringC proxyAutoTypeCastC::get<mzComStringC>(bool lenient) const
{
    std::optional<mzComStringC> const text = toText(*m_variant, lenient);
    if (!text) {
        proxyObjectC::throwAutoTypeCastException();
    }
    return *text;
}

bool proxyAutoTypeCastC::isConvertibleTo(std::type_info const &type, bool lenient) const
{
    if (type == typeid(double)) {
        return m_variant->isDouble() || toNumber(*m_variant, lenient).has_value();
    }
    if (type == typeid(mzComStringC)) {
        return toText(*m_variant, lenient).has_value();
    }
    if (type == typeid(mzComVariantC)) {
        return true;
    }
    if (type == typeid(mzComPtrT<mzIUnknown>)) {
        return m_variant->isObject() || m_variant->isEmpty();
    }
    valueTypeRegistry::Entry const entry =
        valueTypeRegistry::find(m_variant->toSkalarValue().userType());
    return entry.record != nullptr && std::strcmp(entry.name, type.name()) == 0;
}

proxyAutoTypeCastC proxyAutoParaListC::operator[](int index) const
{
    static mzComVariantC const absent;
    bool const isThere = index >= 0 && index < m_arguments.size();
    return proxyAutoTypeCastC(isThere ? m_arguments.at(index) : absent);
}
