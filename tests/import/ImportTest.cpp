#include "tests/import/ImportTest.h"

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglBillboard.h>
#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglSphere.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTransform.h>
#include <VekSG/sglTransparency.h>
#include <unistd.h>

#include <charconv>

#include "embedded/LoaderSettings.h"
#include "vrml/reader/SceneGraph.h"

namespace importtest {

namespace {

std::string number(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr};
}

template <class Numbers>
std::string numbers(const Numbers& values) {
  std::string text;
  for (const auto value : values) text += (text.empty() ? "" : " ") + number(static_cast<double>(value));
  return text;
}

std::string vector(const auto& v) { return numbers(std::vector<double>{v.x, v.y, v.z}); }

std::string dumpDrawable(const sglDrawable* drawable) {
  if (const auto* set = dynamic_cast<const sglIndexedTriangleSet*>(drawable)) return dumpList(set->getCoordIndexList());
  if (const auto* set = dynamic_cast<const sglIndexedTriangleStripSet*>(drawable))
    return "Strips<" + dumpList(set->getPrimLengths()) + ">" + dumpList(set->getCoordIndexList());
  if (const auto* cube = dynamic_cast<const sglCube*>(drawable)) return "Cube<" + vector(cube->getSize()) + ">";
  if (const auto* cone = dynamic_cast<const sglCone*>(drawable))
    return "Cone<" +
           numbers(std::vector<double>{double(cone->getNumSegments()), cone->getHeight(), cone->getRadius()}) + ">";
  if (const auto* c = dynamic_cast<const sglCylinder*>(drawable))
    return "Cylinder<" +
           numbers(std::vector<double>{double(c->getNumAround()), double(c->getNumAlong()), c->getHeight(),
                                       c->getBottomRadius(), c->getTopRadius(), c->isCapped() ? 1.0 : 0.0}) +
           ">";
  if (const auto* s = dynamic_cast<const sglSphere*>(drawable))
    return "Sphere<" +
           numbers(std::vector<double>{double(s->getNumAround()), double(s->getNumPoleToPole()), s->getRadius()}) + ">";
  return "?";
}

std::string dumpGeode(const sglGeode& geode) {
  std::string text;
  for (unsigned i = 0; i < geode.getNumGeometries(); ++i)
    text += (i == 0 ? "" : ", ") + dumpDrawable(geode.getGeometry(i));
  return "{" + text + "}";
}

std::string kindOf(const sglNode& node) {
  if (dynamic_cast<const sglGeode*>(&node)) return "Geode";
  if (dynamic_cast<const sglTransform<float>*>(&node)) return "Transform";
  if (dynamic_cast<const sglLOD*>(&node)) return "LOD";
  if (dynamic_cast<const sglSwitch*>(&node)) return "Switch";
  if (dynamic_cast<const sglBillboard*>(&node)) return "Billboard";
  return "Group";
}

std::string valuesOf(const sglNode& node) {
  if (const auto* lod = dynamic_cast<const sglLOD*>(&node)) {
    std::vector<float> ranges;
    for (unsigned i = 0; i < lod->getNumRanges(); ++i) ranges.push_back(lod->getRange(i));
    return "<" + numbers(ranges) + ">";
  }
  if (const auto* selection = dynamic_cast<const sglSwitch*>(&node))
    return "<" + std::to_string(selection->getSelectedChild()) + ">";
  if (const auto* billboard = dynamic_cast<const sglBillboard*>(&node))
    return "<" + vector(billboard->getAxis()) + " / " + std::to_string(billboard->getMode()) + ">";
  return "";
}

void gather(const sglNode* node, std::vector<const sglDrawable*>& drawables) {
  if (const auto* geode = dynamic_cast<const sglGeode*>(node))
    for (unsigned i = 0; i < geode->getNumGeometries(); ++i) drawables.push_back(geode->getGeometry(i));
  if (const auto* group = dynamic_cast<const sglGroup*>(node))
    for (unsigned i = 0; i < group->getNumChildren(); ++i) gather(group->getChild(i), drawables);
}

std::string dumpMaterial(const sglMaterial& material) {
  if (material.isColorMaterial()) {
    return "Material<mode " + std::to_string(material.getColorMaterialSide()) + " " +
           std::to_string(material.getColorMaterialMode()) + ">";
  }
  return "Material<" + vector(material.getFrontDiffuse()) + " / " + number(double(material.getFrontAlpha())) + ">";
}

std::string dumpState(const sglStatelet& state) {
  if (const auto* lighting = dynamic_cast<const sglLighting*>(&state)) return lighting->isOn() ? "Lighting" : "Dark";
  if (const auto* material = dynamic_cast<const sglMaterial*>(&state)) return dumpMaterial(*material);
  if (dynamic_cast<const sglTexture2D*>(&state)) return "Texture2D";
  if (const auto* environment = dynamic_cast<const sglTexEnv*>(&state))
    return "TexEnv<" + std::to_string(environment->getMode()) + ">";
  if (const auto* blending = dynamic_cast<const sglTransparency*>(&state))
    return "Transparency<" + std::to_string(blending->isOn()) + " " + std::to_string(blending->getMode()) + ">";
  if (const auto* test = dynamic_cast<const sglAlphaTest*>(&state))
    return "AlphaTest<" + std::to_string(test->getFunc()) + " " + number(double(test->getReference())) + ">";
  if (const auto* cull = dynamic_cast<const sglCullMode*>(&state))
    return "CullMode<" + std::to_string(cull->getMode()) + ">";
  if (const auto* front = dynamic_cast<const sglFrontFace*>(&state))
    return "FrontFace<" + std::to_string(front->getMode()) + ">";
  return "?";
}

bool isStatistics(const embedded::Message& message) {
  return message.text.starts_with("-- Statistics for: ") || message.text.starts_with("   ");
}

}  // namespace

