#pragma once

/// @file
/// A sequence of values.

#include <QtCore/QList>

/// Ordered sequence by value, kept as a QList: a copy shares the values until one of the two is
/// written, which may be by threads of their own. A move leaves the other one empty.
template <typename T>
class PValOrderedVector
{
public:
    PValOrderedVector() = default;
    PValOrderedVector(std::initializer_list<T> values)
        : m_list(values)
    {
    }

    int size() const { return m_list.size(); }
    bool isEmpty() const { return m_list.isEmpty(); }
    /// Entry `i`, from 0 to size() - 1.
    T const &operator[](int i) const { return m_list.at(i); }
    T &operator[](int i) { return m_list[i]; } // ends the sharing: linear in the size, once
    /// Adds a copy of `value` at the end; amortised constant time.
    void append(T const &value) { m_list.append(value); }
    void reserve(int count) { m_list.reserve(count); }
    void clear() { m_list.clear(); }

    typename QList<T>::const_iterator begin() const { return m_list.constBegin(); }
    typename QList<T>::const_iterator end() const { return m_list.constEnd(); }

private:
    QList<T> m_list;
};
