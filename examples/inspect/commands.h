#pragma once

#include <CLI/CLI.hpp>

// Each command adds its options to the program and runs in the callback that it sets. Bad input is
// thrown as InputError.

/// `orvel-inspect MESH`: a table and a page on a mesh and its convex hull.
void addHullCommand(CLI::App &app);
