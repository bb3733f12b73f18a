#include "ReaderTesting.h"

#include <atomic>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>
#include <unistd.h>

#include "vrml/reader/TokenLister.h"

namespace vrml::readertest {
namespace {

std::string g_echoed;

// In memory where the system has a place for it: thousands of small files are slow on a disk.
std::filesystem::path temporaryPlace() {
  const std::filesystem::path inMemory = "/dev/shm";
  return access(inMemory.c_str(), W_OK) == 0 ? inMemory : std::filesystem::temp_directory_path();
}

void collectEcho(const char* text, std::size_t size) { g_echoed.append(text, size); }

// One file for all the texts of a test program: making folders is what thousands of small loads would spend their time
// on.
std::string writeText(std::string_view header, std::string_view text) {
  static const TemporaryFolder folder;
  return folder.write("text.wrl", std::string(header).append(text));
}

constexpr const char* kKindNames[] = {
    "secondReading",   "unknownNode",     "externProto",          "exportStatement", "protoCutOff",
    "unresolvedUse",   "droppedRoute",    "routeToItself",        "nodeWithoutCopy", "referenceWithoutCopy",
    "inlineNotOpened", "inlineNotParsed", "inlineAlreadyLoading", "inlineLimit"};

}  // namespace

TemporaryFolder::TemporaryFolder() {
  static std::atomic<int> count = 0;
  m_folder = temporaryPlace() / ("wrl-reader-" + std::to_string(getpid()) + "-" + std::to_string(count++));
  std::filesystem::create_directories(m_folder);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_folder, ignored);
}

std::string TemporaryFolder::write(const std::string& name, std::string_view text) const {
  const std::filesystem::path file = m_folder / name;
  if (!std::filesystem::exists(file.parent_path())) std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << text;
  return file.string();
}

EchoCapture::EchoCapture() : m_found(setEchoSink(&collectEcho)) { g_echoed.clear(); }
EchoCapture::~EchoCapture() { setEchoSink(m_found); }
const std::string& EchoCapture::text() const { return g_echoed; }

void loadText(SceneGraph& scene, std::string_view text, bool resolve, bool withHeader) {
  scene.load(writeText(withHeader ? kHeader : "", text), resolve);
}

std::string written(const SceneGraph& scene) {
  std::ostringstream out;
  scene.write(out);
  const std::string text = out.str();
  EXPECT_TRUE(text.starts_with(kHeader)) << text;
  return text.substr(std::string_view(kHeader).size());
}

std::string verdict(const SceneGraph& scene) {
  if (scene.succeeded()) return "ok";
  return std::to_string(scene.getErrorLine()) + ":" + scene.getErrorToken() + ":" + scene.getErrorLineText();
}

std::string loaded(std::string_view text, bool resolve) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, text, resolve);
  return scene.succeeded() ? written(scene) : verdict(scene);
}

std::string listing(std::string_view text, bool wide) {
  std::ostringstream out;
  EXPECT_TRUE(listTokens(writeText("", text), wide, out));
  return out.str();
}

std::string tokens(std::string_view text, bool wide) {
  const EchoCapture echo;
  std::istringstream lines(listing(text, wide));
  std::string line;
  std::string result;
  // A string's text may hold line ends; the tests that use this have none.
  while (std::getline(lines, line)) {
    const std::size_t first = line.find('\t');
    const std::size_t second = line.find('\t', first + 1);
    const std::string kind = line.substr(first + 1, second - first - 1);
    if (kind == "end") break;
    if (!result.empty()) result += " | ";
    result += kind + " " + line.substr(second + 1);
  }
  return result;
}

std::string notesOf(const SceneGraph& scene) {
  std::string text;
  for (const Note& note : scene.notes())
    text += std::to_string(note.line) + ":" + kKindNames[static_cast<std::size_t>(note.kind)] + ":" + note.nodeType +
            ":" + note.defName + ":" + note.text + "\n";
  return text;
}

std::string repeated(std::string_view text, std::size_t count) {
  std::string all;
  all.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

std::string everyConstruct() {
  return R"(#VRML V2.0 utf8
# a comment, "with a quote" and { braces }
PROTO Ball [ field SFFloat r 3.5 exposedField SFColor tint 1 0 0 field SFString label "two } words"
  eventIn SFTime go eventOut SFBool done field MFInt32 list [ 1, 2 -3 ] field SFNode n NULL field MFNode c [ ] ] {
  # the body
  Transform { translation 1 2 3 children [ Shape {
    appearance Appearance { material Material { diffuseColor IS tint } }
    geometry Sphere { radius IS r } } ] }
  ROUTE a.b TO c.d
}
EXTERNPROTO Far [ field SFFloat r eventIn SFBool on ] [ "far.wrl#Far", "http://example.org/far.wrl" ]
WorldInfo { title "a\b # { } , 'c'" info [ "one", "two
lines" ] }
DEF top Group { bboxCenter 0 0 0 bboxSize 2 2 2 children [
  DEF first Ball { r 0x10 tint 0 1e0 .5 }, Ball { },
  Far { r 2 [ ] { } "}" }
  DEF touch TouchSensor { enabled TRUE }
  DEF time TimeSensor { cycleInterval 2.5 loop FALSE }
ROUTE touch.touchTime TO time.set_startTime
  Shape {
    appearance Appearance {
      material DEF mat Material { diffuseColor 1 0 0, transparency .5 }
      texture PixelTexture { image 2 2 3 0xFF0000 0x00FF00 255 -1 repeatS FALSE }
      textureTransform TextureTransform { center .5 .5 rotation -.25 scale 2 2 }
    }
    geometry IndexedFaceSet {
      coord DEF points Coordinate { point [ 0 0 0, 1 0 0, 1 1 0, 0 1.5e-3 -2E+1 ] }
      color Color { color 1 0 1 }
      normal Normal { vector [ 0 0 1 ] }
      texCoord TextureCoordinate { point [ 0 0, 1 0 1 1 ] }
      coordIndex [ 0 1 2 -1, 0, 2, 3, -1, ] # a comment in passing
      solid FALSE creaseAngle 1
    }
  }
  Shape { appearance Appearance { material USE mat } geometry PointSet { coord USE points } }
  Switch { whichChoice 0 choice [ USE top NULL ] }
  LOD { range [ 10, 20 ] level [ Shape { geometry DEF box Box { } } Shape { geometry USE box } ] }
  Collision { proxy Shape { geometry Cone { side FALSE } } children USE first }
  DEF script Script {
    field SFFloat x 1.5 eventIn SFBool go eventOut SFVec3f where
    field MFNode kids [ NULL USE mat ] field SFNode self USE script field MFBool flags [ TRUE FALSE ]
    url [ "javascript: function f() { return 'x'; }" ] directOutput TRUE mustEvaluate FALSE
  }
  ] }
Shape { geometry Text { string "text" fontStyle FontStyle { family [ "SANS" "SERIF" ] justify "END" } length [ ] } }
Shape { geometry Extrusion { spine [ 0 0 0 0 1 0 ] orientation [ 0 0 2 1.5 ] scale 1 1 } }
Viewpoint { position 0 0 10 description "front" } Background { skyColor [ 0 0 1 ] skyAngle [ ] }
NavigationInfo { type [ "EXAMINE" "ANY" ] avatarSize .25 } Fog { fogType "LINEAR" }
PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0 1 1 1 ] }
Sound { source AudioClip { url "x.wav" } }
Inline { url [ "nowhere.wrl" ] }
USE nobody
)";
}

}  // namespace vrml::readertest
