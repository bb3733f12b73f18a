#include <VekSG/sglMaterial.h>

#include <fstream>

#include "embedded/LoaderSettings.h"
#include "tests/import/ImportTest.h"

namespace {

using importtest::dumpStates;
using importtest::faceSet;
using importtest::Loaded;
using importtest::OpenLoader;
using importtest::shape;

class Appearance : public importtest::ImportTest {
 protected:
  /// Puts a texture of an internal format into the cache.
  static sglTexture2D* cache(const std::string& name, sglTexture::FormatEnum format) {
    sglTexture2D* const texture = new sglTexture2D;
    texture->setInternalFormat(format);
    OpenLoader::s_tex_map[name] = texture;
    return texture;
  }

  /// The texture among a drawable's states; fails the test and gives an empty one when there is none.
  static const sglTexture2D* textureOf(const sglDrawable* drawable) {
    static const sglRef<sglTexture2D> kNone = new sglTexture2D;
    if (drawable != nullptr && drawable->getState(0) != nullptr) {
      for (const auto& state : drawable->getState(0)->getStatelets())
        if (const auto* texture = dynamic_cast<const sglTexture2D*>(state.get())) return texture;
    }
    ADD_FAILURE() << "no texture";
    return kNone.get();
  }
};

TEST_F(Appearance, states_stand_in_order) {
  const struct {
    const char* name;
    const char* appearance;
    const char* states;
    const char* report;
  } rows[] = {
      {"no appearance", "", "Lighting", ""},
      {"an appearance of nothing", "material NULL", "Lighting", ""},
      {"a material", "material Material { diffuseColor 0.1 0.2 0.3 }", "Lighting Material<0.1 0.2 0.3 / 1>", ""},
      {"a transparent material adds no state", "material Material { transparency 0.25 }",
       "Lighting Material<0.8 0.8 0.8 / 0.75>", ""},
      {"a pixel texture", "texture PixelTexture { image 2 1 3 0xFF0000 0x00FF00 }", "Lighting Texture2D TexEnv<8448>",
       ""},
      {"a pixel texture and a material", "texture PixelTexture { image 1 1 1 7 } material Material { }",
       "Lighting Material<0.8 0.8 0.8 / 1> Texture2D TexEnv<8448>", ""},
      {"four components: the host's format stays unknown", "texture PixelTexture { image 1 1 4 0xFF0000FF }",
       "Lighting Texture2D TexEnv<8448>", ""},
      {"a pixel texture without pixels", "texture PixelTexture { }", "Lighting",
       "2[width, height, or depth zero, or not enough data in PixelTexture\n]"},
      {"a pixel too many", "texture PixelTexture { image 2 1 3 1 2 3 }", "Lighting",
       "2[width, height, or depth zero, or not enough data in PixelTexture\n]"},
      {"a pixel too few", "texture PixelTexture { image 2 1 3 1 }", "Lighting",
       "2[width, height, or depth zero, or not enough data in PixelTexture\n]"},
      {"no components", "texture PixelTexture { image 1 1 0 1 }", "Lighting",
       "2[width, height, or depth zero, or not enough data in PixelTexture\n]"},
      {"five components", "texture PixelTexture { image 1 1 5 255 }", "Lighting",
       "2[createPixelTexture: unknown depth format.\n]2[Unable to create pixel texture.\n]"},
      {"two thousand million components", "texture PixelTexture { image 1 1 2000000000 255 }", "Lighting",
       "2[createPixelTexture: unknown depth format.\n]2[Unable to create pixel texture.\n]"},
      {"an image texture", "texture ImageTexture { url \"dot.gif\" }", "Lighting", "2[Texture: dot.gif not found.\n]"},
      {"the first of several urls", "texture ImageTexture { url [ \"a.gif\" \"b.gif\" ] }", "Lighting",
       "2[Texture: a.gif not found.\n]"},
      {"an image texture without a url", "texture ImageTexture { }", "Lighting", "2[Texture:  not found.\n]"},
      {"an empty url", "texture ImageTexture { url \"\" }", "Lighting", "2[Texture:  not found.\n]"},
      {"a movie texture", "texture MovieTexture { url \"m.mpg\" }", "Lighting", ""},
      {"a texture transform", "textureTransform TextureTransform { scale 2 2 }", "Lighting", ""},
  };
  write("dot.gif", "GIF89a");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Loaded loaded = load(shape(row.appearance));
    EXPECT_EQ(dumpStates(loaded.drawable()), row.states);
    EXPECT_EQ(loaded.report(), row.report);
  }
}

