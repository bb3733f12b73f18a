// Work that may bring its process down.

#include "embedded/meshes/TrialRun.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace {

using embedded::survivesTrial;

TEST(TrialRun, ACrashIsTold) {
  EXPECT_FALSE(survivesTrial([] { std::abort(); }));
  EXPECT_FALSE(survivesTrial([] { std::raise(SIGKILL); }));
  EXPECT_FALSE(survivesTrial([] { std::_Exit(3); }));
}

TEST(TrialRun, WorkThatEndsChangesNothing) {
  int value = 1;
  EXPECT_TRUE(survivesTrial([&value] { value = 2; }));
  EXPECT_TRUE(survivesTrial([] { throw std::runtime_error("x"); }));
  EXPECT_EQ(value, 1);
}

}  // namespace
