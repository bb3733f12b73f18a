#pragma once

// Where nodes and their values lie. A file makes them by the hundred thousand and in the order in which everything
// walks over them later, so they are cut one behind the other from large chunks: making one moves a mark, giving one
// back counts down, and a walk finds what belongs together side by side. A chunk goes back to the system as a whole,
// when nothing in it is left. Of what is given back before that only one block is used again: until another one is
// given back, the next of its size takes it. A node that takes the place of another then lies where that one did, or
// near. A tree that is taken apart, as every tree is at the end of its load, leaves one empty chunk.
//
// Not for several threads at once, as the reading of a file is not.
//
// Under the address sanitizer, and where WRL_SINGLE_BLOCKS is defined, each block comes from the usual allocator, so
// that a checker of memory sees every single one.

#include <cstddef>
#include <cstdint>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define WRL_SINGLE_BLOCKS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define WRL_SINGLE_BLOCKS 1
#endif
#endif

namespace vrml {

class NodePool {
 public:
  static constexpr std::size_t kAlignment = alignof(void*);
  /// The size of a chunk, and what its address is a multiple of. That of a huge page, with which a walk over millions
  /// of nodes waits less for the translation of addresses.
  static constexpr std::size_t kChunkSize = std::size_t{1} << 21;

  /// A block of `size` bytes, aligned for anything that needs no more than a pointer does. Throws std::bad_alloc.
  [[nodiscard]] static void* allocate(std::size_t size) {
    const std::size_t needed = roundUp(size);
    if (needed == s_spareSize) return takeSpare();
    if (needed > s_room) return allocateInNewChunk(needed);
    std::byte* const block = s_free;
    s_free += needed;
    s_room -= needed;
    ++s_chunk->blocks;
    return block;
  }

  /// Gives back a block of `size` bytes that came from allocate(). Null is nothing.
  static void release(void* block, std::size_t size) noexcept {
    if (!block) return;
    Chunk* const chunk = chunkOf(block);
    if (--chunk->blocks == 0) return releaseChunk(chunk);
    s_spare = block;
    s_spareSize = roundUp(size);
  }

  /// The chunks that are taken from the system at the moment.
  [[nodiscard]] static std::size_t countChunks() noexcept { return s_chunkCount; }

  /// What is cut from the chunk in use: the blocks that were not given back yet, and the bytes with those that were.
  struct Fill {
    std::size_t blocks;
    std::size_t bytes;
  };
  [[nodiscard]] static Fill fill() noexcept {
    return s_chunk ? Fill{s_chunk->blocks, kChunkSize - sizeof(Chunk) - s_room} : Fill{0, 0};
  }

 private:
  struct Chunk {
    std::size_t blocks;
  };

  [[nodiscard]] static constexpr std::size_t roundUp(std::size_t size) noexcept {
    return (size + kAlignment - 1) / kAlignment * kAlignment;
  }
  [[nodiscard]] static void* takeSpare() noexcept {
    ++chunkOf(s_spare)->blocks;
    s_spareSize = kNoSpare;
    return s_spare;
  }
  [[nodiscard]] static Chunk* chunkOf(void* block) noexcept {
    const auto offset = reinterpret_cast<std::uintptr_t>(block) % kChunkSize;
    return reinterpret_cast<Chunk*>(static_cast<std::byte*>(block) - offset);
  }
  [[nodiscard]] static void* allocateInNewChunk(std::size_t size);
  static void startOver() noexcept;
  static void releaseChunk(Chunk* chunk) noexcept;

  static inline Chunk* s_chunk = nullptr;  // the one that blocks are cut from
  static inline std::byte* s_free = nullptr;
  static inline std::size_t s_room = 0;
  static inline std::size_t s_chunkCount = 0;
  static constexpr std::size_t kNoSpare = static_cast<std::size_t>(-1);
  static inline std::size_t s_spareSize = kNoSpare;
  static inline void* s_spare = nullptr;  // the block given back last; its chunk holds others still
};

/// Base of what lies in the pool: `new` and `delete` of every class derived from it go there.
class Pooled {
 public:
#ifndef WRL_SINGLE_BLOCKS
  static void* operator new(std::size_t size) { return NodePool::allocate(size); }
  static void operator delete(void* block, std::size_t size) noexcept { NodePool::release(block, size); }
#endif

 protected:
  ~Pooled() = default;
};

}  // namespace vrml
