#pragma once

/// @file
/// The mark of what OrvelMath exports.

#include <QtCore/qglobal.h>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#error "OrvelMath is built for Qt 5. Qt 6 is not supported yet: compile with the headers of Qt 5."
#endif

/// Marks a class or function as part of the exported interface of OrvelMath.
#if defined(ORVELMATH_BUILD)
#define ORVELMATH_EXPORT Q_DECL_EXPORT
#else
#define ORVELMATH_EXPORT Q_DECL_IMPORT
#endif
