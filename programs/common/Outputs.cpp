#include "Outputs.h"

#include "Interrupt.h"
#include "errors.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using Stat = struct stat;

bool isSameFile(Stat const &a, Stat const &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool isStandardOutput(std::string const &path)
{
    Stat named = {};
    Stat output = {};
    return path == "-" || (stat(path.c_str(), &named) == 0 && fstat(STDOUT_FILENO, &output) == 0 &&
                           !S_ISCHR(named.st_mode) && isSameFile(named, output));
}

bool isDevice(Stat const &file)
{
    return S_ISCHR(file.st_mode) || S_ISBLK(file.st_mode);
}

// Where a file is or would come to be, with links followed.
std::string placeOf(std::string const &path)
{
    QFileInfo info(QString::fromStdString(path));
    if (info.isSymLink()) {
        info.setFile(info.symLinkTarget());
    }
    QString const folder = QFileInfo(info.path()).canonicalFilePath();
    return (folder + QLatin1Char('/') + info.fileName()).toStdString();
}

// One regular file or FIFO under two names counts as one; a device may take several results.
bool meet(std::string const &a, std::string const &b)
{
    Stat first = {};
    Stat second = {};
    bool const firstExists = stat(a.c_str(), &first) == 0;
    bool const secondExists = stat(b.c_str(), &second) == 0;
    if (firstExists && secondExists) {
        return isSameFile(first, second) && !isDevice(first);
    }
    return firstExists == secondExists && placeOf(a) == placeOf(b);
}

void refuseWhatCanTakeNothing(std::string const &path)
{
    QFileInfo const info(QString::fromStdString(path));
    if (info.isDir()) {
        throw UsageError(path + ": a folder, and no file to write to");
    }
    QFileInfo const folder(info.path());
    if (!info.exists() && !info.isSymLink() && !folder.isDir()) {
        throw UsageError(path + ": there is no such folder");
    }
    if (info.exists() ? !info.isWritable() : !folder.isWritable()) {
        throw UsageError(path + ": no permission to write there");
    }
}

[[noreturn]] void fail(std::string const &name, QFileDevice const &file)
{
    throw OutputError(name + ": " + file.errorString().toStdString());
}

void writeTo(QFileDevice &file, std::string const &name, QByteArray const &content)
{
    if (file.write(content) != content.size() || !file.flush()) {
        fail(name, file);
    }
}

// A device or a FIFO, opened as it is.
void writeThrough(std::string const &path, QByteArray const &content)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        fail(path, file);
    }
    writeTo(file, path, content);
}

} // namespace

void Outputs::addInput(std::string const &path)
{
    if (path == "-") {
        return;
    }
    for (std::string const &output : m_outputs) {
        if (meet(path, output)) {
            throw UsageError(output + ": is an input, and would be overwritten");
        }
    }
    m_inputs.push_back(path);
}

void Outputs::announce(std::string const &path)
{
    if (path.empty()) {
        return;
    }
    if (isStandardOutput(path)) {
        if (m_usesStandardOutput) {
            throw UsageError(path + ": two results would go to standard output");
        }
        m_usesStandardOutput = true;
        return;
    }
    for (std::string const &input : m_inputs) {
        if (meet(input, path)) {
            throw UsageError(path + ": is an input, and would be overwritten");
        }
    }
    for (std::string const &output : m_outputs) {
        if (meet(output, path)) {
            throw UsageError(path + ": two results would go to this file");
        }
    }
    refuseWhatCanTakeNothing(path);
    m_outputs.push_back(path);
}

void Outputs::put(std::string const &path, QByteArray const &content)
{
    if (!path.empty()) {
        m_contents.emplace_back(path, content);
    }
}

void Outputs::write()
{
    auto const contents = std::exchange(m_contents, {});
    std::vector<std::pair<std::string, QByteArray>> regular;
    for (auto const &[path, content] : contents) {
        QFileInfo const info(QString::fromStdString(path));
        if (isStandardOutput(path)) {
            printOut(content);
        } else if (info.exists() && !info.isFile()) {
            writeThrough(path, content);
        } else {
            regular.emplace_back(path, content);
        }
    }
    NotNow const whole;
    std::vector<std::unique_ptr<QSaveFile>> files;
    for (auto const &[path, content] : regular) {
        files.push_back(std::make_unique<QSaveFile>(QString::fromStdString(path)));
        if (!files.back()->open(QIODevice::WriteOnly)) {
            fail(path, *files.back());
        }
        writeTo(*files.back(), path, content);
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (!files[i]->commit()) {
            fail(regular[i].first, *files[i]);
        }
    }
}

void printOut(QByteArray const &text)
{
    for (int done = 0; done < text.size();) {
        ssize_t const count =
            ::write(STDOUT_FILENO, text.constData() + done, std::size_t(text.size() - done));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            throw OutputError(std::string("standard output: ") + std::strerror(errno));
        }
        done += int(count);
    }
}
