#include "MeshReader.h"

#include "MemoryBudget.h"
#include "errors.h"

#include <assimp/DefaultLogger.hpp>
#include <assimp/Importer.hpp>
#include <assimp/LogStream.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <meshoptimizer.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <new>

namespace {

class ReadingProgress : public Assimp::ProgressHandler
{
public:
    explicit ReadingProgress(Progress &progress)
        : m_progress(progress)
    {
    }
    bool Update(float percentage) override
    {
        if (percentage >= 0.0f) {
            m_progress.show(double(percentage));
        }
        return true;
    }

private:
    Progress &m_progress;
};

// Collects what Assimp complains about while one lives, each complaint with its count.
class Complaints : public Assimp::LogStream
{
public:
    Complaints()
    {
        Assimp::DefaultLogger::create("", Assimp::Logger::NORMAL, 0);
        Assimp::DefaultLogger::get()->attachStream(this, Assimp::Logger::Err);
    }
    ~Complaints() override
    {
        Assimp::DefaultLogger::get()->detachStream(this, Assimp::Logger::Err);
        Assimp::DefaultLogger::kill();
    }
    void write(char const *message) override
    {
        std::string text = message; // "Error, T0: OFF: Vertex index is out of range\n"
        text = text.substr(0, text.find_first_of("\r\n"));
        std::size_t const start = text.find(": ");
        ++m_counts[start == std::string::npos ? text : text.substr(start + 2)];
    }
    void addTo(std::vector<std::string> &warnings) const
    {
        for (auto const &[text, count] : m_counts) {
            warnings.push_back(text + (count > 1 ? " (" + std::to_string(count) + " times)" : ""));
        }
    }

private:
    std::map<std::string, int> m_counts;
};

// The scene's vertices and triangles in single precision, as Assimp has them, parts one after the
// other.
struct Soup
{
    std::vector<float> places; ///< three a vertex
    std::vector<unsigned> corners;
    std::size_t lost = 0; ///< triangles that can't be
};

void appendPart(Soup &soup, aiMesh const &part, aiMatrix4x4 const &placement)
{
    unsigned const first = unsigned(soup.places.size() / 3);
    for (unsigned i = 0; i < part.mNumVertices; ++i) {
        aiVector3D const v = placement * part.mVertices[i];
        // Adding 0 makes a negative zero positive: the two are one place.
        soup.places.insert(soup.places.end(), {v.x + 0.0f, v.y + 0.0f, v.z + 0.0f});
    }
    for (unsigned i = 0; i < part.mNumFaces; ++i) {
        aiFace const &face = part.mFaces[i];
        unsigned const count = face.mNumIndices;
        bool const isWhole =
            count > 0 && std::all_of(face.mIndices, face.mIndices + count,
                                     [&](unsigned index) { return index < part.mNumVertices; });
        if (isWhole && count == 3) {
            for (unsigned k = 0; k < 3; ++k) {
                soup.corners.push_back(first + face.mIndices[k]);
            }
        } else if (!isWhole || count > 3) {
            ++soup.lost; // points and lines are not meant
        }
    }
}

// All parts, each where the nodes of the scene place it.
Soup soupOf(aiScene const &scene)
{
    struct Placed
    {
        aiNode const *node;
        aiMatrix4x4 placement;
    };
    Soup soup;
    std::vector<Placed> pending;
    if (scene.mRootNode != nullptr) {
        pending.push_back({scene.mRootNode, scene.mRootNode->mTransformation});
    }
    while (!pending.empty()) {
        Placed const current = pending.back();
        pending.pop_back();
        for (unsigned i = 0; i < current.node->mNumMeshes; ++i) {
            appendPart(soup, *scene.mMeshes[current.node->mMeshes[i]], current.placement);
        }
        for (unsigned i = current.node->mNumChildren; i-- > 0;) {
            aiNode const *const child = current.node->mChildren[i];
            pending.push_back({child, current.placement * child->mTransformation});
        }
    }
    return soup;
}

void joinVertices(Mesh &mesh, Soup const &soup)
{
    std::size_t const count = soup.places.size() / 3;
    std::vector<unsigned> remap(count);
    std::size_t const joined = meshopt_generateVertexRemap(
        remap.data(), nullptr, count, soup.places.data(), count, 3 * sizeof(float));
    mesh.vertices.resize(joined);
    for (std::size_t i = 0; i < count; ++i) {
        float const *const p = &soup.places[3 * i];
        mesh.vertices[remap[i]] = {double(p[0]), double(p[1]), double(p[2])};
    }
    mesh.triangles.resize(soup.corners.size() / 3);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        for (std::size_t k = 0; k < 3; ++k) {
            mesh.triangles[t][k] = int(remap[soup.corners[3 * t + k]]);
        }
    }
}

std::string lowerSuffix(std::string const &path)
{
    return QFileInfo(QString::fromStdString(path)).suffix().toLower().toStdString();
}

// Formats whose files have y upwards, in the axes that Assimp gives.
constexpr char const *yUpFormats[] = {"obj", "gltf", "glb", "dae", "fbx", "x3d", "wrl", "3ds", "x"};

