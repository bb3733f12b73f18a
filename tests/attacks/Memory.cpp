// The process's `operator new`, which counts and can be told to fail, and threads with small stacks.

#include <pthread.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/attacks/Attack.h"

namespace {

long g_countdown = 0;
bool g_hasFailed = false;
std::atomic<long> g_liveBlocks = 0;

void* allocate(std::size_t size) {
  if (g_countdown > 0 && --g_countdown == 0) {
    g_hasFailed = true;
    throw std::bad_alloc();
  }
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  ++g_liveBlocks;
  return block;
}

void release(void* block) noexcept {
  if (block != nullptr) --g_liveBlocks;
  std::free(block);
}

void* callFunction(void* function) {
  (*static_cast<const std::function<void()>*>(function))();
  return nullptr;
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

namespace attack {

void failAllocation(long number) {
  g_hasFailed = false;
  g_countdown = number;
}

void endFailing() { g_countdown = 0; }

bool hasAllocationFailed() { return g_hasFailed; }

long liveBlocks() { return g_liveBlocks; }

void runOnStack(std::size_t stackBytes, const std::function<void()>& function) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, stackBytes), 0);
  pthread_t thread{};
  auto* const argument = const_cast<std::function<void()>*>(&function);
  ASSERT_EQ(pthread_create(&thread, &attributes, &callFunction, argument), 0);
  pthread_attr_destroy(&attributes);
  pthread_join(thread, nullptr);
}

}  // namespace attack
