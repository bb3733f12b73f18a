// Each mesh is made into host lists once, however many nodes show it. Positions, normals and texture coordinates are
// welded each for themselves: the host has an index list for each, as VRML97 does. The nodes are walked with a stack of
// their own, children in reverse, so that they come off it in their order. Where all vertices of a mesh have one colour
// it is the material's; where they differ the material has their mean, which is what formats without such lists show.

#include "embedded/meshes/SceneToAssembly.h"

#include <VekFoundations/CVekPropPath.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglTexture2D.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "embedded/Matrix.h"
#include "embedded/StageProperties.h"
#include "embedded/meshes/MaterialReader.h"
#include "embedded/meshes/UprightTurn.h"
#include "embedded/meshes/VertexWelder.h"

namespace embedded {
namespace {

// One list of values with the index list of its corners.
struct IndexedList {
  sglRef<sglDataPtr> values;
  sglRef<sglDataPtr> indices;
};

// The lists of a mesh; those that it has no values for are null.
struct MeshLists {
  unsigned triangleCount = 0;
  IndexedList coords;
  IndexedList normals;
  IndexedList colors;
  IndexedList texCoords;
  std::optional<std::array<float, 4>> meanColor;  // of the vertices, as the file has it
};

// assimp's matrices act on column vectors, so that their rows are the host's columns.
glm::dmat4 wideMatrixOf(const aiMatrix4x4& matrix) {
  glm::dmat4 wide;
  for (unsigned row = 0; row < 4; ++row) {
    for (unsigned column = 0; column < 4; ++column) {
      wide[static_cast<int>(column)][static_cast<int>(row)] = double{matrix[row][column]};
    }
  }
  return wide;
}

bool isTriangle(const aiFace& face, unsigned vertexCount) {
  return face.mNumIndices == 3 && face.mIndices[0] < vertexCount && face.mIndices[1] < vertexCount &&
         face.mIndices[2] < vertexCount;
}

// Welds the values of a mesh's corners; `take` puts the `floats` numbers of a vertex into a list.
template <std::size_t Floats, class Take>
IndexedList listOf(const aiMesh& mesh, Take take) {
  VertexWelder welder(Floats);
  std::vector<std::uint32_t> numberOf(mesh.mNumVertices);
  for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
    std::array<float, Floats> record;
    take(i, record);
    numberOf[i] = welder.add(record);
  }
  std::vector<std::uint32_t> indices;
  indices.reserve(std::size_t{mesh.mNumFaces} * 3);
  for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
    const aiFace& face = mesh.mFaces[i];
    if (!isTriangle(face, mesh.mNumVertices)) continue;
    for (unsigned corner = 0; corner < 3; ++corner) indices.push_back(numberOf[face.mIndices[corner]]);
  }
  return {new sglDataPtr(welder.takeFloats()), new sglDataPtr(std::move(indices))};
}

IndexedList vectorsOf(const aiMesh& mesh, const aiVector3D* vectors) {
  return listOf<3>(mesh, [vectors](unsigned i, std::array<float, 3>& record) {
    record = {vectors[i].x, vectors[i].y, vectors[i].z};
  });
}

// Whether each normal has a direction. Exporters that have none write zeros, which would show as black.
bool hasUsableNormals(const aiMesh& mesh) {
  if (mesh.mNormals == nullptr) return false;
  return std::all_of(mesh.mNormals, mesh.mNormals + mesh.mNumVertices, [](const aiVector3D& normal) {
    const double squared =
        double{normal.x} * double{normal.x} + double{normal.y} * double{normal.y} + double{normal.z} * double{normal.z};
    return std::isfinite(squared) && squared > 0.0;
  });
}

// The mean colour of a mesh's vertices, and whether it is that of each.
struct MeanColor {
  std::array<float, 4> color{};
  bool isCommon = true;
};

std::optional<MeanColor> meanColorOf(const aiMesh& mesh) {
  const aiColor4D* colors = mesh.mColors[0];
  if (colors == nullptr || mesh.mNumVertices == 0) return std::nullopt;
  MeanColor mean;
  std::array<double, 4> sums{};
  for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
    for (unsigned channel = 0; channel < 4; ++channel) sums[channel] += double{colors[i][channel]};
    mean.isCommon = mean.isCommon && colors[i] == colors[0];
  }
  for (unsigned channel = 0; channel < 4; ++channel) {
    const double value = mean.isCommon ? double{colors[0][channel]} : sums[channel] / mesh.mNumVertices;
    mean.color[channel] = static_cast<float>(value);
  }
  return mean;
}

// A name as the file has it. assimp calls what has none in a glTF file by its place there, as in "nodes[3]".
std::string nameOf(const aiString& name, const MeshSource& source) {
  const std::string_view text(name.C_Str());
  const bool isMade = source.isLinear && (text.starts_with("nodes[") || text.starts_with("meshes["));
  return isMade ? "" : std::string(text);
}

class Builder {
 public:
  Builder(const aiScene& scene, const MeshSource& source, MeshNotes& notes)
      : m_scene(scene), m_source(source), m_materials(scene, source, notes), m_meshes(scene.mNumMeshes) {}

  void build(CVekAssyRoot& root) {
    m_open.push_back({m_scene.mRootNode, &root});
    while (!m_open.empty()) {
      const Open open = m_open.back();
      m_open.pop_back();
      addNode(*open.node, *open.parent);
    }
  }

 private:
  struct Open {
    const aiNode* node;
    CVekAssyGroup* parent;
  };

