// A material becomes the states that the module's import would give it: lighting, the material with the same ambient
// colour, the texture with its environment, and what it needs of alpha test, blending and culling.

#include "embedded/meshes/MaterialReader.h"

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTransparency.h>
#include <assimp/GltfMaterial.h>
#include <assimp/material.h>
#include <assimp/scene.h>

#include <algorithm>

#include "embedded/images/ImageFile.h"
#include "embedded/meshes/GltfValues.h"

namespace embedded {
namespace {

using Color = std::array<float, 4>;

constexpr auto kBothSides = sglMaterial::FRONT_AND_BACK;
constexpr float kAmbient = 0.2F;
constexpr Color kGrey{0.6F, 0.6F, 0.6F, 1.0F};

float within(float value, float greatest) { return value > 0.0F ? std::min(value, greatest) : 0.0F; }

// The colour texture of a material.
struct ColorTexture {
  std::string name;  // as the file has it, "" without a texture
  TexturePlacement placement;
  bool isTurned = false;
  bool repeatsS = true;
  bool repeatsT = true;
};

ColorTexture colorTextureOf(const aiMaterial& material) {
  for (const aiTextureType type : {aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE}) {
    aiString name;
    if (material.GetTexture(type, 0, &name) != aiReturn_SUCCESS) continue;
    ColorTexture texture;
    texture.name = name.C_Str();
    int channel = 0;
    if (material.Get(AI_MATKEY_UVWSRC(type, 0), channel) == aiReturn_SUCCESS && channel >= 0) {
      texture.placement.channel = static_cast<unsigned>(channel);
    }
    aiUVTransform transform;
    if (material.Get(AI_MATKEY_UVTRANSFORM(type, 0), transform) == aiReturn_SUCCESS) {
      texture.placement.scale = {transform.mScaling.x, transform.mScaling.y};
      texture.placement.offset = {transform.mTranslation.x, transform.mTranslation.y};
      texture.isTurned = transform.mRotation != 0.0F;
    }
    int mode = aiTextureMapMode_Wrap;
    static_cast<void>(material.Get(AI_MATKEY_MAPPINGMODE_U(type, 0), mode));
    texture.repeatsS = mode != aiTextureMapMode_Clamp && mode != aiTextureMapMode_Decal;
    mode = aiTextureMapMode_Wrap;
    static_cast<void>(material.Get(AI_MATKEY_MAPPINGMODE_V(type, 0), mode));
    texture.repeatsT = mode != aiTextureMapMode_Clamp && mode != aiTextureMapMode_Decal;
    return texture;
  }
  return {};
}

std::string alphaModeOf(const aiMaterial& material) {
  aiString mode;
  return material.Get(AI_MATKEY_GLTF_ALPHAMODE, mode) == aiReturn_SUCCESS ? mode.C_Str() : "";
}

// The material's own colour as the file has it, with its opacity.
Color ownColorOf(const aiMaterial& material, bool isLinear) {
  aiColor4D color(kGrey[0], kGrey[1], kGrey[2], kGrey[3]);
  if (!isLinear || material.Get(AI_MATKEY_BASE_COLOR, color) != aiReturn_SUCCESS) {
    static_cast<void>(material.Get(AI_MATKEY_COLOR_DIFFUSE, color));
  }
  if (isLinear) {
    if (alphaModeOf(material) == "OPAQUE") color.a = 1.0F;
  } else {
    color.a = 1.0F;
    static_cast<void>(material.Get(AI_MATKEY_OPACITY, color.a));
  }
  return {color.r, color.g, color.b, color.a};
}

// glTF multiplies the colours of vertex and material, elsewhere the vertex's stands for the material's.
Color blended(const Color& own, const Color& vertex, bool isLinear) {
  if (!isLinear) return {vertex[0], vertex[1], vertex[2], own[3] * vertex[3]};
  return {own[0] * vertex[0], own[1] * vertex[1], own[2] * vertex[2], own[3] * vertex[3]};
}

Color displayed(const Color& color, bool isLinear) {
  Color shown;
  for (std::size_t i = 0; i < 3; ++i) shown[i] = isLinear ? displayedOf(color[i]) : within(color[i], 1.0F);
  shown[3] = within(color[3], 1.0F);
  return shown;
}

float shininessOf(const aiMaterial& material, bool isLinear) {
  float value = 1.0F;
  if (isLinear) {
    static_cast<void>(material.Get(AI_MATKEY_ROUGHNESS_FACTOR, value));
    return embedded::shininessOf(value);
  }
  value = 0.0F;
  static_cast<void>(material.Get(AI_MATKEY_SHININESS, value));
  return within(value, 128.0F);
}

sglRef<sglMaterial> hostMaterialOf(const aiMaterial& material, const Color& color, bool isLinear) {
  const sglRef<sglMaterial> made(new sglMaterial);
  aiColor3D specular(0.0F, 0.0F, 0.0F);
  static_cast<void>(material.Get(AI_MATKEY_COLOR_SPECULAR, specular));
  made->setDiffuse(color[0], color[1], color[2], kBothSides);
  made->setAmbient(kAmbient, kAmbient, kAmbient, kBothSides);
  made->setSpecular(within(specular.r, 1.0F), within(specular.g, 1.0F), within(specular.b, 1.0F), kBothSides);
  made->setShininess(shininessOf(material, isLinear), kBothSides);
  made->setAlpha(color[3], kBothSides);
  return made;
}

// What a textured surface needs so that its alpha shows, null for nothing.
sglRef<sglStatelet> alphaStateOf(const aiMaterial& material, const sglTexture2D* texture) {
  const std::string mode = alphaModeOf(material);
  if (mode == "BLEND") return new sglTransparency(true, sglTransparency::BLEND);
  if (texture == nullptr || mode == "OPAQUE") return nullptr;
  if (texture->getInternalFormat() != sglTexture::FORMAT_RGBA) return nullptr;
  float cutoff = 0.5F;
  static_cast<void>(material.Get(AI_MATKEY_GLTF_ALPHACUTOFF, cutoff));
  return new sglAlphaTest(sglAlphaTest::GREATER, within(cutoff, 1.0F));
}

// Where the file does not say which way its faces look, both sides show.
bool isTwoSided(const aiMaterial& material) {
  int isTwoSided = 1;
  static_cast<void>(material.Get(AI_MATKEY_TWOSIDED, isTwoSided));
  return isTwoSided != 0;
}

}  // namespace

MaterialReader::MaterialReader(const aiScene& scene, const MeshSource& source, MeshNotes& notes)
    : m_scene(scene), m_source(source), m_notes(notes), m_finder(scene, source, notes) {}

const aiMaterial* MaterialReader::materialAt(unsigned number) const {
  static const aiMaterial kNone;
  return number < m_scene.mNumMaterials ? m_scene.mMaterials[number] : &kNone;
}

Color MaterialReader::vertexColorOf(unsigned material, const Color& color) const {
  return displayed(blended(ownColorOf(*materialAt(material), m_source.isLinear), color, m_source.isLinear),
                   m_source.isLinear);
}

TexturePlacement MaterialReader::placementOf(unsigned material) const {
  const ColorTexture texture = colorTextureOf(*materialAt(material));
  if (texture.isTurned) m_notes.add("the texture " + texture.name + " is not turned");
  return texture.placement;
}

MeshLooks MaterialReader::looksOf(unsigned number, const std::optional<Color>& meanColor) {
  const aiMaterial& material = *materialAt(number);
  const bool isLinear = m_source.isLinear;
  const Color own = ownColorOf(material, isLinear);
  const Color color = displayed(meanColor ? blended(own, *meanColor, isLinear) : own, isLinear);
  MeshLooks looks;
  looks.states = {sglRef<sglStatelet>(new sglLighting(true)), hostMaterialOf(material, color, isLinear)};
  looks.statesWithTexture = looks.states;
  addTexture(material, looks);
  for (sglStateletList* states : {&looks.states, &looks.statesWithTexture}) {
    const bool hasTexture = states == &looks.statesWithTexture && looks.texture;
    if (const auto alpha = alphaStateOf(material, hasTexture ? looks.texture.get() : nullptr)) states->push_back(alpha);
    if (hasTexture) {
      states->push_back(looks.texture);
      states->push_back(new sglTexEnv);
    }
    if (isTwoSided(material)) states->push_back(new sglCullMode(sglCullMode::CULL_OFF));
  }
  return looks;
}

void MaterialReader::addTexture(const aiMaterial& material, MeshLooks& looks) {
  const ColorTexture texture = colorTextureOf(material);
  if (texture.name.empty()) return;
  looks.texturePath = m_finder.pathOf(texture.name);
  if (!looks.texturePath.empty()) looks.texture = readTexture(looks.texturePath, texture.repeatsS, texture.repeatsT);
}

sglRef<sglTexture2D> MaterialReader::readTexture(const std::string& path, bool repeatsS, bool repeatsT) {
  const auto [entry, isNew] = m_textures.try_emplace(path + (repeatsS ? '1' : '0') + (repeatsT ? '1' : '0'));
  if (!isNew) return entry->second;
  const sglRef<sglTexture2D> texture(new sglTexture2D);
  if (!readTextureImage(path, texture.get())) m_notes.add("the texture " + path + " cannot be read");
  texture->setFileName(path);
  texture->setAutoMipmapFlag(true);
  texture->setMinFilter(sglTexture::LINEAR_MIPMAP_LINEAR);
  texture->setWrapMode(repeatsS ? sglTexture2D::WRAP_REPEAT : sglTexture2D::WRAP_CLAMP,
                       repeatsT ? sglTexture2D::WRAP_REPEAT : sglTexture2D::WRAP_CLAMP);
  entry->second = texture;
  return texture;
}

}  // namespace embedded
