#pragma once

/// @file
/// What ends a program, or one part of its work, with a sentence for the person who called it.

#include <stdexcept>

/// Wrong use: the program does nothing and ends with exit code 2.
struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// A result can't be written: exit code 2.
struct OutputError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// One of the inputs is bad: the others are still worked on, and the exit code is 1.
struct InputError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};
