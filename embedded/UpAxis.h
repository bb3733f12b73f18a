#pragma once

// Which axis of a file points up. The host's world has z up; formats differ, and files differ from their formats.

#include <VekKernel/CVekAssyRoot.h>

#include <memory>

namespace embedded {

enum class UpAxis {
  Y,  // as in VRML97
  Z,  // as in the host
};

// An assembly that was read under the assumption that `assumed` points up in its file, as it is when `actual` does: the
// same one, or one whose only child is a group that turns all of it about the x axis. Null for null.
[[nodiscard]] std::unique_ptr<CVekAssyRoot> turnedUpright(std::unique_ptr<CVekAssyRoot> assembly, UpAxis assumed,
                                                          UpAxis actual);

}  // namespace embedded
