// Primitives are built as grids of vertices around the z axis. Angles and products are computed in double and narrowed
// once. A ring has its first column twice, at 0 and at a full turn, so that no index needs to wrap around.
//
// Images lie as a world upright along y wants them once an import has placed the primitive there: on each side of a
// cube, around the others from the back to the left, the front and the right, and as discs on their ends. The import
// turns a cone's axis up, a cylinder's and a sphere's down, and leaves a cube as it is.

#include "embedded/Tessellation.h"

#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglSphere.h>
#include <VekSG/sglTriangleSet.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <numbers>
#include <vector>

#include "embedded/TriangleReader.h"

namespace embedded {
namespace {

constexpr unsigned kMaxPieces = 1024;

unsigned piecesAround(unsigned wanted) { return std::clamp(wanted, 3U, kMaxPieces); }
unsigned piecesAlong(unsigned wanted) { return std::clamp(wanted, 1U, kMaxPieces); }
unsigned piecesPoleToPole(unsigned wanted) { return std::clamp(wanted, 2U, kMaxPieces); }

// Gathers vertices and triangles.
class MeshBuilder {
 public:
  // Adds a vertex and returns its number. The normal may have any length.
  std::uint32_t vertex(const glm::dvec3& position, const glm::dvec3& normal, const glm::dvec2& texCoord) {
    const double length = glm::length(normal);
    append(m_coords, position);
    m_texCoords.insert(m_texCoords.end(), {static_cast<float>(texCoord.x), static_cast<float>(texCoord.y)});
    append(m_normals, length > 0.0 ? normal / length : normal);
    return static_cast<std::uint32_t>(m_coords.size() / 3 - 1);
  }

  void triangle(std::uint32_t a, std::uint32_t b, std::uint32_t c) { m_indices.insert(m_indices.end(), {a, b, c}); }

  PrimitiveMesh finish() {
    return {new sglDataPtr(std::move(m_coords)), new sglDataPtr(std::move(m_normals)),
            new sglDataPtr(std::move(m_texCoords)), new sglDataPtr(std::move(m_indices))};
  }

 private:
  static void append(std::vector<float>& list, const glm::dvec3& vector) {
    for (int axis = 0; axis < 3; ++axis) list.push_back(static_cast<float>(vector[axis]));
  }

