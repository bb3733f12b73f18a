// Images inside a model are either whole files, which are written as they are, or plain texels, which are written as
// PNG.

#include "embedded/meshes/TextureFinder.h"

#include <assimp/scene.h>
#include <assimp/texture.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <utility>

#include "embedded/Paths.h"
#include "embedded/images/ImageFile.h"

namespace embedded {
namespace {

namespace fs = std::filesystem;

std::string_view fileBytesOf(const aiTexture& texture) {
  return {reinterpret_cast<const char*>(texture.pcData), texture.mWidth};
}

// The extension for an image file by its first bytes, else the one that the model gives.
std::string extensionOf(const aiTexture& texture) {
  constexpr std::pair<std::string_view, const char*> kKinds[] = {
      {"\x89PNG", "png"}, {"\xFF\xD8\xFF", "jpg"}, {"GIF8", "gif"}, {"BM", "bmp"}};
  for (const auto& [signature, extension] : kKinds) {
    if (fileBytesOf(texture).starts_with(signature)) return extension;
  }
  std::string extension;
  for (const char letter : std::string_view(texture.achFormatHint)) {
    if (std::isalnum(static_cast<unsigned char>(letter)) != 0) extension += letter;
  }
  return extension.empty() ? "image" : extension;
}

bool writeFile(const fs::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file.good();
}

bool writeTexels(const fs::path& path, const aiTexture& texture) {
  Raster raster;
  if (!makeRaster(texture.mWidth, texture.mHeight, 4, raster)) return false;
  std::uint8_t* to = raster.bytes.data();
  for (std::size_t i = 0; i < std::size_t{texture.mWidth} * texture.mHeight; ++i) {
    const aiTexel& texel = texture.pcData[i];
    for (const std::uint8_t value : {texel.r, texel.g, texel.b, texel.a}) *to++ = value;
  }
  return writeImageFile(path.string(), raster);
}

// The name with each %XX as the byte that it stands for.
std::string decoded(const std::string& uri) {
  const auto digit = [](char letter) -> int {
    if (letter >= '0' && letter <= '9') return letter - '0';
    const int small = std::tolower(static_cast<unsigned char>(letter));
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
  };
  std::string name;
  for (std::size_t i = 0; i < uri.size(); ++i) {
    const bool isCode = uri[i] == '%' && i + 2 < uri.size() && digit(uri[i + 1]) >= 0 && digit(uri[i + 2]) >= 0;
    name += isCode ? static_cast<char>(digit(uri[i + 1]) * 16 + digit(uri[i + 2])) : uri[i];
    if (isCode) i += 2;
  }
  return name;
}

fs::path wholePath(const fs::path& path) {
  std::error_code error;
  const fs::path whole = fs::absolute(path, error);
  return (error ? path : whole).lexically_normal();
}

}  // namespace

std::string TextureFinder::pathOf(const std::string& name) {
  const auto [texture, number] = m_scene.GetEmbeddedTextureAndIndex(name.c_str());
  if (texture == nullptr) return found(name);
  const auto [entry, isNew] = m_unpacked.try_emplace(texture);
  if (isNew) entry->second = unpacked(*texture, number);
  return entry->second;
}

std::string TextureFinder::unpacked(const aiTexture& texture, int number) {
  const bool isFile = texture.mHeight == 0;
  const std::string stem = fs::path(m_source.path).stem().string() + "_" + std::to_string(number);
  if (m_source.textureFolder.empty() || texture.pcData == nullptr) {
    m_notes.add("the texture " + std::to_string(number) + " inside the model is left out");
    return "";
  }
  const fs::path folder = wholePath(nativePath(m_source.textureFolder));
  const fs::path path = folder / (stem + "." + (isFile ? extensionOf(texture) : "png"));
  std::error_code error;
  fs::create_directories(folder, error);
  if (isFile ? writeFile(path, fileBytesOf(texture)) : writeTexels(path, texture)) return path.string();
  m_notes.add("the texture inside the model cannot be written to " + path.string());
  return "";
}

std::string TextureFinder::found(const std::string& name) const {
  constexpr std::string_view kScheme = "file://";
  std::string path = nativePath(name);
  if (path.starts_with(kScheme)) path.erase(0, kScheme.size());
  const fs::path folder = fs::path(m_source.path).parent_path();
  const fs::path candidates[] = {folder / path, folder / decoded(path), folder / fileNameOf(path)};
  for (const fs::path& candidate : candidates) {
    std::error_code error;
    if (fs::is_regular_file(candidate, error)) return wholePath(candidate).string();
  }
  return wholePath(candidates[0]).string();
}

}  // namespace embedded
