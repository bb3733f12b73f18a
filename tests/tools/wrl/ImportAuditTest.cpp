// Every kind of finding can be provoked, reads as it should, and does not turn up where nothing is lost.

#include "tools/wrl/ImportAudit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/TempFolder.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {
namespace {

std::vector<AuditNote> audit(const std::string& world, const AuditOptions& options = {}) {
  const fixtures::TempFolder folder;
  vrml::SceneGraph scene;
  scene.load(folder.write("a.wrl", "#VRML V2.0 utf8\n" + world + "\n"), true);
  EXPECT_TRUE(scene.succeeded()) << scene.getErrorLineText();
  return auditImport(scene, options);
}

std::vector<std::string> linesOf(const std::vector<AuditNote>& notes) {
  std::vector<std::string> lines;
  for (const AuditNote& note : notes) lines.push_back(auditText(note));
  return lines;
}

// A face set of three points, with more of its fields.
std::string faceSet(const std::string& fields) {
  return "IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } " + fields + " }";
}
std::string shapeOf(const std::string& geometry) { return "Shape { geometry " + geometry + " } "; }
std::string textured(const std::string& texture) {
  return "Shape { appearance Appearance { texture " + texture + " } geometry Sphere { } } ";
}

struct Row {
  AuditKind kind;
  std::string world;
  std::vector<std::string> lines;
};

const std::vector<Row> kRows = {
    {AuditKind::unsupportedGeometry, shapeOf("ElevationGrid { }"), {"ElevationGrid is not converted"}},
    {AuditKind::unsupportedGeometry,
     shapeOf("DEF a Extrusion { }") + shapeOf("IndexedLineSet { }") + shapeOf("PointSet { }") + shapeOf("Text { }"),
     {"Extrusion \"a\" is not converted", "IndexedLineSet is not converted", "PointSet is not converted",
      "Text is not converted"}},
    {AuditKind::unsupportedGeometry, shapeOf("Text { }") + shapeOf("Text { }"), {"Text is not converted (2 nodes)"}},
    {AuditKind::shapeWithoutGeometry, "DEF s Shape { }", {"Shape \"s\" has no geometry and gives nothing"}},
    {AuditKind::misplacedNode,
     "Group { children [ DEF b Box { } ] } Appearance { material Material { } }",
     {"Box \"b\" stands where no Shape uses it and is not converted",
      "Appearance stands where no Shape uses it and is not converted"}},
    {AuditKind::surplusNode,
     "Shape { geometry Box { } geometry Cone { } }",
     {"Cone is not used, its Shape has another one"}},
    {AuditKind::surplusNode,
     "Shape { geometry Box { } appearance Appearance { texture ImageTexture { url \"a\" } "
     "texture PixelTexture { image 1 1 1 0 } } }",
     {"ImageTexture: image file \"a\" is not read", "PixelTexture is not used, its Appearance has another one"}},
    {AuditKind::surplusNode,
     "Shape { appearance Appearance { material Material { } material DEF m Material { } } geometry Box { } "
     "appearance Appearance { } }",
     {"Appearance is not used, its Shape has another one",
      "Material \"m\" is not used, its Appearance has another one"}},
    {AuditKind::strayNode,
     "Shape { geometry DEF m Material { } } Shape { appearance Appearance { texture DEF g Group { } } geometry " +
         faceSet("coordIndex [ 0 1 2 -1 ] normal DEF f FontStyle { }") + " }",
     {"Material \"m\" is not used, its Shape has no place for it", "Shape has no geometry and gives nothing",
      "Group \"g\" is not used, its Appearance has no place for it",
      "FontStyle \"f\" is not used, its IndexedFaceSet has no place for it"}},
    {AuditKind::noCoordinates,
     shapeOf("IndexedFaceSet { coordIndex [ 0 1 2 -1 ] }"),
     {"IndexedFaceSet has no Coordinate and gives nothing"}},
    {AuditKind::facesOutOfRange,
     shapeOf(faceSet("coordIndex [ 0 1 2 -1 0 1 3 -1 0 1 -7 -1 ]")),
     {"IndexedFaceSet: faces with coordinate indices out of range dropped: 2"}},
    {AuditKind::degenerateFaces,
     shapeOf("DEF f " + faceSet("coordIndex [ 0 1 -1 -1 ]")),
     {"IndexedFaceSet \"f\": faces of fewer than three corners dropped: 2"}},
    {AuditKind::degenerateTriangles,
     shapeOf(faceSet("coordIndex [ 0 1 1 -1 ]")),
     {"IndexedFaceSet: triangles that name a point twice dropped: 1"}},
    {AuditKind::openFaces,
     shapeOf(faceSet("coordIndex [ 0 1 2 ]")),
     {"IndexedFaceSet: corners of a face without a terminating -1 dropped: 3"}},
    {AuditKind::imageTexture, textured("ImageTexture { }"), {"ImageTexture: image file \"\" is not read"}},
    {AuditKind::imageTexture,
     textured("DEF t ImageTexture { url [ \"a.png\" \"b.png\" ] }"),
     {"ImageTexture \"t\": image file \"a.png\" is not read"}},
    {AuditKind::movieTexture, textured("MovieTexture { }"), {"MovieTexture is not read"}},
    {AuditKind::pixelTexture, textured("PixelTexture { }"), {"PixelTexture has no valid image and is not used"}},
    {AuditKind::pixelTexture,
     textured("PixelTexture { image 2 1 3 1 2 3 }") + textured("PixelTexture { image 1 1 5 0 }"),
     {"PixelTexture has no valid image and is not used (2 nodes)"}},
    {AuditKind::texturePixels,
     "Shape { appearance Appearance { texture DEF p PixelTexture { image 1 1 4 0 } } geometry " +
         faceSet("coordIndex [ 0 1 2 -1 ] texCoord TextureCoordinate { point 0 0 }") + " }",
     {"PixelTexture \"p\": its pixels are not handed to the texture"}},
    {AuditKind::textureCoordinates,
     shapeOf(faceSet("coordIndex [ 0 1 2 -1 ] texCoord TextureCoordinate { }")),
     {"IndexedFaceSet: texture coordinates of a shape without a texture dropped"}},
    {AuditKind::proxy,
     "Collision { proxy DEF p Shape { geometry Box { } } }",
     {"Collision: only its children are converted", "Shape \"p\" is the proxy of a Collision and is not converted"}},
    {AuditKind::fieldNotUsed,
     shapeOf("DEF c Cone { side FALSE }") + shapeOf("DEF d Cone { side FALSE bottom FALSE }") +
         shapeOf("Cylinder { top FALSE side FALSE bottom FALSE }") + "LOD { center 1 2 3 }",
     {"side of Cone is not used (2 nodes)", "bottom of Cone is not used", "side of Cylinder is not used",
      "bottom of Cylinder is not used", "top of Cylinder is not used", "center of LOD is not used"}},
    {AuditKind::fieldNotUsed,
     "Shape { appearance Appearance { material Material { ambientIntensity 0.5 emissiveColor 1 0 0 shininess 1 "
     "specularColor 1 1 1 } } geometry " +
         faceSet("convex FALSE creaseAngle 1") + " }",
     {"ambientIntensity of Material is not used", "emissiveColor of Material is not used",
      "shininess of Material is not used", "specularColor of Material is not used",
      "convex of IndexedFaceSet is not used", "creaseAngle of IndexedFaceSet is not used"}},
    {AuditKind::onlyChildren,
     "Anchor { url \"x\" } DEF door Anchor { } DEF wall Collision { } Anchor { }",
     {"Anchor: only its children are converted (2 nodes)", "Anchor \"door\": only its children are converted",
      "Collision \"wall\": only its children are converted"}},
    {AuditKind::notConverted,
     "PointLight { } DEF l PointLight { } Fog { } Group { children [ Script { } Sound { source AudioClip { } } ] "
     "}",
     {"PointLight is not converted", "PointLight \"l\" is not converted", "Fog is not converted",
      "Script is not converted", "Sound is not converted", "AudioClip is not converted"}},
    {AuditKind::notConverted,
     "Shape { appearance Appearance { textureTransform DEF t TextureTransform { } } geometry Box { } }",
     {"TextureTransform \"t\" is not converted"}},
    {AuditKind::routes,
     "DEF a TouchSensor { } DEF b PointLight { } ROUTE a.isActive TO b.set_on",
     {"TouchSensor \"a\" is not converted", "PointLight \"b\" is not converted", "routes not converted: 1"}},
};

TEST(ImportAudit, names_what_is_dropped) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.world);
    const std::vector<AuditNote> notes = audit(row.world);
    EXPECT_EQ(linesOf(notes), row.lines);
    EXPECT_TRUE(
        std::any_of(notes.begin(), notes.end(), [&row](const AuditNote& note) { return note.kind == row.kind; }));
  }
}

