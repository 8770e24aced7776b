#include "ProgramRun.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>

#include <gtest/gtest.h>

#include <fstream>

namespace {

/// Meshes in a folder and in one below it.
class InspectListing : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir(folder.path()).mkpath("below");
        write("a.obj", tetrahedron);
        write("b.obj", "no mesh");
        write("below/c.obj", tetrahedron);
        write("letter.txt", "Dear reader");
    }
    void write(char const *name, std::string const &content) const
    {
        std::ofstream(folder.filePath(name).toStdString()) << content;
    }
    static QList<QJsonObject> objectsOf(ProgramRun const &run)
    {
        QList<QJsonObject> objects;
        for (QByteArray const &line : QByteArray::fromStdString(run.output()).split('\n')) {
            if (!line.isEmpty()) {
                objects.append(QJsonDocument::fromJson(line).object());
            }
        }
        return objects;
    }

    std::string const tetrahedron = "v 0 0 0\nv 3 0 0\nv 0 4 0\nv 0 0 5\n"
                                    "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";
    QTemporaryDir folder;
};

} // namespace

TEST_F(InspectListing, JsonIsOneObjectAMesh)
{
    ProgramRun const run({folder.path(), "--json"});
    EXPECT_EQ(1, run.exitCode()) << "one of them is no mesh";
    QList<QJsonObject> const objects = objectsOf(run);
    ASSERT_EQ(2, objects.size()) << run.output();
    EXPECT_EQ(10.0, objects[0]["volume"].toDouble());
    EXPECT_EQ(4, objects[0]["vertices"].toInt());
    EXPECT_TRUE(objects[0]["closed"].toBool());
    EXPECT_EQ(5.0, objects[0]["extents"].toArray().at(2).toDouble());
    EXPECT_FALSE(objects[0].contains("error"));
    EXPECT_TRUE(objects[1]["file"].toString().endsWith("b.obj"));
    EXPECT_TRUE(objects[1]["error"].toString().contains("not a mesh"));
}

TEST_F(InspectListing, KeysAreThoseOfTheDocumentation)
{
    QFile page(QStringLiteral(ORVEL_SOURCE_DIR "/docs/inspect-json.md"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    QString const text = page.readAll();
    QString const mesh = folder.filePath("a.obj");
    for (QStringList const &arguments :
         {QStringList{mesh, "--nearest", "0,0,0"}, QStringList{"volume", mesh},
          QStringList{"compare", mesh, mesh}}) {
        for (QJsonObject const &object : objectsOf(ProgramRun(arguments + QStringList{"--json"}))) {
            EXPECT_GT(object.size(), 5);
            for (QString const &key : object.keys()) {
                EXPECT_TRUE(text.contains("| `" + key + "` |")) << key.toStdString();
            }
        }
    }
}

TEST_F(InspectListing, CsvHasARowAMesh)
{
    ProgramRun const run({folder.path(), "-r", "--csv"});
    QList<QByteArray> const lines = QByteArray::fromStdString(run.output()).split('\n');
    ASSERT_EQ(5, lines.size()) << "keys, three meshes, the end";
    QList<QByteArray> const keys = lines[0].trimmed().split(',');
    QList<QByteArray> const values = lines[1].trimmed().split(',');
    ASSERT_EQ(keys.size(), values.size());
    EXPECT_EQ("10", values[keys.indexOf("volume")]);
    EXPECT_EQ("3 4 5", values[keys.indexOf("extents")]);
    EXPECT_TRUE(keys.contains("error"));
}

TEST_F(InspectListing, FoldersAreSearchedBelowOnlyWhenAsked)
{
    EXPECT_EQ(2, objectsOf(ProgramRun({folder.path(), "--json"})).size());
    EXPECT_EQ(3, objectsOf(ProgramRun({folder.path(), "-r", "--json"})).size());
}

TEST_F(InspectListing, ManyMeshesInOneCall)
{
    QString const a = folder.filePath("a.obj");
    ProgramRun const run({a, folder.filePath("below/c.obj"), a});
    EXPECT_EQ(0, run.exitCode()) << run.errors();
    EXPECT_EQ(0u, run.output().find("a.obj\n"));
    EXPECT_NE(std::string::npos, run.output().find("\nc.obj\n"));
}

TEST_F(InspectListing, QuietSaysOnlyWhatIsWrong)
{
    ProgramRun const run({folder.path(), "--quiet"});
    EXPECT_EQ(1, run.exitCode());
    EXPECT_EQ("", run.output());
    EXPECT_NE(std::string::npos, run.errors().find("b.obj: not a mesh"));
}

TEST_F(InspectListing, MeshComesFromStandardInput)
{
    QProcess process;
    process.setStandardInputFile(folder.filePath("a.obj"));
    process.start(ORVEL_INSPECT, {"-", "--format", "obj", "--json"});
    ASSERT_TRUE(process.waitForFinished());
    QJsonObject const object = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    EXPECT_EQ(10.0, object["volume"].toDouble());
    EXPECT_EQ("y", object["up"].toString().toStdString());
}

TEST_F(InspectListing, HullAndBoxAreExportedInAllFormats)
{
    QString const a = folder.filePath("a.obj");
    for (char const *suffix : {"obj", "ply", "stl", "glb", "gltf"}) {
        QString const hull = folder.filePath(QString("hull.") + suffix);
        QString const box = folder.filePath(QString("box.") + suffix);
        EXPECT_EQ(0, ProgramRun({a, "--hull", hull, "--box", box}).exitCode()) << suffix;
        ProgramRun const run({hull, box, "--json"});
        QList<QJsonObject> const objects = objectsOf(run);
        ASSERT_EQ(2, objects.size()) << suffix << run.errors();
        EXPECT_NEAR(10.0, objects[0]["volume"].toDouble(), 1e-5) << suffix;
        EXPECT_TRUE(objects[1]["closed"].toBool()) << suffix;
        EXPECT_GE(objects[1]["volume"].toDouble(), 10.0) << suffix;
    }
}

TEST_F(InspectListing, VersionIsOneLine)
{
    ProgramRun const run(QStringList{"--version"});
    EXPECT_EQ(0, run.exitCode());
    EXPECT_EQ(0u, run.output().find("orvel-inspect 1."));
    EXPECT_EQ(run.output().size() - 1, run.output().find('\n'));
}
