// Materials and textures. A texture brings its environment with it, and when it is transparent an alpha test or
// blending.

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTransparency.h>
#include <VekSGdb/sglDataLoader.h>

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "import/Counters.h"
#include "import/Messages.h"
#include "import/PixelBytes.h"
#include "import/ShapeParts.h"
#include "import/sglLoadFile_wrl.h"
#include "vrml/nodes/ImageTextureNode.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/MaterialNode.h"
#include "vrml/nodes/PixelTextureNode.h"

namespace {

using importer::count;
using importer::ShapeParts;
using importer::warn;

/// The format of an image by its bytes a pixel; unknown for anything but 1 to 4.
sglTexture::FormatEnum formatOf(unsigned components) {
  switch (components) {
    case 1:
      return sglTexture::FORMAT_LUMINANCE;
    case 2:
      return sglTexture::FORMAT_LUMINANCE_ALPHA;
    case 3:
      return sglTexture::FORMAT_RGB;
    case 4:
      return sglTexture::FORMAT_RGBA;
    default:
      return sglTexture::FORMAT_UNKNOWN;
  }
}

sglTexture2D::WrapEnum wrapOf(bool repeat) { return repeat ? sglTexture2D::WRAP_REPEAT : sglTexture2D::WRAP_CLAMP; }

std::string firstUrl(const vrml::ImageTextureNode& node) {
  const auto urls = node.getUrl().values();
  return urls.empty() || urls.front() == nullptr ? std::string() : std::string(urls.front());
}

/// The host's reader of image files; null when it offers none, or knows no such thing.
sglModelLoader::ImageReaderFn imageReader() {
  return &sglModelLoader::getImageReader != nullptr ? sglModelLoader::getImageReader() : nullptr;
}

}  // namespace

std::map<std::string, sglRef<sglTexture2D>> sglLoadFile_wrl::s_tex_map;

void sglLoadFile_wrl::convertAppearance(const vrml::Node& appearance, ShapeParts& parts) {
  if (const vrml::Node* material = appearance.getFirstChild(vrml::nodeType("Material")))
    convertMaterial(static_cast<const vrml::MaterialNode&>(*material), parts);

  sglRef<sglTexture2D> texture;
  if (const vrml::Node* image = appearance.getFirstChild(vrml::nodeType("ImageTexture")))
    texture = convertImageTexture(static_cast<const vrml::ImageTextureNode&>(*image));
  else if (const vrml::Node* pixels = appearance.getFirstChild(vrml::nodeType("PixelTexture")))
    texture = convertPixelTexture(static_cast<const vrml::PixelTextureNode&>(*pixels));
  if (texture) addTextureStates(texture, parts);
}

void sglLoadFile_wrl::convertMaterial(const vrml::MaterialNode& node, ShapeParts& parts) {
  constexpr auto kSide = sglMaterial::FRONT_AND_BACK;
  const sglRef<sglMaterial> material = new sglMaterial;
  count(m_numMaterials);
  if (m_colorMaterial) {
    material->setColorMaterial(kSide, sglMaterial::AMBIENT_AND_DIFFUSE);
  } else {
    const auto& [red, green, blue] = node.getDiffuseColor().getValue();
    material->setDiffuse(red, green, blue, kSide);
    material->setAmbient(0.2F, 0.2F, 0.2F, kSide);
    material->setSpecular(1.0F, 1.0F, 1.0F, kSide);
    material->setShininess(64.0F, kSide);
    material->setAlpha(1.0F - node.getTransparency(), kSide);
  }
  parts.states.push_back(material);
  parts.material = &node;
}

sglRef<sglTexture2D> sglLoadFile_wrl::convertImageTexture(const vrml::ImageTextureNode& node) {
  const std::string url = firstUrl(node);
  const std::string inlinedFile = vrml::inlinedFileOf(node);
  m_inlineDir = inlinedFile.empty() ? "" : sglDataLoader::extractDirectoryFromPath(inlinedFile);
  sglTexture2D* const texture = createTexture(url, node.getRepeatS(), node.getRepeatT());
  if (texture == nullptr) warn("Texture: ", url, " not found.\n");
  return texture;
}

