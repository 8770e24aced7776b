#pragma once

/// @file
/// The one way in which programs write their results.

#include <QtCore/QByteArray>

#include <string>
#include <utility>
#include <vector>

/// The results of a program: announced before the work, kept while it runs, written at its end.
///
/// | What stands at the path      | What happens                                                |
/// |------------------------------|-------------------------------------------------------------|
/// | nothing, or a regular file   | written beside it and renamed when all of it is on the disk |
/// | a device or a FIFO           | written to; it stays what it is                             |
/// | the same file as an input    | refused before the work begins; names don't count, the file |
/// | the same file as another one | itself does (device and inode); only devices may be shared  |
/// | a folder, or no folder       | refused before the work begins                              |
/// | `-`, or where output goes    | standard output                                             |
///
/// No file is replaced before every file has been written beside its place. A symbolic link is
/// followed. An object belongs to one thread.
class Outputs
{
public:
    /// Names a file that the program reads. `-` (standard input) is none.
    /// Throws UsageError if it is an output as well.
    void addInput(std::string const &path);

    /// Announces a result. An empty path announces nothing.
    /// Throws UsageError for a path that can't take it, see the table.
    void announce(std::string const &path);

    /// Whether a result was announced that goes to standard output.
    bool usesStandardOutput() const { return m_usesStandardOutput; }

    /// Keeps what is to be written to a path that was announced; an empty path drops it.
    void put(std::string const &path, QByteArray const &content);

    /// Writes all that was put in, in that order, and forgets it.
    /// Throws OutputError when something can't be written; then no file was replaced, but what goes
    /// to standard output, devices and FIFOs may have been written in part.
    void write();

private:
    std::vector<std::string> m_inputs;
    std::vector<std::string> m_outputs;
    std::vector<std::pair<std::string, QByteArray>> m_contents;
    bool m_usesStandardOutput = false;
};

/// Writes to standard output at once. Throws OutputError when the disk is full or nobody reads.
void printOut(QByteArray const &text);
