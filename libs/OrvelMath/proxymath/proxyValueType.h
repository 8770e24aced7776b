#pragma once

/// @file
/// How vectors and matrices travel in an mzComVariantC.

#include <OrvelCore/script/mzComVariantC.h>
#include <OrvelMath/OrvelMathExport.h>
#include <OrvelMath/base/valueTypes.h>

/// The marshalling record of `T`, one of `vectorC2d<double>`, `vectorC3d<double>`,
/// `matrixC3x3<double>` and `matrixC4x4<double>`. On a stream a value is its 2, 3, 9 or 16 doubles
/// in memory order (matrices column by column), with nothing before or after them.
template <typename T>
mzComValueMarshalS *proxyValueRecord();

template <>
ORVELMATH_EXPORT mzComValueMarshalS *proxyValueRecord<vectorC2d<double>>();
template <>
ORVELMATH_EXPORT mzComValueMarshalS *proxyValueRecord<vectorC3d<double>>();
template <>
ORVELMATH_EXPORT mzComValueMarshalS *proxyValueRecord<matrixC3x3<double>>();
template <>
ORVELMATH_EXPORT mzComValueMarshalS *proxyValueRecord<matrixC4x4<double>>();

/// Gives `record` an id, by one call of mzComVariantC::registerValueType, if it has none; returns
/// the id. Threads that need the same id at the same time wait for the one that registers it.
ORVELMATH_EXPORT int proxyRegisterValueType(mzComValueMarshalS *record);

/// The id under which `T` travels in an mzComVariantC. The first call registers the record. May be
/// called from any thread.
template <typename T>
int proxyValueTypeId()
{
    mzComValueMarshalS *const record = proxyValueRecord<T>();
    int const id = __atomic_load_n(&record->id, __ATOMIC_ACQUIRE);
    return id != 0 ? id : proxyRegisterValueType(record);
}
