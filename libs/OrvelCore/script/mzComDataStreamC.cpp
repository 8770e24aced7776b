#include <OrvelCore/script/mzComDataStreamC.h>

#include <QtCore/QtEndian>

#include <cstring>

mzComDataStreamC &mzComDataStreamC::operator<<(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    char bytes[sizeof bits];
    qToLittleEndian(bits, bytes);
    m_data.append(bytes, int(sizeof bytes));
    return *this;
}

mzComDataStreamC &mzComDataStreamC::operator>>(double &value)
{
    m_ok = m_ok && m_data.size() - m_position >= int(sizeof value);
    if (m_ok) {
        quint64 const bits = qFromLittleEndian<quint64>(m_data.constData() + m_position);
        std::memcpy(&value, &bits, sizeof value);
        m_position += int(sizeof value);
    }
    return *this;
}
