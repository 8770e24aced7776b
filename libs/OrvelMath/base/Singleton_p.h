#pragma once

/// @file
/// One instance per module, built at the first access.

#include <OrvelCore/runtime/ProcessServices.h>

#include <QtCore/qglobal.h>

#include <typeinfo>
#include <utility>

/// The one instance of T in this module, built at the first access and torn down by the core's
/// global clean-up; an access after that builds it anew.
///
/// All changes of state go through one compare-and-exchange word. A thread that meets the instance
/// while another builds or destroys it sleeps 50 milliseconds at a time until it is settled. In a
/// child process that was forked in that time it sleeps for ever, as the other thread isn't there.
///
/// The module owns the instance. Whoever has the pointer must not use it after the clean-up.
template <typename T>
class Singleton
{
public:
    /// The instance. What its construction or the registration of its clean-up throws comes
    /// through; what was built is then destroyed, and the next access starts anew.
    static T *instance()
    {
        for (;;) {
            int const state = __atomic_load_n(&s_state, __ATOMIC_ACQUIRE);
            if (state == Ready) {
                return s_instance;
            }
            if (state == Absent && mzThreadSafeExchangeInt(&s_state, Absent, BeingBuilt)) {
                return build();
            }
            mzSleep(50);
        }
    }

    /// Destroys the instance; does nothing unless it is ready.
    static void cleanUp()
    {
        if (!mzThreadSafeExchangeInt(&s_state, Ready, BeingDestroyed)) {
            return;
        }
        baselog_singleton_changed(typeid(T).name(), cleanUp, 0, 1);
        delete s_instance;
        s_instance = nullptr;
        change(BeingDestroyed, Absent);
        baselog_singleton_changed(typeid(T).name(), cleanUp, 0, 2);
    }

private:
    enum State { Absent = 0, BeingBuilt = 1, Ready = 2, BeingDestroyed = 3 };

    static T *build()
    {
        try {
            baselog_singleton_changed(typeid(T).name(), cleanUp, 0, 0);
            s_instance = new T;
            mzRegisterGlobalCleanup(cleanUp, 0);
        } catch (...) {
            delete std::exchange(s_instance, nullptr);
            change(BeingBuilt, Absent);
            throw;
        }
        T *const built = s_instance; // once the state is Ready another thread may destroy it
        change(BeingBuilt, Ready);
        return built;
    }

    /// A change of state by the thread that has claimed it, which therefore succeeds.
    static void change(State from, State to)
    {
        [[maybe_unused]] bool const changed = mzThreadSafeExchangeInt(&s_state, from, to);
        Q_ASSERT(changed);
    }

    static inline int s_state = Absent;
    static inline T *s_instance = nullptr;
};
