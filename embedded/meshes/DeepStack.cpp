// A thread's stack has the size that it was asked for, the process's own that of a setting nobody knows of.

#include "embedded/meshes/DeepStack.h"

#include <pthread.h>

#include <exception>

namespace embedded {
namespace {

constexpr std::size_t kSmallestStack = 8U << 20U;

struct Job {
  const std::function<void()>* work;
  std::exception_ptr problem;
};

void* run(void* argument) {
  Job& job = *static_cast<Job*>(argument);
  try {
    (*job.work)();
  } catch (...) {
    job.problem = std::current_exception();
  }
  return nullptr;
}

bool start(pthread_t& thread, std::size_t bytes, Job& job) {
  pthread_attr_t attributes;
  if (pthread_attr_init(&attributes) != 0) return false;
  const bool isStarted =
      pthread_attr_setstacksize(&attributes, bytes) == 0 && pthread_create(&thread, &attributes, run, &job) == 0;
  pthread_attr_destroy(&attributes);
  return isStarted;
}

}  // namespace

void runOnDeepStack(std::size_t bytes, const std::function<void()>& work) {
  Job job{&work, nullptr};
  pthread_t thread{};
  bool isStarted = false;
  for (std::size_t size = bytes; !isStarted && size >= kSmallestStack; size /= 2) isStarted = start(thread, size, job);
  if (isStarted) {
    pthread_join(thread, nullptr);
  } else {
    run(&job);
  }
  if (job.problem) std::rethrow_exception(job.problem);
}

}  // namespace embedded
