// The node tree is made along a walk over the assembly. glTF nodes lie in one list and name their children by number,
// so that no depth is too much.

#include "embedded/meshes/GlbWriter.h"

#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglGeode.h>
#include <tiny_gltf.h>

#include <cmath>
#include <vector>

#include "embedded/AssemblyWalk.h"
#include "embedded/Matrix.h"
#include "embedded/Tessellation.h"
#include "embedded/Utf8.h"
#include "embedded/meshes/GltfBuffer.h"
#include "embedded/meshes/GltfMaterials.h"
#include "embedded/meshes/GltfValues.h"
#include "embedded/meshes/NodePlacement.h"
#include "embedded/meshes/UprightTurn.h"

namespace embedded {
namespace {

// A file gives its length in 32 bits. The rest is for its text.
constexpr std::uint64_t kMostBytes = 0xF0000000U;

bool isNearly(const glm::dmat4& matrix, const glm::dmat4& other) {
  constexpr double kTolerance = 1e-6;
  for (int column = 0; column < 4; ++column) {
    for (int row = 0; row < 4; ++row) {
      if (!(std::abs(matrix[column][row] - other[column][row]) <= kTolerance)) return false;
    }
  }
  return true;
}

template <std::size_t Count>
std::vector<double> unlessDefault(const std::array<double, Count>& values, const std::array<double, Count>& usual) {
  return values == usual ? std::vector<double>() : std::vector<double>(values.begin(), values.end());
}

void place(tinygltf::Node& node, const NodePlacement& placement) {
  const NodePlacement usual;
  node.translation = unlessDefault(placement.translation, usual.translation);
  node.rotation = unlessDefault(placement.rotation, usual.rotation);
  node.scale = unlessDefault(placement.scale, usual.scale);
}

// The group below the root that only stands a world up, or does nothing: root and group become one node.
const CVekKAssyGroup* uprightGroupOf(const CVekAssyRoot& root) {
  if (root.GetChilds().size() != 1) return nullptr;
  const auto* group = dynamic_cast<const CVekKAssyGroup*>(*root.GetChilds().begin());
  if (group == nullptr) return nullptr;
  const glm::dmat4 matrix = wideMatrix(group->GetMatLocalToParent());
  return isNearly(matrix, kYToZ) || isNearly(matrix, glm::dmat4(1.0)) ? group : nullptr;
}

class GlbBuilder : public AssemblyVisitor {
 public:
  GlbBuilder(const CVekAssyRoot& root, MeshNotes& notes)
      : m_root(root), m_uprightGroup(uprightGroupOf(root)), m_notes(notes), m_materials(m_model, m_buffer, notes) {
    m_model.asset.version = "2.0";
    m_model.asset.generator = "wrl";
    m_model.scenes.emplace_back();
    m_model.defaultScene = 0;
  }

  bool enter(const CVekAssyNode* node, const glm::dmat4&) override {
    if (node == nullptr) return false;
    const auto* group = dynamic_cast<const CVekAssyGroup*>(node);
    if (node == m_uprightGroup) {
      m_open.push_back({m_open.back().node, group});
      return true;
    }
    if (const auto* actor = dynamic_cast<const CVekActor*>(node)) {
      addActor(*actor);
      return false;
    }
    m_open.push_back({addNode(nameOf(*node), matrixOf(*node)), group});
    return true;
  }

  void leave(const CVekAssyNode&) override { m_open.pop_back(); }

  [[nodiscard]] bool isTooLarge() const { return m_isTooLarge; }

  tinygltf::Model& finish() {
    for (tinygltf::Node& node : m_model.nodes) sayIfNothing(node);
    m_buffer.finish(m_model);
    return m_model;
  }

 private:
  // A group that the walk is in.
  struct Open {
    int node;  // what its children go below
    const CVekAssyGroup* group;
  };

  // A node without any property would be written as null, which is no node.
  static void sayIfNothing(tinygltf::Node& node) {
    const bool isPlaced = !node.translation.empty() || !node.rotation.empty() || !node.scale.empty();
    if (!isPlaced && node.name.empty() && node.children.empty() && node.mesh < 0) node.translation = {0.0, 0.0, 0.0};
  }

  std::string nameOf(const CVekAssyNode& node) const {
    const bool isFolded = &node == &m_root && m_uprightGroup != nullptr && node.GetName().empty();
    return wellFormedUtf8(isFolded ? m_uprightGroup->GetName() : node.GetName());
  }

  glm::dmat4 matrixOf(const CVekAssyNode& node) const {
    const auto* placed = dynamic_cast<const CVekDraw*>(&node);
    const glm::dmat4 own = placed == nullptr ? glm::dmat4(1.0) : wideMatrix(placed->GetMatLocalToParent());
    if (&node != &m_root) return own;
    const glm::dmat4 zToY = glm::transpose(kYToZ);
    const bool isTurned =
        m_uprightGroup != nullptr && isNearly(wideMatrix(m_uprightGroup->GetMatLocalToParent()), kYToZ);
    return innerThenOuter(isTurned ? innerThenOuter(kYToZ, own) : own, zToY);
  }