  std::vector<float> m_coords;
  std::vector<float> m_normals;
  std::vector<float> m_texCoords;
  std::vector<std::uint32_t> m_indices;
};

// The direction of a column of a ring in the plane of x and y.
glm::dvec3 direction(double column, unsigned around) {
  const double angle = 2.0 * std::numbers::pi * column / around;
  return {std::cos(angle), std::sin(angle), 0.0};
}

// How far around a column is on the image: from the back to the left, for an axis that will point up or down.
enum class PlacedAxis { Up, Down };

double imageColumn(double column, unsigned around, PlacedAxis axis) {
  const double turn = column / around;
  return axis == PlacedAxis::Up ? turn - 0.25 : 0.75 - turn;
}

// A flat disc across the z axis, its face towards `facing` (1 or -1 along z). The disc of the image that it shows has
// its top at y = 1 or -1, `imageTop`.
void addCap(MeshBuilder& mesh, unsigned around, double z, double radius, double facing, double imageTop) {
  const glm::dvec3 normal(0.0, 0.0, facing);
  const std::uint32_t centre = mesh.vertex({0.0, 0.0, z}, normal, {0.5, 0.5});
  for (unsigned i = 0; i <= around; ++i) {
    const glm::dvec3 outward = direction(i, around);
    mesh.vertex(outward * radius + glm::dvec3(0.0, 0.0, z), normal,
                {0.5 + outward.x / 2.0, 0.5 + outward.y * imageTop / 2.0});
  }
  for (unsigned i = 0; i < around; ++i) {
    const std::uint32_t a = centre + 1 + i;
    mesh.triangle(centre, facing > 0.0 ? a : a + 1, facing > 0.0 ? a + 1 : a);
  }
}

// Two triangles for each cell of a grid of rows from bottom to top; those that collapse at a pole are left out.
void addGrid(MeshBuilder& mesh, std::uint32_t first, unsigned around, unsigned along, bool hasPoles) {
  const std::uint32_t columns = around + 1;
  for (unsigned row = 0; row < along; ++row) {
    for (unsigned i = 0; i < around; ++i) {
      const std::uint32_t a = first + row * columns + i;
      const std::uint32_t d = a + columns;
      if (!hasPoles || row > 0) mesh.triangle(a, a + 1, d + 1);
      if (!hasPoles || row + 1 < along) mesh.triangle(a, d + 1, d);
    }
  }
}

// Where a corner of a cube's side lies on the image; coordinates are 0 or 1. `axis` is the side's, `far` its end.
glm::dvec2 imageOnCube(int axis, bool far, const glm::dvec3& corner) {
  switch (axis) {
    case 0:
      return {far ? 1.0 - corner.z : corner.z, corner.y};
    case 1:
      return {corner.x, far ? 1.0 - corner.z : corner.z};
    default:
      return {far ? corner.x : 1.0 - corner.x, corner.y};
  }
}

PrimitiveMesh meshOfCube(const sglCube& cube) {
  MeshBuilder mesh;
  const glm::dvec3 size(cube.getSize().x, cube.getSize().y, cube.getSize().z);
  for (int axis = 0; axis < 3; ++axis) {
    const int u = (axis + 1) % 3;
    const int v = (axis + 2) % 3;
    for (const bool far : {false, true}) {
      glm::dvec3 normal(0.0);
      normal[axis] = far ? 1.0 : -1.0;
      std::uint32_t corners[4];
      for (unsigned i = 0; i < 4; ++i) {  // around the face: (0, 0), (1, 0), (1, 1), (0, 1)
        glm::dvec3 corner(0.0);
        corner[axis] = far ? 1.0 : 0.0;
        corner[u] = i == 1 || i == 2 ? 1.0 : 0.0;
        corner[v] = i >= 2 ? 1.0 : 0.0;
        corners[i] = mesh.vertex(corner * size, normal, imageOnCube(axis, far, corner));
      }
      mesh.triangle(corners[0], corners[far ? 1 : 2], corners[far ? 2 : 1]);
      mesh.triangle(corners[0], corners[far ? 2 : 3], corners[far ? 3 : 2]);
    }
  }
  return mesh.finish();
}

PrimitiveMesh meshOfCone(const sglCone& cone) {
  MeshBuilder mesh;
  const unsigned around = piecesAround(cone.getNumSegments());
  const double height = double{cone.getHeight()};
  const double radius = double{cone.getRadius()};
  const auto normalAt = [&](double column) {
    return direction(column, around) * height + glm::dvec3(0.0, 0.0, radius);
  };
  const auto columnAt = [&](double column) { return imageColumn(column, around, PlacedAxis::Up); };
  for (unsigned i = 0; i <= around; ++i) {
    mesh.vertex(direction(i, around) * radius, normalAt(i), {columnAt(i), 0.0});
  }
  for (unsigned i = 0; i < around; ++i) {
    mesh.triangle(i, i + 1, mesh.vertex({0.0, 0.0, height}, normalAt(i + 0.5), {columnAt(i + 0.5), 1.0}));
  }
  addCap(mesh, around, 0.0, radius, -1.0, -1.0);
  return mesh.finish();
}

PrimitiveMesh meshOfCylinder(const sglCylinder& cylinder) {
  MeshBuilder mesh;
  const unsigned around = piecesAround(cylinder.getNumAround());
  const unsigned along = piecesAlong(cylinder.getNumAlong());
  const double height = double{cylinder.getHeight()};
  const double bottom = double{cylinder.getBottomRadius()};
  const double top = double{cylinder.getTopRadius()};
  for (unsigned row = 0; row <= along; ++row) {
    const double part = static_cast<double>(row) / along;
    const double radius = bottom + (top - bottom) * part;
    for (unsigned i = 0; i <= around; ++i) {
      const glm::dvec3 outward = direction(i, around);
      mesh.vertex(outward * radius + glm::dvec3(0.0, 0.0, height * part),
                  outward * height + glm::dvec3(0.0, 0.0, bottom - top),
                  {imageColumn(i, around, PlacedAxis::Down), 1.0 - part});
    }
  }
  addGrid(mesh, 0, around, along, false);
  if (cylinder.isCapped()) {
    addCap(mesh, around, 0.0, bottom, -1.0, -1.0);
    addCap(mesh, around, height, top, 1.0, 1.0);
  }
  return mesh.finish();
}

PrimitiveMesh meshOfSphere(const sglSphere& sphere) {
  MeshBuilder mesh;
  const unsigned around = piecesAround(sphere.getNumAround());
  const unsigned rows = piecesPoleToPole(sphere.getNumPoleToPole());
  const double radius = double{sphere.getRadius()};
  const glm::dvec3 centre(radius / 2.0);
  for (unsigned row = 0; row <= rows; ++row) {
    const double part = static_cast<double>(row) / rows;
    const double latitude = std::numbers::pi * (part - 0.5);
    for (unsigned i = 0; i <= around; ++i) {
      const glm::dvec3 outward = direction(i, around) * std::cos(latitude) + glm::dvec3(0.0, 0.0, std::sin(latitude));
      mesh.vertex(centre + outward * radius, outward, {imageColumn(i, around, PlacedAxis::Down), 1.0 - part});
    }
  }
  addGrid(mesh, 0, around, rows, true);
  return mesh.finish();
}

std::uint32_t bitsOf(float value) { return std::bit_cast<std::uint32_t>(value); }

// Copies what a drawable has beside its geometry.
void copyLooks(const sglDrawable& from, sglDrawable& to) {
  to.setName(from.getName());
  to.enableDisplayList(from.isDisplayListEnabled());
  for (unsigned index = 0; index < 8; ++index) {
    const StateElement* state = from.getState(index);
    if (state == nullptr) continue;
    if (state->getTexCoordList().empty()) {
      to.setState(index, state->getStatelets());
    } else {
      to.setState(index, state->getStatelets(), state->getTexCoordList().front());
    }
  }
}

void shareValues(const sglGeoSet& from, sglGeoSet& to) {
  to.setNumPrims(from.getNumPrims());
  to.setCoordList(from.getCoordList());
  to.setNormalList(from.getNormalList(), from.getNormalBinding());
  to.setColorList(from.getColorList(), from.getColorBinding());
}

void shareIndices(const sglIndexedGeoSet& from, sglIndexedGeoSet& to) {
  to.setCoordIndexList(from.getCoordIndexList());
  to.setNormalIndexList(from.getNormalIndexList());
  to.setColorIndexList(from.getColorIndexList());
  to.setTexCoordIndexList(from.getTexCoordIndexList());
}

// Whether a list's values go to corners one by one, and so need an index list of their own.
bool needsIndices(const sglDataPtr* list, sglGeoSet::BindingEnum binding) {
  return list != nullptr && (binding == sglGeoSet::BIND_PER_VERTEX || binding == sglGeoSet::BIND_PER_PRIM);
}

// Index lists for the triangles of a set of another kind. A corner without a value gets the first one.
void readIndices(const sglGeoSet& from, sglIndexedTriangleSet& to) {
  const bool withNormals = needsIndices(from.getNormalList(), from.getNormalBinding());
  const bool withColors = needsIndices(from.getColorList(), from.getColorBinding());
  const bool withTexCoords = texCoordList(from) != nullptr;
  std::vector<std::uint32_t> coords;
  std::vector<std::uint32_t> normals;
  std::vector<std::uint32_t> colors;
  std::vector<std::uint32_t> texCoords;
  const auto append = [](std::vector<std::uint32_t>& list, std::uint32_t index) {
    list.push_back(index == kNoIndex ? 0 : index);
  };
  TriangleReader reader(from);
  Triangle triangle;
  while (reader.next(triangle)) {
    for (const Corner& corner : triangle) {
      coords.push_back(corner.coord);
      if (withNormals) append(normals, corner.normal);
      if (withColors) append(colors, corner.color);
      if (withTexCoords) append(texCoords, corner.texCoord);
    }
  }
  to.setNumPrims(static_cast<unsigned>(coords.size() / 3));
  to.setCoordIndexList(new sglDataPtr(std::move(coords)));
  if (withNormals) {
    to.setNormalIndexList(new sglDataPtr(std::move(normals)));
    to.setNormalList(from.getNormalList(), sglGeoSet::BIND_PER_VERTEX);
  }
  if (withColors) {
    to.setColorIndexList(new sglDataPtr(std::move(colors)));
    to.setColorList(from.getColorList(), sglGeoSet::BIND_PER_VERTEX);
  }
  if (withTexCoords) to.setTexCoordIndexList(new sglDataPtr(std::move(texCoords)));
}

}  // namespace

const PrimitiveMesh& Tessellator::meshOf(const sglPrimitive& primitive) {
  Measures key{};
  const auto cached = [&](auto make) -> const PrimitiveMesh& {
    const auto [entry, isNew] = m_meshes.try_emplace(key);
    if (isNew) entry->second = make();
    return entry->second;
  };
  if (const auto* cube = dynamic_cast<const sglCube*>(&primitive)) {
    const sglVec3<float>& size = cube->getSize();
    key = {1, bitsOf(size.x), bitsOf(size.y), bitsOf(size.z)};
    return cached([&] { return meshOfCube(*cube); });
  }
  if (const auto* cone = dynamic_cast<const sglCone*>(&primitive)) {
    key = {2, cone->getNumSegments(), bitsOf(cone->getHeight()), bitsOf(cone->getRadius())};
    return cached([&] { return meshOfCone(*cone); });
  }
  if (const auto* cylinder = dynamic_cast<const sglCylinder*>(&primitive)) {
    key = {3,
           cylinder->getNumAround(),
           cylinder->getNumAlong(),
           bitsOf(cylinder->getHeight()),
           bitsOf(cylinder->getBottomRadius()),
           bitsOf(cylinder->getTopRadius()),
           cylinder->isCapped() ? 1U : 0U};
    return cached([&] { return meshOfCylinder(*cylinder); });
  }
  if (const auto* sphere = dynamic_cast<const sglSphere*>(&primitive)) {
    key = {4, sphere->getNumAround(), sphere->getNumPoleToPole(), bitsOf(sphere->getRadius())};
    return cached([&] { return meshOfSphere(*sphere); });
  }
  return cached([] { return MeshBuilder().finish(); });
}

std::unique_ptr<sglIndexedTriangleSet> Tessellator::triangleSetOf(const sglDrawable* drawable) {
  const auto* source = dynamic_cast<const sglGeoSet*>(drawable);
  if (source == nullptr) return nullptr;
  auto set = std::make_unique<sglIndexedTriangleSet>();
  copyLooks(*source, *set);
  shareValues(*source, *set);
  if (const auto* primitive = dynamic_cast<const sglPrimitive*>(source)) {
    const PrimitiveMesh& mesh = meshOf(*primitive);
    set->setNumPrims(static_cast<unsigned>(mesh.indices->getCount() / 3));
    set->setCoordList(mesh.coords.get());
    set->setNormalList(mesh.normals.get(), sglGeoSet::BIND_PER_VERTEX);
    set->setCoordIndexList(mesh.indices.get());
    set->setNormalIndexList(mesh.indices.get());
  } else if (const auto* indexed = dynamic_cast<const sglIndexedTriangleSet*>(source)) {
    shareIndices(*indexed, *set);
  } else {
    readIndices(*source, *set);
  }
  return set;
}

std::unique_ptr<sglDrawable> Tessellator::copyOf(const sglDrawable* drawable) {
  const auto finish = [drawable](const sglGeoSet& from, auto copy) -> std::unique_ptr<sglDrawable> {
    copyLooks(*drawable, *copy);
    shareValues(from, *copy);
    return copy;
  };
  if (const auto* strips = dynamic_cast<const sglIndexedTriangleStripSet*>(drawable)) {
    auto copy = std::make_unique<sglIndexedTriangleStripSet>();
    shareIndices(*strips, *copy);
    copy->setPrimLengths(strips->getPrimLengths());
    return finish(*strips, std::move(copy));
  }
  if (const auto* mono = dynamic_cast<const sglMonoIndexedTriangleStripSet*>(drawable)) {
    auto copy = std::make_unique<sglMonoIndexedTriangleStripSet>();
    copy->setCoordIndexList(mono->getCoordIndexList());
    copy->setPrimLengths(mono->getPrimLengths());
    return finish(*mono, std::move(copy));
  }
  if (const auto* triangles = dynamic_cast<const sglTriangleSet*>(drawable)) {
    return finish(*triangles, std::make_unique<sglTriangleSet>());
  }
  return triangleSetOf(drawable);
}

std::uint64_t countTriangles(const sglPrimitive& primitive) {
  if (dynamic_cast<const sglCube*>(&primitive) != nullptr) return 12;
  if (const auto* cone = dynamic_cast<const sglCone*>(&primitive)) {
    return std::uint64_t{2} * piecesAround(cone->getNumSegments());
  }
  if (const auto* cylinder = dynamic_cast<const sglCylinder*>(&primitive)) {
    const std::uint64_t around = piecesAround(cylinder->getNumAround());
    return 2 * around * piecesAlong(cylinder->getNumAlong()) + (cylinder->isCapped() ? 2 * around : 0);
  }
  if (const auto* sphere = dynamic_cast<const sglSphere*>(&primitive)) {
    const std::uint64_t around = piecesAround(sphere->getNumAround());
    return 2 * around * (piecesPoleToPole(sphere->getNumPoleToPole()) - 1);
  }
  return 0;
}

}  // namespace embedded
