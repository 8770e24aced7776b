#pragma once

/// Heap allocations, by `malloc` and by `operator new`, while `call` runs; -1 where they cannot be
/// counted (under a sanitizer, or with another C library).
template <typename Call>
long allocationsOf(Call call);

namespace allocation {

/// Number of allocations so far, or -1 where they cannot be counted.
long count();

} // namespace allocation

template <typename Call>
long allocationsOf(Call call)
{
    long const before = allocation::count();
    call();
    return before < 0 ? -1 : allocation::count() - before;
}
