#include <VekSG/sglCube.h>
#include <VekSG/sglTransform.h>

#include "embedded/LoaderSettings.h"
#include "tests/import/ImportTest.h"

namespace {

using importtest::dumpList;
using importtest::dumpStates;
using importtest::faceSet;
using importtest::Loaded;
using importtest::OpenLoader;
using importtest::shape;
using importtest::triangleShape;

class ShapeGeometry : public importtest::ImportTest {};

constexpr const char* kDegenerateFace = "2[sglTriStripper::addPolyFace() warning: ignoring degenerate face\n]";
constexpr const char* kDegenerateTriangle =
    "2[sglTriStripper::addTriangleFace() warning: ignoring degenerate triangle\n]";

TEST_F(ShapeGeometry, puts_shapes_into_geodes) {
  const std::string s = triangleShape();
  const struct {
    const char* name;
    std::string world;
    const char* scene;
    std::string report;
  } rows[] = {
      {"a shape at the top", s, "Transform(Geode{0 1 2})", ""},
      {"shapes at the top share a geode", s + "Transform { } " + s, "Transform(Geode{0 1 2, 0 1 2} Transform(Geode{}))",
       ""},
      {"a geode that is not in front is not shared", "Switch { } " + s + s,
       "Transform(Switch<-2>() Geode{0 1 2} Geode{0 1 2})", ""},
      {"a shape without geometry", "Group { } Shape { appearance Appearance { } }", "Transform(Group(Geode{}))", ""},
      {"an empty shape", "Group { } Shape { }", "Transform(Group(Geode{}))", ""},
      {"an elevation grid", shape("", "ElevationGrid { }"), "Transform(Geode{})",
       "2[ElevationGridNodes not yet supported.\n]"},
      {"an extrusion", shape("", "Extrusion { }"), "Transform(Geode{})", "2[ExtrusionNodes not yet supported.\n]"},
      {"a line set", shape("", "IndexedLineSet { }"), "Transform(Geode{})",
       "2[IndexedLineSetNodes not yet supported.\n]"},
      {"a point set", shape("", "PointSet { }"), "Transform(Geode{})", "2[PointSetNodes not yet supported.\n]"},
      {"a text", shape("", "Text { string \"x\" }"), "Transform(Geode{})", ""},
      {"a face set without coordinates", shape("", "IndexedFaceSet { coordIndex [ 0 1 2 -1 ] }") + "Group { }",
       "Transform(Group(Geode{}))", "2[No Coordinate Nodes in IndexedFaceSet\n]"},
      {"a face set without coordinates in a group",
       "Group { children [ " + s + shape("", "IndexedFaceSet { }") + " ] }", "Transform(Group(Geode{0 1 2}))",
       "2[No Coordinate Nodes in IndexedFaceSet\n]"},
      {"the first of two geometries", "Shape { geometry Box { } geometry Sphere { } }",
       "Transform(Transform(Geode{Cube<2 2 2>}))", ""},
      {"an appearance behind its geometry, converted before it",
       "Shape { geometry PointSet { } appearance Appearance { texture ImageTexture { url \"x\" } } }",
       "Transform(Geode{})", "2[Texture: x not found.\n]2[PointSetNodes not yet supported.\n]"},
      {"no face is closed", faceSet("coordIndex [ 0 1 2 ]"), "Transform(Geode{})", ""},
      {"no index", faceSet(""), "Transform(Geode{})", ""},
      {"no points", shape("", "IndexedFaceSet { coord Coordinate { } coordIndex [ 0 1 2 -1 ] }"), "Transform(Geode{})",
       "2[IndexedFaceSet: 1 faces with coordinate indices out of range ignored.\n]"},
      {"two empty faces", faceSet("coordIndex [ -1 -1 ]"), "Transform(Geode{})",
       std::string(kDegenerateFace) + kDegenerateFace},
      {"only degenerate triangles", faceSet("coordIndex [ 0 0 1 -1 ]"), "Transform(Geode{})", kDegenerateTriangle},
      {"faces out of range are reported last", faceSet("coordIndex [ 0 1 4 -1 0 0 1 -1 -1 0 1 2 -1 9 9 -1 ]"),
       "Transform(Geode{0 1 2})",
       std::string(kDegenerateTriangle) + kDegenerateFace +
           "2[IndexedFaceSet: 2 faces with coordinate indices out of range ignored.\n]"},
      {"a used shape", "DEF s " + s + "USE s", "Transform(Geode{0 1 2, 0 1 2})", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Loaded loaded = load(row.world);
    EXPECT_EQ(loaded.text(), row.scene);
    EXPECT_EQ(loaded.report(), row.report);
  }
}

TEST_F(ShapeGeometry, counts_faces_triangles_and_materials) {
  const Loaded loaded = load(shape(
      "material Material { }",
      "IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0, 1 1 0, 2 0 0, 2 1 0, 2 2 0, 1 2 0, 0 2 0 ] }"
      "coordIndex [ 0 1 2 -1 0 2 3 -1 4 5 6 7 8 -1 0 1 3 2 -1 0 1 99 -1 ] }"));
  EXPECT_EQ(loaded.statistic("Num S.Tris"), 3);
  EXPECT_EQ(loaded.statistic("Num S.Quads"), 1);
  EXPECT_EQ(loaded.statistic("Num S.Polygons"), 1);
  EXPECT_EQ(loaded.statistic("Num Indep Tris"), 7);
  EXPECT_EQ(loaded.statistic("Num Strips"), 0);
  EXPECT_EQ(loaded.statistic("Num Materials"), 1);
}

TEST_F(ShapeGeometry, without_a_geometry_an_appearance_is_not_converted) {
  const Loaded loaded =
      load("Shape { appearance Appearance { material Material { } texture ImageTexture { url \"x\" } } } Group { }");
  EXPECT_EQ(loaded.report(), "");
  EXPECT_EQ(loaded.statistic("Num Materials"), 0);
}

TEST_F(ShapeGeometry, without_coordinates_an_appearance_is_converted_all_the_same) {
  const Loaded loaded =
      load(shape("material Material { } texture ImageTexture { url \"x\" }", "IndexedFaceSet { }") + "Group { }");
  EXPECT_EQ(loaded.report(), "2[Texture: x not found.\n]2[No Coordinate Nodes in IndexedFaceSet\n]");
  EXPECT_EQ(loaded.statistic("Num Materials"), 1);
}

TEST_F(ShapeGeometry, hands_the_host_the_lists_of_the_file) {
  const Loaded loaded =
      load(faceSet("coordIndex [ 3 1 2 -1 0 1 2 3 -1 ] "
                   "normal Normal { vector [ 0 0 1, 0 1 0, 1 0 0 ] } normalIndex [ 2 1 0 -1 0 0 0 1 -1 ] "
                   "color Color { color [ 1 0 0, 0 0.5 0.25 ] } colorPerVertex FALSE colorIndex [ 1 0 ] "
                   "texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1, 0 1 ] } texCoordIndex [ 0 1 2 -1 3 2 1 0 -1 ]",
                   "texture PixelTexture { image 1 1 3 0xFF0000 }"));
  const sglIndexedTriangleSet& set = loaded.triangles();
  EXPECT_EQ(set.getNumPrims(), 3U);
  EXPECT_EQ(dumpList(set.getCoordList()), "0 0 0 1 0 0 1 1 0 0 1 0");
  EXPECT_EQ(dumpList(set.getCoordIndexList()), "3 1 2 0 1 3 3 1 2");
  EXPECT_EQ(dumpList(set.getNormalList()), "0 0 1 0 1 0 1 0 0");
  EXPECT_EQ(dumpList(set.getNormalIndexList()), "2 1 0 0 0 1 1 0 0");
  EXPECT_EQ(set.getNormalBinding(), 3U);
  EXPECT_EQ(dumpList(set.getColorList()), "1 0 0 1 0 0.5 0.25 1");
  EXPECT_EQ(dumpList(set.getColorIndexList()), "1 1 1 0 0 0 0 0 0");
  EXPECT_EQ(set.getColorBinding(), 3U);
  EXPECT_EQ(dumpList(set.getTexCoordIndexList()), "0 1 2 3 2 0 0 2 1");
  ASSERT_EQ(set.getState(0)->getTexCoordList().size(), 1U);
  const sglTexCoords& texCoords = set.getState(0)->getTexCoordList()[0];
  EXPECT_EQ(dumpList(texCoords.getDataPtr()), "0 0 1 0 1 1 0 1");
  EXPECT_EQ(texCoords.getType(), 0x1406U);
  EXPECT_EQ(texCoords.getNumComponents(), 2U);
  EXPECT_TRUE(set.isDisplayListEnabled());
}

TEST_F(ShapeGeometry, what_a_shape_lacks_gives_no_list) {
  constexpr const char* kPixel = "texture PixelTexture { image 1 1 3 0 }";
  const struct {
    const char* name;
    std::string world;
    const char* normals;
    const char* normalIndices;
    const char* colors;
    const char* texCoordIndices;
  } rows[] = {
      {"nothing", faceSet("coordIndex [ 2 1 0 -1 ]"), "none", "none", "none", "none"},
      {"nodes without values",
       faceSet("coordIndex [ 2 1 0 -1 ] normal Normal { } color Color { } normalIndex [ 0 0 0 -1 ]"
               "texCoord TextureCoordinate { }",
               kPixel),
       "none", "none", "none", "none"},
      {"indices without nodes", faceSet("coordIndex [ 2 1 0 -1 ] normalIndex [ 1 1 1 -1 ] colorIndex [ 1 1 1 -1 ]"),
       "none", "none", "none", "none"},
      {"texture coordinates without a texture",
       faceSet("coordIndex [ 2 1 0 -1 ] texCoord TextureCoordinate { point [ 0 0, 1 1, 2 2 ] }"), "none", "none",
       "none", "none"},
      {"texture coordinates with a texture",
       faceSet("coordIndex [ 2 1 0 -1 ] texCoord TextureCoordinate { point [ 0 0, 1 1, 2 2 ] }", kPixel), "none",
       "none", "none", "2 1 0"},
      {"a texture without texture coordinates", faceSet("coordIndex [ 2 1 0 -1 ]", kPixel), "none", "none", "none",
       "none"},
      {"normals by the face's number",
       faceSet("coordIndex [ 2 1 0 -1 0 1 3 -1 ] normalPerVertex FALSE normal Normal { vector [ 0 0 1, 0 1 0 ] }"),
       "0 0 1 0 1 0", "0 0 0 1 1 1", "none", "none"},
      {"colours by the coordinate index, one out of range",
       faceSet("coordIndex [ 2 1 0 -1 ] color Color { color [ 1 0 0, 0 1 0 ] }"), "none", "none", "1 0 0 1 0 1 0 1",
       "none"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Loaded loaded = load(row.world);
    const sglIndexedTriangleSet& set = loaded.triangles();
    EXPECT_EQ(dumpList(set.getNormalList()), row.normals);
    EXPECT_EQ(dumpList(set.getNormalIndexList()), row.normalIndices);
    EXPECT_EQ(set.getNormalBinding(), set.getNormalList() ? sglGeoSet::BIND_PER_VERTEX : sglGeoSet::BIND_OFF);
    EXPECT_EQ(dumpList(set.getColorList()), row.colors);
    EXPECT_EQ(set.getColorBinding(), set.getColorList() ? sglGeoSet::BIND_PER_VERTEX : sglGeoSet::BIND_OFF);
    EXPECT_EQ(set.getColorIndexList() != nullptr, set.getColorList() != nullptr);
    EXPECT_EQ(dumpList(set.getTexCoordIndexList()), row.texCoordIndices);
    ASSERT_NE(set.getState(0), nullptr);
    EXPECT_EQ(set.getState(0)->getTexCoordList().empty(), set.getTexCoordIndexList() == nullptr);
  }
}

TEST_F(ShapeGeometry, shapes_that_use_one_list_share_the_hosts) {
  const Loaded loaded = load(
      shape(
          "",
          "IndexedFaceSet { coord DEF c Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } "
          "normal DEF n Normal { vector [ 0 0 1, 0 0 1, 0 0 1 ] } color DEF k Color { color [ 1 0 0, 1 0 0, 1 0 0 ] } "
          "coordIndex [ 0 1 2 -1 ] }") +
      shape("", "IndexedFaceSet { coord USE c normal USE n color USE k coordIndex [ 2 1 0 -1 ] }") +
      shape("", "IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 2 1 -1 ] }"));
  EXPECT_EQ(loaded.text(), "Transform(Geode{0 1 2, 2 1 0, 0 2 1})");
  EXPECT_EQ(loaded.triangles(0).getCoordList(), loaded.triangles(1).getCoordList());
  EXPECT_EQ(loaded.triangles(0).getNormalList(), loaded.triangles(1).getNormalList());
  EXPECT_EQ(loaded.triangles(0).getColorList(), loaded.triangles(1).getColorList());
  EXPECT_NE(loaded.triangles(0).getCoordList(), loaded.triangles(2).getCoordList());
  EXPECT_EQ(dumpList(loaded.triangles(1).getCoordList()), "0 0 0 1 0 0 0 1 0");
}

TEST_F(ShapeGeometry, states_follow_solid_and_ccw) {
  const struct {
    const char* fields;
    const char* states;
  } rows[] = {
      {"", "Lighting Material<0.8 0.8 0.8 / 1>"},
      {"solid TRUE ccw TRUE", "Lighting Material<0.8 0.8 0.8 / 1>"},
      {"solid FALSE", "Lighting Material<0.8 0.8 0.8 / 1> CullMode<1>"},
      {"ccw FALSE", "Lighting Material<0.8 0.8 0.8 / 1> FrontFace<2304>"},
      {"ccw FALSE solid FALSE", "Lighting Material<0.8 0.8 0.8 / 1> CullMode<1> FrontFace<2304>"},
      {"convex FALSE creaseAngle 3", "Lighting Material<0.8 0.8 0.8 / 1>"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.fields);
    const Loaded loaded = load(faceSet("coordIndex [ 0 1 2 -1 ] " + std::string(row.fields), "material Material { }"));
    EXPECT_EQ(dumpStates(loaded.drawable()), row.states);
  }
}

TEST_F(ShapeGeometry, counts_strips_by_their_lengths) {
  class StripLoader : public OpenLoader {
   public:
    using sglLoadFile_wrl::countFaces;
  };
  StripLoader loader;
  importer::Primitives primitives;
  primitives.numTriangles = 1;
  primitives.stripLengths = new sglDataPtr(std::vector<std::uint32_t>{5, 3});
  loader.countFaces({}, primitives);
  EXPECT_EQ(loader.m_numStrips, 2);
  EXPECT_EQ(loader.m_minStripLength, 3);
  EXPECT_EQ(loader.m_maxStripLength, 5);
  EXPECT_EQ(loader.m_sumStripLength, 8);
  EXPECT_EQ(loader.m_numIndepTris, 1);
}

TEST_F(ShapeGeometry, uses_of_a_face_set_share_its_lists) {
  const Loaded loaded =
      load("DEF s " + faceSet("coordIndex [ 0 1 2 3 -1 ] normal Normal { vector 0 0 1 } normalIndex [ 0 0 0 0 -1 ]") +
           "USE s Group { children [ USE s ] }");
  EXPECT_EQ(loaded.text(), "Transform(Geode{0 1 3 3 1 2, 0 1 3 3 1 2} Group(Geode{0 1 3 3 1 2}))");
  for (unsigned i = 1; i < 3; ++i) {
    EXPECT_EQ(loaded.triangles(0).getCoordList(), loaded.triangles(i).getCoordList());
    EXPECT_EQ(loaded.triangles(0).getCoordIndexList(), loaded.triangles(i).getCoordIndexList());
    EXPECT_EQ(loaded.triangles(0).getNormalIndexList(), loaded.triangles(i).getNormalIndexList());
  }
  EXPECT_EQ(loaded.statistic("Num S.Quads"), 3);
  EXPECT_EQ(loaded.statistic("Num Indep Tris"), 6);
}

TEST_F(ShapeGeometry, what_differs_between_uses_is_not_shared) {
  const Loaded loaded = load(
      "Shape { geometry DEF f IndexedFaceSet { " + std::string(importtest::kPoints) +
      " coordIndex [ 0 1 2 -1 ] texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1 ] } texCoordIndex [ 2 1 0 -1 ] } }" +
      shape("texture PixelTexture { image 1 1 3 0 }", "USE f") + shape("", "USE f"));
  EXPECT_EQ(dumpList(loaded.triangles(0).getTexCoordIndexList()), "none");
  EXPECT_EQ(dumpList(loaded.triangles(1).getTexCoordIndexList()), "2 1 0");
  EXPECT_EQ(dumpList(loaded.triangles(2).getTexCoordIndexList()), "none");
  EXPECT_EQ(loaded.triangles(0).getCoordList(), loaded.triangles(2).getCoordList());
}

TEST_F(ShapeGeometry, every_use_is_reported_and_counted_like_its_source) {
  const Loaded degenerate = load("DEF s " + faceSet("coordIndex [ 0 0 1 -1 0 1 2 -1 ]") + "USE s");
  EXPECT_EQ(degenerate.text(), "Transform(Geode{0 1 2, 0 1 2})");
  EXPECT_EQ(degenerate.report(), std::string(kDegenerateTriangle) + kDegenerateTriangle);
  EXPECT_EQ(degenerate.statistic("Num S.Tris"), 4);

  const std::string outOfRange = "2[IndexedFaceSet: 1 faces with coordinate indices out of range ignored.\n]";
  EXPECT_EQ(load("DEF s " + faceSet("coordIndex [ 0 1 9 -1 0 1 2 -1 ]") + "USE s").report(), outOfRange + outOfRange);
}

TEST_F(ShapeGeometry, makes_host_primitives) {
  const struct {
    const char* geometry;
    const char* scene;
    float matrix[16];
  } rows[] = {
      {"Box { size 2 4 6 }",
       "Transform(Transform(Geode{Cube<2 4 6>}))",
       {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -1, -2, -3, 1}},
      {"Box { }", "Transform(Transform(Geode{Cube<2 2 2>}))", {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -1, -1, -1, 1}},
      {"Cone { height 3 bottomRadius 0.5 }",
       "Transform(Transform(Geode{Cone<60 3 0.5>}))",
       {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, -1.5, 0, 1}},
      {"Cylinder { height 4 radius 0.25 }",
       "Transform(Transform(Geode{Cylinder<80 10 4 0.25 0.25 1>}))",
       {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 2, 0, 1}},
      {"Cylinder { top FALSE bottom FALSE side FALSE }",
       "Transform(Transform(Geode{Cylinder<80 10 2 1 1 1>}))",
       {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 1, 0, 1}},
      {"Sphere { radius 3 }",
       "Transform(Transform(Geode{Sphere<100 30 3>}))",
       {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, -1.5, 1.5, -1.5, 1}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.geometry);
    const Loaded loaded = load(shape("", row.geometry));
    EXPECT_EQ(loaded.text(), row.scene);
    EXPECT_EQ(dumpStates(loaded.drawable()), "Lighting");
    EXPECT_FALSE(loaded.drawable()->isDisplayListEnabled());
    EXPECT_EQ(dynamic_cast<const sglGeoSet&>(*loaded.drawable()).getColorList(), nullptr);
    const auto& transform = dynamic_cast<const sglTransform<float>&>(*loaded.scene()->getChild(0));
    for (unsigned place = 0; place < 16; ++place)
      EXPECT_NEAR(transform.getMatrix()[place], row.matrix[place], 1e-6F) << place;
  }
}

TEST_F(ShapeGeometry, cuts_primitives_as_finely_as_the_host_wants) {
  const struct {
    float refinement;
    const char* cone;
    const char* cylinder;
    const char* sphere;
  } rows[] = {
      {1.0F, "Cone<60", "Cylinder<80 10", "Sphere<100 30"},
      {0.0F, "Cone<15", "Cylinder<20 2", "Sphere<25 7"},
      {0.75F, "Cone<48", "Cylinder<65 8", "Sphere<81 24"},
      {-1.0F, "Cone<0", "Cylinder<0 0", "Sphere<0 0"},
      {1e30F, "Cone<4.29497e+09", "Cylinder<4.29497e+09 4.29497e+09", "Sphere<4.29497e+09 4.29497e+09"},
      {std::numeric_limits<float>::quiet_NaN(), "Cone<0", "Cylinder<0 0", "Sphere<0 0"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.refinement);
    embedded::loaderSettings().refinement = row.refinement;
    EXPECT_NE(load(shape("", "Cone { }")).text().find(row.cone + std::string(" ")), std::string::npos);
    EXPECT_NE(load(shape("", "Cylinder { }")).text().find(row.cylinder + std::string(" ")), std::string::npos);
    EXPECT_NE(load(shape("", "Sphere { }")).text().find(row.sphere + std::string(" ")), std::string::npos);
  }
}

TEST_F(ShapeGeometry, a_primitive_has_its_materials_colour_over_all) {
  for (const char* geometry : {"Box { }", "Cone { }", "Cylinder { }", "Sphere { }"}) {
    SCOPED_TRACE(geometry);
    const Loaded loaded = load(shape("material Material { diffuseColor 1 0.5 0.25 transparency 0.5 }", geometry));
    const auto& primitive = dynamic_cast<const sglGeoSet&>(*loaded.drawable());
    EXPECT_EQ(dumpList(primitive.getColorList()), "1 0.5 0.25 1");
    EXPECT_EQ(primitive.getColorBinding(), 1U);
    EXPECT_EQ(dumpStates(&primitive), "Lighting Material<1 0.5 0.25 / 0.5>");
  }
}

TEST_F(ShapeGeometry, a_primitive_takes_the_shared_geode_under_its_transform) {
  const std::string s = triangleShape();
  const struct {
    const char* name;
    std::string world;
    const char* scene;
  } rows[] = {
      {"alone in a named group", "DEF g Group { children Shape { geometry Box { } } }",
       "Transform(Group:g(Transform(Geode:g{Cube<2 2 2>})))"},
      {"behind a face set", "Group { children [ " + s + " Shape { geometry Box { } } ] }",
       "Transform(Group(Transform(Geode{0 1 2, Cube<2 2 2>})))"},
      {"behind other groups", "Group { children [ LOD { } Shape { geometry Box { } } ] }",
       "Transform(Group(LOD<0 1e+07>() Transform(Geode{Cube<2 2 2>})))"},
      {"before a face set, which needs a geode of its own then",
       "Group { children [ Shape { geometry Box { } } " + s + " ] }",
       "Transform(Group(Transform(Geode{Cube<2 2 2>}) Geode{0 1 2}))"},
      {"two primitives", "Group { children [ Shape { geometry Box { } } Shape { geometry Sphere { } } ] }",
       "Transform(Group(Transform(Geode{Cube<2 2 2>}) Transform(Geode{Sphere<100 30 1>})))"},
      {"at the top behind a face set", s + "Shape { geometry Box { } }",
       "Transform(Transform(Geode{0 1 2, Cube<2 2 2>}))"},
      {"in a level of detail", "LOD { level [ Shape { geometry Box { } } Shape { geometry Box { } } ] }",
       "Transform(LOD<0 1e+07>(Transform(Geode{Cube<2 2 2>}) Transform(Geode{Cube<2 2 2>})))"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(load(row.world).text(), row.scene);
  }
}

}  // namespace
