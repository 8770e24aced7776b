#pragma once

/// @file
/// The engine's pairs of doubles under the names of this folder.

#include <OrvelMath/engine/Pair_p.h>

namespace MatUtil {

using engine::answerBits;
using engine::greaterOr;
using engine::lesserOr;
using engine::magnitude;
using engine::negatedWhere;
using engine::Pair;
using engine::PairMask;

} // namespace MatUtil