TEST_F(Appearance, an_image_texture_goes_before_a_pixel_texture) {
  // Beside each other they stand only where a file gives the field twice.
  const Loaded loaded = load(shape("texture PixelTexture { image 1 1 3 1 } texture ImageTexture { url \"x.gif\" }"));
  EXPECT_EQ(dumpStates(loaded.drawable()), "Lighting");
  EXPECT_EQ(loaded.report(), "2[Texture: x.gif not found.\n]");
}

TEST_F(Appearance, a_material_has_fixed_values_beside_its_colour) {
  const Loaded loaded =
      load(shape("material Material { diffuseColor 0.1 0.2 0.3 transparency 0.25 ambientIntensity 1 "
                 "emissiveColor 1 1 1 shininess 1 specularColor 0 1 0 }"));
  const auto& material = dynamic_cast<const sglMaterial&>(*loaded.drawable()->getState(0)->getStatelets()[1]);
  using Vec3 = sglVec3<float>;
  EXPECT_EQ(material.getFrontDiffuse(), (Vec3{0.1F, 0.2F, 0.3F}));
  EXPECT_EQ(material.getBackDiffuse(), (Vec3{0.1F, 0.2F, 0.3F}));
  EXPECT_EQ(material.getFrontAmbient(), (Vec3{0.2F, 0.2F, 0.2F}));
  EXPECT_EQ(material.getBackAmbient(), (Vec3{0.2F, 0.2F, 0.2F}));
  EXPECT_EQ(material.getFrontSpecular(), (Vec3{1.0F, 1.0F, 1.0F}));
  EXPECT_EQ(material.getFrontShininess(), 64.0F);
  EXPECT_EQ(material.getFrontAlpha(), 0.75F);
  EXPECT_EQ(material.getBackAlpha(), 0.75F);
  EXPECT_EQ(material.getSide(), 0x408U);
  EXPECT_FALSE(material.isColorMaterial());
}

TEST_F(Appearance, in_colour_material_mode_the_drawables_colours_count) {
  const Loaded loaded =
      load(shape("material Material { diffuseColor 1 0 0 }") + shape("material Material { }", "Box { }"),
           [](OpenLoader& loader) { loader.m_colorMaterial = true; });
  EXPECT_EQ(dumpStates(loaded.drawable(0)), "Lighting Material<mode 1032 5634>");
  EXPECT_EQ(dumpStates(loaded.drawable(1)), "Lighting Material<mode 1032 5634>");
  const sglRef<sglMaterial> fresh = new sglMaterial;
  const auto& material = dynamic_cast<const sglMaterial&>(*loaded.drawable(0)->getState(0)->getStatelets()[1]);
  EXPECT_EQ(material.getFrontDiffuse(), fresh->getFrontDiffuse());
  EXPECT_EQ(material.getFrontAmbient(), fresh->getFrontAmbient());
  EXPECT_EQ(material.getFrontSpecular(), fresh->getFrontSpecular());
  EXPECT_EQ(material.getFrontShininess(), fresh->getFrontShininess());
  EXPECT_EQ(material.getFrontAlpha(), fresh->getFrontAlpha());
  EXPECT_EQ(importtest::dumpList(dynamic_cast<const sglGeoSet&>(*loaded.drawable(1)).getColorList()), "0.8 0.8 0.8 1");
  EXPECT_EQ(loaded.statistic("Num Materials"), 2);
}

TEST_F(Appearance, materials_are_counted_for_each_shape_that_has_one) {
  const std::string used = shape("material USE m");
  EXPECT_EQ(load(shape("material DEF m Material { }") + used + used).statistic("Num Materials"), 3);
}

TEST_F(Appearance, every_shape_has_states_of_its_own_but_for_cached_textures) {
  cache("t", sglTexture::FORMAT_RGBA);
  const Loaded loaded = load("DEF s " + shape("material Material { } texture ImageTexture { url \"t\" }") + "USE s");
  const sglStateletList& first = loaded.drawable(0)->getState(0)->getStatelets();
  const sglStateletList& second = loaded.drawable(1)->getState(0)->getStatelets();
  ASSERT_EQ(dumpStates(loaded.drawable(0)),
            "Lighting Material<0.8 0.8 0.8 / 1> AlphaTest<516 0.5> Texture2D TexEnv<8448>");
  ASSERT_EQ(second.size(), first.size());
  constexpr std::size_t kTexture = 3;
  for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(first[i].get() == second[i].get(), i == kTexture) << i;
}

