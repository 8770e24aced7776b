#pragma once

#include <stdexcept>

/// Bad input, told in one line fit for a person; the program ends with exit code 2.
struct InputError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};
