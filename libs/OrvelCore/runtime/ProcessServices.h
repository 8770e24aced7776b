#pragma once

/// @file
/// What the process as a whole offers: exchange of a word, sleep, clean-ups per module, and news of
/// singletons. All of it may be used from any thread.

#include <OrvelCore/OrvelCoreExport.h>

/// Compare and exchange: when `*word` equals `expected`, writes `desired` and returns true;
/// otherwise leaves it and returns false. Sequentially consistent, never fails spuriously.
ORVELCORE_EXPORT bool mzThreadSafeExchangeInt(int *word, int expected, int desired);

/// Lets the calling thread sleep for at least `milliseconds`; returns at once for 0 and below.
ORVELCORE_EXPORT void mzSleep(int milliseconds);

/// Hands in a function to run when the module that contains it goes.
///
/// The module is found by the function's own address. `flags` is kept for other cores and not read
/// here. A function that is handed in twice runs twice. Safe from any thread.
ORVELCORE_EXPORT void mzRegisterGlobalCleanup(void (*cleanup)(), int flags);

/// Runs the clean-ups that the module containing the address `key` handed in: last first, each
/// once. Those that a clean-up hands in while it runs are run as well.
ORVELCORE_EXPORT void mzRunGlobalCleanupFor(void *key);

/// Tells the core what happens to a singleton.
///
/// @param typeName run-time type name of the singleton's class
/// @param cleanup  the singleton's clean-up function, its identity
/// @param level    0
/// @param phase    0 it is about to be built, 1 it is about to be destroyed, 2 it is gone
ORVELCORE_EXPORT void baselog_singleton_changed(char const *typeName, void (*cleanup)(), int level,
                                                int phase);

/// Sees what baselog_singleton_changed is told; runs on the telling thread.
using mzSingletonObserver = void (*)(char const *typeName, void (*cleanup)(), int level, int phase);

/// Sets the one observer of the process, null for none, and returns the former one.
ORVELCORE_EXPORT mzSingletonObserver mzSetSingletonObserver(mzSingletonObserver observer);
