#pragma once

// Numbers that no file can hold.

#include <VekKernel/CVekAssyNode.h>

namespace embedded {

// Whether every placement, position and normal of what shows is a finite number: infinities and not-a-number can be
// written as text, but no reader takes them. `root` may be null.
[[nodiscard]] bool hasOnlyFiniteNumbers(const CVekAssyNode* root);

}  // namespace embedded
