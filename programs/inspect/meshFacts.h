#pragma once

/// @file
/// All that orvel-inspect finds out about one mesh.

#include "Facts.h"
#include "Hull.h"
#include "OrientedBox.h"
#include "Progress.h"

#include <string>
#include <vector>

/// What was found, and what pictures of it need.
struct Findings
{
    Facts facts;
    Hull hull;
    OrientedBox box;
    std::vector<double> spacings;
};

/// Measures a mesh. `nearest` is a place "X,Y,Z" or empty. Takes the stages of the bar from the
/// reading up to `end`.
Findings findingsOf(Mesh const &mesh, std::string const &nearest, Progress &progress, double end);