TEST(ImportAudit, can_come_to_every_kind) {
  std::set<AuditKind> provoked;
  for (const Row& row : kRows) provoked.insert(row.kind);
  EXPECT_EQ(provoked.size(), static_cast<std::size_t>(kAuditKindCount));
}

TEST(ImportAudit, has_nothing_to_say_of_what_is_converted) {
  const std::string worlds[] = {
      "",
      "WorldInfo { title \"x\" }",
      "DEF a Group { children [ Transform { translation 1 2 3 children " + shapeOf("Box { }") + " } ] }",
      "LOD { range [ 1 ] level [ " + shapeOf("Cone { }") + " Switch { choice [ " + shapeOf("Sphere { }") + " ] } ] }",
      "Billboard { children Shape { appearance Appearance { material Material { transparency 0.5 } } geometry " +
          faceSet("coordIndex [ 0 1 2 -1 ] solid FALSE ccw FALSE normal Normal { vector 0 0 1 } color Color { color 1 "
                  "0 0 }") +
          " } }",
      "Shape { appearance Appearance { material Material { ambientIntensity 0.2 } } geometry Cone { side TRUE } }",
  };
  for (const std::string& world : worlds) {
    SCOPED_TRACE(world);
    EXPECT_EQ(linesOf(audit(world)), std::vector<std::string>());
  }
}

