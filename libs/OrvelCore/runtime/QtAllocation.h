#pragma once

/// @file
/// Qt's allocation functions, called in one place.

#include <OrvelCore/OrvelCoreExport.h>

#include <cstddef>

/// Memory from `qMalloc`; throws std::bad_alloc when there is none.
///
/// Qt 5.15 marks `qMalloc` and `qFree` as deprecated; they are called in this one place, so that
/// neither our headers nor their users meet the warning.
ORVELCORE_EXPORT void *orvelAllocate(std::size_t size);

/// Gives memory back through `qFree`; null is allowed.
ORVELCORE_EXPORT void orvelFree(void *memory) noexcept;
