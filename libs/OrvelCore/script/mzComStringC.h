#pragma once

#include <OrvelCore/OrvelCoreExport.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// The string of the script layer: UTF-8 text, shared on copy. Names of members and classes, string
/// arguments and messages are of this type.
class ORVELCORE_EXPORT mzComStringC
{
public:
    mzComStringC() = default;
    /// Copies the UTF-8 text; a null pointer gives the empty string.
    mzComStringC(const char *utf8)
        : m_utf8(utf8)
    {
    }
    mzComStringC(const QByteArray &utf8)
        : m_utf8(utf8)
    {
    }
    mzComStringC(const QString &text)
        : m_utf8(text.toUtf8())
    {
    }

    /// The text with a terminating zero; never null, valid until the string changes or dies.
    const char *utf8() const { return m_utf8.constData(); }
    const QByteArray &bytes() const { return m_utf8; }
    QString toQString() const { return QString::fromUtf8(m_utf8); }
    bool isEmpty() const { return m_utf8.isEmpty(); }

    /// Byte for byte: capitals count, nothing is normalised.
    bool operator==(const mzComStringC &other) const { return m_utf8 == other.m_utf8; }
    bool operator!=(const mzComStringC &other) const { return m_utf8 != other.m_utf8; }
    mzComStringC operator+(const mzComStringC &other) const { return m_utf8 + other.m_utf8; }
    mzComStringC &operator+=(const mzComStringC &other)
    {
        m_utf8 += other.m_utf8;
        return *this;
    }

private:
    QByteArray m_utf8;
};

inline mzComStringC operator+(const char *left, const mzComStringC &right)
{
    return mzComStringC(left) + right;
}
