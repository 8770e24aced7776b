#pragma once

/// @file
/// The text of the script layer.

#include <OrvelCore/OrvelCoreExport.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <utility>

/// The string of the script layer: UTF-8 text. Names of members and classes, string arguments and
/// messages are of this type. It owns its text; a copy shares it until one of the two is written,
/// which may be by threads of their own.
class ORVELCORE_EXPORT mzComStringC
{
public:
    mzComStringC() = default;
    /// Copies the UTF-8 text; a null pointer gives the empty string.
    mzComStringC(char const *utf8)
        : m_utf8(utf8)
    {
    }
    mzComStringC(QByteArray const &utf8)
        : m_utf8(utf8)
    {
    }
    mzComStringC(QString const &text)
        : m_utf8(text.toUtf8())
    {
    }

    mzComStringC(mzComStringC const &) = default;
    mzComStringC &operator=(mzComStringC const &) = default;
    /// A move leaves `other` empty.
    mzComStringC(mzComStringC &&other) noexcept = default;
    mzComStringC &operator=(mzComStringC &&other) noexcept
    {
        m_utf8 = std::exchange(other.m_utf8, QByteArray());
        return *this;
    }
    ~mzComStringC() = default;

    /// The text with a terminating zero; never null, valid until the string changes or dies.
    char const *utf8() const { return m_utf8.constData(); }
    QByteArray const &bytes() const { return m_utf8; }
    QString toQString() const { return QString::fromUtf8(m_utf8); }
    bool isEmpty() const { return m_utf8.isEmpty(); }

    /// Byte for byte: capitals count, nothing is normalised.
    bool operator==(mzComStringC const &other) const { return m_utf8 == other.m_utf8; }
    bool operator!=(mzComStringC const &other) const { return m_utf8 != other.m_utf8; }
    mzComStringC operator+(mzComStringC const &other) const { return m_utf8 + other.m_utf8; }
    mzComStringC &operator+=(mzComStringC const &other)
    {
        m_utf8 += other.m_utf8;
        return *this;
    }

private:
    QByteArray m_utf8;
};

inline mzComStringC operator+(char const *left, mzComStringC const &right)
{
    return mzComStringC(left) + right;
}