  void addNode(const aiNode& node, CVekAssyGroup& parent) {
    auto owned = std::make_unique<CVekKAssyGroup>();
    CVekKAssyGroup& group = *owned;
    group.SetName(nameOf(node.mName, m_source));
    const bool isTurned = &node == m_scene.mRootNode && m_source.up == UpAxis::Y;
    const glm::dmat4 matrix = wideMatrixOf(node.mTransformation);
    group.SetMatLocalToParent(hostMatrix(isTurned ? innerThenOuter(matrix, kYToZ) : matrix));
    parent.AddChild(owned.release());
    for (unsigned i = 0; i < node.mNumMeshes; ++i) addMesh(node.mMeshes[i], group);
    for (unsigned i = node.mNumChildren; i-- > 0;) m_open.push_back({node.mChildren[i], &group});
  }

  void addMesh(unsigned number, CVekAssyGroup& parent) {
    if (number >= m_scene.mNumMeshes) return;
    const aiMesh& mesh = *m_scene.mMeshes[number];
    const MeshLists& lists = listsOf(number);
    if (lists.triangleCount == 0) return;
    const MeshLooks looks = m_materials.looksOf(mesh.mMaterialIndex, lists.meanColor);
    auto set = std::make_unique<sglIndexedTriangleSet>();
    fill(*set, lists, looks);
    auto geode = std::make_unique<sglGeode>();
    geode->setName(nameOf(mesh.mName, m_source));
    geode->addGeometry(set.release());
    auto actor = std::make_unique<CVekActorMesh>();
    actor->SetName(geode->getName().empty() ? parent.GetName() : geode->getName());
    actor->SetPresentable(geode.release());
    if (lists.texCoords.values && !looks.texturePath.empty()) setTexture(*actor, looks);
    parent.AddChild(actor.release());
  }

  static void fill(sglIndexedTriangleSet& set, const MeshLists& lists, const MeshLooks& looks) {
    set.setNumPrims(lists.triangleCount);
    set.setCoordList(lists.coords.values.get());
    set.setCoordIndexList(lists.coords.indices.get());
    if (lists.normals.values) {
      set.setNormalList(lists.normals.values.get(), sglGeoSet::BIND_PER_VERTEX);
      set.setNormalIndexList(lists.normals.indices.get());
    }
    if (lists.colors.values) {
      set.setColorList(lists.colors.values.get(), sglGeoSet::BIND_PER_VERTEX);
      set.setColorIndexList(lists.colors.indices.get());
    }
    set.enableDisplayList(true);
    if (!lists.texCoords.values) return set.setState(0, looks.states);
    set.setTexCoordIndexList(lists.texCoords.indices.get());
    set.setState(0, looks.statesWithTexture, sglTexCoords(lists.texCoords.values.get(), sglTexCoords::FLOAT, 2));
  }

  static void setTexture(CVekActor& actor, const MeshLooks& looks) {
    auto placed = std::make_unique<CVekTexture>();
    placed->SetTexture(looks.texture.get());
    actor.SetTexture(0, std::move(placed));
    actor.GetProperties()->SetProperty(GetPropIDServer().GetID(kMapPath),
                                       std::make_unique<CVekPropPath>(looks.texturePath));
  }

  const MeshLists& listsOf(unsigned number) {
    std::optional<MeshLists>& known = m_meshes[number];
    if (!known) known = makeLists(*m_scene.mMeshes[number]);
    return *known;
  }

  MeshLists makeLists(const aiMesh& mesh) const {
    MeshLists lists;
    if (mesh.mVertices == nullptr) return lists;
    lists.coords = vectorsOf(mesh, mesh.mVertices);
    lists.triangleCount = static_cast<unsigned>(lists.coords.indices->getCount() / 3);
    if (hasUsableNormals(mesh)) lists.normals = vectorsOf(mesh, mesh.mNormals);
    if (const std::optional<MeanColor> mean = meanColorOf(mesh)) {
      lists.meanColor = mean->color;
      if (!mean->isCommon) lists.colors = colorsOf(mesh);
    }
    const TexturePlacement at = m_materials.placementOf(mesh.mMaterialIndex);
    if (at.channel < AI_MAX_NUMBER_OF_TEXTURECOORDS && mesh.mTextureCoords[at.channel] != nullptr) {
      const aiVector3D* places = mesh.mTextureCoords[at.channel];
      lists.texCoords = listOf<2>(mesh, [places, &at](unsigned i, std::array<float, 2>& record) {
        record = {places[i].x * at.scale[0] + at.offset[0], places[i].y * at.scale[1] + at.offset[1]};
      });
    }
    return lists;
  }

  IndexedList colorsOf(const aiMesh& mesh) const {
    return listOf<4>(mesh, [this, &mesh](unsigned i, std::array<float, 4>& record) {
      const aiColor4D& color = mesh.mColors[0][i];
      record = m_materials.vertexColorOf(mesh.mMaterialIndex, {color.r, color.g, color.b, color.a});
    });
  }

  const aiScene& m_scene;
  const MeshSource& m_source;
  MaterialReader m_materials;
  std::vector<std::optional<MeshLists>> m_meshes;  // by number, made when they are first shown
  std::vector<Open> m_open;                        // nodes that are still to come
};

}  // namespace

std::unique_ptr<CVekAssyRoot> assemblyOf(const aiScene& scene, const MeshSource& source, MeshNotes& notes) {
  auto root = std::make_unique<CVekAssyRoot>();
  root->SetName(std::filesystem::path(source.path).stem().string());
  Builder(scene, source, notes).build(*root);
  return root;
}

}  // namespace embedded
