// A million nodes below each other. Every operation runs on a thread with a small call stack, so that one that recurses
// ends the test.

#include <gtest/gtest.h>
#include <pthread.h>

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/BoxNode.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/NodeOwner.h"
#include "vrml/nodes/TransformNode.h"

namespace vrml {
namespace {

constexpr std::size_t kDepth = 1'000'000;
constexpr std::size_t kStackBytes = 256 * 1024;

// Runs a function on a thread with a call stack of kStackBytes.
template <class Function>
void runOnSmallStack(Function function) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackBytes), 0);
  pthread_t thread;
  const auto start = [](void* argument) -> void* {
    (*static_cast<Function*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, start, &function), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

std::unique_ptr<Node> makeChain(const char* typeName, std::size_t depth) {
  std::unique_ptr<Node> top(createNode(typeName));
  Node* node = top.get();
  for (std::size_t i = 1; i < depth; ++i) {
    Node* const child = createNode(typeName);
    node->addChildNode(child);
    node = child;
  }
  return top;
}

class CountingOwner : public NodeOwner {
 public:
  void nodeAttached(Node&) override { ++attached; }
  void nodeDetached(Node&) override { ++detached; }
  std::size_t attached = 0;
  std::size_t detached = 0;
};

TEST(DeepTree, IsMadeWalkedCopiedAndDestroyed) {
  runOnSmallStack([] {
    CountingOwner owner;
    std::unique_ptr<Node> top = makeChain("Group", kDepth);
    EXPECT_EQ(top->countNodes(), kDepth);
    top->setSceneGraph(&owner);
    EXPECT_EQ(owner.attached, kDepth);

    const Node* bottom = top.get();
    while (bottom->getChildNodes()) bottom = bottom->getChildNodes();
    EXPECT_TRUE(top->isAncestorOf(bottom));
    EXPECT_EQ(bottom->nextInDocument(top.get()), nullptr);

    Node* const copy = copyNode(top.get());
    EXPECT_EQ(copy->countNodes(), kDepth);
    const std::unique_ptr<Node> replaced(top->getChildNodes());
    EXPECT_TRUE(replaced->replaceWith(copy));
    EXPECT_EQ(copy->getParent(), top.get());
    EXPECT_EQ(owner.attached, 2 * kDepth);
    EXPECT_EQ(owner.detached, kDepth - 1);
    top.reset();
    EXPECT_EQ(owner.detached, owner.attached);
  });
}

TEST(DeepTree, ASourceEndsBeforeItsInstance) {
  runOnSmallStack([] {
    std::unique_ptr<Node> top = makeChain("Switch", kDepth);
    const std::unique_ptr<Node> copy(copyNode(top.get()));
    top.reset();
    EXPECT_EQ(copy->countNodes(), kDepth);
    EXPECT_EQ(copy->getChildNodes()->getReferenceNode(), nullptr);
  });
}

TEST(DeepTree, HasABoundingBox) {
  runOnSmallStack([] {
    constexpr std::size_t kBoxedDepth = kDepth / 4;
    const std::unique_ptr<Node> top = makeChain("Transform", kBoxedDepth);
    Node* bottom = top.get();
    while (bottom->getChildNodes()) {
      static_cast<TransformNode*>(bottom)->setTranslation(0.5f, 0, 0);
      bottom = bottom->getChildNodes();
    }
    auto* const shape = createNode("Shape");
    shape->addChildNode(new BoxNode);
    bottom->addChildNode(shape);
    top->prepare();
    const BoundingBox box = static_cast<GroupingNode&>(*top).getBoundingBox();
    EXPECT_EQ(box.halfExtents()[0], 1.0f);
    EXPECT_EQ(box.center()[0],
              0.5f * static_cast<float>(kBoxedDepth - 2));  // the topmost one moves its parent, not itself
  });
}

// Takes any text and keeps its length and its last bytes.
class CountingBuffer : public std::streambuf {
 public:
  std::size_t bytes = 0;
  std::string tail;

 protected:
  int_type overflow(int_type c) override {
    ++bytes;
    return c;
  }
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    bytes += static_cast<std::size_t>(count);
    tail.append(text, static_cast<std::size_t>(count));
    if (tail.size() > 64) tail.erase(0, tail.size() - 64);
    return count;
  }
};

// Indents grow with the depth and the text with its square, so this tree is less deep.
TEST(DeepTree, IsWritten) {
  runOnSmallStack([] {
    constexpr std::size_t kWrittenDepth = 5'000;
    const std::unique_ptr<Node> top = makeChain("Group", kWrittenDepth);
    CountingBuffer buffer;
    std::ostream out(&buffer);
    top->write(out, 0);
    // Each level: "Group {", "children [", "]" and "}" with their line ends; the last one has no children.
    constexpr std::size_t kTextBytes = 8 + 11 + 2 + 2;
    std::size_t expected = 0;
    for (std::size_t level = 0; level < kWrittenDepth; ++level) expected += kTextBytes + 2 * level * 4 + 2;
    expected -= 11 + 2 + 2 + 2 * (kWrittenDepth - 1) * 2;
    EXPECT_EQ(buffer.bytes, expected);
    EXPECT_EQ(buffer.tail.substr(buffer.tail.size() - 9), "\t\t}\n\t]\n}\n");
  });
}

}  // namespace
}  // namespace vrml
