#include "ProgramRun.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A folder with a mesh, in which the program runs.
class InspectOutputs : public ::testing::Test
{
protected:
    void SetUp() override { write("t.obj", tetrahedron); }

    std::string path(char const *name) const { return m_folder.filePath(name).toStdString(); }
    void write(char const *name, std::string const &content) const
    {
        std::ofstream(path(name)) << content;
    }
    std::string read(char const *name) const
    {
        std::ifstream file(path(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }
    QStringList files() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::System | QDir::Hidden);
    }

    /// Starts the program in the folder.
    void start(QProcess &process, QStringList const &arguments) const
    {
        process.setWorkingDirectory(m_folder.path());
        process.start(ORVEL_INSPECT, arguments);
        ASSERT_TRUE(process.waitForStarted());
    }
    /// Runs it; the exit code, or -1 for a crash.
    int run(QStringList const &arguments, char const *standardOutput = nullptr)
    {
        QProcess process;
        if (standardOutput != nullptr) {
            process.setStandardOutputFile(standardOutput);
        }
        start(process, arguments);
        process.waitForFinished(60000);
        errors = process.readAllStandardError().toStdString();
        output = process.readAllStandardOutput().toStdString();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    std::string const tetrahedron = "v 0 0 0\nv 3 0 0\nv 0 4 0\nv 0 0 5\n"
                                    "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";
    std::string errors;
    std::string output;

private:
    QTemporaryDir m_folder;
};

bool isCharacterDevice(char const *path)
{
    struct stat found = {};
    return stat(path, &found) == 0 && S_ISCHR(found.st_mode);
}

} // namespace

TEST_F(InspectOutputs, DeviceStaysADevice)
{
    EXPECT_EQ(0, run({"t.obj", "--report", "/dev/null"})) << errors;
    EXPECT_TRUE(isCharacterDevice("/dev/null"));
}

