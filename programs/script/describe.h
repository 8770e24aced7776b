#pragma once

/// @file
/// Objects as text.

#include <OrvelCore/script/ScriptLayer.h>

#include <QtCore/QByteArray>

/// The object as text: "vector3d(1, 2, 3)"; the axes of a matrix are set apart by semicolons. An
/// object without a value is its name alone.
QByteArray describe(mzComPtrT<mzIUnknown> const &object);