sglRef<sglTexture2D> sglLoadFile_wrl::convertPixelTexture(const vrml::PixelTextureNode& node) {
  const std::span<const std::int32_t> integers = node.getImageField().values();
  const auto image = importer::PixelImage::read(integers);
  if (!image) {
    warn("width, height, or depth zero, or not enough ", "data in PixelTexture\n");
    return nullptr;
  }
  // Pixels of no known format never become bytes: they may claim any number of them.
  std::vector<std::uint8_t> bytes;
  if (formatOf(image->components) != sglTexture::FORMAT_UNKNOWN) bytes = importer::packPixels(*image);
  sglTexture2D* const texture = createPixelTexture(image->width, image->height, image->components, bytes.data(),
                                                   node.getRepeatS(), node.getRepeatT());
  if (texture == nullptr) warn("Unable to create pixel texture.\n");
  return texture;
}

void sglLoadFile_wrl::addTextureStates(const sglRef<sglTexture2D>& texture, ShapeParts& parts) {
  if (texture->getInternalFormat() == sglTexture::FORMAT_RGBA) {
    if (m_alphaTest)
      parts.states.push_back(new sglAlphaTest(sglAlphaTest::GREATER, m_alphaRef));
    else
      parts.states.push_back(new sglTransparency(true, sglTransparency::BLEND));
  }
  const sglRef<sglTexEnv> environment = new sglTexEnv;
  environment->setMode(sglTexEnv::MODULATE);
  parts.states.push_back(texture);
  parts.states.push_back(environment);
  parts.hasTexture = true;
}

sglTexture2D* sglLoadFile_wrl::createTexture(const std::string& name, bool repeatS, bool repeatT) {
  if (const auto cached = s_tex_map.find(name); cached != s_tex_map.end()) return cached->second.get();

  const auto readImage = imageReader();
  std::string path;
  bool isFound =
      sglDataLoader::findFile(name, nullptr, path) || sglDataLoader::findFile(name, m_modelDir.c_str(), path);
  if (readImage == nullptr) return nullptr;
  // An inlined file means its own folder.
  if (!isFound && !m_inlineDir.empty()) isFound = sglDataLoader::findFile(name, m_inlineDir.c_str(), path);
  if (!isFound) return nullptr;
  sglRef<sglTexture2D> texture = new sglTexture2D;
  if (!readImage(path, texture.get())) return nullptr;
  setUpTexture(*texture, texture->getImageFormat(), texture->getWidth(), texture->getHeight(), repeatS, repeatT);
  return (s_tex_map[name] = std::move(texture)).get();
}

sglTexture2D* sglLoadFile_wrl::createPixelTexture(unsigned width, unsigned height, unsigned components, void* data,
                                                  bool repeatS, bool repeatT) {
  const sglTexture::FormatEnum format = formatOf(components);
  if (format == sglTexture::FORMAT_UNKNOWN) {
    warn("createPixelTexture: unknown depth format.\n");
    return nullptr;
  }
  if (data == nullptr || width == 0 || height == 0) return nullptr;
  sglTexture2D* const texture = new sglTexture2D;
  setUpTexture(*texture, format, width, height, repeatS, repeatT);
  return texture;
}

void sglLoadFile_wrl::setUpTexture(sglTexture2D& texture, sglTexture::FormatEnum format, unsigned width,
                                   unsigned height, bool repeatS, bool repeatT) {
  texture.setAutoMipmapFlag(true);
  texture.setWrapMode(wrapOf(repeatS), wrapOf(repeatT));
  texture.setMinFilter(m_minFilter);
  texture.setMagFilter(m_magFilter);
  if (m_compressTextures) texture.setCompressionLevel(m_compressionLevel);

  count(m_numTextures);
  count(format == sglTexture::FORMAT_RGB ? m_texelsRGB : m_texelsOther, std::uint64_t{width} * height);
}
