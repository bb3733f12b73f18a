#pragma once

// Small scenes of the host, put together in few words.

#include <VekFoundations/CVekPropIDServer.h>
#include <VekFoundations/CVekPropPath.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekAssyRoot.h>
#include <VekKernel/CVekStager.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTriangleSet.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace exporter_test {

using Floats = std::vector<float>;
using Indices = std::vector<std::uint32_t>;

/// A list of the host's; null for an empty one.
template <class T>
sglDataPtr* listOf(std::vector<T> values) {
  return values.empty() ? nullptr : new sglDataPtr(std::move(values));
}

/// The lists of a geo-set of any kind; what stays empty is missing in the set.
struct Lists {
  unsigned primCount = 1;
  Floats coords = {0, 0, 0, 1, 0, 0, 0, 1, 0};
  Indices coordIndices = {0, 1, 2};
  Floats normals = {};
  Indices normalIndices = {};
  Floats texCoords = {};
  Indices texCoordIndices = {};
  Indices lengths = {};
};

inline void fill(sglIndexedGeoSet& set, const Lists& lists) {
  set.setCoordIndexList(listOf(lists.coordIndices));
  set.setNormalIndexList(listOf(lists.normalIndices));
  set.setTexCoordIndexList(listOf(lists.texCoordIndices));
}

inline void fillIndices(sglTriangleSet& /*set*/, const Lists& /*lists*/) {}
inline void fillIndices(sglIndexedTriangleSet& set, const Lists& lists) { fill(set, lists); }
inline void fillIndices(sglIndexedTriangleStripSet& set, const Lists& lists) {
  fill(set, lists);
  set.setPrimLengths(listOf(lists.lengths));
}
inline void fillIndices(sglMonoIndexedTriangleStripSet& set, const Lists& lists) {
  set.setCoordIndexList(listOf(lists.coordIndices));
  set.setPrimLengths(listOf(lists.lengths));
}

/// A geo-set with a state 0 of these statelets.
template <class Set = sglIndexedTriangleSet>
std::unique_ptr<Set> geoSet(const Lists& lists = {}, const sglStateletList& statelets = {}) {
  auto set = std::make_unique<Set>();
  set->setNumPrims(lists.primCount);
  set->setCoordList(listOf(lists.coords));
  set->setNormalList(listOf(lists.normals), sglGeoSet::BIND_PER_VERTEX);
  fillIndices(*set, lists);
  if (lists.texCoords.empty()) {
    set->setState(0, statelets);
  } else {
    set->setState(0, statelets, sglTexCoords(listOf(lists.texCoords), sglTexCoords::FLOAT, 2));
  }
  return set;
}

/// A texture of these wrap modes and this matrix.
inline std::unique_ptr<CVekTexture> texture(const sglMat4<float>& matrix = {},
                                            sglTexture2D::WrapEnum s = sglTexture2D::WRAP_REPEAT,
                                            sglTexture2D::WrapEnum t = sglTexture2D::WRAP_REPEAT) {
  auto result = std::make_unique<CVekTexture>();
  auto* image = new sglTexture2D;
  image->setWrapMode(s, t);
  result->SetTexture(image);
  result->SetTexMatrix(matrix);
  return result;
}

/// Gives an actor the property that names its texture's file.
inline void setMapPath(CVekActor& actor, const std::string& path) {
  actor.GetProperties()->SetProperty(GetPropIDServer().GetID("Texture.Map.Path"), std::make_unique<CVekPropPath>(path));
}

/// A node with a name and children, all of which it owns.
template <class Group>
std::unique_ptr<Group> group(const std::string& name, const std::vector<CVekAssyNode*>& children = {}) {
  auto result = std::make_unique<Group>();
  result->SetName(name);
  for (CVekAssyNode* child : children) result->AddChild(child);
  return result;
}

/// A mesh that shows these drawables, which it owns.
template <class Actor = CVekActorMesh>
std::unique_ptr<Actor> mesh(const std::vector<sglDrawable*>& drawables) {
  auto result = std::make_unique<Actor>();
  auto* geode = new sglGeode;
  for (sglDrawable* drawable : drawables) geode->addGeometry(drawable);
  result->SetPresentable(geode);
  return result;
}

/// The material and the triangle that `mesh({geoSet().release()})` writes.
inline const char* const kTriangleShape =
    "Shape{\nappearance Appearance {\nmaterial Material {\ndiffuseColor 0.000000 0.000000 0.000000\n"
    "specularColor 0.000000 0.000000 0.000000\nshininess 0.000000\ntransparency 0.000000\n}\n}\n"
    "geometry IndexedFaceSet{\ncoord Coordinate{\npoint[\n0.000000 0.000000 0.000000,\n1.000000 0.000000 0.000000,\n"
    "0.000000 1.000000 0.000000]\n}\ncoordIndex[\n0 1 2 -1]}}\n";

inline const char* const kHead = "#VRML V2.0 utf8\nGroup{\nchildren[\n";

inline const char* const kIdentityPlacement =
    "center 0.0 0.0 0.0 rotation 1.000000 0.000000 0.000000 0.000000 scale 1.000000 1.000000 1.000000 translation "
    "0.000000 0.000000 0.000000 \nchildren[\n";

}  // namespace exporter_test
