// Materials, texture addresses, and what is put into the folder beside the world.

#include "export/ShapeAppearance.h"

#include <VekFoundations/CVekImage.h>
#include <VekFoundations/CVekProp.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "export/CVekVRMLLoader.h"
#include "tests/TempFolder.h"
#include "tests/export/Scene.h"
#include "tests/export/Written.h"

namespace {

using exporter_test::geoSet;
using exporter_test::written;
using fixtures::contentOf;
using fixtures::TempFolder;
using fixtures::writeFile;

sglRef<sglStatelet> material(float red, float alpha, float shininess) {
  constexpr auto kBoth = sglMaterial::FRONT_AND_BACK;
  auto* result = new sglMaterial;
  result->setDiffuse(red, 0.25F, 0.5F, kBoth);
  result->setAmbient(0.9F, 0.9F, 0.9F, kBoth);
  result->setSpecular(0.125F, 0.0F, 1.0F, kBoth);
  result->setShininess(shininess, kBoth);
  result->setAlpha(alpha, kBoth);
  return result;
}

std::string attributes(CVekActor* actor, sglGeoSet* set, const std::string& outputFile) {
  CVekVRMLLoader writer;
  writer.SetFileName(outputFile);
  return written([&](std::FILE* file) { writer.WriteAttributes(file, actor, set, "name"); });
}

/// The part of the text before the material.
std::string textureTextOf(CVekActor& actor, const std::string& outputFile) {
  const auto set = geoSet();
  const std::string text = attributes(&actor, set.get(), outputFile);
  return text.substr(0, text.find("\nmaterial"));
}

const std::string kOpening = "Shape{\nappearance Appearance {";

const std::string kNoMaterial =
    "\nmaterial Material {\ndiffuseColor 0.000000 0.000000 0.000000\nspecularColor 0.000000 0.000000 0.000000\n"
    "shininess 0.000000\ntransparency 0.000000\n}\n}\n";

TEST(ShapeAppearance, MaterialValuesAreTheHosts) {
  CVekActorMesh actor;
  const auto set = geoSet({}, {material(0.75F, 0.25F, 64.0F)});
  EXPECT_EQ(attributes(&actor, set.get(), "scene.wrl"),
            kOpening +
                "\nmaterial Material {\ndiffuseColor 0.750000 0.250000 0.500000\nspecularColor 0.125000 0.000000 "
                "1.000000\nshininess 64.000000\ntransparency 0.750000\n}\n}\n");
}

TEST(ShapeAppearance, OnlyTheFrontOfAMaterialCounts) {
  auto* twoSided = new sglMaterial;
  twoSided->setShininess(3.0F, sglMaterial::FRONT);
  twoSided->setShininess(5.0F, sglMaterial::BACK);
  CVekActorMesh actor;
  const auto set = geoSet({}, {twoSided});
  EXPECT_NE(attributes(&actor, set.get(), "scene.wrl").find("shininess 3.000000\n"), std::string::npos);
}

TEST(ShapeAppearance, WithoutAMaterialEveryValueIsZero) {
  CVekActorMesh actor;
  const auto set = geoSet();
  EXPECT_EQ(attributes(&actor, set.get(), "scene.wrl"), kOpening + kNoMaterial);
}

TEST(ShapeAppearance, TheLastMaterialWins) {
  CVekActorMesh actor;
  const auto set = geoSet({}, {material(0.1F, 0.0F, 1.0F), new sglTexture2D, material(0.75F, 0.5F, 2.0F)});
  const auto last = geoSet({}, {material(0.75F, 0.5F, 2.0F)});
  EXPECT_EQ(attributes(&actor, set.get(), "scene.wrl"), attributes(&actor, last.get(), "scene.wrl"));
}

TEST(ShapeAppearance, NothingIsWrittenForWhatIsMissing) {
  const TempFolder folder;
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, folder.path("wood.jpg"));
  const auto set = geoSet();
  CVekVRMLLoader().WriteAttributes(nullptr, &actor, set.get(), "");
  EXPECT_EQ(attributes(nullptr, set.get(), "scene.wrl"), "");
  EXPECT_EQ(attributes(&actor, nullptr, "scene.wrl"), "");
  sglIndexedTriangleSet stateless;
  stateless.setState(1, {});
  EXPECT_EQ(attributes(&actor, &stateless, folder.path("scene.wrl")), "");
  EXPECT_FALSE(std::filesystem::exists(folder.path("Textures")));
}

