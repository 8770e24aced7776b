#pragma once

/// @file
/// Runs of the program as a user starts it.

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <regex>
#include <string>

/// One run of orvel-inspect in a folder of its own, with what it left behind.
class ProgramRun
{
public:
    explicit ProgramRun(QStringList const &arguments) { run(arguments); }

    /// Writes `content` to a file of the folder first and hands its name in, before the others.
    ProgramRun(char const *fileName, std::string const &content, QStringList const &others = {})
    {
        QFile file(m_folder.filePath(fileName));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(content.data(), qint64(content.size()));
        }
        file.close();
        run(QStringList{fileName} + others);
        QFile::remove(file.fileName());
    }

    int exitCode() const { return m_exitCode; }
    std::string output() const { return m_output; }
    std::string errors() const { return m_errors; }
    QStringList filesLeft() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
    }
    std::string fileLeft(char const *name) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    /// The value of a row of the printed table.
    std::string valueOf(std::string const &row) const
    {
        std::smatch match;
        std::regex const line("(^|\n)  " + row + "  +(.*)\n");
        return std::regex_search(m_output, match, line) ? match[2].str() : "no such row";
    }

    /// Ended with this exit code, after one line of errors that holds `said`, with nothing printed
    /// or written.
    bool isRefused(std::string const &said, int exitCode) const
    {
        return m_exitCode == exitCode && m_output.empty() && filesLeft().isEmpty() &&
               m_errors.find(said) != std::string::npos &&
               m_errors.find('\n') == m_errors.size() - 1;
    }
    /// Wrong use.
    bool isRefused(std::string const &said) const { return isRefused(said, 2); }
    /// A mesh that can't be inspected.
    bool hasFailed(std::string const &said) const { return isRefused(said, 1); }

private:
    void run(QStringList const &arguments)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(ORVEL_INSPECT, arguments);
        process.waitForFinished(120000);
        m_exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        m_output = process.readAllStandardOutput().toStdString();
        m_errors = process.readAllStandardError().toStdString();
    }

    QTemporaryDir m_folder;
    int m_exitCode = -1;
    std::string m_output;
    std::string m_errors;
};
