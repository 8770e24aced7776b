#pragma once

/// @file
/// Lets allocations of this thread fail, and counts the memory blocks that it holds.

/// Watches `malloc` and its kin, and with them `operator new` and Qt's containers, from its
/// construction to its destruction. One object per thread at a time.
class FailingAllocation
{
public:
    /// Lets the allocation after the next `before` ones fail; later ones succeed again. A negative
    /// number lets none fail.
    explicit FailingAllocation(long before);
    ~FailingAllocation();
    FailingAllocation(FailingAllocation const &) = delete;
    FailingAllocation &operator=(FailingAllocation const &) = delete;

    /// False where allocations can't be watched: under a sanitizer, or with another C library.
    static bool isPossible();

    /// True once the allocation has failed.
    bool hasFailed() const;
    /// Blocks taken since the construction and not given back.
    long heldBlocks() const;
};
