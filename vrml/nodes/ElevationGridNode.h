#pragma once

// A grid of heights over the x-z plane. Its spacings are 0, not 1, until a file gives them.

#include <cstdint>

#include "vrml/fields/MFFloat.h"
#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFInt32.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ElevationGridData : NodeData {
  Named<SFFloat> xSpacing{"xSpacing", 0.0f};
  Named<SFFloat> zSpacing{"zSpacing", 0.0f};
  Named<SFInt32> xDimension{"xDimension", 0};
  Named<SFInt32> zDimension{"zDimension", 0};
  Named<SFBool> colorPerVertex{"colorPerVertex", true};
  Named<SFBool> normalPerVertex{"normalPerVertex", true};
  Named<SFBool> ccw{"ccw", true};
  Named<SFBool> solid{"solid", true};
  Named<SFFloat> creaseAngle{"creaseAngle", 0.0f};
  Named<MFFloat> height{"height"};
};

class ElevationGridNode final : public TypedNode<GeometryNode, ElevationGridData> {
 public:
  static const NodeClass kClass;
  explicit ElevationGridNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getXSpacing() const { return data().xSpacing->getValue(); }
  void setXSpacing(float value) { editData().xSpacing->setValue(value); }
  [[nodiscard]] float getZSpacing() const { return data().zSpacing->getValue(); }
  void setZSpacing(float value) { editData().zSpacing->setValue(value); }
  [[nodiscard]] std::int32_t getXDimension() const { return data().xDimension->getValue(); }
  void setXDimension(std::int32_t value) { editData().xDimension->setValue(value); }
  [[nodiscard]] std::int32_t getZDimension() const { return data().zDimension->getValue(); }
  void setZDimension(std::int32_t value) { editData().zDimension->setValue(value); }
  [[nodiscard]] bool getColorPerVertex() const { return data().colorPerVertex->getValue(); }
  void setColorPerVertex(bool value) { editData().colorPerVertex->setValue(value); }
  [[nodiscard]] bool getNormalPerVertex() const { return data().normalPerVertex->getValue(); }
  void setNormalPerVertex(bool value) { editData().normalPerVertex->setValue(value); }
  [[nodiscard]] bool getCcw() const { return data().ccw->getValue(); }
  void setCcw(bool value) { editData().ccw->setValue(value); }
  [[nodiscard]] bool getSolid() const { return data().solid->getValue(); }
  void setSolid(bool value) { editData().solid->setValue(value); }
  [[nodiscard]] float getCreaseAngle() const { return data().creaseAngle->getValue(); }
  void setCreaseAngle(float value) { editData().creaseAngle->setValue(value); }
  [[nodiscard]] const MFFloat& getHeight() const { return *data().height; }
  [[nodiscard]] MFFloat& editHeight() { return *editData().height; }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
