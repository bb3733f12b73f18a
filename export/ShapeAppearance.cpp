// Material values are the host's, unscaled. The address of a texture is relative, with a backslash, and always names a
// JPEG file, which is what the folder holds.

#include "export/ShapeAppearance.h"

#include <VekFoundations/CVekIO.h>
#include <VekFoundations/CVekImage.h>
#include <VekFoundations/CVekPropIDServer.h>
#include <VekFoundations/CVekPropPath.h>
#include <VekFoundations/CVekPropertySet.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTexture2D.h>
#include <VekSGdb/sglImageLoader.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/FormatText.h"

namespace exporter {
namespace {

struct MaterialValues {
  sglVec3<float> diffuse;
  sglVec3<float> specular;
  float shininess = 0.0F;
  float transparency = 0.0F;
};

/// The values of the last material among the statelets; all 0 without one.
MaterialValues materialOf(const StateElement& state) {
  MaterialValues values;
  for (const sglRef<sglStatelet>& statelet : state.getStatelets()) {
    const auto* material = dynamic_cast<const sglMaterial*>(statelet.get());
    if (material == nullptr) continue;
    values.diffuse = material->getFrontDiffuse();
    values.specular = material->getFrontSpecular();
    values.shininess = material->getFrontShininess();
    values.transparency = 1.0F - material->getFrontAlpha();
  }
  return values;
}

/// The path of the actor's texture image, "" when it has none.
CString texturePathOf(const CVekActor& actor) {
  static const CVekPropID id = GetPropIDServer().GetID("Texture.Map.Path");
  const CVekPropertySet* properties = actor.GetProperties();
  const auto* path = properties != nullptr ? dynamic_cast<const CVekPropPath*>(properties->GetProperty(id)) : nullptr;
  return path != nullptr ? path->GetValue() : CString();
}

/// The pixels row after row, red first; pixels that the image does not have are black.
std::vector<std::uint8_t> redFirstPixels(const CVekImage& image) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(std::size_t{image.GetWidth()} * image.GetHeight() * 3);
  static constexpr std::uint8_t kBlack[3] = {};
  for (unsigned y = 0; y < image.GetHeight(); ++y) {
    for (unsigned x = 0; x < image.GetWidth(); ++x) {
      const std::uint8_t* pixel = image.GetPixel(x, y);
      if (pixel == nullptr) pixel = kBlack;
      bytes.insert(bytes.end(), {pixel[2], pixel[1], pixel[0]});
    }
  }
  return bytes;
}

CString textureText(const CVekActor& actor, const CString& address) {
  const char* flags = hasTextureRepeated(actor) ? "repeatS TRUE repeatT TRUE }" : "repeatS FALSE repeatT FALSE }";
  return "\ntexture ImageTexture { url [ \"" + address + "\"]" + flags;
}

void printColor(TextWriter& out, const char* field, const sglVec3<float>& color) {
  out.print(field, " ", color.x, " ", color.y, " ", color.z, "\n");
}

}  // namespace

TextureFolder::TextureFolder(const CString& outputFile) {
  const CString folder = CVekIO::GetFileFolder(outputFile);
  m_path = (folder.empty() ? "." : folder) + "\\Textures\\";
}

CString TextureFolder::add(const CString& source) {
  const CString destination = m_path + CVekIO::GetFile(source);
  if (!CVekIO::IsDirectory(m_path)) CVekIO::CreateDirectoryA(m_path, false);
  if (CVekIO::GetFileExtension(source) != "jpg") {
    convert(source, CVekIO::GetFileBasePath(destination) + ".jpg");
  } else if (!CVekIO::IsFile(destination)) {
    CVekIO::CopyFileA(source, destination);
  }
  return "Textures\\" + CVekIO::GetFileBase(source) + ".jpg";
}

void TextureFolder::convert(const CString& source, const CString& destination) {
  CString& converted = m_converted[destination];
  if (converted == source) return;
  converted = source;
  CVekImage image;
  image.LoadImageA(source, false);
  const std::vector<std::uint8_t> bytes = redFirstPixels(image);
  sglImageLoader::writeImage(destination, bytes.data(), image.GetWidth(), image.GetHeight(), image.GetFormat(),
                             image.GetType(), 0);
}

void writeAppearance(TextWriter& out, const CVekActor& actor, const sglGeoSet& set, TextureFolder& textures) {
  const StateElement* state = set.getState(0);
  if (state == nullptr) return;
  const MaterialValues material = materialOf(*state);

  CString text = "Shape{\nappearance Appearance {";
  const CString texturePath = texturePathOf(actor);
  if (!texturePath.empty()) text += textureText(actor, textures.add(texturePath));
  out.put(expandFormat(text));

  out.put("\nmaterial Material {\n");
  printColor(out, "diffuseColor", material.diffuse);
  printColor(out, "specularColor", material.specular);
  out.print("shininess ", material.shininess, "\ntransparency ", material.transparency, "\n}\n}\n");
}

bool hasTextureRepeated(const CVekActor& actor) {
  const CVekTexture* slot = actor.GetTexture(0);
  const auto* texture = slot != nullptr ? dynamic_cast<const sglTexture2D*>(slot->GetTexture()) : nullptr;
  if (texture == nullptr) return false;
  sglTexture2D::WrapEnum s{};
  sglTexture2D::WrapEnum t{};
  texture->getWrapMode(s, t);
  return s == sglTexture2D::WRAP_REPEAT;
}

}  // namespace exporter
