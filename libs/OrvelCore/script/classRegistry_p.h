#pragma once

/// What the factory forgets when a library goes.
namespace classRegistry {

void removeOwner(void const *owner);

} // namespace classRegistry