TEST_F(Appearance, a_pixel_texture_has_the_loaders_settings) {
  const struct {
    const char* fields;
    unsigned wrapS;
    unsigned wrapT;
  } rows[] = {{"", 0, 0}, {"repeatS FALSE", 1, 0}, {"repeatT FALSE", 0, 1}, {"repeatS FALSE repeatT FALSE", 1, 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.fields);
    const Loaded loaded = load(shape("texture PixelTexture { image 1 1 3 5 " + std::string(row.fields) + " }"));
    const sglTexture2D& texture = *textureOf(loaded.drawable());
    sglTexture2D::WrapEnum s{};
    sglTexture2D::WrapEnum t{};
    texture.getWrapMode(s, t);
    EXPECT_EQ(s, row.wrapS);
    EXPECT_EQ(t, row.wrapT);
    EXPECT_EQ(texture.getMinFilter(), 0x2703U);
    EXPECT_EQ(texture.getMagFilter(), 0x2601U);
    EXPECT_TRUE(texture.getAutoMipmapFlag());
    EXPECT_FALSE(texture.hasCompressionLevel());
    EXPECT_EQ(texture.getWidth(), 0U);
    EXPECT_EQ(texture.getInternalFormat(), 0U);
  }
}

TEST_F(Appearance, compresses_textures_when_told_to) {
  const Loaded loaded = load(shape("texture PixelTexture { image 1 1 3 5 }"), [](OpenLoader& loader) {
    loader.m_compressTextures = true;
    loader.m_minFilter = sglTexture::NEAREST;
    loader.m_magFilter = sglTexture::NEAREST;
  });
  const sglTexture2D& texture = *textureOf(loaded.drawable());
  EXPECT_TRUE(texture.hasCompressionLevel());
  EXPECT_EQ(texture.getCompressionLevel(), 3U);
  EXPECT_EQ(texture.getMinFilter(), sglTexture::NEAREST);
  EXPECT_EQ(texture.getMagFilter(), sglTexture::NEAREST);
}

TEST_F(Appearance, texels_are_counted_by_components) {
  const struct {
    const char* image;
    std::int32_t rgb;
    std::int32_t other;
  } rows[] = {
      {"2 1 1 0 0", 0, 2}, {"3 1 2 0 0 0", 0, 3}, {"2 2 3 0 0 0 0", 4, 0}, {"1 5 4 0 0 0 0 0", 0, 5}, {"1 1 5 0", 0, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.image);
    load(shape("texture PixelTexture { image " + std::string(row.image) + " }"), {}, [&row](const OpenLoader& loader) {
      EXPECT_EQ(loader.m_texelsRGB, row.rgb);
      EXPECT_EQ(loader.m_texelsOther, row.other);
      EXPECT_EQ(loader.m_numTextures, row.rgb + row.other == 0 ? 0 : 1);
    });
  }
}

