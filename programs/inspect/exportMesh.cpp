#include "exportMesh.h"

#include "errors.h"

#include <assimp/Exporter.hpp>
#include <assimp/scene.h>

#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <iterator>
#include <memory>

namespace {

struct Format
{
    char const *suffix;
    char const *assimpName;
};

constexpr Format formats[] = {
    {"obj", "objnomtl"}, {"ply", "plyb"}, {"stl", "stlb"}, {"glb", "glb2"}, {"gltf", "gltf2"}};

Format const *formatOf(std::string const &path)
{
    QString const suffix = QFileInfo(QString::fromStdString(path)).suffix().toLower();
    for (Format const &format : formats) {
        if (suffix == QLatin1String(format.suffix)) {
            return &format;
        }
    }
    return nullptr;
}

// The scene owns what it points to.
std::unique_ptr<aiScene> sceneOf(Mesh const &mesh)
{
    auto scene = std::make_unique<aiScene>();
    auto *const part = new aiMesh;
    part->mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
    part->mNumVertices = unsigned(mesh.vertices.size());
    part->mVertices = new aiVector3D[mesh.vertices.size()];
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
        Vector const &v = mesh.vertices[i];
        part->mVertices[i] = aiVector3D(float(v.x()), float(v.y()), float(v.z()));
    }
    part->mNumFaces = unsigned(mesh.triangles.size());
    part->mFaces = new aiFace[mesh.triangles.size()];
    for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
        aiFace &face = part->mFaces[i];
        face.mNumIndices = 3;
        face.mIndices = new unsigned[3];
        for (std::size_t k = 0; k < 3; ++k) {
            face.mIndices[k] = unsigned(mesh.triangles[i][k]);
        }
    }
    scene->mNumMeshes = 1;
    scene->mMeshes = new aiMesh *[1] { part };
    scene->mNumMaterials = 1;
    scene->mMaterials = new aiMaterial *[1] { new aiMaterial };
    scene->mRootNode = new aiNode;
    scene->mRootNode->mNumMeshes = 1;
    scene->mRootNode->mMeshes = new unsigned[1]{0};
    return scene;
}

// glTF in one file: its buffer goes into the text.
QByteArray withBuffer(QByteArray const &gltf, QByteArray const &buffer)
{
    QJsonObject json = QJsonDocument::fromJson(gltf).object();
    QJsonArray buffers = json["buffers"].toArray();
    QJsonObject first = buffers.at(0).toObject();
    first["uri"] = QString::fromLatin1("data:application/octet-stream;base64," + buffer.toBase64());
    buffers.replace(0, first);
    json["buffers"] = buffers;
    return QJsonDocument(json).toJson();
}

QByteArray bytesOf(aiExportDataBlob const &blob)
{
    return QByteArray(static_cast<char const *>(blob.data), int(blob.size));
}

} // namespace

void refuseUnknownFormats(std::vector<std::string> const &paths)
{
    for (std::string const &path : paths) {
        if (!path.empty() && formatOf(path) == nullptr) {
            throw UsageError(path + ": write .obj, .ply, .stl, .glb or .gltf");
        }
    }
}

QByteArray exported(Mesh const &mesh, std::string const &path)
{
    if (mesh.triangles.empty()) {
        throw InputError(path + ": there are no triangles to write");
    }
    Assimp::Exporter exporter;
    std::unique_ptr<aiScene> const scene = sceneOf(mesh);
    std::string const name = formatOf(path)->assimpName;
    aiExportDataBlob const *const blob = exporter.ExportToBlob(scene.get(), name);
    if (blob == nullptr) {
        throw OutputError(path + ": " + exporter.GetErrorString());
    }
    QByteArray const bytes = bytesOf(*blob);
    return name == "gltf2" && blob->next != nullptr ? withBuffer(bytes, bytesOf(*blob->next))
                                                    : bytes;
}

Mesh hullMesh(Mesh const &mesh, Hull const &hull)
{
    Mesh out;
    std::vector<int> number(mesh.vertices.size(), 0);
    for (int const index : hull.vertexIndices) {
        number[std::size_t(index)] = int(out.vertices.size());
        out.vertices.push_back(mesh.vertices[std::size_t(index)]);
    }
    for (auto t : hull.triangles) {
        for (int &corner : t) {
            corner = number[std::size_t(corner)];
        }
        out.triangles.push_back(t);
    }
    return out;
}

namespace {

// Bit k of a corner's index is its side on axis k.
constexpr std::array<int, 3> boxTriangles[] = {{0, 2, 3}, {0, 3, 1}, {4, 5, 7}, {4, 7, 6},
                                               {0, 1, 5}, {0, 5, 4}, {2, 6, 7}, {2, 7, 3},
                                               {0, 4, 6}, {0, 6, 2}, {1, 3, 7}, {1, 7, 5}};

void appendBox(Mesh &mesh, std::array<Vector, 8> const &corners)
{
    int const first = int(mesh.vertices.size());
    mesh.vertices.insert(mesh.vertices.end(), corners.begin(), corners.end());
    for (auto const &t : boxTriangles) {
        mesh.triangles.push_back({first + t[0], first + t[1], first + t[2]});
    }
}

} // namespace

Mesh boxMesh(OrientedBox const &box)
{
    Mesh mesh;
    appendBox(mesh, box.corners());
    return mesh;
}

Mesh boxesMesh(std::vector<Box> const &boxes)
{
    Mesh mesh;
    for (Box const &box : boxes) {
        std::array<Vector, 8> corners;
        for (std::size_t i = 0; i < 8; ++i) {
            for (int axis = 0; axis < 3; ++axis) {
                corners[i][axis] = ((i >> axis) & 1) != 0 ? box.second[axis] : box.first[axis];
            }
        }
        appendBox(mesh, corners);
    }
    return mesh;
}