TEST_F(InspectOutputs, FifoIsWrittenTo)
{
    ASSERT_EQ(0, mkfifo(path("fifo").c_str(), 0600));
    int const reader = open(path("fifo").c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    QProcess process;
    start(process, {"t.obj", "--report", "fifo"});
    std::string received;
    for (int i = 0; i < 600 && received.find("</html>") == std::string::npos; ++i) {
        char part[65536];
        ssize_t const count = ::read(reader, part, sizeof part);
        if (count > 0) {
            received.append(part, std::size_t(count));
        } else {
            process.waitForFinished(100);
        }
    }
    close(reader);
    process.waitForFinished();
    EXPECT_EQ(0, process.exitCode()) << process.readAllStandardError().toStdString();
    EXPECT_NE(std::string::npos, received.find("</html>"));
    struct stat found = {};
    ASSERT_EQ(0, stat(path("fifo").c_str(), &found));
    EXPECT_TRUE(S_ISFIFO(found.st_mode));
}

TEST_F(InspectOutputs, InputIsNeverOverwritten)
{
    ASSERT_EQ(0, link(path("t.obj").c_str(), path("hard").c_str()));
    ASSERT_EQ(0, symlink("t.obj", path("soft").c_str()));
    for (char const *name : {"t.obj", "./t.obj", "hard", "soft"}) {
        EXPECT_EQ(2, run({"t.obj", "--report", name}));
        EXPECT_NE(std::string::npos, errors.find("is an input")) << errors;
    }
    EXPECT_EQ(2, run({"compare", "t.obj", "t.obj", "--report", "hard"}));
    EXPECT_EQ(2, run({"volume", "t.obj", "--bits", "hard"}));
    EXPECT_EQ(tetrahedron, read("t.obj"));
}

TEST_F(InspectOutputs, TwoResultsNeedTwoFiles)
{
    write("old", "before");
    ASSERT_EQ(0, link(path("old").c_str(), path("same").c_str()));
    EXPECT_EQ(2, run({"volume", "t.obj", "--bits", "new", "--report", "./new"}));
    EXPECT_NE(std::string::npos, errors.find("two results")) << errors;
    EXPECT_EQ(2, run({"volume", "t.obj", "--bits", "old", "--report", "same"}));
    EXPECT_EQ(2, run({"volume", "t.obj", "--bits", "-", "--report", "-"}));
    EXPECT_EQ("before", read("old"));
    EXPECT_EQ((QStringList{"old", "same", "t.obj"}), files());
}

TEST_F(InspectOutputs, DashIsStandardOutput)
{
    EXPECT_EQ(0, run({"t.obj", "--report", "-"})) << errors;
    EXPECT_EQ(0u, output.find("<!DOCTYPE html>"));
    EXPECT_EQ(output.size() - 8, output.rfind("</html>\n")) << "the page alone";
    EXPECT_EQ(QStringList{"t.obj"}, files());
    // A link to it means the same.
    EXPECT_EQ(0, run({"t.obj", "--report", "/dev/stdout"}, path("page").c_str())) << errors;
    EXPECT_EQ(0u, read("page").find("<!DOCTYPE html>"));
}

TEST_F(InspectOutputs, LinkIsFollowed)
{
    write("real", "before");
    ASSERT_EQ(0, symlink("real", path("link").c_str()));
    EXPECT_EQ(0, run({"t.obj", "--report", "link"})) << errors;
    EXPECT_TRUE(QFileInfo(QString::fromStdString(path("link"))).isSymLink());
    EXPECT_EQ(0u, read("real").find("<!DOCTYPE html>"));
}

TEST_F(InspectOutputs, PlacesThatTakeNothingAreRefusedBeforeTheWork)
{
    for (char const *name : {"no/such/folder/page.html", ".", "/"}) {
        EXPECT_EQ(2, run({"t.obj", "--report", name}));
        EXPECT_NE(std::string::npos, errors.find(name)) << errors;
        EXPECT_EQ("", output);
    }
    EXPECT_EQ(2, run({"t.obj", "--hull", "hull.doc"}));
    EXPECT_EQ(QStringList{"t.obj"}, files());
}

TEST_F(InspectOutputs, FullDiskEndsWithAMessage)
{
    EXPECT_EQ(2, run({"t.obj", "--report", "/dev/full"}));
    EXPECT_NE(std::string::npos, errors.find("/dev/full: ")) << errors;
    EXPECT_NE(std::string::npos, errors.find("space")) << errors;
    EXPECT_EQ(2, run({"t.obj"}, "/dev/full"));
    EXPECT_NE(std::string::npos, errors.find("standard output: ")) << errors;
    EXPECT_EQ(2, run({"--help"}, "/dev/full"));
    // The other result is not written either.
    EXPECT_EQ(2, run({"volume", "t.obj", "--report", "/dev/full", "--bits", "b"}));
    EXPECT_EQ(QStringList{"t.obj"}, files());
}

TEST_F(InspectOutputs, ClosedPipeEndsWithAMessage)
{
    // The reader has gone long before the program begins to write.
    QProcess shell;
    shell.start("bash", {"-c", QString("(sleep 0.3; exec %1 %2) | true; echo ${PIPESTATUS[0]}")
                                   .arg(ORVEL_INSPECT, QString::fromStdString(path("t.obj")))});
    ASSERT_TRUE(shell.waitForFinished());
    EXPECT_EQ("2", shell.readAllStandardOutput().trimmed().toStdString());
    EXPECT_NE(std::string::npos,
              shell.readAllStandardError().toStdString().find("standard output: "));
}

TEST_F(InspectOutputs, FormerFileStaysWhenTheMeshFails)
{
    write("page.html", "before");
    write("bad.obj", "no mesh");
    EXPECT_EQ(1, run({"bad.obj", "--report", "page.html"}));
    EXPECT_EQ("before", read("page.html"));
}

TEST_F(InspectOutputs, InterruptedWorkEndsAtOnceAndLeavesNothing)
{
    // Enough work for several seconds.
    QProcess process;
    start(process, {"volume", "t.obj", "--cells", "1500", "--bits", "b", "--report", "page.html"});
    ASSERT_FALSE(process.waitForFinished(700)) << "the work is too little for this test";
    QElapsedTimer timer;
    timer.start();
    kill(pid_t(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(5000));
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_EQ(QProcess::NormalExit, process.exitStatus());
    EXPECT_EQ(130, process.exitCode());
    EXPECT_EQ(QStringList{"t.obj"}, files());
}
