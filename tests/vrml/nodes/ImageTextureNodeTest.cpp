// The current file name of an image texture, and what a texture that reads no file says of its picture.

#include "vrml/nodes/ImageTextureNode.h"

#include <gtest/gtest.h>

#include <memory>

#include "vrml/nodes/NodeFactory.h"

namespace vrml {
namespace {

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

TEST(ImageTextureNode, HoldsNoPictureItself) {
  for (const char* typeName : {"ImageTexture", "MovieTexture"}) {
    const std::unique_ptr<Node> node(createNode(typeName));
    auto& texture = static_cast<TextureNode&>(*node);
    EXPECT_EQ(texture.getWidth(), 0);
    EXPECT_EQ(texture.getHeight(), 0);
    EXPECT_EQ(texture.getImage(), nullptr);
  }
}

}  // namespace
}  // namespace vrml