  // Adds a node below the one that is open and returns the number of the one that its children go below.
  int addNode(const std::string& name, const glm::dmat4& matrix) {
    std::optional<NodePlacements> placements = placementsOf(matrix);
    if (!placements) {
      m_notes.add("a placement without finite numbers counts as none");
      placements.emplace();
    }
    const int outer = appendNode(m_open.empty() ? -1 : m_open.back().node, name, placements->outer);
    return placements->inner ? appendNode(outer, "", *placements->inner) : outer;
  }

  int appendNode(int parent, const std::string& name, const NodePlacement& placement) {
    const int number = static_cast<int>(m_model.nodes.size());
    tinygltf::Node node;
    node.name = name;
    place(node, placement);
    m_model.nodes.push_back(std::move(node));
    if (parent < 0) {
      m_model.scenes.front().nodes.push_back(number);
    } else {
      m_model.nodes[static_cast<std::size_t>(parent)].children.push_back(number);
    }
    return number;
  }

  // Whether an actor is all that its group is there for: a node of glTF shows a mesh itself.
  [[nodiscard]] bool isItsGroup(const CVekActor& actor) const {
    const CVekAssyGroup* group = m_open.empty() ? nullptr : m_open.back().group;
    return group != nullptr && group->GetChilds().size() == 1 && group->GetName() == actor.GetName() &&
           actor.GetMatLocalToParent() == sglMat4<float>();
  }

  void addActor(const CVekActor& actor) {
    const auto* geode = dynamic_cast<const sglGeode*>(actor.GetPresentable());
    if (geode == nullptr || !actor.IsDisplayed() || dynamic_cast<const CVekActorMesh*>(&actor) == nullptr) return;
    tinygltf::Mesh mesh;
    mesh.name = wellFormedUtf8(actor.GetName());
    for (unsigned i = 0; i < geode->getNumGeometries() && !m_isTooLarge; ++i) {
      addPrimitive(actor, geode->getGeometry(i), mesh);
    }
    if (mesh.primitives.empty()) return;
    const int node = isItsGroup(actor) ? m_open.back().node : addNode(mesh.name, matrixOf(actor));
    m_model.nodes[static_cast<std::size_t>(node)].mesh = static_cast<int>(m_model.meshes.size());
    m_model.meshes.push_back(std::move(mesh));
  }

  void addPrimitive(const CVekActor& actor, const sglDrawable* drawable, tinygltf::Mesh& mesh) {
    const std::unique_ptr<sglIndexedTriangleSet> set = m_tessellator.triangleSetOf(drawable);
    if (set == nullptr) return;
    WeldOptions options;
    options.textureMatrix = textureMatrixOf(actor);
    options.isClockwise = isClockwise(*set);
    WeldedMesh welded = weldedMesh(*set, options);
    if (welded.endlessCount > 0) m_notes.add("triangles without finite positions are left out");
    if (welded.indices.empty()) return;
    // glTF's images begin at the upper left, the host's at the lower left.
    for (std::size_t i = 1; i < welded.texCoords.size(); i += 2) welded.texCoords[i] = 1.0F - welded.texCoords[i];
    for (std::size_t i = 0; i < welded.colors.size(); ++i) {
      if (i % 4 != 3) welded.colors[i] = linearOf(welded.colors[i]);
    }
    mesh.primitives.push_back(primitiveOf(welded, surfaceOf(actor, *set)));
    m_isTooLarge = m_buffer.byteCount() > kMostBytes;
  }

  tinygltf::Primitive primitiveOf(const WeldedMesh& welded, const Surface& surface) {
    const GltfAttributes accessors = m_buffer.addMesh(welded);
    tinygltf::Primitive primitive;
    primitive.mode = TINYGLTF_MODE_TRIANGLES;
    primitive.indices = accessors.indices;
    primitive.attributes["POSITION"] = accessors.positions;
    if (accessors.normals >= 0) primitive.attributes["NORMAL"] = accessors.normals;
    if (accessors.colors >= 0) primitive.attributes["COLOR_0"] = accessors.colors;
    if (accessors.texCoords >= 0) primitive.attributes["TEXCOORD_0"] = accessors.texCoords;
    primitive.material = m_materials.materialOf(surface, accessors.colors >= 0);
    return primitive;
  }

  const CVekAssyRoot& m_root;
  const CVekKAssyGroup* m_uprightGroup;  // null when nothing is to be taken back
  MeshNotes& m_notes;
  tinygltf::Model m_model;
  GltfBuffer m_buffer;
  GltfMaterials m_materials;
  Tessellator m_tessellator;
  std::vector<Open> m_open;
  bool m_isTooLarge = false;
};

}  // namespace

bool writeGlb(const CVekAssyRoot& root, std::ostream& out, MeshNotes& notes, std::string& error) {
  GlbBuilder builder(root, notes);
  walkAssembly(&root, builder);
  if (builder.isTooLarge()) {
    error = "the model is too large for binary glTF, which ends at 4 GiB";
    return false;
  }
  tinygltf::Model& model = builder.finish();
  tinygltf::TinyGLTF().WriteGltfSceneToStream(&model, out, false, true);
  return true;
}

}  // namespace embedded
