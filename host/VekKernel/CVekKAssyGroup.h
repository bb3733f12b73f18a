#pragma once

// An assembly group with a placement of its own.

#include <VekKernel/CVekAssyGroup.h>
#include <VekKernel/CVekDraw.h>

class VEK_API CVekKAssyGroup : public CVekAssyGroup, public CVekDraw {
 public:
  CVekKAssyGroup();
  ~CVekKAssyGroup() override;
};
