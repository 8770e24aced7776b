#pragma once

#include <QtCore/qglobal.h>

/// Marks a class or function as part of the exported interface of OrvelMath.
#if defined(ORVELMATH_BUILD)
#define ORVELMATH_EXPORT Q_DECL_EXPORT
#else
#define ORVELMATH_EXPORT Q_DECL_IMPORT
#endif
