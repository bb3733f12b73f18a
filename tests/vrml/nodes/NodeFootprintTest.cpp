// What nodes cost. A file holds them by the hundred thousand, so the number of blocks and bytes that a node takes is
// part of its behaviour. The program's operator new counts here, and the pool, where a build has one.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/CoordinateNode.h"
#include "vrml/nodes/IndexedFaceSetNode.h"
#include "vrml/nodes/MaterialNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/NodePool.h"
#include "vrml/nodes/TransformNode.h"

namespace {

std::size_t g_blockCount = 0;
std::size_t g_blockBytes = 0;

// What the usual allocator takes for a block: eight bytes of its own, in steps of sixteen.
constexpr std::size_t costOf(std::size_t size) { return (size + 8 + 15) / 16 * 16; }

}  // namespace

// Never inlined: a compiler that sees only one half of the pair takes the free() in it for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++g_blockCount;
  g_blockBytes += costOf(size);
  if (void* const block = std::malloc(size)) return block;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* block) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept { std::free(block); }

namespace vrml {
namespace {

struct Cost {
  std::size_t blocks;
  std::size_t bytes;
};

template <class Function>
Cost costOfRunning(Function function) {
  static_cast<void>(std::make_unique<TransformNode>());  // the pool has a chunk, with room for more than a test takes
  NodePool::release(NodePool::allocate(1), 1);           // and no block to spare of a size that a test takes
  const std::size_t blocks = g_blockCount;
  const std::size_t bytes = g_blockBytes;
  const NodePool::Fill before = NodePool::fill();
  function();
  const NodePool::Fill after = NodePool::fill();
  return {g_blockCount - blocks + after.blocks - before.blocks, g_blockBytes - bytes + after.bytes - before.bytes};
}

template <class N>
N& add(Node& parent) {
  N* const node = new N;
  parent.addChildNode(node);
  return *node;
}

TEST(NodeFootprint, AnEmptyNodeIsOneBlock) {
  for (const char* name : kNodeTypeNames) {
    Node* node = nullptr;
    const Cost cost = costOfRunning([&] { node = createNode(name); });
    const std::unique_ptr<Node> owner(node);
    EXPECT_EQ(cost.blocks, 1u) << name;
    EXPECT_LE(cost.bytes, 128u) << name;
  }
}

TEST(NodeFootprint, AShapeWithPlaceColourAndFacesIsLean) {
  std::unique_ptr<Node> top;
  const Cost cost = costOfRunning([&] {
    auto transform = std::make_unique<TransformNode>();
    transform->setTranslation(1, 2, 3);
    transform->setRotation(0, 0, 1, 1);
    Node* const shape = createNode("Shape");
    transform->addChildNode(shape);
    Node* const appearance = createNode("Appearance");
    shape->addChildNode(appearance);
    add<MaterialNode>(*appearance).setDiffuseColor(1, 0, 0);
    auto& faces = add<IndexedFaceSetNode>(*shape);
    add<CoordinateNode>(faces).editPoint().clear();
    faces.editCoordIndex().clear();
    top = std::move(transform);
  });
  EXPECT_EQ(top->countNodes(), 6u);
  EXPECT_LE(cost.blocks, 12u);
  EXPECT_LE(cost.bytes, 1000u);
}

TEST(NodeFootprint, AnInstanceIsOneSmallBlock) {
  MaterialNode source;
  source.setShininess(1);
  source.setName("m");
  for (const bool isReference : {false, true}) {
    Node* node = nullptr;
    const Cost cost = costOfRunning([&] { node = isReference ? createReference(source) : copyNode(&source); });
    const std::unique_ptr<Node> owner(node);
    EXPECT_EQ(cost.blocks, 1u);
    EXPECT_GE(cost.bytes, sizeof(Node));
    EXPECT_LE(cost.bytes, 96u);
  }
}

TEST(NodeFootprint, ReadingTakesNothing) {
  const auto read = [] {
    TransformNode node;
    double matrix[16];
    node.getMatrix(matrix);
    EXPECT_EQ(node.getScale().x(), 1.0f);
    EXPECT_FALSE(node.hasBboxSize());
    EXPECT_FALSE(node.hasName());
    EXPECT_EQ(node.getReferenceNode(), nullptr);
  };
  read();  // makes the defaults that all nodes share
  EXPECT_EQ(costOfRunning(read).blocks, 0u);
}

}  // namespace
}  // namespace vrml
