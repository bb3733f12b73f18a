#include "tests/attacks/Attack.h"

#include <cerrno>
#include <sstream>

#include "embedded/LoaderSettings.h"
#include "embedded/MessageSink.h"
#include "embedded/SceneDocument.h"
#include "embedded/StageDocument.h"

namespace attack {

bool isLong() { return std::getenv("WRL_LONG_ATTACKS") != nullptr; }

std::string Loaded::document() const {
  std::ostringstream out;
  embedded::writeSceneDocument(out, database ? database->GetSglRoot() : nullptr, {});
  return std::move(out).str() + messages;
}

bool Loaded::isReported() const { return messages.find("Error loading") != std::string::npos; }

Attack::Attack() {
  embedded::resetLoaderSettings();
  const bool isOpen = m_module.open(embedded::ModuleLoader::pathBesideHost());
  EXPECT_TRUE(isOpen && m_module.canWrite()) << m_module.errorText();
}

Attack::~Attack() { embedded::resetLoaderSettings(); }

std::string Attack::write(const std::string& name, std::string_view content) const {
  return m_folder.write(name, content);
}

std::string Attack::writeWorld(const std::string& name, std::string_view text) const {
  return write(name, "#VRML V2.0 utf8\n" + std::string(text));
}

Loaded Attack::load(const std::string& file, long failing) const {
  Loaded loaded;
  std::string& messages = loaded.messages;
  // A message that finds no memory is lost.
  embedded::setMessageSink([&messages](unsigned, std::string_view text) {
    try {
      messages += text;
    } catch (const std::bad_alloc&) {
    }
  });
  fixtures::failAllocation(failing);
  loaded.database = m_module.loadModel(file);
  fixtures::endFailing();
  embedded::setMessageSink({});
  return loaded;
}

int Attack::exportTo(const std::string& file, CVekStager& stager, long failing) const {
  fixtures::failAllocation(failing);
  errno = 0;
  m_module.writeModel(file, &stager);
  const int code = errno;
  fixtures::endFailing();
  return code;
}

std::string Attack::writeRichWorld(long copies) const {
  writeWorld("part.wrl", "DEF p Group { children [ Shape { geometry Cone { } } USE p ] }");
  const std::string text = R"(
PROTO Post [ field SFVec3f at 0 0 0 field MFString names [ "a}" "b" ] field SFNode n NULL ] {
  Transform { translation IS at children [ WorldInfo { info IS names } Shape { geometry Cylinder { } } ] } }
DEF aNameThatIsTooLongForAnyStringToKeepInItself Transform { rotation 0 1 0 1 children [
  Shape {
    appearance DEF look Appearance { material Material { diffuseColor 1 0 0 transparency .5 }
      texture PixelTexture { image 2 1 4 255 0xff00ff00 } }
    geometry DEF faces IndexedFaceSet {
      coord Coordinate { point [ 0 0 0 1 0 0 1 1 0 0 1 0 ] } coordIndex [ 0 1 2 3 -1 0 1 9 -1 ]
      normal Normal { vector [ 0 0 1 ] } color Color { color [ 1 0 0 0 1 0 ] }
      texCoord TextureCoordinate { point [ 0 0 1 0 ] } } }
  Shape { appearance USE look geometry USE faces }
  DEF post Post { at 1 2 3 names "x" } Inline { url [ "nowhere.wrl" "part.wrl" ] } Unknown { field [ { } ] } ] }
LOD { range [ 1 2 ] level [ USE post Billboard { } ] } Switch { whichChoice 0 choice Shape { geometry Sphere { } } }
DEF script Script { field SFNode self USE script eventIn SFBool on url "javascript: x" }
DEF clock TimeSensor { loop TRUE } ROUTE clock.fraction_changed TO aNameThatIsTooLongForAnyStringToKeepInItself.scale
Viewpoint { description "here" } Background { skyColor [ 0 0 1 ] } USE nobody
)";
  return writeWorld("rich.wrl", repeated(text, static_cast<std::size_t>(copies)));
}

std::unique_ptr<CVekStager> Attack::richStage() const {
  embedded::StageError error;
  auto stager = embedded::readStageDocument(R"({ "assembly": { "type": "root", "children": [
    { "type": "group", "name": "a part with a name that no string keeps in itself", "children": [
      { "type": "mesh", "texture": { "repeatS": true }, "mapPath": "wood.jpg", "geode": { "geometries": [
        { "type": "sglTriangleSet", "numPrims": 2, "states": [ { "type": "sglMaterial", "diffuse": [ 1, 0, 0 ] } ],
          "coords": [ 0,0,0, 1,0,0, 1,1,0, 0,0,0, 1,1,0, 0,1,0 ], "texCoords": [ 0,0, 1,0, 1,1, 0,0, 1,1, 0,1 ] },
        { "type": "sglIndexedTriangleSet", "numPrims": 1, "states": [ ], "coords": [ 0,0,0, 1,0,0, 1,1,0 ],
          "coordIndex": [ 0, 1, 2 ], "normals": [ 0,0,1 ], "normalIndex": [ 0, 0, 0 ], "normalBinding": 1 },
        { "type": "sglIndexedTriangleStripSet", "numPrims": 1, "primLengths": [ 4 ], "states": [ ],
          "coords": [ 0,0,0, 1,0,0, 1,1,0, 0,1,0 ], "coordIndex": [ 0, 1, 2, 3 ] } ] } } ] } ] },
    "views": [ { "name": "from the left", "perspective": true, "fov": 0.5,
                 "frame": [ 0,0,1,0, 0,1,0,0, -1,0,0,0, 3,0,0,1 ] } ] })",
                                            path("."), error);
  EXPECT_NE(stager, nullptr) << error.text;
  write("wood.jpg", "picture");
  return stager;
}

std::string repeated(std::string_view text, std::size_t count) {
  std::string all;
  all.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

}  // namespace attack
