// The current file name of an image texture, and the picture of the GIF file that its first url names.

#include "vrml/nodes/ImageTextureNode.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/TempFolder.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {
namespace {

/// A GIF file of one row of pixels, all of one grey.
std::string gif(char width, char grey) {
  std::string file("GIF89a", 6);
  file += {width, 0, 1, 0, '\x80', 0, 0, grey, grey, grey, 0, 0, 0};
  file += {',', 0, 0, 0, 0, width, 0, 1, 0, 0, 2};
  // Codes of three bits: clear, 0, clear, 0 and so on; the last byte ends the image with what is left of it.
  std::string data;
  unsigned bits = 0;
  unsigned count = 0;
  const auto put = [&](unsigned code) {
    bits |= code << count;
    for (count += 3; count >= 8; count -= 8, bits >>= 8) data += static_cast<char>(bits & 0xFF);
  };
  for (int i = 0; i < width; ++i) {
    put(4);
    put(0);
  }
  put(5);
  data += static_cast<char>(bits);
  file += static_cast<char>(data.size());
  return file + data + std::string(1, '\0') + ';';
}

/// A texture with a url below the root of a file.
struct TextureInFile {
  explicit TextureInFile(const std::string& file, const std::string& url) {
    root.setFile(file);
    root.addChildNode(texture, FieldKey::none);
    texture->editUrl().addValue(url.c_str());
  }
  RootNode root;
  ImageTextureNode* texture = new ImageTextureNode;  // the root's
};

void expectNoPicture(TextureNode& texture) {
  EXPECT_EQ(texture.getWidth(), 0);
  EXPECT_EQ(texture.getHeight(), 0);
  EXPECT_EQ(texture.getImage(), nullptr);
}

TEST(ImageTextureNode, TakesTheFirstUrl) {
  ImageTextureNode texture;
  EXPECT_EQ(texture.refresh(), nullptr);
  EXPECT_EQ(texture.getFileName(), "");
  texture.editUrl().addValue("a.gif");
  texture.editUrl().addValue("b.gif");
  EXPECT_EQ(texture.getFileName(), "");
  EXPECT_STREQ(texture.refresh(), "a.gif");
  EXPECT_EQ(texture.getFileName(), "a.gif");
}

TEST(ImageTextureNode, ForgetsItsFileWhenItHasNoUrl) {
  ImageTextureNode texture;
  texture.editUrl().addValue("a.gif");
  EXPECT_STREQ(texture.refresh(), "a.gif");
  texture.prepare();
  EXPECT_EQ(texture.getFileName(), "a.gif");
  texture.editUrl().clear();
  EXPECT_EQ(texture.refresh(), nullptr);
  EXPECT_EQ(texture.getFileName(), "a.gif");
  texture.prepare();
  EXPECT_EQ(texture.getFileName(), "");
}

TEST(ImageTextureNode, AMissingTextIsAnEmptyName) {
  ImageTextureNode texture;
  texture.editUrl().PackedField::addValue(nullptr);
  EXPECT_STREQ(texture.refresh(), "");
}

TEST(ImageTextureNode, AnInstanceHasItsSourcesUrl) {
  ImageTextureNode texture;
  const std::unique_ptr<Node> instance(copyNode(&texture));
  texture.editUrl().addValue("a.gif");
  EXPECT_STREQ(instance->refresh(), "a.gif");
}

TEST(ImageTextureNode, HasThePictureOfTheGIFFileThatItsFirstUrlNames) {
  const fixtures::TempFolder folder;
  folder.write("a.gif", gif(2, 7));
  folder.write("maps/no-extension", gif(3, 8));
  folder.write("b.gif", gif(5, 9));
  const struct {
    std::string url;
    int width;
    int grey;
  } rows[] = {
      {"a.gif", 2, 7},      {"maps/no-extension", 3, 8}, {"maps\\no-extension", 3, 8},
      {"file:a.gif", 2, 7}, {"maps/../a.gif", 2, 7},     {folder.path("a.gif"), 2, 7},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.url);
    const TextureInFile file(folder.path("world.wrl"), row.url);
    file.texture->editUrl().addValue("b.gif");
    EXPECT_EQ(file.texture->getWidth(), row.width);
    EXPECT_EQ(file.texture->getHeight(), 1);
    const unsigned char* const pixels = file.texture->getImage();
    ASSERT_NE(pixels, nullptr);
    for (int i = 0; i < 3 * row.width; ++i) EXPECT_EQ(pixels[i], row.grey);
    EXPECT_EQ(file.texture->getImage(), pixels);
  }
}

