#pragma once

#include <QtCore/qglobal.h>

/// Marks a class or function as part of the exported interface of OrvelCore.
#if defined(ORVELCORE_BUILD)
#define ORVELCORE_EXPORT Q_DECL_EXPORT
#else
#define ORVELCORE_EXPORT Q_DECL_IMPORT
#endif
