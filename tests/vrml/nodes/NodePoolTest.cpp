#include "vrml/nodes/NodePool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <random>
#include <utility>
#include <vector>

#include "vrml/nodes/ElevationGridNode.h"
#include "vrml/nodes/MaterialNode.h"
#include "vrml/nodes/NodeFactory.h"

namespace vrml {
namespace {

constexpr std::size_t kSize = 1000;
constexpr std::size_t kPerChunk = NodePool::kChunkSize / kSize;

// Blocks that are given back when the test ends.
class Blocks {
 public:
  Blocks() = default;
  ~Blocks() {
    while (!m_blocks.empty()) releaseLast();
  }
  Blocks(const Blocks&) = delete;
  Blocks& operator=(const Blocks&) = delete;

  void* take(std::size_t size = kSize) { return m_blocks.emplace_back(Block{NodePool::allocate(size), size}).start; }
  void releaseLast() {
    NodePool::release(m_blocks.back().start, m_blocks.back().size);
    m_blocks.pop_back();
  }
  void shuffle() { std::shuffle(m_blocks.begin(), m_blocks.end(), std::mt19937(1)); }

 private:
  struct Block {
    void* start;
    std::size_t size;
  };
  std::vector<Block> m_blocks;
};

std::uintptr_t addressOf(const void* block) { return reinterpret_cast<std::uintptr_t>(block); }

TEST(NodePool, BlocksAreAlignedAndApart) {
  Blocks blocks;
  std::vector<std::pair<unsigned char*, std::size_t>> filled;
  for (std::size_t size = 1; size <= 300; ++size) {
    auto* const block = static_cast<unsigned char*>(blocks.take(size));
    EXPECT_EQ(addressOf(block) % NodePool::kAlignment, 0u);
    std::memset(block, static_cast<int>(size % 251), size);
    filled.emplace_back(block, size);
  }
  for (const auto& [block, size] : filled)
    for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(block[i], size % 251);
}

TEST(NodePool, WhatIsMadeInARowLiesInARow) {
  Blocks blocks;
  blocks.take(8);
  const std::uintptr_t first = addressOf(blocks.take(80));
  EXPECT_EQ(addressOf(blocks.take(24)), first + 80);
  EXPECT_EQ(addressOf(blocks.take(8)), first + 104);
}

TEST(NodePool, ChunksGoBackWhenNothingInThemIsLeft) {
  const std::size_t before = NodePool::countChunks();
  {
    Blocks blocks;
    for (std::size_t i = 0; i < 10 * kPerChunk; ++i) blocks.take();
    EXPECT_GE(NodePool::countChunks(), before + 9);
    EXPECT_LE(NodePool::countChunks(), before + 11);
    blocks.shuffle();
  }
  EXPECT_LE(NodePool::countChunks(), before + 1);
}

TEST(NodePool, OneBlockKeepsItsChunkOnly) {
  Blocks kept;
  kept.take();
  const std::size_t before = NodePool::countChunks();
  {
    Blocks blocks;
    for (std::size_t i = 0; i < 5 * kPerChunk; ++i) blocks.take();
  }
  EXPECT_LE(NodePool::countChunks(), before + 1);
}

TEST(NodePool, AnEmptiedChunkIsCutAnew) {
  Blocks blocks;
  for (std::size_t i = 0; i < 2 * kPerChunk; ++i) blocks.take();
  while (NodePool::fill().blocks > 0) blocks.releaseLast();
  EXPECT_EQ(NodePool::fill().bytes, 0u);
  const std::size_t chunks = NodePool::countChunks();
  blocks.take();
  EXPECT_EQ(NodePool::fill().bytes, kSize);
  EXPECT_EQ(NodePool::countChunks(), chunks);
}

TEST(NodePool, TakingAndGivingBackDoesNotGrow) {
  const std::size_t before = NodePool::countChunks();
  for (std::size_t i = 0; i < 20 * kPerChunk; ++i) NodePool::release(NodePool::allocate(kSize), kSize);
  EXPECT_LE(NodePool::countChunks(), before + 1);
}

TEST(NodePool, TheBlockGivenBackLastIsTakenNext) {
  Blocks blocks;
  blocks.take();
  const void* const last = blocks.take();
  blocks.releaseLast();
  const std::size_t bytes = NodePool::fill().bytes;
  EXPECT_EQ(blocks.take(), last);
  EXPECT_EQ(NodePool::fill().bytes, bytes);
  EXPECT_NE(blocks.take(), last) << "it is taken once";
}

TEST(NodePool, ABlockOfAnotherSizeIsNotTaken) {
  Blocks blocks;
  blocks.take();
  const std::uintptr_t last = addressOf(blocks.take());
  blocks.releaseLast();
  EXPECT_EQ(addressOf(blocks.take(kSize + 8)), last + kSize);
}

TEST(NodePool, ABlockOfAChunkThatHasGoneIsNotTaken) {
  {
    Blocks blocks;
    blocks.take();
    blocks.take();
  }
  // The chunk is cut anew from its start, so two blocks cannot be one.
  Blocks blocks;
  const std::uintptr_t first = addressOf(blocks.take());
  EXPECT_EQ(addressOf(blocks.take()), first + kSize);
  EXPECT_EQ(addressOf(blocks.take()), first + 2 * kSize);
}

TEST(NodePool, AFullChunkTakesNoMore) {
  Blocks blocks;
  std::uintptr_t last = 0;
  const std::size_t before = NodePool::countChunks();
  while (NodePool::countChunks() < before + 2) {
    last = addressOf(blocks.take());
    // The block ends within the chunk that it begins in.
    ASSERT_EQ(last / NodePool::kChunkSize, (last + kSize - 1) / NodePool::kChunkSize);
  }
  EXPECT_EQ(NodePool::fill().blocks, 1u);
}

TEST(NodePool, WhatFitsNoChunkIsRefused) {
  EXPECT_THROW(static_cast<void>(NodePool::allocate(NodePool::kChunkSize)), std::bad_alloc);
  EXPECT_NO_THROW(NodePool::release(nullptr, kSize));
}

#ifndef WRL_SINGLE_BLOCKS
TEST(NodePool, HoldsNodesAndTheirValues) {
  static_cast<void>(std::make_unique<MaterialNode>());  // there is a chunk
  const std::size_t before = NodePool::fill().blocks;
  const std::unique_ptr<Node> node(createNode("Material"));
  EXPECT_EQ(NodePool::fill().blocks, before + 1);
  static_cast<MaterialNode&>(*node).setTransparency(0.5f);
  EXPECT_EQ(NodePool::fill().blocks, before + 2);
  node->setName("red");
  EXPECT_EQ(NodePool::fill().blocks, before + 3);
}

TEST(NodePool, ClassDefaultsKeepNoChunk) {
  const std::size_t before = NodePool::fill().blocks;
  EXPECT_EQ(std::make_unique<ElevationGridNode>()->getCreaseAngle(), 0.0f);
  EXPECT_EQ(NodePool::fill().blocks, before);
}
#endif

}  // namespace
}  // namespace vrml
