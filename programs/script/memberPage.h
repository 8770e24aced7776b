#pragma once

/// @file
/// The page of all members of the script classes.

#include <QtCore/QByteArray>

/// A page that shows every member of the script classes with a line of script and its result.
///
/// `examples` has a section for each class: a line "[identifier] setup", then a line of script for
/// each entry of the class's member table, in the order of the table. Every line runs in an
/// interpreter of its own, after the setup. Throws std::runtime_error if lines are missing, left
/// over or fail.
QByteArray memberPage(QByteArray const &examples);