TEST(ShapeAppearance, TextureAddressesAreRelativeWithABackslash) {
  struct Row {
    const char* name;
    const char* source;
    const char* address;
  };
  const Row rows[] = {
      {"slashes", "maps/wood.jpg", "wood.jpg"},
      {"backslashes", "C:\\maps\\wood.png", "wood.jpg"},
      {"both slashes", "C:\\maps/new\\wood.png", "wood.jpg"},
      {"capitals", "wood.JPG", "wood.jpg"},
      {"several dots and a blank", "my wood.v2.tga", "my wood.v2.jpg"},
      {"no extension", "wood", "wood.jpg"},
      {"doubled percent signs become one", "100%%.jpg", "100%.jpg"},
      {"a conversion writes nothing and reads nothing", "a%s%n%5.3fb.jpg", "ab.jpg"},
      {"a percent sign that begins no conversion stays", "50%, oak.jpg", "50%, oak.jpg"},
  };
  const TempFolder folder;
  for (const Row& row : rows) {
    CVekActorMesh actor;
    exporter_test::setMapPath(actor, row.source);
    EXPECT_EQ(textureTextOf(actor, folder.path("scene.wrl")), kOpening + "\ntexture ImageTexture { url [ \"Textures\\" +
                                                                  row.address + "\"]repeatS FALSE repeatT FALSE }")
        << row.name;
  }
}

TEST(ShapeAppearance, NoPathNoTexture) {
  const TempFolder folder;
  CVekActorMesh without;
  CVekActorMesh empty;
  exporter_test::setMapPath(empty, "");
  CVekActorMesh otherKind;
  otherKind.GetProperties()->SetProperty(GetPropIDServer().GetID("Texture.Map.Path"),
                                         std::make_unique<CVekProp<bool>>(true));
  for (CVekActorMesh* actor : {&without, &empty, &otherKind}) {
    EXPECT_EQ(textureTextOf(*actor, folder.path("scene.wrl")), kOpening);
  }
  EXPECT_FALSE(std::filesystem::exists(folder.path("Textures")));
}

TEST(ShapeAppearance, RepeatIsDecidedBySAlone) {
  constexpr auto kRepeat = sglTexture2D::WRAP_REPEAT;
  constexpr auto kClamp = sglTexture2D::WRAP_CLAMP;
  const TempFolder folder;
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, "wood.jpg");
  const auto flags = [&] {
    const std::string text = textureTextOf(actor, folder.path("scene.wrl"));
    return text.substr(text.find(']') + 1);
  };
  EXPECT_FALSE(CVekVRMLLoader::HasTextureRepeated(nullptr));
  EXPECT_FALSE(CVekVRMLLoader::HasTextureRepeated(&actor));
  actor.SetTexture(0, exporter_test::texture({}, kRepeat, kClamp));
  EXPECT_TRUE(CVekVRMLLoader::HasTextureRepeated(&actor));
  EXPECT_EQ(flags(), "repeatS TRUE repeatT TRUE }");
  actor.SetTexture(0, exporter_test::texture({}, kClamp, kRepeat));
  EXPECT_FALSE(CVekVRMLLoader::HasTextureRepeated(&actor));
  EXPECT_EQ(flags(), "repeatS FALSE repeatT FALSE }");
  actor.SetTexture(0, std::make_unique<CVekTexture>());
  EXPECT_FALSE(CVekVRMLLoader::HasTextureRepeated(&actor)) << "a texture without an image of two dimensions";
}

TEST(ShapeAppearance, AJpegIsCopiedOnceAndKept) {
  const TempFolder folder;
  writeFile(folder.path("wood.jpg"), "picture");
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, folder.path("wood.jpg"));
  std::filesystem::create_directory(folder.path("out"));
  textureTextOf(actor, folder.path("out/scene.wrl"));
  EXPECT_EQ(contentOf(folder.path("out/Textures/wood.jpg")), "picture");
  writeFile(folder.path("wood.jpg"), "another");
  textureTextOf(actor, folder.path("out/scene.wrl"));
  EXPECT_EQ(contentOf(folder.path("out/Textures/wood.jpg")), "picture");
}

TEST(ShapeAppearance, AMissingSourceStillGetsItsEntry) {
  const TempFolder folder;
  for (const char* name : {"nosuch.jpg", "nosuch.png"}) {
    CVekActorMesh actor;
    exporter_test::setMapPath(actor, folder.path(name));
    EXPECT_NE(textureTextOf(actor, folder.path("scene.wrl")).find("Textures\\nosuch.jpg"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_directory(folder.path("Textures")));
    EXPECT_FALSE(std::filesystem::exists(folder.path("Textures/nosuch.jpg")));
  }
}

/// An uncompressed Targa image of 16 by 16 pixels in four quarters, given as red, green, blue: top left, top right,
/// bottom left, bottom right.
std::string quarteredTarga(const std::array<std::array<unsigned char, 3>, 4>& quarters) {
  std::string bytes = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 16, 0, 16, 0, 24, 0x20};
  for (std::size_t y = 0; y < 16; ++y) {
    for (std::size_t x = 0; x < 16; ++x) {
      const auto& color = quarters[2 * (y / 8) + x / 8];
      for (const std::size_t channel : {2U, 1U, 0U}) bytes += static_cast<char>(color[channel]);
    }
  }
  return bytes;
}

constexpr std::array<std::array<unsigned char, 3>, 4> kRedGreenBlueWhite = {
    {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}}};

