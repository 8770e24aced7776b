#pragma once

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

/// The id under which `T` travels in an mzComVariantC. The first call registers the record.
template <typename T>
int proxyValueTypeId()
{
    mzComValueMarshalS *record = proxyValueRecord<T>();
    if (__atomic_load_n(&record->id, __ATOMIC_ACQUIRE) == 0) {
        mzComVariantC::registerValueType(record);
    }
    return __atomic_load_n(&record->id, __ATOMIC_ACQUIRE);
}