int upAxis(aiScene const &scene, std::string const &format, std::string const &asked)
{
    if (!asked.empty()) {
        return asked[0] - 'x';
    }
    int32_t fromFile = 0;
    if (scene.mMetaData != nullptr && scene.mMetaData->Get("UpAxis", fromFile) && fromFile >= 0 &&
        fromFile <= 2) {
        return int(fromFile);
    }
    bool const isYUp = std::any_of(std::begin(yUpFormats), std::end(yUpFormats),
                                   [&](char const *name) { return format == name; });
    return isYUp ? 1 : 2;
}

// glTF is in metres by definition, Assimp scales Collada to metres, and FBX says how many
// centimetres its unit has.
std::string unitOf(aiScene const &scene, std::string const &format)
{
    if (format == "gltf" || format == "glb" || format == "dae") {
        return "m";
    }
    double centimetres = 0.0;
    float asFloat = 0.0f;
    if (scene.mMetaData == nullptr) {
        return {};
    }
    if (scene.mMetaData->Get("UnitScaleFactor", asFloat)) {
        centimetres = double(asFloat);
    } else if (!scene.mMetaData->Get("UnitScaleFactor", centimetres)) {
        return {};
    }
    static std::map<int, char const *> const names{
        {100, "mm"}, {1000, "cm"}, {2540, "in"}, {30480, "ft"}, {100000, "m"}};
    auto const name = names.find(int(std::lround(centimetres * 1000.0)));
    return name == names.end() ? std::string() : name->second;
}

// The first line of what Assimp says, which may be long.
std::string firstLine(std::string const &text)
{
    return text.substr(0, text.find_first_of("\r\n"));
}

QByteArray bytesOf(std::string const &path)
{
    QFile file(QString::fromStdString(path));
    bool const opened =
        path == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened) {
        throw InputError("can't be read: " + file.errorString().toStdString());
    }
    return file.readAll();
}

aiScene const *sceneOf(Assimp::Importer &importer, std::string const &path,
                       std::string const &format)
{
    unsigned const steps = aiProcess_Triangulate;
    QFileInfo const info(QString::fromStdString(path));
    if (path != "-" && info.isFile() && format == lowerSuffix(path)) {
        return importer.ReadFile(path, steps);
    }
    QByteArray const bytes = bytesOf(path);
    return importer.ReadFileFromMemory(bytes.constData(), std::size_t(bytes.size()), steps,
                                       format.c_str());
}

void refuseWhatIsNoFile(std::string const &path, std::string const &format)
{
    if (path == "-" || QFileInfo(QString::fromStdString(path)).isFile()) {
        if (path == "-" && format.empty()) {
            throw UsageError("a mesh from standard input needs --format");
        }
        return;
    }
    QFileInfo const info(QString::fromStdString(path));
    if (!info.exists()) {
        throw InputError("no such file");
    }
    if (info.isDir()) {
        throw InputError("a folder, and not a file");
    }
    if (format.empty()) {
        throw UsageError(path + ": a mesh from a pipe needs --format");
    }
}

void warnOfLosses(Mesh &mesh, Soup const &soup)
{
    if (soup.lost > 0) {
        mesh.warnings.push_back(std::to_string(soup.lost) +
                                (soup.lost == 1 ? " triangle was" : " triangles were") +
                                " left out: vertices missing or not three");
    }
}

} // namespace

Mesh readMesh(std::string const &path, ReadOptions const &options, Progress &progress, double end)
try {
    refuseWhatIsNoFile(path, options.format);
    progress.stage("reading", end * 0.8);
    std::string const format = options.format.empty() ? lowerSuffix(path) : options.format;
    QFileInfo const info(QString::fromStdString(path));
    bool const hasSize = path != "-" && info.isFile();
    MemoryBudget const budget(hasSize ? std::uintmax_t(info.size()) : std::uintmax_t(1) << 30);

    Mesh mesh;
    Soup soup;
    {
        Complaints const complaints;
        Assimp::Importer importer;
        importer.SetProgressHandler(new ReadingProgress(progress)); // the importer owns it
        aiScene const *const scene = sceneOf(importer, path, format);
        if (scene == nullptr) {
            throw InputError("not a mesh: " + firstLine(importer.GetErrorString()));
        }
        soup = soupOf(*scene);
        mesh.up = upAxis(*scene, format, options.up);
        mesh.unit = unitOf(*scene, format);
        complaints.addTo(mesh.warnings);
    }
    if (soup.places.empty()) {
        throw InputError("the mesh has no vertices");
    }
    progress.stage("joining vertices", end);
    mesh.name = path == "-" ? "standard input" : info.fileName().toStdString();
    warnOfLosses(mesh, soup);
    joinVertices(mesh, soup);
    measureExtents(mesh);
    return mesh;
} catch (InputError const &error) {
    throw InputError(path + ": " + error.what());
} catch (std::bad_alloc const &) {
    throw InputError(path + ": the file asks for more memory than its size explains");
}
