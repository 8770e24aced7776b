#pragma once

/// @file
/// The module Orvel, through which scripts reach the script classes.

struct mrb_state;
struct RClass;

/// Classes that the host makes objects of.
struct Classes
{
    RClass *object;      ///< Orvel::Object
    RClass *error;       ///< Orvel::Error
    RClass *frozenError; ///< FrozenError
};

/// Defines the module Orvel. The interpreter's user data (`mrb->ud`) has to point to the classes
/// that come back while scripts run; they are never collected.
Classes defineOrvel(mrb_state *mrb);
