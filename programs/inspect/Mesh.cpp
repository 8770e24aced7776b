#include "Mesh.h"

#include "InputError.h"
#include "MemoryBudget.h"
#include "Progress.h"

#include <assimp/Importer.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <new>

namespace {

class ReadingProgress : public Assimp::ProgressHandler
{
public:
    bool Update(float percentage) override
    {
        if (percentage >= 0.0f) {
            m_bar.show(double(percentage));
        }
        return true;
    }

private:
    ProgressBar m_bar{"reading"};
};

void appendPart(Mesh &mesh, aiMesh const &part, aiMatrix4x4 const &placement)
{
    int const first = mesh.vertices.size();
    for (unsigned i = 0; i < part.mNumVertices; ++i) {
        aiVector3D const v = placement * part.mVertices[i];
        mesh.vertices.append({double(v.x), double(v.y), double(v.z)});
    }
    for (unsigned i = 0; i < part.mNumFaces; ++i) {
        aiFace const &face = part.mFaces[i];
        if (face.mNumIndices == 3) {
            mesh.triangles.push_back({first + int(face.mIndices[0]), first + int(face.mIndices[1]),
                                      first + int(face.mIndices[2])});
        }
    }
}

// All parts made of triangles, each where the nodes of the scene place it.
void appendScene(Mesh &mesh, aiScene const &scene)
{
    struct Placed
    {
        aiNode const *node;
        aiMatrix4x4 placement;
    };
    std::vector<Placed> pending;
    if (scene.mRootNode) {
        pending.push_back({scene.mRootNode, scene.mRootNode->mTransformation});
    }
    while (!pending.empty()) {
        Placed const current = pending.back();
        pending.pop_back();
        for (unsigned i = 0; i < current.node->mNumMeshes; ++i) {
            aiMesh const &part = *scene.mMeshes[current.node->mMeshes[i]];
            if (part.mPrimitiveTypes & aiPrimitiveType_TRIANGLE) {
                appendPart(mesh, part, current.placement);
            }
        }
        for (unsigned i = current.node->mNumChildren; i-- > 0;) {
            aiNode const *const child = current.node->mChildren[i];
            pending.push_back({child, current.placement * child->mTransformation});
        }
    }
}

void measureExtents(Mesh &mesh)
{
    double const huge = std::numeric_limits<double>::max();
    mesh.lowest = {huge, huge, huge};
    mesh.highest = {-huge, -huge, -huge};
    for (vectorC3d<double> const &v : qAsConst(mesh.vertices)) {
        for (int axis = 0; axis < 3; ++axis) {
            if (!std::isfinite(v[axis])) {
                throw InputError("a coordinate is not a finite number");
            }
            mesh.lowest[axis] = std::min(mesh.lowest[axis], v[axis]);
            mesh.highest[axis] = std::max(mesh.highest[axis], v[axis]);
        }
    }
}

// The first line of what Assimp says, which may be long.
std::string firstLine(std::string const &text)
{
    return text.substr(0, text.find_first_of("\r\n"));
}

} // namespace

Mesh readMesh(std::string const &path)
try {
    if (!std::filesystem::exists(path)) {
        throw InputError("no such file");
    }
    if (!std::filesystem::is_regular_file(path)) {
        throw InputError("not a file");
    }
    MemoryBudget const budget(std::filesystem::file_size(path));
    Assimp::Importer importer;
    importer.SetProgressHandler(new ReadingProgress); // the importer owns it
    importer.SetPropertyInteger(AI_CONFIG_PP_RVC_FLAGS,
                                aiComponent_NORMALS | aiComponent_TANGENTS_AND_BITANGENTS |
                                    aiComponent_COLORS | aiComponent_TEXCOORDS |
                                    aiComponent_BONEWEIGHTS);
    aiScene const *const scene =
        importer.ReadFile(path, aiProcess_Triangulate | aiProcess_RemoveComponent |
                                    aiProcess_JoinIdenticalVertices | aiProcess_SortByPType);
    if (!scene) {
        throw InputError("not a mesh: " + firstLine(importer.GetErrorString()));
    }

    Mesh mesh;
    mesh.name = std::filesystem::path(path).filename().string();
    appendScene(mesh, *scene);
    if (mesh.triangles.empty()) {
        throw InputError("the mesh has no triangles");
    }
    measureExtents(mesh);
    return mesh;
} catch (InputError const &error) {
    throw InputError(path + ": " + error.what());
} catch (std::bad_alloc const &) {
    throw InputError(path + ": the file asks for more memory than its size explains");
}
