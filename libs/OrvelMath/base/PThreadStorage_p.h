#pragma once

/// @file
/// A value per thread.

#include <QtCore/QThreadStorage>

#include <memory>

/// One heap-allocated cell of T per thread. The storage owns the cells: a cell is released when its
/// thread ends, or with the storage if that is destroyed on the same thread. The cells of other
/// threads are lost when the storage goes before them.
///
/// Each thread reaches its own cell only, so all threads may use one storage at the same time.
template <typename T>
class PThreadStorage
{
public:
    PThreadStorage()
        : m_data(destroyCell)
    {
    }
    PThreadStorage(PThreadStorage const &) = delete;
    PThreadStorage &operator=(PThreadStorage const &) = delete;
    ~PThreadStorage()
    {
        // Qt gives the same place to the next storage, which would take the cell for its own.
        if (cell()) {
            m_data.set(nullptr);
        }
    }

    /// The calling thread's cell, null when it has none yet.
    T *cell() const
    {
        void **const slot = m_data.get();
        return slot ? static_cast<T *>(*slot) : nullptr;
    }
    /// Gives the calling thread a cell in place of the one it had, which is released. Throws
    /// std::bad_alloc, with nothing changed, when there is no memory for the thread's table.
    T *setCell(std::unique_ptr<T> cell)
    {
        m_data.set(cell.get());
        return cell.release();
    }

private:
    static void destroyCell(void *cell) { delete static_cast<T *>(cell); }

    QThreadStorageData m_data;
};
