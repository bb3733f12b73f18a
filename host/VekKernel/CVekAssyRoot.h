#pragma once

// The root of an assembly tree.

#include <VekKernel/CVekKAssyGroup.h>

class VEK_API CVekAssyRoot : public CVekKAssyGroup {
 public:
  CVekAssyRoot();
  ~CVekAssyRoot() override;
};
