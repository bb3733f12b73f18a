#pragma once

// HTML pages out.

#include <string>

#include "tools/wrl/Formats.h"

namespace wrl {

/// Writes a page that shows the assembly, with the title and the viewpoints of the world that it came from, or the
/// views that the application saved; why that could not be, or "". What is left out is noted on standard error.
[[nodiscard]] std::string writePage(const WriteJob& job);

}  // namespace wrl
