#include <OrvelMath/numerics/AlgorithmIF.h>

AlgorithmIF::AlgorithmIF() = default;
AlgorithmIF::AlgorithmIF(AlgorithmIF const &) = default;
AlgorithmIF &AlgorithmIF::operator=(AlgorithmIF const &) = default;
AlgorithmIF::~AlgorithmIF() = default;