TEST(ImageTextureNode, HasNoPictureOfAnythingElse) {
  const fixtures::TempFolder folder;
  folder.write("picture.png", "\x89PNG\r\n\x1A\n and so on");
  folder.write("picture.gif", std::string("BM and so on"));
  folder.write("unsigned.gif", "PIC" + gif(2, 7).substr(3));
  folder.write("short.gif", "GIF");
  folder.write("cut.gif", gif(2, 7).substr(0, 25));
  folder.write("second.gif", gif(2, 7));
  std::filesystem::create_directory(folder.path("folder.gif"));
  ASSERT_EQ(mkfifo(folder.path("pipe.gif").c_str(), 0600), 0);  // reading it would wait for ever
  for (const char* url : {"picture.png", "picture.gif", "unsigned.gif", "short.gif", "cut.gif", "missing.gif", "",
                          "folder.gif", "pipe.gif", "/dev/zero", "http://localhost/second.gif"}) {
    SCOPED_TRACE(url);
    const TextureInFile file(folder.path("world.wrl"), url);
    file.texture->editUrl().addValue("second.gif");
    expectNoPicture(*file.texture);
  }
  ImageTextureNode withoutUrl;
  expectNoPicture(withoutUrl);
  ImageTextureNode missingText;
  missingText.editUrl().PackedField::addValue(nullptr);
  expectNoPicture(missingText);
}

TEST(ImageTextureNode, ReadsItsFileOnceAndOnlyWhenAsked) {
  const fixtures::TempFolder folder;
  const TextureInFile file(folder.path("world.wrl"), "a.gif");
  ImageTextureNode& texture = *file.texture;
  texture.refresh();
  texture.initialize();
  texture.prepare();
  folder.write("a.gif", gif(2, 7));
  EXPECT_EQ(texture.getWidth(), 2);
  std::filesystem::remove(folder.path("a.gif"));
  EXPECT_EQ(texture.getWidth(), 2);
  ASSERT_NE(texture.getImage(), nullptr);
  EXPECT_EQ(texture.getImage()[0], 7);
}

TEST(ImageTextureNode, ReadsAnewAfterARefreshAndForAnotherUrl) {
  const fixtures::TempFolder folder;
  folder.write("a.gif", gif(2, 7));
  folder.write("b.gif", gif(3, 8));
  const TextureInFile file(folder.path("world.wrl"), "a.gif");
  ImageTextureNode& texture = *file.texture;
  EXPECT_EQ(texture.getWidth(), 2);
  folder.write("a.gif", gif(4, 9));
  EXPECT_EQ(texture.getWidth(), 2);
  EXPECT_STREQ(texture.refresh(), "a.gif");
  EXPECT_EQ(texture.getWidth(), 4);
  texture.editUrl().clear();
  expectNoPicture(texture);
  texture.editUrl().addValue("b.gif");
  EXPECT_EQ(texture.getWidth(), 3);
  EXPECT_EQ(texture.getImage()[0], 8);
}

TEST(ImageTextureNode, AnInstanceHasItsSourcesPicture) {
  const fixtures::TempFolder folder;
  folder.write("a.gif", gif(2, 7));
  const TextureInFile file(folder.path("world.wrl"), "a.gif");
  const std::unique_ptr<Node> instance(copyNode(file.texture));
  auto& texture = static_cast<TextureNode&>(*instance);
  EXPECT_EQ(texture.getWidth(), 2);
  EXPECT_EQ(texture.getHeight(), 1);
  EXPECT_EQ(texture.getImage(), file.texture->getImage());
}

TEST(ImageTextureNode, BelowAnInlineNamesFilesBesideThatOne) {
  const fixtures::TempFolder folder;
  folder.write("a.gif", gif(2, 7));
  folder.write("parts/a.gif", gif(3, 8));
  RootNode root;
  root.setFile(folder.path("world.wrl"));
  auto* const inlined = static_cast<InlineNode*>(createNode("Inline"));
  root.addChildNode(inlined);
  inlined->setFile(folder.path("parts/part.wrl"));
  auto* const texture = new ImageTextureNode;
  inlined->addChildNode(texture, FieldKey::none);
  texture->editUrl().addValue("a.gif");
  EXPECT_EQ(texture->getWidth(), 3);
}

TEST(MovieTextureNode, HasNoPicture) {
  const std::unique_ptr<Node> node(createNode("MovieTexture"));
  expectNoPicture(static_cast<TextureNode&>(*node));
}

}  // namespace
}  // namespace vrml
