// Drawables and states from JSON. The keys of an object may come in any order, its type among them, so that values are
// gathered in a record of all keys there are; when the object ends, the keys are held against those of its type, and
// the host's object is made. Lists move from the record into the host without a copy.

#include "embedded/DrawableReader.h"

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglSphere.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransparency.h>
#include <VekSG/sglTriangleSet.h>

#include <algorithm>
#include <limits>
#include <map>
#include <optional>

namespace embedded {
namespace {

using Keys = std::vector<std::string>;

unsigned takeUnsigned(JsonReader& json) {
  return static_cast<unsigned>(json.takeInteger(0, std::numeric_limits<std::uint32_t>::max()));
}

std::vector<float> takeFloats(JsonReader& json) {
  std::vector<float> values;
  json.enterList();
  while (json.nextItem()) values.push_back(json.takeFloat());
  return values;
}

std::vector<std::uint32_t> takeUnsigneds(JsonReader& json) {
  std::vector<std::uint32_t> values;
  json.enterList();
  while (json.nextItem()) values.push_back(takeUnsigned(json));
  return values;
}

std::vector<float> takeSoMany(JsonReader& json, std::size_t count) {
  std::vector<float> values = takeFloats(json);
  if (values.size() != count) json.fail("a list of " + std::to_string(count) + " numbers is expected");
  return values;
}

sglVec3<float> takeVector(JsonReader& json) {
  const std::vector<float> values = takeSoMany(json, 3);
  return {values[0], values[1], values[2]};
}

[[noreturn]] void failType(const JsonReader& json, const std::string& type) {
  json.fail(type.empty() ? "the key \"type\" is missing" : "unknown type \"" + type + "\"");
}

// What a state's object may hold.
struct StateRecord {
  std::string type;
  Keys keys;
  bool on = true;
  unsigned mode = 0;
  unsigned func = 0;
  float ref = 0.0F;
  sglVec3<float> diffuse;
  sglVec3<float> ambient;
  sglVec3<float> specular;
  float shininess = 0.0F;
  float alpha = 0.0F;
  unsigned side = sglMaterial::FRONT_AND_BACK;
  bool isColorMaterial = false;
  unsigned colorMaterialSide = sglMaterial::FRONT_AND_BACK;
  unsigned colorMaterialMode = 0;
  unsigned wrapS = 0;
  unsigned wrapT = 0;
  unsigned minFilter = 0;
  unsigned magFilter = 0;
  bool autoMipmap = false;
  unsigned internalFormat = 0;
  std::optional<unsigned> compressionLevel;
};

void takeColorMaterial(JsonReader& json, StateRecord& record) {
  record.isColorMaterial = true;
  takeObject(json, [&](std::string_view key) {
    if (key == "side") {
      record.colorMaterialSide = takeUnsigned(json);
    } else if (key == "mode") {
      record.colorMaterialMode = takeUnsigned(json);
    } else {
      return false;
    }
    return true;
  });
}

// One key of a state: how its value is taken.
struct StateKey {
  std::string_view name;
  void (*take)(JsonReader& json, StateRecord& record);
};

constexpr StateKey kStateKeys[] = {
    {"type", [](JsonReader& json, StateRecord& record) { record.type = json.takeText(); }},
    {"on", [](JsonReader& json, StateRecord& record) { record.on = json.takeBoolean(); }},
    {"mode", [](JsonReader& json, StateRecord& record) { record.mode = takeUnsigned(json); }},
    {"func", [](JsonReader& json, StateRecord& record) { record.func = takeUnsigned(json); }},
    {"ref", [](JsonReader& json, StateRecord& record) { record.ref = json.takeFloat(); }},
    {"diffuse", [](JsonReader& json, StateRecord& record) { record.diffuse = takeVector(json); }},
    {"ambient", [](JsonReader& json, StateRecord& record) { record.ambient = takeVector(json); }},
    {"specular", [](JsonReader& json, StateRecord& record) { record.specular = takeVector(json); }},
    {"shininess", [](JsonReader& json, StateRecord& record) { record.shininess = json.takeFloat(); }},
    {"alpha", [](JsonReader& json, StateRecord& record) { record.alpha = json.takeFloat(); }},
    {"side", [](JsonReader& json, StateRecord& record) { record.side = takeUnsigned(json); }},
    {"colorMaterial", takeColorMaterial},
    {"wrapS", [](JsonReader& json, StateRecord& record) { record.wrapS = takeUnsigned(json); }},
    {"wrapT", [](JsonReader& json, StateRecord& record) { record.wrapT = takeUnsigned(json); }},
    {"minFilter", [](JsonReader& json, StateRecord& record) { record.minFilter = takeUnsigned(json); }},
    {"magFilter", [](JsonReader& json, StateRecord& record) { record.magFilter = takeUnsigned(json); }},
    {"autoMipmap", [](JsonReader& json, StateRecord& record) { record.autoMipmap = json.takeBoolean(); }},
    {"internalFormat", [](JsonReader& json, StateRecord& record) { record.internalFormat = takeUnsigned(json); }},
    {"compressionLevel", [](JsonReader& json, StateRecord& record) { record.compressionLevel = takeUnsigned(json); }},
};

sglStatelet* makeLighting(const StateRecord& record) { return new sglLighting(record.on); }

sglStatelet* makeMaterial(const StateRecord& record) {
  auto* material = new sglMaterial;
  const auto side = static_cast<sglMaterial::SideEnum>(record.side);
  if (record.isColorMaterial) {
    material->setColorMaterial(static_cast<sglMaterial::SideEnum>(record.colorMaterialSide),
                               static_cast<sglMaterial::ColorMaterialModeEnum>(record.colorMaterialMode));
    // Type and mode alone leave the values of a new material.
    if (record.keys.size() == 2) return material;
  }
  material->setDiffuse(record.diffuse.x, record.diffuse.y, record.diffuse.z, side);
  material->setAmbient(record.ambient.x, record.ambient.y, record.ambient.z, side);
  material->setSpecular(record.specular.x, record.specular.y, record.specular.z, side);
  material->setShininess(record.shininess, side);
  material->setAlpha(record.alpha, side);
  return material;
}

sglStatelet* makeTexture(const StateRecord& record) {
  auto* texture = new sglTexture2D;
  texture->setWrapMode(static_cast<sglTexture2D::WrapEnum>(record.wrapS),
                       static_cast<sglTexture2D::WrapEnum>(record.wrapT));
  texture->setMinFilter(static_cast<sglTexture::FilterEnum>(record.minFilter));
  texture->setMagFilter(static_cast<sglTexture::FilterEnum>(record.magFilter));
  texture->setAutoMipmapFlag(record.autoMipmap);
  texture->setInternalFormat(static_cast<sglTexture::FormatEnum>(record.internalFormat));
  if (record.compressionLevel) {
    texture->setCompressionLevel(static_cast<sglTexture::CompressionLevelEnum>(*record.compressionLevel));
  }
  return texture;
}

sglStatelet* makeTexEnv(const StateRecord& record) {
  auto* texEnv = new sglTexEnv;
  texEnv->setMode(static_cast<sglTexEnv::ModeEnum>(record.mode));
  return texEnv;
}

sglStatelet* makeTransparency(const StateRecord& record) {
  return new sglTransparency(record.on, static_cast<sglTransparency::ModeEnum>(record.mode));
}

sglStatelet* makeAlphaTest(const StateRecord& record) {
  return new sglAlphaTest(static_cast<sglAlphaTest::AlphaFuncEnum>(record.func), record.ref);
}

sglStatelet* makeCullMode(const StateRecord& record) {
  return new sglCullMode(static_cast<sglCullMode::CullModeEnum>(record.mode));
}

sglStatelet* makeFrontFace(const StateRecord& record) {
  return new sglFrontFace(static_cast<sglFrontFace::FrontFaceEnum>(record.mode));
}

// A type of state: its keys, and how it is made.
struct StateType {
  std::string_view name;
  std::vector<std::string_view> keys;
  sglStatelet* (*make)(const StateRecord& record);
};

const std::vector<StateType>& stateTypes() {
  static const std::vector<StateType> types = {
      {"sglLighting", {"on"}, makeLighting},
      {"sglMaterial", {"diffuse", "ambient", "specular", "shininess", "alpha", "side", "colorMaterial"}, makeMaterial},
      {"sglTexture2D",
       {"wrapS", "wrapT", "minFilter", "magFilter", "autoMipmap", "internalFormat", "compressionLevel"},
       makeTexture},
      {"sglTexEnv", {"mode"}, makeTexEnv},
      {"sglTransparency", {"on", "mode"}, makeTransparency},
      {"sglAlphaTest", {"func", "ref"}, makeAlphaTest},
      {"sglCullMode", {"mode"}, makeCullMode},
      {"sglFrontFace", {"mode"}, makeFrontFace},
  };
  return types;
}

sglRef<sglStatelet> takeState(JsonReader& json) {
  StateRecord record;
  takeObject(json, [&](std::string_view name) {
    const auto* key = std::find_if(std::begin(kStateKeys), std::end(kStateKeys),
                                   [name](const StateKey& known) { return known.name == name; });
    if (key == std::end(kStateKeys)) return false;
    record.keys.emplace_back(name);
    key->take(json, record);
    return true;
  });
  for (const StateType& type : stateTypes()) {
    if (type.name != record.type) continue;
    checkKeys(json, record.keys, type.name, type.keys);
    return type.make(record);
  }
  failType(json, record.type);
}

// What a drawable's object may hold.
struct DrawableRecord {
  std::string type;
  Keys keys;
  std::map<std::string_view, sglRef<sglDataPtr>> lists;  // by key
  std::map<std::string_view, unsigned> integers;
  std::map<std::string_view, float> numbers;
  sglVec3<float> size;
  bool capped = false;
  bool displayList = false;
  std::optional<sglStateletList> states;

