#pragma once

/// @file
/// The commands of orvel-inspect.

#include "Listing.h"
#include "MeshReader.h"
#include "Outputs.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

/// What all commands take.
struct CommonOptions
{
    ReadOptions read;
    Listing::Form form = Listing::Form::table;
    std::string report; ///< empty for none
};

/// Adds the options that all commands take; `options` outlives the app.
void addCommonOptions(CLI::App &app, CommonOptions &options);
/// Adds `--json`, `--csv` and `--quiet` alone.
void addListingOptions(CLI::App &app, CommonOptions &options);

/// Says on standard error what was lost on the way in.
void warnOf(Mesh const &mesh, std::string const &path);
/// Throws InputError for a point cloud.
void refuseWithoutTriangles(Mesh const &mesh);
/// The facts with the file and the warnings before them, for programs.
Facts withFile(Facts const &facts, std::string const &path, Mesh const &mesh);

/// The work of a command, to be done after parsing; returns the exit code.
using Work = std::function<int()>;

/// `orvel-inspect MESH...`: what meshes and their convex hulls are like.
Work addMeshCommand(CLI::App &app);

/// `orvel-inspect volume MESH`: the tree of the mesh's volume, as figures, pictures and bits.
Work addVolumeCommand(CLI::App &command);

/// `orvel-inspect compare A B`: the volume that two meshes share and that only one of them has.
Work addCompareCommand(CLI::App &command);

/// `orvel-inspect bits FILE`: what a file holds that `volume --bits` wrote.
Work addBitsCommand(CLI::App &command);
