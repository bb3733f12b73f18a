#pragma once

// An actor that shows a mesh: its presentable node is an sglGeode.

#include <VekKernel/CVekActor.h>

class VEK_API CVekActorMesh : public CVekActor {
 public:
  CVekActorMesh();
  ~CVekActorMesh() override;
};
