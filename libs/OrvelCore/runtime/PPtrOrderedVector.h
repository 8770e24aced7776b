#pragma once

/// @file
/// A sequence of pointers.

#include <QtCore/QList>

/// Ordered sequence of pointers, kept as a QList. The objects are not owned. A copy has the same
/// pointers, and shares their array with the original until one of the two is written; each may be
/// used by a thread of its own. A move leaves the other one empty.
template <typename T>
class PPtrOrderedVector
{
public:
    PPtrOrderedVector() = default;
    PPtrOrderedVector(std::initializer_list<T *> objects)
        : m_list(objects)
    {
    }

    int size() const { return m_list.size(); }
    bool isEmpty() const { return m_list.isEmpty(); }
    /// The object at `i`, from 0 to size() - 1.
    T *operator[](int i) const { return m_list.at(i); }
    /// Adds `object` at the end; amortised constant time.
    void append(T *object) { m_list.append(object); }
    void reserve(int count) { m_list.reserve(count); }
    void clear() { m_list.clear(); }

    typename QList<T *>::const_iterator begin() const { return m_list.constBegin(); }
    typename QList<T *>::const_iterator end() const { return m_list.constEnd(); }

private:
    QList<T *> m_list;
};
