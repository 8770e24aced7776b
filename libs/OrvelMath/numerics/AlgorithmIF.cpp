#include <OrvelMath/numerics/AlgorithmIF.h>

AlgorithmIF::AlgorithmIF() = default;
AlgorithmIF::AlgorithmIF(const AlgorithmIF &) = default;
AlgorithmIF &AlgorithmIF::operator=(const AlgorithmIF &) = default;
AlgorithmIF::~AlgorithmIF() = default;
