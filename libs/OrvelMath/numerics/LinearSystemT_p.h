#pragma once

/// @file
/// The name under which the small linear systems are reached from outside the engine.

#include <OrvelMath/engine/LinearSystemT_p.h>
