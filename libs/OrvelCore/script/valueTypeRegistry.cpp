#include <OrvelCore/script/valueTypeRegistry_p.h>

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <dlfcn.h>

namespace valueTypeRegistry {
namespace {

// An id is how many types the slot held before, over 15 bits of the slot's number, counted from 1.
constexpr int slotBits = 15;
constexpr unsigned slotMask = (1u << slotBits) - 1;
constexpr unsigned mostUses = 1u << (31 - slotBits); // an id is positive
constexpr std::size_t blockSize = 64;
constexpr std::size_t mostBlocks = (slotMask + 1) / blockSize;

/// A place for a type. `id` is written last when a type comes and first when it goes; each other
/// field is stored with release and loaded with acquire, so that a reader who has seen a new field
/// also sees that the id has changed.
struct Slot
{
    std::atomic<int> id{0}; // 0 while the slot is free
    std::atomic<mzComValueMarshalS const *> record{nullptr};
    std::atomic<char const *> name{nullptr};
    std::atomic<char const *> proxyClass{mzIIDS().name};
    // Under the mutex.
    unsigned uses = 0;
    void const *owner = nullptr;
    void const *module = nullptr;
};

using Block = std::array<Slot, blockSize>;

// Apart from the registry, since readers need no more. The blocks are never freed: readers take no
// lock.
std::array<std::atomic<Block *>, mostBlocks> blocks{};
std::atomic<int> givenIds{0};

struct Registry
{
    std::mutex mutex;
    unsigned usedSlots = 0;          // those that ever held a type
    std::vector<unsigned> freeSlots; // has room for all used ones
    std::set<std::string> names;     // never shrinks: entries point into it

    Slot &slot(unsigned number) const
    {
        Block *const block = blocks[number / blockSize].load(std::memory_order_acquire);
        return (*block)[number % blockSize];
    }
    unsigned freeSlot();
    void release(unsigned number) noexcept;
};

// Never destroyed: libraries take their things away after the static objects of this one are gone.
Registry &registry()
{
    static Registry *const instance = new Registry;
    return *instance;
}

/// The number of a slot that is free; it is not taken yet.
unsigned Registry::freeSlot()
{
    if (!freeSlots.empty()) {
        return freeSlots.back();
    }
    if (usedSlots == slotMask) {
        throw std::length_error("no id is left for another value type");
    }
    freeSlots.reserve(usedSlots + 1);
    std::atomic<Block *> &block = blocks[usedSlots / blockSize];
    if (block.load(std::memory_order_relaxed) == nullptr) {
        block.store(new Block, std::memory_order_release);
    }
    freeSlots.push_back(usedSlots);
    return usedSlots++;
}

void Registry::release(unsigned number) noexcept
{
    Slot &gone = slot(number);
    gone.id.store(0, std::memory_order_relaxed);
    gone.record.store(nullptr, std::memory_order_release);
    gone.name.store(nullptr, std::memory_order_release);
    gone.proxyClass.store(mzIIDS().name, std::memory_order_release);
    gone.owner = nullptr;
    gone.module = nullptr;
    // A slot that has given all its ids stays free for good.
    if (gone.uses < mostUses) {
        freeSlots.push_back(number);
    }
}

unsigned numberOf(int id)
{
    return (unsigned(id) & slotMask) - 1; // wraps for an id that names no slot
}

/// The slot that holds the type of this id at the moment, or null.
Slot *slotOf(int id)
{
    unsigned const number = numberOf(id);
    if (id <= 0 || number >= slotMask) {
        return nullptr;
    }
    Block *const block = blocks[number / blockSize].load(std::memory_order_acquire);
    if (block == nullptr) {
        return nullptr;
    }
    Slot &slot = (*block)[number % blockSize];
    return slot.id.load(std::memory_order_acquire) == id ? &slot : nullptr;
}

/// Load address of the module that contains `address`; null for the stack and the heap.
void const *moduleOf(void const *address)
{
    Dl_info info;
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

} // namespace

void add(mzComValueMarshalS *record)
{
    Registry &types = registry();
    std::lock_guard<std::mutex> const lock(types.mutex);
    if (record->id != 0) {
        return;
    }
    char const *const name = types.names.insert(record->name().utf8()).first->c_str();
    unsigned const number = types.freeSlot();
    types.freeSlots.pop_back(); // nothing throws from here on
    Slot &slot = types.slot(number);
    Q_ASSERT(slot.id.load(std::memory_order_relaxed) == 0);
    int const id = int(slot.uses++ << slotBits | (number + 1));
    slot.module = moduleOf(record);
    slot.record.store(record, std::memory_order_release);
    slot.name.store(name, std::memory_order_release);
    slot.id.store(id, std::memory_order_release);
    givenIds.fetch_add(1, std::memory_order_relaxed);
    // Other threads look at the id without the lock.
    __atomic_store_n(&record->id, id, __ATOMIC_RELEASE);
}

void setProxyClass(int id, mzIIDS const &classIdentifier, void const *owner)
{
    std::lock_guard<std::mutex> const lock(registry().mutex);
    if (Slot *const slot = slotOf(id)) {
        slot->proxyClass.store(classIdentifier.name, std::memory_order_release);
        slot->owner = owner;
    }
}

void removeOwner(void const *owner) noexcept
{
    Registry &types = registry();
    void const *const module = moduleOf(owner);
    std::lock_guard<std::mutex> const lock(types.mutex);
    for (unsigned number = 0; number < types.usedSlots; ++number) {
        Slot const &slot = types.slot(number);
        bool const isOwned = owner != nullptr && slot.owner == owner;
        bool const isInModule = module != nullptr && slot.module == module;
        if (slot.id.load(std::memory_order_relaxed) != 0 && (isOwned || isInModule)) {
            types.release(number);
        }
    }
}

Entry find(int id) noexcept
{
    Slot const *const slot = slotOf(id);
    if (slot == nullptr) {
        return Entry();
    }
    Entry const entry = {slot->record.load(std::memory_order_acquire),
                         slot->name.load(std::memory_order_acquire),
                         mzIIDS(slot->proxyClass.load(std::memory_order_acquire))};
    // If the type went in between, some of what was read is not its own.
    return slot->id.load(std::memory_order_relaxed) == id ? entry : Entry();
}

mzComValueMarshalS const *findRecord(int id) noexcept
{
    Slot const *const slot = slotOf(id);
    if (slot == nullptr) {
        return nullptr;
    }
    mzComValueMarshalS const *const record = slot->record.load(std::memory_order_acquire);
    return slot->id.load(std::memory_order_relaxed) == id ? record : nullptr;
}

int count() noexcept
{
    return givenIds.load(std::memory_order_relaxed);
}

} // namespace valueTypeRegistry
