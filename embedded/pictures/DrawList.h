#pragma once

// What a picture shows: the drawables of a scene or an assembly, where each stands, and how it looks.

#include <VekKernel/CVekActor.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglTexture2D.h>

#include <cstdint>
#include <glm/mat4x4.hpp>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "embedded/Tessellation.h"
#include "embedded/pictures/Billboards.h"
#include "embedded/pictures/Look.h"
#include "embedded/pictures/PictureBox.h"

namespace embedded {

// A drawable of a picture.
struct DrawItem {
  const sglGeoSet* geoSet = nullptr;  // never a primitive
  std::uint32_t placement = 0;        // place in DrawList::placements()
  std::uint32_t look = 0;             // place in DrawList::looks()
};

// From a drawable's coordinates to the world's.
struct Placement {
  glm::dmat4 world{1.0};
  glm::dmat4 texture{1.0};  // for texture coordinates (u, v, 0)
};

// Gathers drawables, but for those of which nothing can be seen. Scenes and assemblies that are added must stay as they
// are for as long as the list lives. Of levels of detail the first is taken, of switches what is selected; billboards
// turn to the onlooker.
class DrawList {
 public:
  // `readsImages`: whether the image files that an assembly names are read for textures that hold no image.
  DrawList(const Onlooker& onlooker, bool readsImages);
  DrawList(const DrawList&) = delete;
  DrawList& operator=(const DrawList&) = delete;
  ~DrawList();

  // Adds a scene, whose coordinates `outer` leads to the world's, and the actors of an assembly that show. Null adds
  // nothing.
  void addScene(const sglNode* scene, const glm::dmat4& outer = glm::dmat4(1.0));
  void addAssembly(const CVekAssyNode* root);

  [[nodiscard]] const std::vector<DrawItem>& items() const { return m_items; }
  [[nodiscard]] const std::vector<Placement>& placements() const { return m_placements; }
  [[nodiscard]] const std::vector<Look>& looks() const { return m_looks; }

  // Whether there is a billboard, so that the list depends on the onlooker.
  [[nodiscard]] bool hasBillboards() const { return m_hasBillboards; }

  // The box around all corners of all triangles that are finite, in the world's coordinates.
  [[nodiscard]] PictureBox bounds() const;

 private:
  class SceneReader;
  class AssemblyReader;

  // What the actor around a scene lends to its drawables.
  struct Lent {
    const sglTexture2D* texture = nullptr;
    glm::dmat4 textureMatrix{1.0};
  };

  void add(const sglNode* scene, const glm::dmat4& outer, const Lent& lent);
  void addGeode(const sglGeode& geode, const glm::dmat4& world, const Lent& lent);
  const sglGeoSet* trianglesOf(const sglPrimitive& primitive);
  std::uint32_t lookIndex(const Look& look);
  [[nodiscard]] Lent lentBy(const CVekActor& actor);
  [[nodiscard]] const sglTexture2D* readImage(const std::string& path, const sglTexture2D& texture);

  using ImageKey = std::tuple<std::string, sglTexture2D::WrapEnum, sglTexture2D::WrapEnum>;

  Onlooker m_onlooker;
  bool m_readsImages;
  bool m_hasBillboards = false;
  std::vector<DrawItem> m_items;
  std::vector<Placement> m_placements;
  std::vector<Look> m_looks;
  std::map<Look, std::uint32_t> m_lookIndices;
  Tessellator m_tessellator;
  std::vector<std::unique_ptr<sglGeoSet>> m_primitives;  // as triangles
  std::map<ImageKey, sglRef<sglTexture2D>> m_images;     // null for a file that cannot be read
};

}  // namespace embedded
