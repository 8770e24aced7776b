#include <OrvelCore/script/valueTypeRegistry_p.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace valueTypeRegistry {
namespace {

using Table = std::vector<Entry>;

/// Superseded tables stay until the end of the process, since a reader may still look at one; there
/// are as many as types are registered.
struct Registry
{
    std::mutex mutex;
    std::vector<std::unique_ptr<const Table>> tables;
    std::atomic<Table const *> current{nullptr};

    Table copy() const
    {
        Table const *table = current.load(std::memory_order_acquire);
        return table != nullptr ? *table : Table();
    }
    void publish(Table table)
    {
        tables.push_back(std::make_unique<const Table>(std::move(table)));
        current.store(tables.back().get(), std::memory_order_release);
    }
};

// Never destroyed: libraries take their things away after the static objects of this one are gone.
Registry &registry()
{
    static Registry *const instance = new Registry;
    return *instance;
}

} // namespace

void add(mzComValueMarshalS *record)
{
    Registry &types = registry();
    const std::lock_guard<std::mutex> lock(types.mutex);
    if (record->id != 0) {
        return;
    }
    Table table = types.copy();
    table.push_back({record, record->name(), mzIIDS(), nullptr});
    int const id = int(table.size());
    types.publish(std::move(table));
    // Other threads look at the id without the lock.
    __atomic_store_n(&record->id, id, __ATOMIC_RELEASE);
}

void setProxyClass(int id, mzIIDS const &classIdentifier, void const *owner)
{
    Registry &types = registry();
    const std::lock_guard<std::mutex> lock(types.mutex);
    Table table = types.copy();
    if (id < 1 || std::size_t(id) > table.size()) {
        return;
    }
    table[std::size_t(id) - 1].proxyClass = classIdentifier;
    table[std::size_t(id) - 1].owner = owner;
    types.publish(std::move(table));
}

void removeOwner(void const *owner)
{
    Registry &types = registry();
    const std::lock_guard<std::mutex> lock(types.mutex);
    Table table = types.copy();
    bool changed = false;
    for (Entry &entry : table) {
        if (entry.owner == owner) {
            entry = Entry();
            changed = true;
        }
    }
    if (changed) {
        types.publish(std::move(table));
    }
}

Entry const *find(int id)
{
    Table const *table = registry().current.load(std::memory_order_acquire);
    if (table == nullptr || id < 1 || std::size_t(id) > table->size()) {
        return nullptr;
    }
    Entry const &entry = (*table)[std::size_t(id) - 1];
    return entry.record != nullptr ? &entry : nullptr;
}

int count()
{
    Table const *table = registry().current.load(std::memory_order_acquire);
    return table != nullptr ? int(table->size()) : 0;
}

} // namespace valueTypeRegistry
