// The assembly is built along a walk over what the scene shows. Nodes are made when the walk comes to them, so that
// their identities, which order the children of a group, rise in the scene's order.

#include "embedded/AssemblyBuilder.h"

#include <VekFoundations/CVekPropPath.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransform.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <glm/geometric.hpp>
#include <vector>

#include "embedded/AssemblyWalk.h"
#include "embedded/Matrix.h"
#include "embedded/SceneWalk.h"
#include "embedded/Tessellation.h"

namespace embedded {
namespace {

// The last texture among a drawable's states when it comes from an image file, else null.
sglTexture2D* fileTextureOf(const sglDrawable& drawable) {
  sglTexture2D* texture = nullptr;
  const StateElement* state = drawable.getState(0);
  if (state == nullptr) return nullptr;
  for (const sglRef<sglStatelet>& statelet : state->getStatelets()) {
    if (auto* found = dynamic_cast<sglTexture2D*>(statelet.get())) texture = found;
  }
  return texture == nullptr || texture->getFileName().empty() ? nullptr : texture;
}

// Drawables that share an image file, or have none.
struct TexturedPart {
  sglTexture2D* texture;
  std::unique_ptr<sglGeode> geode;
};

// The part of that texture, at the end when there was none.
sglGeode& partOf(std::vector<TexturedPart>& parts, sglTexture2D* texture) {
  const auto found =
      std::find_if(parts.begin(), parts.end(), [texture](const TexturedPart& part) { return part.texture == texture; });
  if (found != parts.end()) return *found->geode;
  return *parts.emplace_back(TexturedPart{texture, std::make_unique<sglGeode>()}).geode;
}

void setTexture(CVekActor& actor, sglTexture2D& texture) {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(texture.getFileName(), error);
  auto placed = std::make_unique<CVekTexture>();
  placed->SetTexture(&texture);
  actor.SetTexture(0, std::move(placed));
  // The assembly may be used from another folder than the one that the file was found from.
  const std::string name = error ? texture.getFileName() : path.string();
  actor.GetProperties()->SetProperty(GetPropIDServer().GetID("Texture.Map.Path"), std::make_unique<CVekPropPath>(name));
}

class Builder : public SceneVisitor {
 public:
  explicit Builder(CVekAssyGroup& root) : m_open{&root} {}

  bool enter(const sglNode& node, const glm::dmat4&) override {
    if (const auto* geode = dynamic_cast<const sglGeode*>(&node)) {
      addMeshes(*geode);
      return false;
    }
    if (hasGroup(node)) {
      auto group = std::make_unique<CVekKAssyGroup>();
      group->SetName(node.getName());
      if (const auto* transform = dynamic_cast<const sglTransform<float>*>(&node)) {
        group->SetMatLocalToParent(transform->getMatrix());
      }
      CVekKAssyGroup* added = group.release();
      m_open.back()->AddChild(added);
      m_open.push_back(added);
    }
    return true;
  }

  void leave(const sglNode& node) override {
    if (hasGroup(node)) m_open.pop_back();
  }

 private:
  // Levels of detail and switches stand for what they show.
  static bool hasGroup(const sglNode& node) {
    return dynamic_cast<const sglLOD*>(&node) == nullptr && dynamic_cast<const sglSwitch*>(&node) == nullptr;
  }

  void addMeshes(const sglGeode& geode) {
    std::vector<TexturedPart> parts;
    for (unsigned i = 0; i < geode.getNumGeometries(); ++i) {
      if (auto copy = m_tessellator.copyOf(geode.getGeometry(i))) {
        sglGeode& part = partOf(parts, fileTextureOf(*copy));
        part.addGeometry(copy.release());
      }
    }
    for (TexturedPart& part : parts) addMesh(geode, part);
  }

  void addMesh(const sglGeode& geode, TexturedPart& part) {
    auto mesh = std::make_unique<CVekActorMesh>();
    const sglGroup* group = geode.getParent();
    mesh->SetName(geode.getName().empty() && group != nullptr ? group->getName() : geode.getName());
    if (part.texture != nullptr) setTexture(*mesh, *part.texture);
    part.geode->setName(geode.getName());
    mesh->SetPresentable(part.geode.release());
    m_open.back()->AddChild(mesh.release());
  }

  std::vector<CVekAssyGroup*> m_open;  // the groups that the walk is in
  Tessellator m_tessellator;
};

}  // namespace

std::unique_ptr<CVekAssyRoot> buildAssembly(const sglNode* scene, const std::string& name) {
  if (scene == nullptr) return nullptr;
  auto root = std::make_unique<CVekAssyRoot>();
  root->SetName(name);
  Builder builder(*root);
  walkScene(scene, SceneChoice::Shown, builder);
  return root;
}

std::unique_ptr<CVekCamera> cameraForBox(const CVekBBox& box) {
  constexpr double kMargin = 1.05;
  const double diagonal = double{box.GetDiagonal()};
  const bool isMeasured = !box.isEmpty() && std::isfinite(diagonal);
  const auto wide = [](const sglVec3<float>& point) { return glm::dvec3(point.x, point.y, point.z); };
  const glm::dvec3 centre = isMeasured ? (wide(box.getMin()) + wide(box.getMax())) / 2.0 : glm::dvec3(0.0);
  const double radius = isMeasured && diagonal > 0.0 ? diagonal / 2.0 : 1.0;
  auto camera = std::make_unique<CVekCamera>();
  const glm::dvec3 z = glm::normalize(glm::dvec3(1.0, -2.0, 1.0));
  const glm::dvec3 x = glm::normalize(glm::cross(glm::dvec3(0.0, 0.0, 1.0), z));
  const glm::dvec3 y = glm::cross(z, x);
  const glm::dvec3 eye = centre + z * (kMargin * radius / std::sin(camera->GetFOVPaper() / 2.0));
  camera->SetMatLocalToParent(
      hostMatrix(glm::dmat4(glm::dvec4(x, 0.0), glm::dvec4(y, 0.0), glm::dvec4(z, 0.0), glm::dvec4(eye, 1.0))));
  return camera;
}

std::unique_ptr<CVekStager> makeStager(std::unique_ptr<CVekAssyRoot> assembly) {
  auto stager = std::make_unique<CVekStager>();
  auto viewport = std::make_unique<CVekViewport>();
  viewport->GetNavigator()->SetCamera(cameraForBox(assemblyBounds(assembly.get())));
  stager->GetViewportManager()->SetViewportSelected(std::move(viewport));
  stager->GetSceneManager()->SetAssyRoot(std::move(assembly));
  return stager;
}

}  // namespace embedded
