#pragma once

/// @file
/// A program that ends within a second when the user presses Ctrl-C, and leaves nothing half-done.

#include <mutex>

/// Watches SIGINT, SIGTERM and SIGHUP from a thread of its own.
///
/// When one of them comes the program ends at once with exit code 128 plus the signal's number, 130
/// for Ctrl-C, whatever it is at; only what holds a `NotNow` is waited for. A signal that the
/// caller ignores (`nohup`) stays ignored.
///
/// Install it once, before any other thread starts.
void installInterrupt();

/// While one lives, no signal ends the program. Keep it short: a rename, not a computation.
class NotNow
{
public:
    NotNow();
    ~NotNow();
    NotNow(NotNow const &) = delete;
    NotNow &operator=(NotNow const &) = delete;
};
