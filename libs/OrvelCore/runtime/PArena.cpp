#include <OrvelCore/runtime/PArena.h>

#include <OrvelCore/runtime/QtAllocation.h>

#include <algorithm>
#include <cstdint>
#include <new>

namespace {

// Chunks grow with the arena, so that small ones stay small and large ones need few.
constexpr std::size_t smallestChunk = 4096;
constexpr std::size_t largestChunk = std::size_t(1) << 20;

} // namespace

// The head of a chunk; the content follows.
struct alignas(8) PArena::Chunk
{
    Chunk *former;
};

// Lies in the arena itself.
struct PArena::Destructor
{
    Destructor *former;
    void *object;
    void (*destroy)(void *);
};

PArena::~PArena()
{
    for (Destructor *d = m_destructors; d; d = d->former) {
        d->destroy(d->object);
    }
    while (m_chunks) {
        Chunk *const former = m_chunks->former;
        orvelFree(m_chunks);
        m_chunks = former;
    }
}

void PArena::addDestructor(void *object, void (*destroy)(void *))
{
    m_destructors =
        new (allocateAligned(sizeof(Destructor))) Destructor{m_destructors, object, destroy};
}

void *PArena::allocateFromNewChunk(std::size_t size)
{
    std::size_t const needed = alignUpTo8(size);
    std::size_t const content =
        std::max(needed, std::clamp(m_reserved, smallestChunk, largestChunk));
    if (needed < size || content + sizeof(Chunk) < content) {
        throw std::bad_alloc();
    }
    m_chunks = new (orvelAllocate(content + sizeof(Chunk))) Chunk{m_chunks};
    m_reserved += content + sizeof(Chunk);
    unsigned char *const block = reinterpret_cast<unsigned char *>(m_chunks + 1);
    Q_ASSERT(reinterpret_cast<std::uintptr_t>(block) % 8 == 0);
    // A block larger than what the running chunk has left may still leave it the better rest.
    if (content - needed >= m_left) {
        m_next = block + needed;
        m_left = content - needed;
    }
    return block;
}
