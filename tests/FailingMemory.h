#pragma once

// The process's `operator new` under a test's control. A test program that lists FailingMemory.cpp among its sources
// allocates through it everywhere, the module and the host library included.

namespace fixtures {

/// Whether only the chosen allocation fails, or all behind it too.
enum class Failing {
  once,     // memory is there again for the next one
  forGood,  // until `endFailing`
};

/// Makes the `number`th allocation from now on fail, counted from 1; 0 fails none.
void failAllocation(long number, Failing failing = Failing::once);
void endFailing();

/// Whether the allocation that was last chosen has been reached.
[[nodiscard]] bool hasAllocationFailed();

/// Blocks of `operator new` that nobody has given back yet.
[[nodiscard]] long liveBlocks();

}  // namespace fixtures
