#pragma once

#include <QtCore/QThreadStorage>

/// One heap-allocated cell of T a thread, released when the thread ends.
template <typename T>
class PThreadStorage
{
public:
    PThreadStorage()
        : m_data(destroyCell)
    {
    }

    /// The calling thread's cell, null when it has none yet.
    T *cell() const
    {
        void **const slot = m_data.get();
        return slot ? static_cast<T *>(*slot) : nullptr;
    }
    /// Gives the calling thread a cell, which the storage then owns.
    T *setCell(T *cell)
    {
        m_data.set(cell);
        return cell;
    }

private:
    static void destroyCell(void *cell) { delete static_cast<T *>(cell); }

    QThreadStorageData m_data;
};
