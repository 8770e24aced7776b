#pragma once

/// @file
/// The prompt.

#include <cstddef>

/// What a script may take.
struct Limits
{
    std::size_t memory = 0; ///< bytes; 0 for no limit
    unsigned seconds = 0;   ///< of time; at the prompt, for each input. 0 for no limit
};

/// Reads input, runs it and shows what it gives, until the input ends or says `exit`. Returns the
/// exit code.
///
/// An input goes on over lines until it is whole. Tab completes members and files. Each input runs
/// in a process of its own, which takes the prompt over when it is through: what Ctrl-C, the time
/// limit or a crash ends is that process, and the prompt goes on with everything as it was before
/// the input. The lines are kept for the next time, one by one.
int runPrompt(Limits const &limits);
