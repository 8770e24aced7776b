#pragma once

/// @file
/// Identifiers of interfaces and script classes.

#include <OrvelCore/OrvelCoreExport.h>

#include <cstring>

/// Identifier of an interface or of a script class: a name that is unique in the process. It refers
/// to a text that must outlive it, a literal as a rule.
struct mzIIDS
{
    mzIIDS() = default;
    explicit mzIIDS(char const *identifier)
        : name(identifier)
    {
    }

    bool operator==(mzIIDS const &other) const
    {
        return name == other.name || std::strcmp(name, other.name) == 0;
    }
    bool operator!=(mzIIDS const &other) const { return !(*this == other); }

    char const *name = "";
};