  [[nodiscard]] sglDataPtr* list(std::string_view key) const {
    const auto found = lists.find(key);
    return found == lists.end() ? nullptr : found->second.get();
  }
  [[nodiscard]] unsigned integer(std::string_view key) const {
    const auto found = integers.find(key);
    return found == integers.end() ? 0 : found->second;
  }
  [[nodiscard]] float number(std::string_view key) const {
    const auto found = numbers.find(key);
    return found == numbers.end() ? 0.0F : found->second;
  }
  [[nodiscard]] sglGeoSet::BindingEnum binding(std::string_view key) const {
    return static_cast<sglGeoSet::BindingEnum>(integer(key));
  }
};

using TakeKey = void (*)(JsonReader& json, DrawableRecord& record, std::string_view key);

void takeFloatList(JsonReader& json, DrawableRecord& record, std::string_view key) {
  record.lists[key] = new sglDataPtr(takeFloats(json));
}

void takeUnsignedList(JsonReader& json, DrawableRecord& record, std::string_view key) {
  record.lists[key] = new sglDataPtr(takeUnsigneds(json));
}

void takeIntegerKey(JsonReader& json, DrawableRecord& record, std::string_view key) {
  record.integers[key] = takeUnsigned(json);
}

void takeNumberKey(JsonReader& json, DrawableRecord& record, std::string_view key) {
  record.numbers[key] = json.takeFloat();
}

void takeType(JsonReader& json, DrawableRecord& record, std::string_view) { record.type = json.takeText(); }

void takeSize(JsonReader& json, DrawableRecord& record, std::string_view) { record.size = takeVector(json); }

void takeCapped(JsonReader& json, DrawableRecord& record, std::string_view) { record.capped = json.takeBoolean(); }

void takeDisplayList(JsonReader& json, DrawableRecord& record, std::string_view) {
  record.displayList = json.takeBoolean();
}

void takeStates(JsonReader& json, DrawableRecord& record, std::string_view) {
  record.states.emplace();
  json.enterList();
  while (json.nextItem()) record.states->push_back(takeState(json));
}

// One key of a drawable: how its value is taken.
struct DrawableKey {
  std::string_view name;
  TakeKey take;
};

constexpr DrawableKey kDrawableKeys[] = {
    {"type", takeType},
    {"numPrims", takeIntegerKey},
    {"coords", takeFloatList},
    {"normals", takeFloatList},
    {"texCoords", takeFloatList},
    {"colors", takeFloatList},
    {"coordIndex", takeUnsignedList},
    {"normalIndex", takeUnsignedList},
    {"colorIndex", takeUnsignedList},
    {"texCoordIndex", takeUnsignedList},
    {"primLengths", takeUnsignedList},
    {"normalBinding", takeIntegerKey},
    {"colorBinding", takeIntegerKey},
    {"size", takeSize},
    {"segments", takeIntegerKey},
    {"around", takeIntegerKey},
    {"along", takeIntegerKey},
    {"poleToPole", takeIntegerKey},
    {"height", takeNumberKey},
    {"radius", takeNumberKey},
    {"bottomRadius", takeNumberKey},
    {"topRadius", takeNumberKey},
    {"capped", takeCapped},
    {"displayList", takeDisplayList},
    {"states", takeStates},
};

using Made = std::unique_ptr<sglGeoSet>;

Made makeTriangles(const DrawableRecord&) { return std::make_unique<sglTriangleSet>(); }

void setIndices(const DrawableRecord& record, sglIndexedGeoSet& set) {
  set.setCoordIndexList(record.list("coordIndex"));
  set.setNormalIndexList(record.list("normalIndex"));
  set.setColorIndexList(record.list("colorIndex"));
  set.setTexCoordIndexList(record.list("texCoordIndex"));
}

Made makeIndexedTriangles(const DrawableRecord& record) {
  auto set = std::make_unique<sglIndexedTriangleSet>();
  setIndices(record, *set);
  return set;
}

Made makeStrips(const DrawableRecord& record) {
  auto set = std::make_unique<sglIndexedTriangleStripSet>();
  setIndices(record, *set);
  set->setPrimLengths(record.list("primLengths"));
  return set;
}

Made makeMonoStrips(const DrawableRecord& record) {
  auto set = std::make_unique<sglMonoIndexedTriangleStripSet>();
  set->setCoordIndexList(record.list("coordIndex"));
  set->setPrimLengths(record.list("primLengths"));
  return set;
}

Made makeCube(const DrawableRecord& record) {
  return std::make_unique<sglCube>(record.size.x, record.size.y, record.size.z);
}

Made makeCone(const DrawableRecord& record) {
  return std::make_unique<sglCone>(record.integer("segments"), record.number("height"), record.number("radius"));
}

Made makeCylinder(const DrawableRecord& record) {
  return std::make_unique<sglCylinder>(record.integer("around"), record.integer("along"), record.number("height"),
                                       record.number("bottomRadius"), record.number("topRadius"), record.capped);
}

Made makeSphere(const DrawableRecord& record) {
  return std::make_unique<sglSphere>(record.integer("around"), record.integer("poleToPole"), record.number("radius"));
}

// A type of drawable: its keys beside those that every one has, and how it is made.
struct DrawableType {
  std::string_view name;
  std::vector<std::string_view> keys;
  Made (*make)(const DrawableRecord& record);
};

const std::vector<DrawableType>& drawableTypes() {
  static const std::vector<DrawableType> types = {
      {"sglTriangleSet", {"numPrims", "coords", "normals", "texCoords"}, makeTriangles},
      {"sglIndexedTriangleSet",
       {"numPrims", "coords", "normals", "texCoords", "colors", "coordIndex", "normalIndex", "colorIndex",
        "texCoordIndex", "normalBinding", "colorBinding"},
       makeIndexedTriangles},
      {"sglIndexedTriangleStripSet",
       {"numPrims", "coords", "normals", "texCoords", "colors", "coordIndex", "normalIndex", "colorIndex",
        "texCoordIndex", "normalBinding", "colorBinding", "primLengths"},
       makeStrips},
      {"sglMonoIndexedTriangleStripSet",
       {"numPrims", "coords", "normals", "texCoords", "coordIndex", "primLengths"},
       makeMonoStrips},
      {"sglCube", {"size", "colors", "colorBinding"}, makeCube},
      {"sglCone", {"segments", "height", "radius", "colors", "colorBinding"}, makeCone},
      {"sglCylinder",
       {"around", "along", "height", "bottomRadius", "topRadius", "capped", "colors", "colorBinding"},
       makeCylinder},
      {"sglSphere", {"around", "poleToPole", "radius", "colors", "colorBinding"}, makeSphere},
  };
  return types;
}

// Gives a new drawable what is not particular to its type.
void setCommon(const DrawableRecord& record, std::string_view type, sglGeoSet& set) {
  // The sets that have no key for it use their normals at every vertex.
  const bool isAlwaysPerVertex = type == "sglTriangleSet" || type == "sglMonoIndexedTriangleStripSet";
  set.setNumPrims(record.integer("numPrims"));
  set.setCoordList(record.list("coords"));
  set.setNormalList(record.list("normals"),
                    isAlwaysPerVertex ? sglGeoSet::BIND_PER_VERTEX : record.binding("normalBinding"));
  set.setColorList(record.list("colors"), record.binding("colorBinding"));
  set.enableDisplayList(record.displayList);
  if (!record.states) return;
  if (sglDataPtr* texCoords = record.list("texCoords")) {
    set.setState(0, *record.states, sglTexCoords(texCoords, sglTexCoords::FLOAT, 2));
  } else {
    set.setState(0, *record.states);
  }
}

}  // namespace

void takeObject(JsonReader& json, const std::function<bool(std::string_view key)>& take) {
  Keys seen;
  std::string key;
  json.enterObject();
  while (json.nextKey(key)) {
    if (std::find(seen.begin(), seen.end(), key) != seen.end()) json.fail("the key \"" + key + "\" comes twice");
    if (!take(key)) json.fail("unknown key \"" + key + "\"");
    seen.push_back(key);
  }
}

void checkKeys(const JsonReader& json, const std::vector<std::string>& present, std::string_view type,
               const std::vector<std::string_view>& allowed) {
  for (const std::string& key : present) {
    if (key == "type" || std::find(allowed.begin(), allowed.end(), key) != allowed.end()) continue;
    json.fail("unknown key \"" + key + "\" of type \"" + std::string(type) + "\"");
  }
}

sglMat4<float> takeMatrix(JsonReader& json) {
  const std::vector<float> values = takeSoMany(json, 16);
  sglMat4<float> matrix;
  std::copy(values.begin(), values.end(), matrix.m);
  return matrix;
}

std::unique_ptr<sglDrawable> takeDrawable(JsonReader& json) {
  if (json.kind() == JsonReader::Kind::Null) {
    json.takeNull();
    return nullptr;
  }
  DrawableRecord record;
  takeObject(json, [&](std::string_view name) {
    const auto* key = std::find_if(std::begin(kDrawableKeys), std::end(kDrawableKeys),
                                   [name](const DrawableKey& known) { return known.name == name; });
    if (key == std::end(kDrawableKeys)) return false;
    if (key->name != "displayList" && key->name != "states") record.keys.emplace_back(name);
    key->take(json, record, key->name);
    return true;
  });
  for (const DrawableType& type : drawableTypes()) {
    if (type.name != record.type) continue;
    checkKeys(json, record.keys, type.name, type.keys);
    std::unique_ptr<sglGeoSet> set = type.make(record);
    setCommon(record, type.name, *set);
    return set;
  }
  failType(json, record.type);
}

}  // namespace embedded
