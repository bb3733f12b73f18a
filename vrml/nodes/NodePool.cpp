#include "vrml/nodes/NodePool.h"

#include <sys/mman.h>

namespace vrml {

// A block is far smaller than a chunk: the largest node class has some hundred bytes.
void* NodePool::allocateInNewChunk(std::size_t size) {
  if (size > kChunkSize - sizeof(Chunk)) throw std::bad_alloc();
  void* const memory = ::operator new (kChunkSize, std::align_val_t{kChunkSize});
  // Most worlds need no second chunk, and of the first only what they touch.
#ifdef MADV_HUGEPAGE
  if (s_chunkCount > 0) static_cast<void>(madvise(memory, kChunkSize, MADV_HUGEPAGE));
#endif
  ++s_chunkCount;
  s_chunk = new (memory) Chunk{0};
  startOver();
  return allocate(size);
}

void NodePool::startOver() noexcept {
  s_free = reinterpret_cast<std::byte*>(s_chunk + 1);
  s_room = kChunkSize - sizeof(Chunk);
}

void NodePool::releaseChunk(Chunk* chunk) noexcept {
  if (s_spareSize != kNoSpare && chunkOf(s_spare) == chunk) s_spareSize = kNoSpare;
  if (chunk == s_chunk) return startOver();
  ::operator delete (chunk, std::align_val_t{kChunkSize});
  --s_chunkCount;
}

}  // namespace vrml
