// Triangles of every kind of geo-set, and of broken ones.

#include "embedded/TriangleReader.h"

#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglTriangleSet.h>
#include <gtest/gtest.h>

#include "embedded/Tessellation.h"
#include "tests/embedded/SceneFixtures.h"

namespace {

using Unsigneds = std::vector<std::uint32_t>;

sglDataPtr* points(std::size_t count) { return new sglDataPtr(std::vector<float>(count * 3, 1.0F)); }

std::string numberText(std::uint32_t index) { return index == embedded::kNoIndex ? "-" : std::to_string(index); }

// All triangles: positions, or all four numbers of each corner.
std::string triangles(const sglGeoSet& set, bool full = false) {
  embedded::TriangleReader reader(set);
  embedded::Triangle triangle;
  std::string text;
  while (reader.next(triangle)) {
    for (const embedded::Corner& corner : triangle) {
      text += numberText(corner.coord);
      if (full)
        text += "/" + numberText(corner.normal) + "/" + numberText(corner.color) + "/" + numberText(corner.texCoord);
      text += ' ';
    }
    text.back() = ';';
  }
  return text;
}

TEST(TriangleReader, TrianglesWithoutIndicesAreNumbered) {
  sglTriangleSet set;
  set.setNumPrims(2);
  set.setCoordList(points(6));
  EXPECT_EQ(triangles(set), "0 1 2;3 4 5;");
  set.setCoordList(points(5));
  EXPECT_EQ(triangles(set), "0 1 2;");
  EXPECT_EQ(embedded::countTriangles(&set), 1U);
}

TEST(TriangleReader, IndexedTrianglesAreReadAsFarAsTheListGoes) {
  sglIndexedTriangleSet set;
  set.setNumPrims(4'000'000'000U);
  set.setCoordList(points(4));
  set.setCoordIndexList(new sglDataPtr(Unsigneds{0, 1, 2, 2, 1, 4, 2, 1, 3, 0}));
  EXPECT_EQ(triangles(set), "0 1 2;2 1 3;");
  EXPECT_EQ(embedded::countTriangles(&set), 3U);
  set.setNumPrims(1);
  EXPECT_EQ(triangles(set), "0 1 2;");
}

TEST(TriangleReader, StripsSwapEveryOtherTriangleAndBeginAgain) {
  sglIndexedTriangleStripSet set;
  set.setNumPrims(3);
  set.setCoordList(points(10));
  set.setCoordIndexList(new sglDataPtr(Unsigneds{0, 1, 2, 3, 4, 9, 9, 5, 6, 7, 8}));
  set.setPrimLengths(new sglDataPtr(Unsigneds{5, 2, 4}));
  EXPECT_EQ(triangles(set), "0 1 2;1 3 2;2 3 4;5 6 7;6 8 7;");
  EXPECT_EQ(embedded::countTriangles(&set), 5U);
}

TEST(TriangleReader, StripLengthsMayLie) {
  sglMonoIndexedTriangleStripSet set;
  set.setNumPrims(9);
  set.setCoordList(points(4));
  set.setCoordIndexList(new sglDataPtr(Unsigneds{0, 1, 2, 3}));
  set.setPrimLengths(new sglDataPtr(Unsigneds{0, 1, 4294967295U, 4294967295U, 5}));
  EXPECT_EQ(triangles(set), "1 2 3;");
  EXPECT_EQ(embedded::countTriangles(&set), 1U);
  set.setPrimLengths(nullptr);
  EXPECT_EQ(triangles(set), "");
  EXPECT_EQ(embedded::countTriangles(&set), 0U);
}

TEST(TriangleReader, ListsThatAreMissingOrOfTheWrongKindGiveNothing) {
  sglIndexedTriangleSet set;
  set.setNumPrims(1);
  EXPECT_EQ(triangles(set), "");
  set.setCoordList(points(3));
  EXPECT_EQ(triangles(set), "");
  set.setCoordIndexList(new sglDataPtr(std::vector<float>{0, 1, 2}));
  EXPECT_EQ(triangles(set), "");
  set.setCoordList(new sglDataPtr(Unsigneds{0, 1, 2, 3, 4, 5, 6, 7, 8}));
  set.setCoordIndexList(new sglDataPtr(Unsigneds{0, 1, 2}));
  EXPECT_EQ(triangles(set), "");
  EXPECT_EQ(embedded::countTriangles(nullptr), 0U);
}

TEST(TriangleReader, EveryListFindsItsValueByItsBinding) {
  sglIndexedTriangleSet set;
  set.setNumPrims(2);
  set.setCoordList(points(4));
  set.setCoordIndexList(new sglDataPtr(Unsigneds{0, 1, 2, 0, 2, 3}));
  set.setNormalList(points(2), sglGeoSet::BIND_PER_PRIM);
  set.setColorList(new sglDataPtr(std::vector<float>(4)), sglGeoSet::BIND_OVERALL);
  set.setState(0, {}, sglTexCoords(new sglDataPtr(std::vector<float>(8)), sglTexCoords::FLOAT, 2));
  set.setTexCoordIndexList(new sglDataPtr(Unsigneds{3, 2, 1, 0, 9}));
  EXPECT_EQ(triangles(set, true), "0/0/0/3 1/0/0/2 2/0/0/1;0/1/0/0 2/1/0/- 3/1/0/-;");
  set.setNormalList(points(4), sglGeoSet::BIND_PER_VERTEX);
  set.setColorList(new sglDataPtr(std::vector<float>(16)), sglGeoSet::BIND_PER_VERTEX);
  set.setColorIndexList(new sglDataPtr(Unsigneds{3, 3, 3, 2, 2, 2}));
  set.setTexCoordIndexList(nullptr);
  EXPECT_EQ(triangles(set, true), "0/0/3/0 1/1/3/1 2/2/3/2;0/0/2/0 2/2/2/2 3/3/2/3;");
  set.setNormalList(points(4), sglGeoSet::BIND_OFF);
  set.setColorList(nullptr, sglGeoSet::BIND_PER_VERTEX);
  set.setState(0, {});
  EXPECT_EQ(triangles(set, true), "0/-/-/- 1/-/-/- 2/-/-/-;0/-/-/- 2/-/-/- 3/-/-/-;");
}

TEST(TriangleSets, StripsBecomeIndexedTrianglesWithTheSameCorners) {
  sglIndexedTriangleStripSet strips;
  strips.setNumPrims(1);
  strips.setCoordList(points(4));
  strips.setCoordIndexList(new sglDataPtr(Unsigneds{3, 2, 1, 0}));
  strips.setPrimLengths(new sglDataPtr(Unsigneds{4}));
  strips.setNormalList(points(2), sglGeoSet::BIND_PER_VERTEX);
  strips.setNormalIndexList(new sglDataPtr(Unsigneds{0, 1, 0, 1}));
  strips.setColorList(new sglDataPtr(std::vector<float>(4)), sglGeoSet::BIND_PER_PRIM);
  strips.setName("s");
  const auto set = embedded::Tessellator().triangleSetOf(&strips);
  EXPECT_EQ(set->getNumPrims(), 2U);
  EXPECT_EQ(set->getCoordList(), strips.getCoordList());
  EXPECT_EQ(fixtures::unsignedsOf(set->getCoordIndexList()), (Unsigneds{3, 2, 1, 2, 0, 1}));
  EXPECT_EQ(fixtures::unsignedsOf(set->getNormalIndexList()), (Unsigneds{0, 1, 0, 1, 1, 0}));
  EXPECT_EQ(fixtures::unsignedsOf(set->getColorIndexList()), (Unsigneds{0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(set->getColorBinding(), sglGeoSet::BIND_PER_VERTEX);
  EXPECT_EQ(set->getTexCoordIndexList(), nullptr);
  EXPECT_EQ(set->getName(), "s");
}

TEST(TriangleSets, IndexedTrianglesShareEveryList) {
  const auto source = fixtures::triangle();
  const auto set = embedded::Tessellator().triangleSetOf(source.get());
  EXPECT_EQ(set->getCoordIndexList(), source->getCoordIndexList());
  EXPECT_EQ(set->getNormalIndexList(), source->getNormalIndexList());
  EXPECT_EQ(set->getNormalList(), source->getNormalList());
  EXPECT_TRUE(set->isDisplayListEnabled());
  EXPECT_EQ(set->getState(0)->getStatelets()[0].get(), source->getState(0)->getStatelets()[0].get());
}

TEST(TriangleSets, NullGivesNull) { EXPECT_EQ(embedded::Tessellator().triangleSetOf(nullptr), nullptr); }

}  // namespace
