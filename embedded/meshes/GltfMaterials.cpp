// Looks into metallic-roughness materials: no metal, the roughness that the shininess stands for. glTF embeds PNG and
// JPEG; what is neither is written anew as PNG.

#include "embedded/meshes/GltfMaterials.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <span>
#include <string_view>
#include <vector>

#include "embedded/Paths.h"
#include "embedded/images/ImageCodecs.h"
#include "embedded/images/ImageFile.h"
#include "embedded/meshes/GltfValues.h"

namespace embedded {
namespace {

using Bytes = std::vector<std::uint8_t>;

double wide(float value) { return double{value}; }

Bytes bytesOfFile(const std::string& path) {
  std::ifstream file(nativePath(path), std::ios::binary);
  if (!file || file.peek() == std::ifstream::traits_type::eof()) return {};
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The kind that an image's first bytes say it is, "" when it is none that glTF takes.
std::string mimeTypeOf(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kPng = "\x89PNG\r\n\x1a\n";
  constexpr std::string_view kJpeg = "\xFF\xD8\xFF";
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (text.starts_with(kPng)) return "image/png";
  return text.starts_with(kJpeg) ? "image/jpeg" : "";
}

std::string alphaModeName(AlphaMode mode) {
  switch (mode) {
    case AlphaMode::Opaque:
      return "OPAQUE";
    case AlphaMode::Mask:
      return "MASK";
    case AlphaMode::Blend:
      return "BLEND";
  }
  return "";
}

}  // namespace

int GltfMaterials::imageOf(const std::string& path) {
  const auto [entry, isNew] = m_images.try_emplace(path, -1);
  if (!isNew) return entry->second;
  Bytes bytes = bytesOfFile(path);
  Raster raster;
  // What claims to be an image must be one: a viewer has nobody to report a broken one to.
  if (bytes.empty() || !readImageFile(path, raster)) {
    m_notes.add("the texture " + path + " cannot be read and is left out");
    return -1;
  }
  tinygltf::Image image;
  image.mimeType = mimeTypeOf(bytes);
  if (image.mimeType.empty()) {
    image.mimeType = "image/png";
    bytes.clear();
    if (!writePng(raster, bytes)) {
      m_notes.add("the texture " + path + " cannot be written as PNG and is left out");
      return -1;
    }
  }
  image.bufferView = m_buffer.addImage(std::move(bytes));
  entry->second = static_cast<int>(m_model.images.size());
  m_model.images.push_back(std::move(image));
  return entry->second;
}

int GltfMaterials::samplerOf(bool repeatsS, bool repeatsT) {
  const auto [entry, isNew] = m_samplers.try_emplace({repeatsS, repeatsT}, static_cast<int>(m_model.samplers.size()));
  if (!isNew) return entry->second;
  tinygltf::Sampler sampler;
  sampler.wrapS = repeatsS ? TINYGLTF_TEXTURE_WRAP_REPEAT : TINYGLTF_TEXTURE_WRAP_CLAMP_TO_EDGE;
  sampler.wrapT = repeatsT ? TINYGLTF_TEXTURE_WRAP_REPEAT : TINYGLTF_TEXTURE_WRAP_CLAMP_TO_EDGE;
  m_model.samplers.push_back(sampler);
  return entry->second;
}

int GltfMaterials::textureOf(const Surface& surface) {
  if (surface.texturePath.empty()) return -1;
  const int image = imageOf(surface.texturePath);
  if (image < 0) return -1;
  const int sampler = samplerOf(surface.repeatsS, surface.repeatsT);
  const auto [entry, isNew] = m_textures.try_emplace({sampler, image}, static_cast<int>(m_model.textures.size()));
  if (!isNew) return entry->second;
  tinygltf::Texture texture;
  texture.sampler = sampler;
  texture.source = image;
  m_model.textures.push_back(std::move(texture));
  return entry->second;
}

int GltfMaterials::materialOf(const Surface& surface, bool hasColors) {
  Surface key = surface;
  if (hasColors) key.diffuse = {1.0F, 1.0F, 1.0F};
  key.specular = {};  // has no place in a material
  const auto [entry, isNew] = m_materials.try_emplace(key, static_cast<int>(m_model.materials.size()));
  if (!isNew) return entry->second;
  tinygltf::Material material;
  tinygltf::PbrMetallicRoughness& looks = material.pbrMetallicRoughness;
  looks.baseColorFactor = {wide(linearOf(key.diffuse[0])), wide(linearOf(key.diffuse[1])),
                           wide(linearOf(key.diffuse[2])), wide(key.alpha)};
  looks.metallicFactor = 0.0;
  looks.roughnessFactor = wide(roughnessOf(key.shininess));
  looks.baseColorTexture.index = textureOf(key);
  material.alphaMode = alphaModeName(key.alphaMode);
  if (key.alphaMode == AlphaMode::Mask) material.alphaCutoff = wide(key.alphaCutoff);
  material.doubleSided = key.isDoubleSided;
  m_model.materials.push_back(std::move(material));
  return entry->second;
}

}  // namespace embedded
