#include "import/FaceSet.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded/MessageSink.h"

namespace {

using importer::FaceSet;
using importer::Vec2;
using importer::Vec3;

const std::vector<Vec3> kPoints(9);
const std::vector<Vec3> kFourVectors(4);
const std::vector<Vec2> kFourPairs(4);

/// The collector's corners as "v/n/t/c", three to a triangle.
std::string dump(const importer::Stripper& stripper) {
  std::string text;
  for (const auto& triangle : stripper.getTriangles()) {
    for (const auto& corner : triangle.corners) {
      text += std::to_string(corner.vertex) + "/" + std::to_string(corner.normal) + "/" +
              std::to_string(corner.texCoord) + "/" + std::to_string(corner.color) + " ";
    }
    text += "; ";
  }
  return text;
}

std::string dump(const importer::FaceCounts& counts) {
  std::string text = std::to_string(counts.tris);
  for (const std::size_t count : {counts.quads, counts.polygons, counts.outOfRange, counts.degenerate})
    text += " " + std::to_string(count);
  return text;
}

TEST(FaceSet, counts_faces_by_their_corners) {
  const struct {
    const char* name;
    std::vector<std::int32_t> coordIndex;
    const char* counts;       // triangles, quads, polygons, out of range, degenerate
    std::uint32_t triangles;  // collected
    std::size_t messages;
  } rows[] = {
      {"nothing", {}, "0 0 0 0 0", 0, 0},
      {"one of each", {0, 1, 2, -1, 0, 2, 3, 1, -1, 4, 5, 6, 7, 8, -1}, "1 1 1 0 0", 6, 0},
      {"an open face", {0, 1, 2}, "0 0 0 0 0", 0, 0},
      {"corners behind the last face", {0, 1, 2, -1, 3, 4, 5, 6}, "1 0 0 0 0", 1, 0},
      {"two empty faces", {-1, -1}, "0 0 2 0 2", 0, 2},
      {"a point and a line", {0, -1, 0, 1, -1}, "0 0 2 0 2", 0, 2},
      {"a degenerate triangle", {0, 1, 1, -1}, "1 0 0 0 1", 0, 1},
      {"a quad of which one triangle is degenerate", {0, 1, 1, 2, -1}, "0 1 0 0 1", 1, 1},
      {"a quad of which both are", {0, 1, 2, 1, -1}, "0 1 0 0 1", 0, 2},
      {"an index past the points", {0, 1, 9, -1, 0, 1, 2, -1}, "2 0 0 1 0", 1, 0},
      {"the index of the last point", {0, 1, 8, -1}, "1 0 0 0 0", 1, 0},
      {"a negative index", {0, -2, 1, -1}, "1 0 0 1 0", 0, 0},
      {"the ends of the numbers", {0, 2147483647, -2147483647 - 1, 4, -1}, "0 1 0 1 0", 0, 0},
      {"a short face out of range is not reported as degenerate", {99, -1}, "0 0 1 1 0", 0, 0},
      {"a degenerate face out of range is not either", {99, 99, 99, -1}, "1 0 0 1 0", 0, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const embedded::MessageRecorder recorder(false);
    importer::Stripper stripper;
    FaceSet faceSet;
    faceSet.coordIndex = {row.coordIndex};
    faceSet.points = {kPoints};
    EXPECT_EQ(dump(importer::collectFaces(faceSet, stripper)), row.counts);
    EXPECT_EQ(stripper.getNumTriangles(), row.triangles);
    EXPECT_EQ(recorder.messages().size(), row.messages);
  }
}

TEST(FaceSet, finds_the_values_of_each_corner) {
  const std::vector<std::int32_t> twoFaces = {3, 1, 2, -1, 0, 2, 3, -1};
  const struct {
    const char* name;
    bool perVertex;
    std::vector<std::int32_t> indices;
    std::vector<std::uint32_t> places;  // of the six corners
  } rows[] = {
      {"per vertex, by the coordinate index", true, {}, {3, 1, 2, 0, 2, 3}},
      {"per vertex, by the place in the index list", true, {0, 1, 2, -1, 3, 3, 0, -1}, {0, 1, 2, 3, 3, 0}},
      {"per vertex, an index list that is too short", true, {1, 1}, {1, 1, 0, 0, 0, 0}},
      {"per vertex, out of range", true, {4, -7, 3, -1, -1, 2147483647, 1}, {0, 0, 3, 0, 0, 1}},
      {"per face, by the number of the face", false, {}, {0, 0, 0, 1, 1, 1}},
      {"per face, by the face's entry", false, {2, 3}, {2, 2, 2, 3, 3, 3}},
      {"per face, an index list that is too short", false, {2}, {2, 2, 2, 0, 0, 0}},
      {"per face, out of range", false, {4, -1}, {0, 0, 0, 0, 0, 0}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    FaceSet faceSet;
    faceSet.coordIndex = {twoFaces};
    faceSet.points = {kPoints};
    faceSet.normals = {{kFourVectors}, {row.indices}, row.perVertex};
    importer::Stripper stripper;
    importer::collectFaces(faceSet, stripper);
    std::vector<std::uint32_t> places;
    for (const auto& triangle : stripper.getTriangles())
      for (const auto& corner : triangle.corners) places.push_back(corner.normal);
    EXPECT_EQ(places, row.places);
  }
}

TEST(FaceSet, keeps_the_kinds_of_values_apart) {
  const std::vector<std::int32_t> coordIndex = {5, 6, 7, -1};
  const std::vector<std::int32_t> ones = {1, 1, 1};
  const std::vector<std::int32_t> twos = {2, 2, 2};
  const std::vector<std::int32_t> threes = {3, 3, 3};
  FaceSet faceSet{{coordIndex},
                  {kPoints},
                  {{kFourVectors}, {ones}, true},
                  {{kFourPairs}, {twos}, true},
                  {{kFourVectors}, {threes}, true}};
  importer::Stripper stripper;
  importer::collectFaces(faceSet, stripper);
  EXPECT_EQ(dump(stripper), "5/1/2/3 6/1/2/3 7/1/2/3 ; ");
}

TEST(FaceSet, absent_values_have_place_zero) {
  const std::vector<std::int32_t> coordIndex = {5, 6, 7, -1};
  const std::vector<std::int32_t> indices = {1, 2, 3, -1};
  FaceSet faceSet{{coordIndex}, {kPoints}, {{}, {indices}, true}, {{}, {indices}, true}, {{}, {indices}, false}};
  importer::Stripper stripper;
  importer::collectFaces(faceSet, stripper);
  EXPECT_EQ(dump(stripper), "5/0/0/0 6/0/0/0 7/0/0/0 ; ");
}

TEST(FaceSet, every_face_advances_the_face_number) {
  const embedded::MessageRecorder recorder(false);
  const std::vector<std::int32_t> coordIndex = {-1, 99, 0, 1, -1, 0, 0, 0, -1, 4, 5, 6, -1};
  FaceSet faceSet;
  faceSet.coordIndex = {coordIndex};
  faceSet.points = {kPoints};
  faceSet.normals = {{kFourVectors}, {}, false};
  importer::Stripper stripper;
  importer::collectFaces(faceSet, stripper);
  EXPECT_EQ(dump(stripper), "4/3/0/0 5/3/0/0 6/3/0/0 ; ");
}

}  // namespace
