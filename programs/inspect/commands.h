#pragma once

#include <CLI/CLI.hpp>

// Each command adds its options to the program and runs in the callback that it sets. Bad input is
// thrown as InputError.

/// `orvel-inspect MESH`: a table and a page on a mesh and its convex hull.
void addHullCommand(CLI::App &app);

/// `orvel-inspect volume MESH --resolution R`: the tree of the mesh's volume, its bits in a file, a
/// table and a page with slices.
void addVolumeCommand(CLI::App &app);

/// `orvel-inspect compare A B --resolution R`: the volume that two meshes share and that only one
/// of them has, and a page with slices.
void addCompareCommand(CLI::App &app);