TEST_F(Appearance, a_texture_needs_pixels_and_a_known_format) {
  const struct {
    const char* name;
    unsigned width, height, components;
    bool hasData;
    bool made;
    std::size_t messages;
  } rows[] = {
      {"one component", 2, 3, 1, true, true, 0},      {"four components", 2, 3, 4, true, true, 0},
      {"no components", 2, 3, 0, true, false, 1},     {"five components", 2, 3, 5, true, false, 1},
      {"five and no data", 2, 3, 5, false, false, 1}, {"no data", 2, 3, 3, false, false, 0},
      {"no width", 0, 3, 3, true, false, 0},          {"no height", 2, 0, 3, true, false, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const embedded::MessageRecorder recorder(false);
    OpenLoader loader;
    unsigned char data[32] = {};
    const sglRef<sglTexture2D> texture =
        loader.createPixelTexture(row.width, row.height, row.components, row.hasData ? data : nullptr, true, true);
    EXPECT_EQ(static_cast<bool>(texture), row.made);
    EXPECT_EQ(loader.m_numTextures, row.made ? 1 : 0);
    ASSERT_EQ(recorder.messages().size(), row.messages);
    for (const auto& message : recorder.messages())
      EXPECT_EQ(message.text, "createPixelTexture: unknown depth format.\n");
  }
}

TEST_F(Appearance, texel_counters_stop_at_the_largest_number) {
  OpenLoader loader;
  unsigned char data = 0;
  for (int i = 0; i < 2; ++i) {
    const sglRef<sglTexture2D> rgb = loader.createPixelTexture(60000, 60000, 3, &data, true, true);
    const sglRef<sglTexture2D> grey = loader.createPixelTexture(40000, 40000, 1, &data, true, true);
  }
  EXPECT_EQ(loader.m_texelsRGB, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(loader.m_texelsOther, std::numeric_limits<std::int32_t>::max());
}

TEST_F(Appearance, a_name_in_the_cache_gives_its_texture) {
  sglTexture2D* const texture = cache("Sky.GIF", sglTexture::FORMAT_RGB);
  texture->setWrapMode(sglTexture2D::WRAP_CLAMP, sglTexture2D::WRAP_CLAMP);
  const std::string world = faceSet("coordIndex [ 0 1 2 -1 ] texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1 ] }",
                                    "texture ImageTexture { url \"Sky.GIF\" repeatS TRUE }");
  for (int i = 0; i < 2; ++i) {  // the second load finds what the first one left
    const Loaded loaded = load(world);
    EXPECT_EQ(loaded.report(), "");
    EXPECT_EQ(dumpStates(loaded.drawable()), "Lighting Texture2D TexEnv<8448>");
    EXPECT_EQ(textureOf(loaded.drawable()), texture);
    EXPECT_EQ(loaded.triangles().getState(0)->getTexCoordList().size(), 1U);
    EXPECT_EQ(loaded.statistic("Num Textures"), 0);
  }
  sglTexture2D::WrapEnum s{};
  sglTexture2D::WrapEnum t{};
  texture->getWrapMode(s, t);
  EXPECT_EQ(s, sglTexture2D::WRAP_CLAMP);
  EXPECT_EQ(load(shape("texture ImageTexture { url \"sky.gif\" }")).report(), "2[Texture: sky.gif not found.\n]");
}

TEST_F(Appearance, transparent_textures_are_tested_or_blended) {
  const struct {
    sglTexture::FormatEnum format;
    bool alphaTest;
    float alphaRef;
    const char* states;
  } rows[] = {
      {sglTexture::FORMAT_RGBA, true, 0.5F, "Lighting AlphaTest<516 0.5> Texture2D TexEnv<8448>"},
      {sglTexture::FORMAT_RGBA, true, 0.125F, "Lighting AlphaTest<516 0.125> Texture2D TexEnv<8448>"},
      {sglTexture::FORMAT_RGBA, false, 0.5F, "Lighting Transparency<1 0> Texture2D TexEnv<8448>"},
      {sglTexture::FORMAT_RGB, true, 0.5F, "Lighting Texture2D TexEnv<8448>"},
      {sglTexture::FORMAT_RGB, false, 0.5F, "Lighting Texture2D TexEnv<8448>"},
      {sglTexture::FORMAT_LUMINANCE_ALPHA, true, 0.5F, "Lighting Texture2D TexEnv<8448>"},
      {sglTexture::FORMAT_UNKNOWN, true, 0.5F, "Lighting Texture2D TexEnv<8448>"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.states);
    cache("t", row.format);
    const Loaded loaded = load(shape("texture ImageTexture { url \"t\" }"), [&row](OpenLoader& loader) {
      loader.m_alphaTest = row.alphaTest;
      loader.m_alphaRef = row.alphaRef;
    });
    EXPECT_EQ(dumpStates(loaded.drawable()), row.states);
  }
}

/// An image reader that reads files of three numbers: width, height and bytes a pixel. It counts its calls.
int readerCalls = 0;
std::string lastRead;

bool readNumbers(const std::string& path, sglTexture2D* texture) {
  ++readerCalls;
  lastRead = path;
  unsigned width = 0;
  unsigned height = 0;
  unsigned components = 0;
  if (!(std::ifstream(path) >> width >> height >> components)) return false;
  constexpr sglTexture::FormatEnum kFormats[] = {sglTexture::FORMAT_LUMINANCE, sglTexture::FORMAT_LUMINANCE_ALPHA,
                                                 sglTexture::FORMAT_RGB, sglTexture::FORMAT_RGBA};
  return texture->setImage(width, height, kFormats[components - 1],
                           std::vector<std::uint8_t>(std::size_t{width} * height * components));
}

class TextureFiles : public Appearance {
 protected:
  TextureFiles() {
    readerCalls = 0;
    lastRead.clear();
    embedded::loaderSettings().imageReader = readNumbers;
  }
};

TEST_F(TextureFiles, are_read_when_the_host_offers_a_reader) {
  write("rgba.img", "4 2 4");
  const std::string world = shape("texture ImageTexture { url \"rgba.img\" repeatS FALSE }");
  const auto inspect = [](const OpenLoader& loader) {
    EXPECT_EQ(loader.m_numTextures, 1);
    EXPECT_EQ(loader.m_texelsRGB, 0);
    EXPECT_EQ(loader.m_texelsOther, 8);
  };
  const Loaded first = load(world + world, {}, inspect);
  EXPECT_EQ(first.report(), "");
  EXPECT_EQ(dumpStates(first.drawable(0)), "Lighting AlphaTest<516 0.5> Texture2D TexEnv<8448>");
  const sglTexture2D* const texture = textureOf(first.drawable(0));
  EXPECT_EQ(textureOf(first.drawable(1)), texture);
  EXPECT_EQ(texture->getWidth(), 4U);
  EXPECT_EQ(texture->getMinFilter(), 0x2703U);
  EXPECT_TRUE(texture->getAutoMipmapFlag());
  sglTexture2D::WrapEnum s{};
  sglTexture2D::WrapEnum t{};
  texture->getWrapMode(s, t);
  EXPECT_EQ(s, sglTexture2D::WRAP_CLAMP);
  EXPECT_EQ(t, sglTexture2D::WRAP_REPEAT);
  EXPECT_EQ(lastRead, pathOf("rgba.img"));
  EXPECT_EQ(OpenLoader::s_tex_map.at("rgba.img").get(), texture);

  const Loaded second = load(world);  // from the cache, though the reader is gone
  embedded::loaderSettings().imageReader = nullptr;
  EXPECT_EQ(textureOf(second.drawable()), texture);
  EXPECT_EQ(second.statistic("Num Textures"), 0);
  EXPECT_EQ(readerCalls, 1);
}

TEST_F(TextureFiles, are_searched_along_the_hosts_paths_first) {
  write("textures/both.img", "1 1 3");
  write("both.img", "2 1 3");
  embedded::loaderSettings().searchFolders = {pathOf("textures")};
  const Loaded loaded = load(shape("texture ImageTexture { url \"both.img\" }"));
  EXPECT_EQ(lastRead, pathOf("textures/both.img"));
  EXPECT_EQ(textureOf(loaded.drawable())->getWidth(), 1U);
}

TEST_F(TextureFiles, of_an_inlined_file_are_searched_beside_it_last) {
  const std::string world = "#VRML V2.0 utf8\n";
  write("sub/part.wrl",
        world + shape("texture ImageTexture { url \"../images/a.img\" }") + "Inline { url \"deep/er.wrl\" }");
  write("sub/deep/er.wrl",
        world + shape("texture ImageTexture { url \"b.img\" }") + shape("texture ImageTexture { url \"both.img\" }"));
  write("images/a.img", "1 1 3");
  write("sub/deep/b.img", "2 1 3");
  write("sub/deep/both.img", "3 1 3");
  write("both.img", "4 1 3");
  const Loaded loaded =
      load("DEF part Inline { url \"sub/part.wrl\" }" + shape("texture ImageTexture { url \"c.img\" }"));
  EXPECT_EQ(loaded.report(), "2[Texture: c.img not found.\n]");
  for (unsigned i = 0; i < 3; ++i) {
    ASSERT_NE(textureOf(loaded.drawable(i)), nullptr) << i;
    EXPECT_EQ(textureOf(loaded.drawable(i))->getWidth(), i == 2 ? 4U : i + 1) << i;
  }
}

TEST_F(TextureFiles, that_cannot_be_read_are_not_found) {
  write("broken.img", "no numbers");
  const Loaded loaded = load(shape("texture ImageTexture { url \"broken.img\" }") +
                             shape("texture ImageTexture { url \"missing.img\" }"));
  EXPECT_EQ(loaded.report(), "2[Texture: broken.img not found.\n]2[Texture: missing.img not found.\n]");
  EXPECT_EQ(dumpStates(loaded.drawable()), "Lighting");
  EXPECT_EQ(readerCalls, 1);
  EXPECT_TRUE(OpenLoader::s_tex_map.empty());
  EXPECT_EQ(loaded.statistic("Num Textures"), 0);
}

TEST_F(TextureFiles, of_three_components_are_counted_as_such) {
  write("rgb.img", "3 5 3");
  load(shape("texture ImageTexture { url \"rgb.img\" }"), {}, [](const OpenLoader& loader) {
    EXPECT_EQ(loader.m_texelsRGB, 15);
    EXPECT_EQ(loader.m_texelsOther, 0);
  });
}

}  // namespace
