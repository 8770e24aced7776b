#include <OrvelMath/proxymath/proxyValueType.h>

#include <mutex>

namespace {

template <typename T>
constexpr int doubleCount = int(sizeof(T) / sizeof(double));

template <typename T>
mzComStringC typeName()
{
    return mzComTypeInfoToName(typeid(T));
}

template <typename T>
void *create(void const *from)
{
    return from != nullptr ? new T(*static_cast<T const *>(from)) : new T();
}

template <typename T>
void copy(void const *from, void *to)
{
    *static_cast<T *>(to) = *static_cast<T const *>(from);
}

template <typename T>
void destroy(void *value)
{
    delete static_cast<T *>(value);
}

template <typename T>
bool read(void *value, mzComDataStreamC &stream)
{
    T &target = *static_cast<T *>(value);
    for (int i = 0; i < doubleCount<T>; ++i) {
        stream >> target[i];
    }
    return stream.isOk();
}

template <typename T>
bool write(void const *value, mzComDataStreamC &stream)
{
    T const &source = *static_cast<T const *>(value);
    for (int i = 0; i < doubleCount<T>; ++i) {
        stream << source[i];
    }
    return true;
}

template <typename T>
mzComValueMarshalS record = {0,       int(sizeof(T)), typeName<T>, create<T>,
                             copy<T>, destroy<T>,     read<T>,     write<T>};

std::mutex registration;

} // namespace

int proxyRegisterValueType(mzComValueMarshalS *record)
{
    std::lock_guard<std::mutex> const lock(registration);
    if (__atomic_load_n(&record->id, __ATOMIC_ACQUIRE) == 0) {
        mzComVariantC::registerValueType(record);
    }
    return __atomic_load_n(&record->id, __ATOMIC_ACQUIRE);
}

template <>
mzComValueMarshalS *proxyValueRecord<vectorC2d<double>>()
{
    return &record<vectorC2d<double>>;
}

template <>
mzComValueMarshalS *proxyValueRecord<vectorC3d<double>>()
{
    return &record<vectorC3d<double>>;
}

template <>
mzComValueMarshalS *proxyValueRecord<matrixC3x3<double>>()
{
    return &record<matrixC3x3<double>>;
}

template <>
mzComValueMarshalS *proxyValueRecord<matrixC4x4<double>>()
{
    return &record<matrixC4x4<double>>;
}
