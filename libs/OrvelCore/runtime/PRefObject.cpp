#include <OrvelCore/runtime/PRefObject.h>

PRefObjectI::~PRefObjectI() = default;

PRefObject::PRefObject()
    : m_count(0)
{
}

PRefObject::PRefObject(PRefObject const &)
    : PRefObjectI()
    , m_count(0)
{
}

PRefObject &PRefObject::operator=(PRefObject const &)
{
    return *this;
}

PRefObject::~PRefObject() = default;

void PRefObject::addRef() const
{
    m_count.fetch_add(1, std::memory_order_relaxed);
}

void PRefObject::release() const
{
    // The release half publishes this thread's writes, the acquire half sees those of the others
    // before the object goes.
    int const former = m_count.fetch_sub(1, std::memory_order_acq_rel);
    Q_ASSERT(former > 0); // as many releases as references
    if (former == 1) {
        delete this;
    }
}

int PRefObject::refCount() const
{
    return m_count.load(std::memory_order_relaxed);
}
