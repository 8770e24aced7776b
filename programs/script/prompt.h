#pragma once

/// @file
/// The prompt.

#include "Interpreter.h"

/// Reads lines, runs them and shows what they give, until the input ends or says "exit". The lines
/// are kept for the next time. Returns the exit code.
int runPrompt(Interpreter &interpreter);
