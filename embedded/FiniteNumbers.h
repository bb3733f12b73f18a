#pragma once

// Numbers that no file can hold.

#include <VekKernel/CVekStager.h>

namespace embedded {

// Whether everything that an export writes of the stager's assembly, camera and views is a finite number: infinities
// and not-a-number can be written as text, but no reader takes them.
[[nodiscard]] bool hasOnlyFiniteNumbers(const CVekStager& stager);

}  // namespace embedded
