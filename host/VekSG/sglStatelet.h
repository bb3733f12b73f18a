#pragma once

// Base of the render states.

#include <VekSG/sglRef.h>
#include <VekSG/sglReferenced.h>

#include <vector>

// Counted: a statelet is shared by the drawables that were given it (`setState` takes a reference on each), and by the
// lists and holders that name it. One that was never handed over goes with the list that holds it.
class VEK_API sglStatelet : public sglReferenced {
 protected:
  sglStatelet() = default;
  ~sglStatelet() override;
};

// States in order. No entry is null.
using sglStateletList = std::vector<sglRef<sglStatelet>>;
