// Threads with small stacks.

#include <pthread.h>

#include "tests/attacks/Attack.h"

namespace attack {
namespace {

void* callFunction(void* function) {
  (*static_cast<const std::function<void()>*>(function))();
  return nullptr;
}

}  // namespace

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
