#pragma once

/// What the factory forgets when a library goes.
namespace classRegistry {

void removeOwner(const void *owner);

} // namespace classRegistry