TEST(ImportAudit, looks_at_a_node_once_however_often_it_is_used) {
  const std::string world = "DEF s " + shapeOf("DEF f " + faceSet("coordIndex [ 0 1 2 ]")) + " USE s USE s " +
                            shapeOf("USE f") + " Group { children USE s }";
  EXPECT_EQ(linesOf(audit(world)),
            std::vector<std::string>{"IndexedFaceSet \"f\": corners of a face without a terminating -1 dropped: 3"});
}

TEST(ImportAudit, leaves_references_to_the_notes_of_the_reader) {
  EXPECT_EQ(linesOf(audit(shapeOf("DEF b Box { }") + shapeOf("USE b"))), std::vector<std::string>());
}

TEST(ImportAudit, takes_texture_files_that_the_host_can_read) {
  int tries = 0;
  const AuditOptions options{.readsImage = [&tries](const std::string& url, const std::string& /*inlinedFile*/) {
    ++tries;
    return url == "good";
  }};
  const auto shape = [](const std::string& url) {
    return "Shape { appearance Appearance { texture ImageTexture { url \"" + url + "\" } } geometry " +
           faceSet("coordIndex [ 0 1 2 -1 ] texCoord TextureCoordinate { }") + " } ";
  };
  EXPECT_EQ(linesOf(audit(shape("good") + shape("good"), options)), std::vector<std::string>());
  EXPECT_EQ(tries, 1);
  const std::vector<std::string> expected = {
      "ImageTexture: image file \"bad\" is not read",
      "IndexedFaceSet: texture coordinates of a shape without a texture dropped",
  };
  EXPECT_EQ(linesOf(audit(shape("bad"), options)), expected);
}

TEST(ImportAudit, puts_what_sums_up_a_type_last) {
  const std::string world = "LOD { center 1 2 3 } " + shapeOf("Text { }") + shapeOf("DEF c Cone { side FALSE }") +
                            " DEF f Fog { } " + shapeOf("Cone { side FALSE }");
  const std::vector<std::string> expected = {"Text is not converted", "Fog \"f\" is not converted",
                                             "center of LOD is not used", "side of Cone is not used (2 nodes)"};
  EXPECT_EQ(linesOf(audit(world)), expected);
}

TEST(ImportAudit, looks_at_many_parts_of_one_node_in_one_pass) {
  constexpr int kCount = 40'000;  // a wait to notice, were each looked for among those in front of it
  std::string parts;
  for (int i = 0; i < kCount; ++i) parts += "coord Coordinate { } ";
  for (int i = 0; i < kCount; ++i) parts += "color Color { } ";
  const std::vector<AuditNote> notes = audit(shapeOf("IndexedFaceSet { " + parts + "}"));
  const std::vector<std::string> expected = {
      "Coordinate is not used, its IndexedFaceSet has another one (39999 nodes)",
      "Color is not used, its IndexedFaceSet has another one (39999 nodes)",
  };
  EXPECT_EQ(linesOf(notes), expected);
}

TEST(ImportAudit, goes_as_deep_as_files_do) {
  std::string world;
  for (int i = 0; i < 4000; ++i) world += "Group{children ";
  world += shapeOf("Text { }") + std::string(4000, '}');
  EXPECT_EQ(linesOf(audit(world)), std::vector<std::string>{"Text is not converted"});
}

}  // namespace
}  // namespace wrl
