#include "import/GeoSets.h"

#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglLighting.h>
#include <gtest/gtest.h>

#include "tests/import/ImportTest.h"

namespace {

using importer::CornerLists;
using importer::FaceSet;
using importtest::dumpList;

class OpenStripper : public importer::Stripper {
 public:
  using importer::Stripper::m_strips;
};

sglRef<sglDataPtr> list(std::vector<float> values) { return new sglDataPtr(std::move(values)); }

const std::vector<importer::Vec3> kTriples(1);
const std::vector<importer::Vec2> kPairs(1);

CornerLists coordsOnly() {
  CornerLists values;
  values.coords = list({1, 2, 3});
  return values;
}

/// A face set that has values of every kind.
FaceSet fullFaceSet() { return {{}, {kTriples}, {{kTriples}, {}, true}, {{kPairs}, {}, true}, {{kTriples}, {}, true}}; }

CornerLists allValues() {
  CornerLists values = coordsOnly();
  values.normals = list({4, 5, 6});
  values.texCoords = list({7, 8});
  values.colors = list({9, 9, 9, 1});
  return values;
}

FaceSet bareFaceSet() {
  FaceSet faceSet;
  faceSet.points = {kTriples};
  return faceSet;
}

TEST(GeoSets, strips_become_one_strip_set) {
  OpenStripper stripper;
  stripper.m_strips.push_back({{0, 10, 20, 30}, {1, 11, 21, 31}, {2, 12, 22, 32}});
  stripper.m_strips.push_back({{2, 12, 22, 32}, {1, 11, 21, 31}, {3, 13, 23, 33}, {4, 14, 24, 34}});
  const CornerLists values = allValues();
  const sglStateletList states = {new sglLighting(true)};
  sglGeode geode;
  importer::addGeoSets(geode, importer::primitivesOf(stripper, fullFaceSet()), values, states);

  ASSERT_EQ(geode.getNumGeometries(), 1U);
  const auto* set = dynamic_cast<const sglIndexedTriangleStripSet*>(geode.getGeometry(0));
  ASSERT_NE(set, nullptr);
  EXPECT_EQ(set->getNumPrims(), 2U);
  EXPECT_EQ(dumpList(set->getPrimLengths()), "3 4");
  EXPECT_EQ(dumpList(set->getCoordIndexList()), "0 1 2 2 1 3 4");
  EXPECT_EQ(dumpList(set->getNormalIndexList()), "10 11 12 12 11 13 14");
  EXPECT_EQ(dumpList(set->getTexCoordIndexList()), "20 21 22 22 21 23 24");
  EXPECT_EQ(dumpList(set->getColorIndexList()), "30 31 32 32 31 33 34");
  EXPECT_EQ(set->getCoordList(), values.coords.get());
  EXPECT_EQ(set->getNormalList(), values.normals.get());
  EXPECT_EQ(set->getNormalBinding(), 3U);
  EXPECT_EQ(set->getColorList(), values.colors.get());
  EXPECT_EQ(set->getColorBinding(), 3U);
  EXPECT_EQ(importtest::dumpStates(set), "Lighting");
  ASSERT_EQ(set->getState(0)->getTexCoordList().size(), 1U);
  EXPECT_EQ(set->getState(0)->getTexCoordList()[0].getDataPtr(), values.texCoords.get());
  EXPECT_TRUE(set->getState(0)->getTexCoordList()[0].isValid());
  EXPECT_TRUE(set->isDisplayListEnabled());
}

TEST(GeoSets, a_strip_set_has_no_lists_that_the_shape_lacks) {
  OpenStripper stripper;
  stripper.m_strips.push_back({{0, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0}});
  sglGeode geode;
  importer::addGeoSets(geode, importer::primitivesOf(stripper, bareFaceSet()), coordsOnly(), {});
  const auto& set = dynamic_cast<const sglIndexedTriangleStripSet&>(*geode.getGeometry(0));
  EXPECT_EQ(dumpList(set.getCoordIndexList()), "0 1 2");
  EXPECT_EQ(set.getNormalList(), nullptr);
  EXPECT_EQ(set.getNormalIndexList(), nullptr);
  EXPECT_EQ(set.getNormalBinding(), sglGeoSet::BIND_OFF);
  EXPECT_EQ(set.getColorList(), nullptr);
  EXPECT_EQ(set.getColorIndexList(), nullptr);
  EXPECT_EQ(set.getColorBinding(), sglGeoSet::BIND_OFF);
  EXPECT_EQ(set.getTexCoordIndexList(), nullptr);
  EXPECT_TRUE(set.getState(0)->getTexCoordList().empty());
}

TEST(GeoSets, triangles_become_one_triangle_set) {
  OpenStripper stripper;
  stripper.addPolyFace(
      std::vector<sglVertStructVNTC>{{0, 10, 20, 30}, {1, 11, 21, 31}, {2, 12, 22, 32}, {3, 13, 23, 33}});
  const CornerLists values = allValues();
  sglGeode geode;
  importer::addGeoSets(geode, importer::primitivesOf(stripper, fullFaceSet()), values, {});
  const auto& set = dynamic_cast<const sglIndexedTriangleSet&>(*geode.getGeometry(0));
  EXPECT_EQ(set.getNumPrims(), 2U);
  EXPECT_EQ(dumpList(set.getCoordIndexList()), "0 1 3 3 1 2");
  EXPECT_EQ(dumpList(set.getNormalIndexList()), "10 11 13 13 11 12");
  EXPECT_EQ(dumpList(set.getTexCoordIndexList()), "20 21 23 23 21 22");
  EXPECT_EQ(dumpList(set.getColorIndexList()), "30 31 33 33 31 32");
  EXPECT_TRUE(set.isDisplayListEnabled());
}

TEST(GeoSets, strips_stand_before_the_triangles_that_share_their_values) {
  OpenStripper stripper;
  stripper.m_strips.push_back({{0, 0, 0, 0}, {1, 0, 0, 0}, {2, 0, 0, 0}, {3, 0, 0, 0}});
  stripper.addPolyFace(std::vector<sglVertStructVNTC>{{6, 0, 0, 0}, {7, 0, 0, 0}, {8, 0, 0, 0}});
  sglGeode geode;
  importer::addGeoSets(geode, importer::primitivesOf(stripper, bareFaceSet()), coordsOnly(), {});
  EXPECT_EQ(importtest::dump(&geode), "Geode{Strips<4>0 1 2 3, 6 7 8}");
  EXPECT_EQ(dynamic_cast<const sglGeoSet&>(*geode.getGeometry(0)).getCoordList(),
            dynamic_cast<const sglGeoSet&>(*geode.getGeometry(1)).getCoordList());
}

TEST(GeoSets, nothing_collected_adds_nothing) {
  sglGeode geode;
  importer::addGeoSets(geode, importer::primitivesOf(OpenStripper(), bareFaceSet()), {}, {});
  EXPECT_EQ(geode.getNumGeometries(), 0U);
}

}  // namespace
