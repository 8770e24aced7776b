#pragma once

/// @file
/// How finely volumes are taken apart.

#include "VolumeTree.h"

#include <CLI/CLI.hpp>

/// The options `--resolution` and `--cells`.
struct Resolution
{
    double size = 0.0; ///< of the smallest half extent that is still split; 0 unless given
    int cells = 128;   ///< along the longest extent, unless the size is given

    void addTo(CLI::App &command);
    /// The size for some content. Throws UsageError where the count is not 2 or more.
    double sizeFor(Box const &content) const;

private:
    CLI::Option *m_size = nullptr;
};
