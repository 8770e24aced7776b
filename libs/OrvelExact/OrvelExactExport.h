#pragma once

#include <QtCore/qglobal.h>

/// @file
/// Marks what OrvelExact exports.

/// Marks a class or function as part of the exported interface of OrvelExact.
#if defined(ORVELEXACT_BUILD)
#define ORVELEXACT_EXPORT Q_DECL_EXPORT
#else
#define ORVELEXACT_EXPORT Q_DECL_IMPORT
#endif
