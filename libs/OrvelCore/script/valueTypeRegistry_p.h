#pragma once

/// @file
/// The value types that the process knows.
///
/// A type lives in a slot. The slots of a library that goes are used again, so that memory depends
/// on how many types there are at a time and not on how often libraries come and go. An id names
/// the slot and how many types it has held; no id is ever given twice.
///
/// Reading takes no lock and may run beside any change. Changes wait for each other.

#include <OrvelCore/script/mzComVariantC.h>

namespace valueTypeRegistry {

/// What is known of one type, as of the moment of the question.
struct Entry
{
    mzComValueMarshalS const *record = nullptr; ///< null: there is no such type
    char const *name = nullptr;                 ///< `record->name()`; stays for good
    mzIIDS proxyClass;
};

/// Gives the record an id if it has none. With `std::bad_alloc`, or `std::length_error` once the
/// ids are used up, nothing has changed.
void add(mzComValueMarshalS *record);

/// `owner` is the one that takes the type away again, null for nobody. Does nothing without a type
/// of this id.
void setProxyClass(int id, mzIIDS const &classIdentifier, void const *owner);

/// Forgets the types of this owner, and those whose record lies in the module of `owner`, when
/// `owner` is a static object.
void removeOwner(void const *owner) noexcept;

/// The type of this id; an empty entry if there is none, or no longer.
Entry find(int id) noexcept;

/// The record of the type of this id, null if there is none, or no longer.
mzComValueMarshalS const *findRecord(int id) noexcept;

/// How many ids were given so far.
int count() noexcept;

} // namespace valueTypeRegistry