/// The colours in the middle of the quarters of an image file, bright or dark by channel: "R", "G", "B", "RGB".
std::string quartersOf(const std::string& path) {
  CVekImage image;
  if (!image.LoadImageA(path, false) || image.GetWidth() != 16 || image.GetHeight() != 16) return "no such image";
  std::string text;
  for (const unsigned y : {4U, 12U}) {
    for (const unsigned x : {4U, 12U}) {
      const std::uint8_t* pixel = image.GetPixel(x, y);
      text += " ";
      if (pixel[2] > 127) text += "R";
      if (pixel[1] > 127) text += "G";
      if (pixel[0] > 127) text += "B";
    }
  }
  return text;
}

TEST(ShapeAppearance, AnythingElseIsConvertedToJpeg) {
  const TempFolder folder;
  writeFile(folder.path("wood.tga"), quarteredTarga(kRedGreenBlueWhite));
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, folder.path("wood.tga"));
  textureTextOf(actor, folder.path("scene.wrl"));
  EXPECT_EQ(contentOf(folder.path("Textures/wood.jpg")).substr(0, 3), "\xff\xd8\xff");
  EXPECT_EQ(quartersOf(folder.path("Textures/wood.jpg")), " R G B RGB");
  EXPECT_FALSE(std::filesystem::exists(folder.path("Textures/wood.tga")));
}

TEST(ShapeAppearance, AJpegInCapitalsIsConverted) {
  const TempFolder folder;
  writeFile(folder.path("first.tga"), quarteredTarga(kRedGreenBlueWhite));
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, folder.path("first.tga"));
  textureTextOf(actor, folder.path("scene.wrl"));
  // Bytes behind the end of a JPEG file survive a copy and no conversion.
  writeFile(folder.path("wood.JPG"), contentOf(folder.path("Textures/first.jpg")) + "behind the end");
  exporter_test::setMapPath(actor, folder.path("wood.JPG"));
  textureTextOf(actor, folder.path("scene.wrl"));
  EXPECT_EQ(quartersOf(folder.path("Textures/wood.jpg")), " R G B RGB");
  EXPECT_EQ(contentOf(folder.path("Textures/wood.jpg")).find("behind the end"), std::string::npos);
}

TEST(ShapeAppearance, EveryExportConvertsAnew) {
  const TempFolder folder;
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, folder.path("wood.tga"));
  for (const unsigned char red : {std::uint8_t{255}, std::uint8_t{0}}) {
    const std::array<unsigned char, 3> color = {red, 255, 0};
    writeFile(folder.path("wood.tga"), quarteredTarga({color, color, color, color}));
    textureTextOf(actor, folder.path("scene.wrl"));
    EXPECT_EQ(quartersOf(folder.path("Textures/wood.jpg")), red != 0 ? " RG RG RG RG" : " G G G G");
  }
}

TEST(ShapeAppearance, OneExportConvertsAnImageOnce) {
  const TempFolder folder;
  writeFile(folder.path("wood.tga"), quarteredTarga(kRedGreenBlueWhite));
  exporter::TextureFolder textures(folder.path("scene.wrl"));
  EXPECT_EQ(textures.add(folder.path("wood.tga")), "Textures\\wood.jpg");
  std::filesystem::remove(folder.path("Textures/wood.jpg"));
  EXPECT_EQ(textures.add(folder.path("wood.tga")), "Textures\\wood.jpg");
  EXPECT_FALSE(std::filesystem::exists(folder.path("Textures/wood.jpg")));
}

TEST(ShapeAppearance, OfTwoImagesOfOneNameTheLastOneStays) {
  const TempFolder folder;
  const auto plain = [](unsigned char red) {
    const std::array<unsigned char, 3> color = {red, 255, 0};
    return quarteredTarga({color, color, color, color});
  };
  for (const char* name : {"a", "b"}) std::filesystem::create_directory(folder.path(name));
  writeFile(folder.path("a/wood.tga"), plain(255));
  writeFile(folder.path("b/wood.tga"), plain(0));
  exporter::TextureFolder textures(folder.path("scene.wrl"));
  for (const char* name : {"a/wood.tga", "b/wood.tga", "a/wood.tga"}) {
    textures.add(folder.path(name));
    EXPECT_EQ(quartersOf(folder.path("Textures/wood.jpg")), name[0] == 'a' ? " RG RG RG RG" : " G G G G");
  }
}

TEST(ShapeAppearance, TheFolderOfAFileIsFoundAtEitherSlash) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.path("out"));
  writeFile(folder.path("wood.tga"), quarteredTarga(kRedGreenBlueWhite));
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, folder.path("") + "\\wood.tga");
  EXPECT_NE(textureTextOf(actor, folder.path("out") + "\\scene.wrl").find("\"Textures\\wood.jpg\""), std::string::npos);
  EXPECT_EQ(quartersOf(folder.path("out/Textures/wood.jpg")), " R G B RGB");
}

TEST(ShapeAppearance, TheFolderOfABareFileNameIsTheCurrentOne) {
  const TempFolder folder;
  writeFile(folder.path("wood.jpg"), "picture");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path(""));
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, "wood.jpg");
  textureTextOf(actor, "scene.wrl");
  std::filesystem::current_path(before);
  EXPECT_EQ(contentOf(folder.path("Textures/wood.jpg")), "picture");
}

}  // namespace
