#pragma once

/// @file
/// Who registered what. A library registers its classes and value types while one of its
/// mzComServerStateEventC objects is told of the server's start; that object is their owner, and
/// what it owns is forgotten when it goes.

namespace serverEvents {

/// The object that is being told of the server's start on this thread, or null.
void const *notified() noexcept;

} // namespace serverEvents

namespace classRegistry {

/// Forgets the classes of this owner. The value types go by valueTypeRegistry::removeOwner.
void removeOwner(void const *owner) noexcept;

} // namespace classRegistry
