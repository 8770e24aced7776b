#pragma once

/// @file
/// Memory that is given back all at once.

#include <OrvelCore/OrvelCoreExport.h>

#include <cstddef>

/// Hands out memory that lives until the arena is destroyed.
///
/// Blocks come from large chunks, one after the other; nothing is freed on its own. The arena owns
/// the memory, and no object in it: it calls the registered destructors, last registered first, and
/// then frees the chunks. It can't be copied. It belongs to one thread at a time; separate arenas
/// may work in parallel. A request that throws leaves the arena as it was.
class ORVELCORE_EXPORT PArena
{
public:
    PArena() = default;
    ~PArena();
    PArena(PArena const &) = delete;
    PArena &operator=(PArena const &) = delete;

    /// `size` bytes at an address that is a multiple of 8. The content is not initialised.
    /// Throws std::bad_alloc when there is no memory. Amortised constant time.
    void *allocateAligned(std::size_t size)
    {
        std::size_t const needed = alignUpTo8(size);
        if (needed < size || needed > m_left) {
            return allocateFromNewChunk(size);
        }
        unsigned char *const block = m_next;
        m_next += needed;
        m_left -= needed;
        return block;
    }

    /// Has `destroy(object)` called when the arena goes; it must not throw. Throws std::bad_alloc,
    /// with nothing registered, when there is no memory.
    void addDestructor(void *object, void (*destroy)(void *));

    /// The smallest multiple of 8 that is not below `size`; sizes within 7 of the largest wrap to
    /// 0.
    static constexpr std::size_t alignUpTo8(std::size_t size)
    {
        return (size + 7) & ~static_cast<std::size_t>(7);
    }

    /// Bytes taken from the system so far.
    std::size_t bytesReserved() const { return m_reserved; }

private:
    struct Chunk;
    struct Destructor;

    void *allocateFromNewChunk(std::size_t size);

    unsigned char *m_next = nullptr;
    std::size_t m_left = 0;
    std::size_t m_reserved = 0;
    Chunk *m_chunks = nullptr;
    Destructor *m_destructors = nullptr;
};
