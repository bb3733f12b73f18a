// World matrices come from the walk, which knows nothing of billboards. What turns lies on a stack: a matrix that is
// applied behind the walk's, which undoes what the walk did down to the innermost billboard, turns, and does it again.

#include "embedded/pictures/DrawList.h"

#include <VekFoundations/CVekPropPath.h>
#include <VekSG/sglGeode.h>

#include <cmath>

#include "embedded/AssemblyWalk.h"
#include "embedded/Matrix.h"
#include "embedded/SceneWalk.h"
#include "embedded/StageProperties.h"
#include "embedded/TriangleReader.h"
#include "embedded/images/ImageFile.h"

namespace embedded {
namespace {

bool isFinite(const glm::dvec3& point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

}  // namespace

class DrawList::SceneReader : public SceneVisitor {
 public:
  SceneReader(DrawList& list, const glm::dmat4& outer, const Lent& lent) : m_list(list), m_lent(lent) {
    m_corrections.push_back(outer);
  }

  bool enter(const sglNode& node, const glm::dmat4& walked) override {
    if (const auto* geode = dynamic_cast<const sglGeode*>(&node)) {
      m_list.addGeode(*geode, innerThenOuter(walked, m_corrections.back()), m_lent);
      return false;
    }
    if (const auto* billboard = dynamic_cast<const sglBillboard*>(&node)) {
      const glm::dmat4 world = innerThenOuter(walked, m_corrections.back());
      const glm::dmat4 turn = billboardTurn(*billboard, world, m_list.m_onlooker);
      const bool isInvertible = glm::determinant(walked) != 0.0;
      m_corrections.push_back(isInvertible ? world * turn * glm::inverse(walked) : m_corrections.back());
      m_list.m_hasBillboards = true;
    }
    return true;
  }

  void leave(const sglNode& node) override {
    if (dynamic_cast<const sglBillboard*>(&node) != nullptr) m_corrections.pop_back();
  }

 private:
  DrawList& m_list;
  const Lent& m_lent;
  std::vector<glm::dmat4> m_corrections;
};

class DrawList::AssemblyReader : public AssemblyVisitor {
 public:
  explicit AssemblyReader(DrawList& list) : m_list(list) {}

  bool enter(const CVekAssyNode* node, const glm::dmat4& world) override {
    const auto* actor = dynamic_cast<const CVekActor*>(node);
    if (actor != nullptr && actor->IsDisplayed()) m_list.add(actor->GetPresentable(), world, m_list.lentBy(*actor));
    return actor == nullptr;
  }

 private:
  DrawList& m_list;
};

DrawList::DrawList(const Onlooker& onlooker, bool readsImages) : m_onlooker(onlooker), m_readsImages(readsImages) {}

DrawList::~DrawList() = default;

void DrawList::addScene(const sglNode* scene, const glm::dmat4& outer) { add(scene, outer, {}); }

void DrawList::addAssembly(const CVekAssyNode* root) {
  AssemblyReader reader(*this);
  walkAssembly(root, reader);
}

void DrawList::add(const sglNode* scene, const glm::dmat4& outer, const Lent& lent) {
  SceneReader reader(*this, outer, lent);
  walkScene(scene, SceneChoice::Shown, reader);
}

void DrawList::addGeode(const sglGeode& geode, const glm::dmat4& world, const Lent& lent) {
  const std::size_t itemCount = m_items.size();
  const auto placement = static_cast<std::uint32_t>(m_placements.size());
  for (unsigned i = 0; i < geode.getNumGeometries(); ++i) {
    const auto* geoSet = dynamic_cast<const sglGeoSet*>(geode.getGeometry(i));
    if (geoSet == nullptr) continue;
    if (const auto* primitive = dynamic_cast<const sglPrimitive*>(geoSet)) geoSet = trianglesOf(*primitive);
    const Look look = lookOf(*geoSet, lent.texture);
    if (!look.isInvisible()) m_items.push_back({geoSet, placement, lookIndex(look)});
  }
  if (m_items.size() > itemCount) m_placements.push_back({world, lent.textureMatrix});
}

// A primitive has no texture coordinates of its own; here it gets those that its triangles come with.
const sglGeoSet* DrawList::trianglesOf(const sglPrimitive& primitive) {
  std::unique_ptr<sglIndexedTriangleSet> set = m_tessellator.triangleSetOf(&primitive);
  const PrimitiveMesh& mesh = m_tessellator.meshOf(primitive);
  const StateElement* state = set->getState(0);
  const sglStateletList states = state != nullptr ? state->getStatelets() : sglStateletList();
  set->setState(0, states, sglTexCoords(mesh.texCoords.get(), sglTexCoords::FLOAT, 2));
  set->setTexCoordIndexList(mesh.indices.get());
  m_primitives.push_back(std::move(set));
  return m_primitives.back().get();
}

std::uint32_t DrawList::lookIndex(const Look& look) {
  const auto [entry, isNew] = m_lookIndices.try_emplace(look, static_cast<std::uint32_t>(m_looks.size()));
  if (isNew) m_looks.push_back(look);
  return entry->second;
}

DrawList::Lent DrawList::lentBy(const CVekActor& actor) {
  const CVekTexture* placed = actor.GetTexture(0);
  if (placed == nullptr) return {};
  const auto* texture = dynamic_cast<const sglTexture2D*>(placed->GetTexture());
  const auto* path = propertyOf<CVekPropPath>(actor.GetProperties(), kMapPath);
  if (texture != nullptr && texture->getWidth() == 0 && path != nullptr)
    texture = readImage(path->GetValue(), *texture);
  return {texture, wideMatrix(placed->GetTexMatrix())};
}

const sglTexture2D* DrawList::readImage(const std::string& path, const sglTexture2D& texture) {
  if (!m_readsImages || path.empty()) return nullptr;
  sglTexture2D::WrapEnum wrapS{};
  sglTexture2D::WrapEnum wrapT{};
  texture.getWrapMode(wrapS, wrapT);
  const auto [entry, isNew] = m_images.try_emplace({path, wrapS, wrapT});
  if (isNew) {
    const sglRef<sglTexture2D> image(new sglTexture2D);
    image->setWrapMode(wrapS, wrapT);
    image->setMinFilter(sglTexture::LINEAR_MIPMAP_LINEAR);
    image->setAutoMipmapFlag(true);
    if (readTextureImage(path, image.get())) entry->second = image;
  }
  return entry->second.get();
}

PictureBox DrawList::bounds() const {
  PictureBox box;
  for (const DrawItem& item : m_items) {
    const glm::dmat4& world = m_placements[item.placement].world;
    const sglDataPtr* coords = item.geoSet->getCoordList();
    TriangleReader reader(*item.geoSet);
    Triangle triangle;
    while (reader.next(triangle)) {
      for (const Corner& corner : triangle) {
        const float* at = coords->getFloats() + std::size_t{corner.coord} * 3;
        const glm::dvec3 point = imageOf(world, {at[0], at[1], at[2]});
        if (isFinite(point)) box.include(point);
      }
    }
  }
  return box;
}

}  // namespace embedded