std::string dumpList(const sglDataPtr* list) {
  if (list == nullptr) return "none";
  if (const float* floats = list->getFloats()) return numbers(std::vector<float>(floats, floats + list->getCount()));
  const std::uint32_t* values = list->getUnsigneds();
  return numbers(std::vector<std::uint32_t>(values, values + list->getCount()));
}

std::string dumpStates(const sglDrawable* drawable) {
  if (drawable == nullptr || drawable->getState(0) == nullptr) return "none";
  std::string text;
  for (const auto& state : drawable->getState(0)->getStatelets()) text += (text.empty() ? "" : " ") + dumpState(*state);
  return text;
}

std::string dump(const sglNode* node) {
  if (node == nullptr) return "none";
  std::string text = kindOf(*node);
  if (!node->getName().empty()) text += ":" + node->getName();
  text += valuesOf(*node);
  if (const auto* geode = dynamic_cast<const sglGeode*>(node)) return text + dumpGeode(*geode);
  const auto& group = dynamic_cast<const sglGroup&>(*node);
  std::string children;
  for (unsigned i = 0; i < group.getNumChildren(); ++i) children += (i == 0 ? "" : " ") + dump(group.getChild(i));
  return text + "(" + children + ")";
}

const sglGroup* Loaded::scene() const { return dynamic_cast<const sglGroup*>(database->GetSglRoot()); }

std::string Loaded::text() const { return dump(database->GetSglRoot()); }

std::string Loaded::report() const {
  std::string text;
  for (const embedded::Message& message : messages)
    if (!isStatistics(message)) text += std::to_string(message.level) + "[" + message.text + "]";
  return text;
}

int Loaded::statistic(std::string_view label) const {
  for (const embedded::Message& message : messages) {
    const std::size_t colon = message.text.find(": ");
    if (message.text.find(label) == std::string::npos || colon == std::string::npos) continue;
    return std::stoi(message.text.substr(colon + 2));
  }
  return -1;
}

const sglDrawable* Loaded::drawable(unsigned index) const {
  std::vector<const sglDrawable*> drawables;
  gather(database->GetSglRoot(), drawables);
  return index < drawables.size() ? drawables[index] : nullptr;
}

const sglIndexedTriangleSet& Loaded::triangles(unsigned index) const {
  static const sglIndexedTriangleSet kEmpty;
  const auto* set = dynamic_cast<const sglIndexedTriangleSet*>(drawable(index));
  EXPECT_NE(set, nullptr) << text();
  return set != nullptr ? *set : kEmpty;
}

ImportTest::ImportTest() {
  embedded::resetLoaderSettings();
  OpenLoader::s_tex_map.clear();
}

ImportTest::~ImportTest() {
  OpenLoader::s_tex_map.clear();
  embedded::resetLoaderSettings();
}

std::string ImportTest::write(const std::string& name, std::string_view text) const {
  return m_folder.write(name, text);
}

std::string ImportTest::writeWorld(std::string_view text, const std::string& name) const {
  return write(name, "#VRML V2.0 utf8\n" + std::string(text) + "\n");
}

Loaded ImportTest::loadPath(const std::string& path, unsigned flags) {
  embedded::MessageRecorder recorder(false);
  OpenLoader loader;
  std::unique_ptr<CVekDBRoot> database(loader.loadFile(path, flags));
  return {std::move(database), recorder.messages()};
}

Loaded ImportTest::load(std::string_view text, const OnLoader& prepare, const OnLoader& inspect) {
  const std::string path = writeWorld(text);
  embedded::MessageRecorder recorder(false);
  OpenLoader loader;
  if (prepare) prepare(loader);
  std::unique_ptr<CVekDBRoot> database(loader.loadFile(path, 0));
  if (inspect) inspect(loader);
  return {std::move(database), recorder.messages()};
}

std::string triangleShape() { return shape(""); }

std::string shape(std::string_view appearance, std::string_view geometry) {
  std::string text = "Shape { ";
  if (!appearance.empty()) text += "appearance Appearance { " + std::string(appearance) + " } ";
  return text + "geometry " + std::string(geometry) + " }\n";
}

std::string faceSet(std::string_view fields, std::string_view appearance) {
  return shape(appearance, "IndexedFaceSet { " + std::string(kPoints) + " " + std::string(fields) + " }");
}

}  // namespace importtest
