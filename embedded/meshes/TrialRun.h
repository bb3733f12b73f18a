#pragma once

// Work that may bring its process down, tried out in another process.

#include <functional>

namespace embedded {

// Does some work in a copy of this process, whose output goes nowhere, and tells whether it came to its end: false when
// it crashed. What the work changes is lost. True as well when there can be no such process. Only the calling thread
// goes on in the copy.
[[nodiscard]] bool survivesTrial(const std::function<void()>& work);

}  // namespace embedded
