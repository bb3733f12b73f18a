#include "import/sglTriStripper.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded/MessageSink.h"
#include "import/sglVertStructVNTC.h"

namespace {

constexpr const char* kDegenerateFace = "2[sglTriStripper::addPolyFace() warning: ignoring degenerate face\n]";
constexpr const char* kDegenerateTriangle =
    "2[sglTriStripper::addTriangleFace() warning: ignoring degenerate triangle\n]";

class OpenStripper : public sglTriStripper<sglVertStructVNTC> {
 public:
  using sglTriStripper::m_adjtrilist;
  using sglTriStripper::m_donetrilist;
  using sglTriStripper::m_strips;
  using sglTriStripper::m_stripScratch;
};

std::vector<sglVertStructVNTC> polygon(const std::vector<std::uint32_t>& vertices) {
  std::vector<sglVertStructVNTC> corners;
  corners.reserve(vertices.size());
  for (const std::uint32_t vertex : vertices) corners.push_back({vertex, vertex + 100, vertex + 200, vertex + 300});
  return corners;
}

std::string dump(const OpenStripper& stripper) {
  std::string text;
  for (const auto& triangle : stripper.getTriangles()) {
    text += std::to_string(triangle.id) + ":";
    for (const auto& corner : triangle.corners) text += " " + std::to_string(corner.vertex);
    text += "; ";
  }
  return text;
}

std::string texts(const embedded::MessageRecorder& recorder) {
  std::string text;
  for (const auto& message : recorder.messages()) text += std::to_string(message.level) + "[" + message.text + "]";
  return text;
}

TEST(sglTriStripper, cuts_polygons_in_zigzag_order) {
  const std::string face = kDegenerateFace;
  const std::string triangle = kDegenerateTriangle;
  const struct {
    const char* name;
    std::vector<std::uint32_t> vertices;
    std::string triangles;
    std::string messages;
  } rows[] = {
      {"no corner", {}, "", face},
      {"one corner", {7}, "", face},
      {"two corners", {0, 1}, "", face},
      {"a triangle", {0, 1, 2}, "0: 0 1 2; ", ""},
      {"a quad", {0, 1, 2, 3}, "0: 0 1 3; 1: 3 1 2; ", ""},
      {"a pentagon", {0, 1, 2, 3, 4}, "0: 0 1 4; 1: 4 1 2; 2: 4 2 3; ", ""},
      {"a hexagon", {0, 1, 2, 3, 4, 5}, "0: 0 1 5; 1: 5 1 2; 2: 5 2 4; 3: 4 2 3; ", ""},
      {"a heptagon", {0, 1, 2, 3, 4, 5, 6}, "0: 0 1 6; 1: 6 1 2; 2: 6 2 5; 3: 5 2 3; 4: 5 3 4; ", ""},
      {"first and second corner the same", {5, 5, 6}, "", triangle},
      {"second and third corner the same", {6, 5, 5}, "", triangle},
      {"first and third corner the same", {5, 6, 5}, "", triangle},
      {"a quad whose corners 1 and 3 are the same", {0, 1, 2, 1}, "", triangle + triangle},
      {"a quad whose corners 0 and 2 are the same", {0, 1, 0, 3}, "0: 0 1 3; 1: 3 1 0; ", ""},
      {"a dropped triangle takes no number", {0, 1, 1, 3, 4}, "0: 0 1 4; 1: 4 1 3; ", triangle},
      {"the largest identity", {0xFFFFFFFF, 0, 1}, "0: 4294967295 0 1; ", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const embedded::MessageRecorder recorder(false);
    {
      OpenStripper stripper;
      stripper.addPolyFace(polygon(row.vertices));
      EXPECT_EQ(dump(stripper), row.triangles);
    }
    EXPECT_EQ(texts(recorder), row.messages);
  }
}

TEST(sglTriStripper, tells_corners_apart_by_identity_alone) {
  const embedded::MessageRecorder recorder(false);
  OpenStripper stripper;
  stripper.addPolyFace(std::vector<sglVertStructVNTC>{{0, 9, 9, 9}, {1, 9, 9, 9}, {2, 9, 9, 9}});
  stripper.addPolyFace(std::vector<sglVertStructVNTC>{{3, 0, 0, 0}, {3, 1, 1, 1}, {4, 2, 2, 2}});
  EXPECT_EQ(dump(stripper), "0: 0 1 2; ");
  EXPECT_EQ(texts(recorder), kDegenerateTriangle);
}

TEST(sglTriStripper, keeps_all_four_indices_of_a_corner) {
  OpenStripper stripper;
  stripper.addPolyFace(polygon({4, 5, 6}));
  const auto& corners = stripper.getTriangles().begin()->corners;
  EXPECT_EQ(corners[0], (sglVertStructVNTC{4, 104, 204, 304}));
  EXPECT_EQ(corners[2], (sglVertStructVNTC{6, 106, 206, 306}));
}

TEST(sglTriStripper, numbers_only_what_it_keeps) {
  const embedded::MessageRecorder recorder(false);
  OpenStripper stripper;
  for (std::uint32_t i = 0; i < 5000; ++i) {
    stripper.addPolyFace(polygon({i, i + 1, i + 2}));
    stripper.addPolyFace(polygon({i, i, i + 2}));
  }
  EXPECT_EQ(stripper.getNumTriangles(), 5000U);
  std::uint32_t next = 0;
  for (const auto& triangle : stripper.getTriangles()) {
    ASSERT_EQ(triangle.id, next);
    ASSERT_EQ(triangle.corners[2].vertex, next + 2);
    ++next;
  }
  EXPECT_EQ(next, 5000U);
  EXPECT_EQ(recorder.messages().size(), 5000U);
}

TEST(sglTriStripper, resets_the_record_of_a_triangle_that_it_takes) {
  OpenStripper stripper;
  auto* triangle = stripper.newTriangle({0, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0});
  triangle->id = 17;
  triangle->neighbourCount = 3;
  triangle->freeNeighbours = 3;
  triangle->neighbours = {triangle, triangle, triangle};
  EXPECT_EQ(stripper.getNumTriangles(), 0U);
  stripper.addTriangleFace(triangle);
  const auto& kept = *stripper.getTriangles().begin();
  EXPECT_EQ(kept.id, 0U);
  EXPECT_EQ(kept.neighbourCount, 0U);
  EXPECT_EQ(kept.freeNeighbours, 0U);
  for (const auto* neighbour : kept.neighbours) EXPECT_EQ(neighbour, nullptr);
}

TEST(sglTriStripper, builds_no_strips) {
  OpenStripper stripper;
  stripper.addPolyFace(polygon({0, 1, 2, 3, 4, 5, 6, 7}));
  EXPECT_TRUE(stripper.getStrips().empty());
  EXPECT_TRUE(stripper.m_stripScratch.empty());
  EXPECT_TRUE(stripper.m_donetrilist.empty());
  for (const auto& list : stripper.m_adjtrilist) EXPECT_TRUE(list.empty());
}

TEST(sglTriStripper, ends_in_silence_when_its_lists_are_empty) {
  const embedded::MessageRecorder recorder(false);
  { OpenStripper nothing; }
  {
    OpenStripper full;
    full.addPolyFace(polygon({0, 1, 2}));
    full.m_strips.push_back(polygon({0, 1, 2, 3}));
    full.m_stripScratch = polygon({1});
  }
  EXPECT_EQ(texts(recorder), "");
}

TEST(sglTriStripper, reports_each_list_that_should_have_been_empty) {
  const embedded::MessageRecorder recorder(false);
  {
    OpenStripper stripper;
    const auto record = [&] { return stripper.newTriangle({0, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0}); };
    stripper.m_donetrilist.append(record());
    for (auto& list : stripper.m_adjtrilist) list.append(record());
    stripper.m_adjtrilist[2].append(record());
  }
  EXPECT_EQ(texts(recorder),
            "1[sglTriStripper logic error: m_donetrilist not empty\n]"
            "1[sglTriStripper logic error: m_adjtrilist[0] not empty\n]"
            "1[sglTriStripper logic error: m_adjtrilist[1] not empty\n]"
            "1[sglTriStripper logic error: m_adjtrilist[2] not empty\n]"
            "1[sglTriStripper logic error: m_adjtrilist[3] not empty \n]");
}

TEST(sglTriStripper, uses_given_up_records_again) {
  const embedded::MessageRecorder recorder(false);
  OpenStripper stripper;
  auto* first = stripper.newTriangle({0, 0, 0, 0}, {0, 0, 0, 0}, {2, 0, 0, 0});
  auto* second = stripper.newTriangle({1, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0});
  stripper.addTriangleFace(first);
  stripper.addTriangleFace(second);
  EXPECT_EQ(stripper.newTriangle({0, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0}), second);
  EXPECT_EQ(stripper.newTriangle({0, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0}), first);
}

}  // namespace
