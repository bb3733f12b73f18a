// Drawables and states as JSON. What each kind has is written by one function a kind; a key whose list is absent is
// left out.

#include "embedded/DrawableText.h"

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

#include "embedded/TriangleReader.h"

namespace embedded {
namespace {

void writeInteger(JsonWriter& json, std::string_view key, std::int64_t value) {
  json.key(key);
  json.integer(value);
}

void writeNumber(JsonWriter& json, std::string_view key, float value) {
  json.key(key);
  json.number(value);
}

void writeBoolean(JsonWriter& json, std::string_view key, bool value) {
  json.key(key);
  json.boolean(value);
}

void writeText(JsonWriter& json, std::string_view key, std::string_view value) {
  json.key(key);
  json.text(value);
}

void writeVector(JsonWriter& json, std::string_view key, const sglVec3<float>& vector) {
  const float values[] = {vector.x, vector.y, vector.z};
  json.key(key);
  json.numbers(values);
}

// Writes a list when there is one, whatever kind of numbers it holds.
void writeList(JsonWriter& json, std::string_view key, const sglDataPtr* list) {
  if (list == nullptr) return;
  json.key(key);
  if (list->getUnsigneds() != nullptr) {
    json.integers({list->getUnsigneds(), list->getCount()});
  } else {
    json.numbers({list->getFloats(), list->getCount()});
  }
}

void writePoints(JsonWriter& json, const sglGeoSet& set) {
  writeInteger(json, "numPrims", set.getNumPrims());
  writeList(json, "coords", set.getCoordList());
  writeList(json, "normals", set.getNormalList());
  writeList(json, "texCoords", texCoordList(set));
}

void writeColors(JsonWriter& json, const sglGeoSet& set) {
  writeList(json, "colors", set.getColorList());
  if (set.getColorList() != nullptr) writeInteger(json, "colorBinding", set.getColorBinding());
}

void writeIndexedSet(JsonWriter& json, const sglIndexedGeoSet& set) {
  writePoints(json, set);
  writeList(json, "colors", set.getColorList());
  writeList(json, "coordIndex", set.getCoordIndexList());
  writeList(json, "normalIndex", set.getNormalIndexList());
  writeList(json, "colorIndex", set.getColorIndexList());
  writeList(json, "texCoordIndex", set.getTexCoordIndexList());
  if (set.getNormalList() != nullptr) writeInteger(json, "normalBinding", set.getNormalBinding());
  if (set.getColorList() != nullptr) writeInteger(json, "colorBinding", set.getColorBinding());
}

void writeGeometry(JsonWriter& json, const sglDrawable& drawable) {
  if (const auto* strips = dynamic_cast<const sglIndexedTriangleStripSet*>(&drawable)) {
    writeText(json, "type", "sglIndexedTriangleStripSet");
    writeIndexedSet(json, *strips);
    writeList(json, "primLengths", strips->getPrimLengths());
  } else if (const auto* indexed = dynamic_cast<const sglIndexedTriangleSet*>(&drawable)) {
    writeText(json, "type", "sglIndexedTriangleSet");
    writeIndexedSet(json, *indexed);
  } else if (const auto* mono = dynamic_cast<const sglMonoIndexedTriangleStripSet*>(&drawable)) {
    writeText(json, "type", "sglMonoIndexedTriangleStripSet");
    writePoints(json, *mono);
    writeList(json, "coordIndex", mono->getCoordIndexList());
    writeList(json, "primLengths", mono->getPrimLengths());
  } else if (const auto* triangles = dynamic_cast<const sglTriangleSet*>(&drawable)) {
    writeText(json, "type", "sglTriangleSet");
    writePoints(json, *triangles);
  } else if (const auto* cube = dynamic_cast<const sglCube*>(&drawable)) {
    writeText(json, "type", "sglCube");
    writeVector(json, "size", cube->getSize());
    writeColors(json, *cube);
  } else if (const auto* cone = dynamic_cast<const sglCone*>(&drawable)) {
    writeText(json, "type", "sglCone");
    writeInteger(json, "segments", cone->getNumSegments());
    writeNumber(json, "height", cone->getHeight());
    writeNumber(json, "radius", cone->getRadius());
    writeColors(json, *cone);
  } else if (const auto* cylinder = dynamic_cast<const sglCylinder*>(&drawable)) {
    writeText(json, "type", "sglCylinder");
    writeInteger(json, "around", cylinder->getNumAround());
    writeInteger(json, "along", cylinder->getNumAlong());
    writeNumber(json, "height", cylinder->getHeight());
    writeNumber(json, "bottomRadius", cylinder->getBottomRadius());
    writeNumber(json, "topRadius", cylinder->getTopRadius());
    writeBoolean(json, "capped", cylinder->isCapped());
    writeColors(json, *cylinder);
  } else if (const auto* sphere = dynamic_cast<const sglSphere*>(&drawable)) {
    writeText(json, "type", "sglSphere");
    writeInteger(json, "around", sphere->getNumAround());
    writeInteger(json, "poleToPole", sphere->getNumPoleToPole());
    writeNumber(json, "radius", sphere->getRadius());
    writeColors(json, *sphere);
  } else {
    writeText(json, "type", "sglDrawable");
  }
}

void writeMaterial(JsonWriter& json, const sglMaterial& material) {
  writeText(json, "type", "sglMaterial");
  if (material.isColorMaterial()) {
    json.key("colorMaterial");
    json.beginObject();
    writeInteger(json, "side", material.getColorMaterialSide());
    writeInteger(json, "mode", material.getColorMaterialMode());
    json.endObject();
    return;
  }
  const bool isBack = material.getSide() == sglMaterial::BACK;
  writeVector(json, "diffuse", isBack ? material.getBackDiffuse() : material.getFrontDiffuse());
  writeVector(json, "ambient", isBack ? material.getBackAmbient() : material.getFrontAmbient());
  writeVector(json, "specular", isBack ? material.getBackSpecular() : material.getFrontSpecular());
  writeNumber(json, "shininess", isBack ? material.getBackShininess() : material.getFrontShininess());
  writeNumber(json, "alpha", isBack ? material.getBackAlpha() : material.getFrontAlpha());
  writeInteger(json, "side", material.getSide());
}

void writeTexture(JsonWriter& json, const sglTexture2D& texture) {
  sglTexture2D::WrapEnum s{};
  sglTexture2D::WrapEnum t{};
  texture.getWrapMode(s, t);
  writeText(json, "type", "sglTexture2D");
  writeInteger(json, "wrapS", s);
  writeInteger(json, "wrapT", t);
  writeInteger(json, "minFilter", texture.getMinFilter());
  writeInteger(json, "magFilter", texture.getMagFilter());
  writeBoolean(json, "autoMipmap", texture.getAutoMipmapFlag());
  writeInteger(json, "internalFormat", texture.getInternalFormat());
  if (texture.hasCompressionLevel()) writeInteger(json, "compressionLevel", texture.getCompressionLevel());
}

void writeStatelet(JsonWriter& json, const sglStatelet& statelet) {
  json.beginObject();
  if (const auto* lighting = dynamic_cast<const sglLighting*>(&statelet)) {
    writeText(json, "type", "sglLighting");
    writeBoolean(json, "on", lighting->isOn());
  } else if (const auto* material = dynamic_cast<const sglMaterial*>(&statelet)) {
    writeMaterial(json, *material);
  } else if (const auto* texture = dynamic_cast<const sglTexture2D*>(&statelet)) {
    writeTexture(json, *texture);
  } else if (const auto* texEnv = dynamic_cast<const sglTexEnv*>(&statelet)) {
    writeText(json, "type", "sglTexEnv");
    writeInteger(json, "mode", texEnv->getMode());
  } else if (const auto* transparency = dynamic_cast<const sglTransparency*>(&statelet)) {
    writeText(json, "type", "sglTransparency");
    writeBoolean(json, "on", transparency->isOn());
    writeInteger(json, "mode", transparency->getMode());
  } else if (const auto* alphaTest = dynamic_cast<const sglAlphaTest*>(&statelet)) {
    writeText(json, "type", "sglAlphaTest");
    writeInteger(json, "func", alphaTest->getFunc());
    writeNumber(json, "ref", alphaTest->getReference());
  } else if (const auto* cullMode = dynamic_cast<const sglCullMode*>(&statelet)) {
    writeText(json, "type", "sglCullMode");
    writeInteger(json, "mode", cullMode->getMode());
  } else if (const auto* frontFace = dynamic_cast<const sglFrontFace*>(&statelet)) {
    writeText(json, "type", "sglFrontFace");
    writeInteger(json, "mode", frontFace->getMode());
  } else {
    writeText(json, "type", "sglStatelet");
  }
  json.endObject();
}

}  // namespace

void writeDrawable(JsonWriter& json, const sglDrawable* drawable, StatesKey statesKey) {
  if (drawable == nullptr) return json.null();
  json.beginObject();
  writeGeometry(json, *drawable);
  writeBoolean(json, "displayList", drawable->isDisplayListEnabled());
  const StateElement* state = drawable->getState(0);
  if (state != nullptr || statesKey == StatesKey::Always) {
    json.key("states");
    json.beginList();
    if (state != nullptr) {
      for (const sglRef<sglStatelet>& statelet : state->getStatelets()) writeStatelet(json, *statelet);
    }
    json.endList();
  }
  json.endObject();
}

void writeMatrix(JsonWriter& json, const sglMat4<float>& matrix) { json.numbers(matrix.m); }

}  // namespace embedded
