// The face sets of the four kinds of triangle sets, and what becomes of lists that are missing or too short.

#include "export/ShapeGeometry.h"

#include <gtest/gtest.h>

#include <string>

#include "export/CVekVRMLLoader.h"
#include "tests/export/Scene.h"
#include "tests/export/Written.h"

namespace {

using exporter_test::Floats;
using exporter_test::geoSet;
using exporter_test::Indices;
using exporter_test::Lists;
using exporter_test::written;

void write(std::FILE* file, CVekActor* actor, sglTriangleSet* set) {
  CVekVRMLLoader().WriteSglTriangleSet(file, actor, set);
}
void write(std::FILE* file, CVekActor* actor, sglIndexedTriangleSet* set) {
  CVekVRMLLoader().WriteSglIndexedTriangleSet(file, actor, set);
}
void write(std::FILE* file, CVekActor* actor, sglIndexedTriangleStripSet* set) {
  CVekVRMLLoader().WriteSglIndexedTriangleStripSet(file, actor, set);
}
void write(std::FILE* file, CVekActor* actor, sglMonoIndexedTriangleStripSet* set) {
  CVekVRMLLoader().WriteSglMonoIndexedTriangleStripSet(file, actor, set);
}

/// The text of a set of these lists, on an actor with or without a texture.
template <class Set>
std::string textOf(const Lists& lists, bool isTextured = true) {
  CVekActorMesh actor;
  if (isTextured) actor.SetTexture(0, exporter_test::texture());
  const auto set = geoSet<Set>(lists);
  return written([&](std::FILE* file) { write(file, &actor, set.get()); });
}

/// The text of a face set from the texts of its lists; an empty list leaves its part out.
std::string faceSet(const std::string& points, const std::string& indices, const std::string& texPoints = "",
                    const std::string& texIndices = "", const std::string& normals = "",
                    const std::string& normalIndices = "") {
  const auto list = [](const char* name, const std::string& values) {
    return values.empty() ? "" : std::string(name) + "[\n" + values + "]\n";
  };
  std::string text = "geometry IndexedFaceSet{\ncoord Coordinate{\n" + list("point", points);
  if (!texPoints.empty()) text += "}\ntexCoord TextureCoordinate{\n" + list("point", texPoints);
  text += "}\ncoordIndex[\n" + indices;
  if (!texPoints.empty()) text += "]\ntexCoordIndex [\n" + texIndices;
  if (!normalIndices.empty()) {
    text +=
        "]\nnormalPerVertex TRUE\nnormal Normal {\n" + list("vector", normals) + "}\nnormalIndex[\n" + normalIndices;
  }
  return text + "]}}\n";
}

/// Vectors of small whole numbers as they are printed.
std::string vectors(const std::vector<std::vector<int>>& values) {
  std::string text;
  for (const std::vector<int>& vector : values) {
    text += text.empty() ? "" : ",\n";
    for (std::size_t i = 0; i < vector.size(); ++i) text += (i > 0 ? " " : "") + std::to_string(vector[i]) + ".000000";
  }
  return text;
}

const std::string kThreePoints = vectors({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
const std::string kFourPoints = vectors({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}});
const Floats kFourCoords = {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0};

TEST(ShapeGeometry, OneIndexedTriangleWithNormals) {
  Lists lists;
  lists.normals = {0, 0, 1, 0, 1, 0, 1, 0, 0};
  lists.normalIndices = {0, 1, 2};
  EXPECT_EQ(textOf<sglIndexedTriangleSet>(lists),
            "geometry IndexedFaceSet{\ncoord Coordinate{\npoint[\n0.000000 0.000000 0.000000,\n1.000000 0.000000 "
            "0.000000,\n0.000000 1.000000 0.000000]\n}\ncoordIndex[\n0 1 2 -1]\nnormalPerVertex TRUE\nnormal Normal "
            "{\nvector[\n0.000000 0.000000 1.000000,\n0.000000 1.000000 0.000000,\n1.000000 0.000000 "
            "0.000000]\n}\nnormalIndex[\n0 1 2 -1]}}\n");
}

TEST(ShapeGeometry, IndexedTriangles) {
  struct Row {
    const char* name;
    Lists lists;
    std::string expected;
  };
  const Row rows[] = {
      {"points alone", {}, faceSet(kThreePoints, "0 1 2 -1")},
      {"texture coordinates stand before the normals",
       {.normals = {0, 0, 1},
        .normalIndices = {0, 0, 0},
        .texCoords = {0, 0, 1, 0, 0, 1},
        .texCoordIndices = {2, 1, 0}},
       faceSet(kThreePoints, "0 1 2 -1", vectors({{0, 0}, {1, 0}, {0, 1}}), "2 1 0 -1", vectors({{0, 0, 1}}),
               "0 0 0 -1")},
      {"as many points as the indices reach",
       {.coords = kFourCoords, .coordIndices = {0, 1, 1}},
       faceSet(vectors({{0, 0, 0}, {1, 0, 0}}), "0 1 1 -1")},
      {"indices past the end of the points", {.coordIndices = {0, 1, 4294967295U}}, faceSet(kThreePoints, "0 1 -1 -1")},
      {"a point too many by a float", {.coords = {0, 0, 0, 1}}, faceSet(vectors({{0, 0, 0}}), "0 1 2 -1")},
      {"fewer indices than triangles",
       {.primCount = 3, .coords = kFourCoords, .coordIndices = {0, 1, 2, 2, 1, 3, 0, 1}},
       faceSet(kFourPoints, "0 1 2 -1,\n 2 1 3 -1")},
      {"more indices than triangles",
       {.coords = kFourCoords, .coordIndices = {0, 1, 2, 2, 1, 3}},
       faceSet(kThreePoints, "0 1 2 -1")},
      {"more triangles than there can be", {.primCount = 4294967295U}, faceSet(kThreePoints, "0 1 2 -1")},
      {"no indices", {.coordIndices = {}}, faceSet(vectors({{0, 0, 0}}), "")},
      {"no points", {.coords = {}}, faceSet("", "0 1 2 -1")},
      {"normal indices without normals",
       {.normalIndices = {0, 1, 2}},
       faceSet(kThreePoints, "0 1 2 -1", "", "", "", "0 1 2 -1")},
      {"normals without normal indices", {.normals = {0, 0, 1}}, faceSet(kThreePoints, "0 1 2 -1")},
      {"texture coordinates without texture indices",
       {.texCoords = {1, 0, 0, 1}},
       faceSet(kThreePoints, "0 1 2 -1", vectors({{1, 0}}), "")},
      {"half a texture coordinate",
       {.texCoords = {1}, .texCoordIndices = {0, 0, 0}},
       "geometry IndexedFaceSet{\ncoord Coordinate{\npoint[\n" + kThreePoints +
           "]\n}\ntexCoord TextureCoordinate{\n}\ncoordIndex[\n0 1 2 -1]\ntexCoordIndex [\n0 0 0 -1]}}\n"},
      {"no triangles", {.primCount = 0}, ""},
  };
  for (const Row& row : rows) EXPECT_EQ(textOf<sglIndexedTriangleSet>(row.lists), row.expected) << row.name;
}

TEST(ShapeGeometry, TextureCoordinatesOfAnActorWithoutATextureAreNotWritten) {
  const Lists lists = {.texCoords = {0, 0, 1, 0, 0, 1}, .texCoordIndices = {0, 1, 2}};
  EXPECT_EQ(textOf<sglIndexedTriangleSet>(lists, false), faceSet(kThreePoints, "0 1 2 -1"));
  EXPECT_EQ(textOf<sglTriangleSet>(lists, false), faceSet(kThreePoints, "0 1 2 -1"));
}

TEST(ShapeGeometry, IndexedStrips) {
  struct Row {
    const char* name;
    Lists lists;
    std::string expected;
  };
  const Row rows[] = {
      {"two strips, each list unrolled alike",
       {.primCount = 2,
        .coords = kFourCoords,
        .coordIndices = {0, 1, 2, 3, 3, 2, 1},
        .normals = {0, 0, 1, 0, 1, 0},
        .normalIndices = {0, 0, 0, 1, 1, 1, 1},
        .texCoords = {0, 0, 1, 0},
        .texCoordIndices = {1, 0, 1, 0, 1, 0, 1},
        .lengths = {4, 3}},
       faceSet(kFourPoints, "0 1 2 -1,\n1 3 2 -1,\n3 2 1 -1", vectors({{0, 0}, {1, 0}}),
               "1 0 1 -1,\n0 0 1 -1,\n1 0 1 -1", vectors({{0, 0, 1}, {0, 1, 0}}), "0 0 0 -1,\n0 1 0 -1,\n1 1 1 -1")},
      {"the indices of a short strip count for the points",
       {.primCount = 2, .coords = kFourCoords, .coordIndices = {3, 0, 0, 1, 2}, .lengths = {2, 3}},
       faceSet(kFourPoints, "0 1 2 -1")},
      {"indices behind the last strip do not count",
       {.coords = kFourCoords, .coordIndices = {0, 1, 2, 3}, .lengths = {3}},
       faceSet(kThreePoints, "0 1 2 -1")},
      {"fewer strip lengths than strips",
       {.primCount = 5, .coords = kFourCoords, .coordIndices = {0, 1, 2, 3}, .lengths = {4}},
       faceSet(kFourPoints, "0 1 2 -1,\n1 3 2 -1")},
      {"fewer indices than the lengths say",
       {.primCount = 2, .lengths = {4, 4294967295U}},
       faceSet(kThreePoints, "0 1 2 -1")},
      {"no strip lengths", {.primCount = 2}, faceSet(vectors({{0, 0, 0}}), "")},
      {"no strips", {.primCount = 0, .lengths = {3}}, ""},
  };
  for (const Row& row : rows) EXPECT_EQ(textOf<sglIndexedTriangleStripSet>(row.lists), row.expected) << row.name;
}

TEST(ShapeGeometry, MonoIndexedStrips) {
  const std::string indices = "0 1 2 -1,\n1 3 2 -1";
  const Lists lists = {.coords = kFourCoords,
                       .coordIndices = {0, 1, 2, 3},
                       .normals = {0, 0, 1, 0, 1, 0, 1, 0, 0, 0, 0, 2, 9, 9, 9},
                       .texCoords = {0, 0, 1, 0, 0, 1, 1, 1, 9, 9},
                       .lengths = {4}};
  EXPECT_EQ(textOf<sglMonoIndexedTriangleStripSet>(lists),
            faceSet(kFourPoints, indices, vectors({{0, 0}, {1, 0}, {0, 1}, {1, 1}}), indices,
                    vectors({{0, 0, 1}, {0, 1, 0}, {1, 0, 0}, {0, 0, 2}}), indices));
  EXPECT_EQ(
      textOf<sglMonoIndexedTriangleStripSet>({.coords = kFourCoords, .coordIndices = {0, 1, 2, 3}, .lengths = {4}}),
      faceSet(kFourPoints, indices));
  EXPECT_EQ(textOf<sglMonoIndexedTriangleStripSet>({.primCount = 0, .lengths = {3}}), "");
  EXPECT_EQ(textOf<sglMonoIndexedTriangleStripSet>({.coordIndices = {}, .lengths = {3}}),
            faceSet(vectors({{0, 0, 0}}), ""));
}

TEST(ShapeGeometry, TrianglesThatShareAnEdgeShareIndices) {
  const Floats coords = {0, 0, 0, 10, 0, 0, 0, 10, 0, 0, 10, 0, 10, 0, 0, 10, 10, 0};
  const std::string points = vectors({{0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {0, 10, 0}, {10, 0, 0}, {10, 10, 0}});
  const std::string indices = "0 1 2 -1,\n 2 1 5 -1";
  Lists lists = {.primCount = 2, .coords = coords};
  EXPECT_EQ(textOf<sglTriangleSet>(lists), faceSet(points, indices));

  for (int vertex = 0; vertex < 6; ++vertex) lists.normals.insert(lists.normals.end(), {0, 0, 1});
  lists.texCoords = {0, 0, 1, 0, 2, 0, 3, 0, 4, 0, 5, 0};
  const std::string up = vectors({{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}});
  EXPECT_EQ(textOf<sglTriangleSet>(lists),
            faceSet(points, indices, vectors({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}}), indices, up, indices));
}

TEST(ShapeGeometry, TrianglesAsFarAsThePointsGo) {
  struct Row {
    const char* name;
    Lists lists;
    std::string expected;
  };
  const Row rows[] = {
      {"more triangles than points",
       {.primCount = 4294967295U, .coords = {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0, 5, 5}},
       faceSet(kThreePoints, "0 1 2 -1")},
      {"fewer triangles than points",
       {.coords = {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0, 5, 5, 0, 6, 6, 0}},
       faceSet(kThreePoints, "0 1 2 -1")},
      {"fewer normals than points",
       {.normals = {0, 0, 1, 0, 0, 1}},
       faceSet(kThreePoints, "0 1 2 -1", "", "", vectors({{0, 0, 1}, {0, 0, 1}}), "0 1 2 -1")},
      {"no points", {.coords = {}}, faceSet("", "")},
      {"no triangles", {.primCount = 0}, ""},
  };
  for (const Row& row : rows) EXPECT_EQ(textOf<sglTriangleSet>(row.lists), row.expected) << row.name;
}

TEST(ShapeGeometry, NormalsAreWrittenWhenTheirListIsThereEvenIfItIsEmpty) {
  CVekActorMesh actor;
  const auto text = [&actor](auto* set) { return written([&](std::FILE* file) { write(file, &actor, set); }); };
  const auto faceSetWithNormals = [](const std::string& normals, const std::string& indices) {
    return "geometry IndexedFaceSet{\ncoord Coordinate{\npoint[\n" + kThreePoints +
           "]\n}\ncoordIndex[\n0 1 2 -1]\nnormalPerVertex TRUE\nnormal Normal {\n" + normals + "}\nnormalIndex[\n" +
           indices + "]}}\n";
  };
  const auto indexed = geoSet<sglIndexedTriangleSet>({.normals = {0, 0, 1, 0, 1, 0}});
  indexed->setNormalIndexList(new sglDataPtr(Indices()));
  EXPECT_EQ(text(indexed.get()), faceSetWithNormals("vector[\n0.000000 0.000000 1.000000]\n", ""));
  const auto strips = geoSet<sglIndexedTriangleStripSet>({.lengths = {3}});
  strips->setNormalIndexList(new sglDataPtr(Indices()));
  EXPECT_EQ(text(strips.get()), faceSetWithNormals("", ""));
  const auto monoStrips = geoSet<sglMonoIndexedTriangleStripSet>({.lengths = {3}});
  monoStrips->setNormalList(new sglDataPtr(Floats()), sglGeoSet::BIND_PER_VERTEX);
  EXPECT_EQ(text(monoStrips.get()), faceSetWithNormals("", "0 1 2 -1"));
  const auto soup = geoSet<sglTriangleSet>();
  soup->setNormalList(new sglDataPtr(Floats()), sglGeoSet::BIND_PER_VERTEX);
  EXPECT_EQ(text(soup.get()), faceSetWithNormals("", "0 1 2 -1"));
}

TEST(ShapeGeometry, TextureCoordinatesAreFoundUnderFourConditions) {
  const float other = 7.0F;
  const float* const untouched = &other;
  const auto set = geoSet({.texCoords = {0.5F, 0.25F}});
  CVekActorMesh actor;
  const float* found = untouched;

  CVekVRMLLoader::GetTexCoordArray(&actor, set.get(), found);
  EXPECT_EQ(found, untouched) << "an actor without a texture";
  actor.SetTexture(1, exporter_test::texture());
  CVekVRMLLoader::GetTexCoordArray(&actor, set.get(), found);
  EXPECT_EQ(found, untouched) << "a texture in another slot";
  actor.SetTexture(0, exporter_test::texture());
  CVekVRMLLoader::GetTexCoordArray(&actor, geoSet().get(), found);
  EXPECT_EQ(found, untouched) << "a state without texture coordinates";
  sglIndexedTriangleSet stateless;
  CVekVRMLLoader::GetTexCoordArray(&actor, &stateless, found);
  EXPECT_EQ(found, untouched) << "no state";
  sglIndexedTriangleSet invalid;
  invalid.setState(0, {}, sglTexCoords(new sglDataPtr(Floats{1, 2, 3}), sglTexCoords::FLOAT, 3));
  CVekVRMLLoader::GetTexCoordArray(&actor, &invalid, found);
  EXPECT_EQ(found, untouched) << "texture coordinates of three components";
  CVekVRMLLoader::GetTexCoordArray(nullptr, set.get(), found);
  CVekVRMLLoader::GetTexCoordArray(&actor, nullptr, found);
  EXPECT_EQ(found, untouched) << "null arguments";

  CVekVRMLLoader::GetTexCoordArray(&actor, set.get(), found);
  ASSERT_NE(found, untouched);
  EXPECT_EQ(found[0], 0.5F);
  EXPECT_EQ(found[1], 0.25F);
}

TEST(ShapeGeometry, NothingIsWrittenForWhatIsMissing) {
  CVekActorMesh actor;
  const auto soup = geoSet<sglTriangleSet>();
  const auto indexed = geoSet<sglIndexedTriangleSet>();
  const auto strips = geoSet<sglIndexedTriangleStripSet>();
  const auto monoStrips = geoSet<sglMonoIndexedTriangleStripSet>();
  const auto missing = [&actor](auto* set) {
    write(nullptr, &actor, set);
    return written([&](std::FILE* file) {
      write(file, nullptr, set);
      set = nullptr;
      write(file, &actor, set);
    });
  };
  EXPECT_EQ(missing(soup.get()), "");
  EXPECT_EQ(missing(indexed.get()), "");
  EXPECT_EQ(missing(strips.get()), "");
  EXPECT_EQ(missing(monoStrips.get()), "");
}

TEST(ShapeGeometry, TheHostsListsAreNotChanged) {
  const Floats coords = {0, 0, 0, 10, 0, 0, 0, 10, 0, 0, 10, 0, 10, 0, 0, 10, 10, 0};
  const Floats texCoords = {2, 2, 1, 0, 0, 1, 0, 1, 1, 0, 1, 1};
  CVekActorMesh actor;
  actor.SetTexture(0, exporter_test::texture({{9, 0, 0, 0, 0, 9, 0, 0, 0, 0, 9, 0, 9, 9, 9, 1}}));
  const auto set =
      geoSet<sglTriangleSet>({.primCount = 2, .coords = coords, .normals = coords, .texCoords = texCoords});
  written([&](std::FILE* file) { write(file, &actor, set.get()); });
  EXPECT_EQ(Floats(set->getCoordList()->getFloats(), set->getCoordList()->getFloats() + 18), coords);
  EXPECT_EQ(Floats(set->getNormalList()->getFloats(), set->getNormalList()->getFloats() + 18), coords);
  const sglDataPtr* data = set->getState(0)->getTexCoordList().front().getDataPtr();
  EXPECT_EQ(Floats(data->getFloats(), data->getFloats() + 12), texCoords);
  EXPECT_EQ(set->getCoordList()->getRefCount(), 1U);
}

}  // namespace
