// Urls as files of this machine, and the file that a node stands in.

#include "vrml/nodes/LocalUrl.h"

#include <gtest/gtest.h>

#include <memory>

#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {
namespace {

TEST(LocalUrl, IsAPathBesideTheFileThatNamesIt) {
  const struct {
    const char* url;
    const char* base;
    const char* expected;
  } rows[] = {
      {"a.gif", "worlds/x.wrl", "worlds/a.gif"},
      {"a.gif", "worlds\\x.wrl", "worlds\\a.gif"},
      {"a.gif", "x.wrl", "a.gif"},
      {"a.gif", "", "a.gif"},
      {"a.gif", "/x.wrl", "/a.gif"},
      {"../maps\\a.gif", "worlds/x.wrl", "worlds/../maps/a.gif"},
      {"/maps/a.gif", "worlds/x.wrl", "/maps/a.gif"},
      {"\\maps\\a.gif", "worlds/x.wrl", "/maps/a.gif"},
      {"file:a.gif", "worlds/x.wrl", "worlds/a.gif"},
      {"file:///maps/a.gif", "worlds/x.wrl", "///maps/a.gif"},
      {"C:a.gif", "worlds/x.wrl", "worlds/C:a.gif"},
      {"a b: c.gif", "worlds/x.wrl", "worlds/a b: c.gif"},
      {"http://host/a.gif", "worlds/x.wrl", ""},
      {"data:image/gif;base64,R0lG", "worlds/x.wrl", ""},
      {"file:", "worlds/x.wrl", ""},
      {"", "worlds/x.wrl", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(localPath(row.url, row.base), row.expected) << row.url << " in " << row.base;
}

TEST(LocalUrl, BelongsToTheInnermostFile) {
  RootNode root;
  Node* const group = createNode("Group");
  auto* const outer = static_cast<InlineNode*>(createNode("Inline"));
  auto* const inner = static_cast<InlineNode*>(createNode("Inline"));
  Node* const leaf = createNode("Shape");
  root.addChildNode(group);
  group->addChildNode(outer);
  outer->addChildNode(inner, fieldKey("children"));
  inner->addChildNode(leaf, fieldKey("children"));
  EXPECT_EQ(fileOfNode(*group), "");
  root.setFile("main.wrl");
  outer->setFile("parts/outer.wrl");
  inner->setFile("parts/deep/inner.wrl");
  EXPECT_EQ(fileOfNode(root), "");
  EXPECT_EQ(fileOfNode(*group), "main.wrl");
  EXPECT_EQ(fileOfNode(*outer), "main.wrl");
  EXPECT_EQ(fileOfNode(*inner), "parts/outer.wrl");
  EXPECT_EQ(fileOfNode(*leaf), "parts/deep/inner.wrl");

  // A copy of an Inline holds what its source's file holds.
  auto* const copy = static_cast<InlineNode*>(copyNode(outer));
  root.addChildNode(copy);
  EXPECT_EQ(fileOfNode(*copy->getChildNodes()), "parts/outer.wrl");
}

}  // namespace
}  // namespace vrml
