#include "describe.h"

#include <QtCore/QLocale>

#include <cmath>

namespace {

/// Values a line of text: a matrix has one for each axis.
int valuesPerGroup(int count)
{
    int const side = int(std::lround(std::sqrt(double(count))));
    return side * side == count ? side : count;
}

QByteArray joined(mzComDataStreamC &stream)
{
    int const count = stream.data().size() / int(sizeof(double));
    int const group = valuesPerGroup(count);
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        double value = 0.0;
        stream >> value;
        if (i > 0) {
            text += i % group == 0 ? "; " : ", ";
        }
        text += QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    }
    return text;
}

} // namespace

QByteArray describe(mzComPtrT<mzIUnknown> const &object)
{
    mzComPtrT<proxyObjectC> proxy;
    if (!object->queryInterface(proxyObjectC::IID(), proxy)) {
        return "object";
    }
    proxyMemberDescListS const *list = proxy->getProxyTypeInfo();
    QByteArray const identifier =
        list->objectIdentifier != nullptr ? list->objectIdentifier : list->name;
    QByteArray const name = identifier.mid(identifier.lastIndexOf('.') + 1);
    mzComDataStreamC stream;
    if (!mzComVariantC(object).toSkalarValue().writeUserData(stream)) {
        return name;
    }
    return name + "(" + joined(stream) + ")";
}
