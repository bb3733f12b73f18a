#include "tests/FailingMemory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

long g_countdown = 0;
bool g_hasFailed = false;
bool g_isGone = false;
fixtures::Failing g_failing = fixtures::Failing::once;
std::atomic<long> g_liveBlocks = 0;

void* allocate(std::size_t size) {
  if (g_countdown > 0 && --g_countdown == 0) {
    g_hasFailed = true;
    g_isGone = g_failing == fixtures::Failing::forGood;
    throw std::bad_alloc();
  }
  if (g_isGone) throw std::bad_alloc();
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  ++g_liveBlocks;
  return block;
}

void release(void* block) noexcept {
  if (block != nullptr) --g_liveBlocks;
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  try {
    return allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }

namespace fixtures {

void failAllocation(long number, Failing failing) {
  g_hasFailed = false;
  g_isGone = false;
  g_failing = failing;
  g_countdown = number;
}

void endFailing() {
  g_countdown = 0;
  g_isGone = false;
}

bool hasAllocationFailed() { return g_hasFailed; }

long liveBlocks() { return g_liveBlocks; }

}  // namespace fixtures
