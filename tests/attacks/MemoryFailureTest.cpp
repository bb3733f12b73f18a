// Loads and exports during which one allocation fails, each of the first ten thousand in turn: nothing crashes, nothing
// leaks, and what fails says so. Without memory for a text that it is to scan the scanner ends the process, with a
// message and status 2, so the loads run in processes of their own.

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "tests/attacks/Attack.h"
#include "vrml/reader/ScannerFailure.h"

namespace {

using attack::Loaded;
using fixtures::hasAllocationFailed;
using fixtures::liveBlocks;

constexpr long kMostAllocations = 10'000;

bool isFatalMessage(const std::string& text) {
  using vrml::ScannerFailure;
  for (const auto failure : {ScannerFailure::createBuffer, ScannerFailure::scanBuffer, ScannerFailure::scanBytes})
    if (text == std::string(vrml::failureText(failure)) + "\n") return true;
  return false;
}

class MemoryFailure : public attack::Attack {
 protected:
  // What the parent is to know of a child's loads.
  struct Progress {
    long number = 0;  // the allocation that fails
    long reports = 0;
    bool isDone = false;  // there are no more allocations
  };

  // Loads with one allocation failing after the other, and tells each through the pipe before it begins.
  void loadInTurn(const std::string& file, const std::string& whole, Progress progress, int pipe) const {
    static_cast<void>(load(file));  // what a process makes once is made
    const std::string scene = whole.substr(0, whole.find('\n'));
    for (; progress.number <= kMostAllocations && !progress.isDone; ++progress.number) {
      ASSERT_EQ(::write(pipe, &progress, sizeof progress), static_cast<ssize_t>(sizeof progress));
      const long before = liveBlocks();
      {
        const Loaded loaded = load(file, progress.number);
        if (loaded.isReported()) ++progress.reports;
        if (loaded.hasScene() && !loaded.isReported()) {
          EXPECT_EQ(loaded.document().substr(0, scene.size()), scene) << progress.number;
        }
      }
      EXPECT_LE(liveBlocks() - before, 0) << progress.number;
      progress.isDone = !hasAllocationFailed();
    }
    progress.isDone = true;
    ASSERT_EQ(::write(pipe, &progress, sizeof progress), static_cast<ssize_t>(sizeof progress));
  }

  // Runs them in a child from `progress` on, and brings it up to where the child came. Returns the child's status.
  int loadInChild(const std::string& file, const std::string& whole, Progress& progress) const {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
      dup2(open(path("stderr").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
      loadInTurn(file, whole, progress, ends[1]);
      std::fflush(stdout);
      _exit(HasFailure() ? 1 : 0);
    }
    close(ends[1]);
    for (Progress next; read(ends[0], &next, sizeof next) == static_cast<ssize_t>(sizeof next);) progress = next;
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

TEST_F(MemoryFailure, ends_a_load_with_a_report_or_the_process_with_a_message) {
  const std::string file = writeRichWorld(attack::steps(1, 25));
  const std::string whole = load(file).document();
  Progress progress{1, 0, false};
  long ends = 0;
  while (!progress.isDone) {
    const int status = loadInChild(file, whole, progress);
    if (progress.isDone) {
      EXPECT_EQ(status, 0);
      break;
    }
    ASSERT_EQ(status, 2) << progress.number;
    EXPECT_TRUE(isFatalMessage(fixtures::contentOf(path("stderr")))) << fixtures::contentOf(path("stderr"));
    ++ends;
    ++progress.number;
  }
  EXPECT_GT(progress.number, 300) << "a load allocates so often";
  EXPECT_GT(progress.reports, 200);
  EXPECT_GT(ends, 0);
}

TEST_F(MemoryFailure, ends_an_export_with_a_code_or_changes_nothing) {
  const auto stager = richStage();
  ASSERT_EQ(exportTo(path("whole.wrl"), *stager), 0);
  const std::string out = path("out.wrl");
  ASSERT_EQ(exportTo(out, *stager), 0);
  const std::string whole = fixtures::contentOf(path("whole.wrl"));
  long number = 1;
  long failures = 0;
  for (; number <= kMostAllocations; ++number) {
    const long before = liveBlocks();
    if (exportTo(out, *stager, number) != 0) {
      ++failures;
    } else {
      EXPECT_EQ(fixtures::contentOf(out), whole) << number;
    }
    EXPECT_LE(liveBlocks() - before, 0) << number;
    if (!hasAllocationFailed()) break;
  }
  EXPECT_GT(number, 20) << "an export allocates so often";
  EXPECT_GT(failures, 10);
}

}  // namespace
