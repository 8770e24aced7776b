#include <OrvelCore/runtime/ProcessServices.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

#include <dlfcn.h>

namespace {

struct Cleanup
{
    void *module;
    void (*run)();
};

struct CleanupRegistry
{
    std::mutex mutex;
    std::vector<Cleanup> entries;
};

// Never destroyed: modules unload, and ask for their clean-ups, after the static objects of this
// library are gone.
CleanupRegistry &registry()
{
    static CleanupRegistry *const instance = new CleanupRegistry;
    return *instance;
}

std::atomic<mzSingletonObserver> singletonObserver{nullptr};

// Load address of the module that contains `address`, null for none.
void *moduleOf(void *address)
{
    Dl_info info;
    return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

// Takes the last clean-up of `module` out of the registry; null when none is left.
void (*takeLast(void *module))()
{
    CleanupRegistry &all = registry();
    std::lock_guard<std::mutex> lock(all.mutex);
    for (auto entry = all.entries.rbegin(); entry != all.entries.rend(); ++entry) {
        if (entry->module == module) {
            void (*const run)() = entry->run;
            all.entries.erase(std::next(entry).base());
            return run;
        }
    }
    return nullptr;
}

} // namespace

bool mzThreadSafeExchangeInt(int *word, int expected, int desired)
{
    return __atomic_compare_exchange_n(word, &expected, desired, false, __ATOMIC_SEQ_CST,
                                       __ATOMIC_SEQ_CST);
}

void mzSleep(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void mzRegisterGlobalCleanup(void (*cleanup)(), int /*flags*/)
{
    CleanupRegistry &all = registry();
    std::lock_guard<std::mutex> lock(all.mutex);
    all.entries.push_back({moduleOf(reinterpret_cast<void *>(cleanup)), cleanup});
}

void mzRunGlobalCleanupFor(void *key)
{
    void *const module = moduleOf(key);
    // The lock isn't held while a clean-up runs: it may hand in or look up others.
    while (void (*const run)() = takeLast(module)) {
        run();
    }
}

void baselog_singleton_changed(char const *typeName, void (*cleanup)(), int level, int phase)
{
    if (mzSingletonObserver const observer = singletonObserver.load()) {
        observer(typeName, cleanup, level, phase);
    }
}

mzSingletonObserver mzSetSingletonObserver(mzSingletonObserver observer)
{
    return singletonObserver.exchange(observer);
}
