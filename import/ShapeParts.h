#pragma once

// What the conversion of one Shape gathers before anything is attached.

#include <VekSG/sglStatelet.h>
#include <VekSG/sglTransform.h>

#include <memory>

#include "vrml/nodes/MaterialNode.h"

namespace importer {

struct ShapeParts {
  sglStateletList states;                          // every drawable of the shape gets them all
  const vrml::MaterialNode* material = nullptr;    // the appearance's, null without one
  bool hasTexture = false;                         // only then texture coordinates are of use
  std::unique_ptr<sglTransform<float>> placement;  // of a primitive, null for other geometry
};

}  // namespace importer
