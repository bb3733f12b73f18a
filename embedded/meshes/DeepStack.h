#pragma once

// Room for a library that calls itself once for each level of its input.

#include <cstddef>
#include <functional>

namespace embedded {

// Does some work on a stack of about that many bytes, of which only what is used takes memory, and waits for its end;
// on a smaller one when the system gives no such stack, at last on the caller's own. What the work throws comes out of
// here.
void runOnDeepStack(std::size_t bytes, const std::function<void()>& work);

}  // namespace embedded
