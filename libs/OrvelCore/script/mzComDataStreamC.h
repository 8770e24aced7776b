#pragma once

/// @file
/// Doubles as a sequence of bytes.

#include <OrvelCore/OrvelCoreExport.h>

#include <QtCore/QByteArray>

#include <utility>

/// A sequence of doubles in memory, written at the end and read from the front. Each takes eight
/// bytes, the least significant first, on every machine. A copy starts where the original is and
/// shares the bytes until one of the two is written. A stream belongs to one thread at a time.
class ORVELCORE_EXPORT mzComDataStreamC
{
public:
    mzComDataStreamC() = default;
    /// A stream to read what `data` of another stream gave.
    explicit mzComDataStreamC(QByteArray const &data)
        : m_data(data)
    {
    }

    mzComDataStreamC(mzComDataStreamC const &) = default;
    mzComDataStreamC &operator=(mzComDataStreamC const &) = default;
    /// A move leaves `other` as a new stream.
    mzComDataStreamC(mzComDataStreamC &&other) noexcept
        : m_data(std::exchange(other.m_data, QByteArray()))
        , m_position(std::exchange(other.m_position, 0))
        , m_ok(std::exchange(other.m_ok, true))
    {
    }
    mzComDataStreamC &operator=(mzComDataStreamC &&other) noexcept
    {
        m_data = std::exchange(other.m_data, QByteArray());
        m_position = std::exchange(other.m_position, 0);
        m_ok = std::exchange(other.m_ok, true);
        return *this;
    }
    ~mzComDataStreamC() = default;

    mzComDataStreamC &operator<<(double value);
    /// Reads the next value. With fewer than eight bytes left `value` stays as it is and the stream
    /// is no longer ok; from then on it gives nothing more.
    mzComDataStreamC &operator>>(double &value);

    /// False once a read ran dry.
    bool isOk() const { return m_ok; }
    /// All bytes written so far, those read included.
    QByteArray const &data() const { return m_data; }

private:
    QByteArray m_data;
    int m_position = 0;
    bool m_ok = true;
};
