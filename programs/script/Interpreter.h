#pragma once

/// @file
/// The interpreter that runs scripts.

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <cstddef>
#include <memory>

struct mrb_state;
struct mrbc_context;
struct Classes;

/// A Ruby interpreter that knows the script classes of the process.
///
/// Scripts find the module `Orvel`:
///
/// | Script | Gives |
/// |---|---|
/// | `Orvel.factory` | a new "linquet.mathfactory" |
/// | `Orvel.create("linquet.vector3d")` | a new object of a class, nil for an unknown one |
/// | `help`, `help :cross` | prints what the member tables say |
/// | `exit`, `load "FILE"`, `ARGV` | as in Ruby |
/// | `Orvel::Error` | raised when a call is refused; names class, member and arguments |
///
/// On an object every name is a member: `v.len` and `v.x` call or read, `v.x(5)` calls, `v.x = 5`
/// writes, `v.(1, 2, 3)` calls the object itself, its default member. A member that gives back its
/// receiver gives the same Ruby object, so that calls chain. A frozen object refuses to be written.
///
/// No script crashes the host, whatever it redefines.
class Interpreter
{
public:
    /// What came of a piece of script.
    struct Outcome
    {
        bool ok = false;
        bool isExit = false; ///< `exit` was called
        int exitCode = 0;    ///< what was handed to it
        QByteArray text;     ///< the value as `inspect` shows it, or the error
    };

    /// @param memoryLimit  bytes that scripts may hold; 0 for no limit. What asks for more raises
    ///                     NoMemoryError.
    explicit Interpreter(std::size_t memoryLimit = 0);
    ~Interpreter();
    Interpreter(Interpreter const &) = delete;
    Interpreter &operator=(Interpreter const &) = delete;

    /// Runs `script`. Its variables stay for the next one. `fileName` and `line` say where its
    /// first line stands.
    Outcome run(QByteArray const &script, QByteArray const &fileName, int line = 1);

    /// Whether `script` is the beginning of something: a block, a string or a bracket is open.
    bool isIncomplete(QByteArray const &script);
    /// What scripts find as ARGV.
    void setArguments(QList<QByteArray> const &arguments);

private:
    struct Memory;

    std::unique_ptr<Memory> m_memory;
    mrb_state *m_mrb;
    mrbc_context *m_context;
    std::unique_ptr<Classes> m_classes; ///< what the interpreter's user data points to
};
