#pragma once

// A cross section swept along a spine.

#include "vrml/fields/MFRotation.h"
#include "vrml/fields/MFVec2f.h"
#include "vrml/fields/MFVec3f.h"
#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ExtrusionData : NodeData {
  Named<SFBool> beginCap{"beginCap", true};
  Named<SFBool> endCap{"endCap", true};
  Named<SFBool> ccw{"ccw", true};
  Named<SFBool> convex{"convex", true};
  Named<SFFloat> creaseAngle{"creaseAngle", 0.0f};
  Named<SFBool> solid{"solid", true};
  Named<MFRotation> orientation{"orientation"};
  Named<MFVec2f> scale{"scale"};
  Named<MFVec2f> crossSection{"crossSection"};
  Named<MFVec3f> spine{"spine"};
};

class ExtrusionNode final : public TypedNode<GeometryNode, ExtrusionData> {
 public:
  static const NodeClass kClass;
  explicit ExtrusionNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getBeginCap() const { return data().beginCap->getValue(); }
  void setBeginCap(bool value) { editData().beginCap->setValue(value); }
  [[nodiscard]] bool getEndCap() const { return data().endCap->getValue(); }
  void setEndCap(bool value) { editData().endCap->setValue(value); }
  [[nodiscard]] bool getCcw() const { return data().ccw->getValue(); }
  void setCcw(bool value) { editData().ccw->setValue(value); }
  [[nodiscard]] bool getConvex() const { return data().convex->getValue(); }
  void setConvex(bool value) { editData().convex->setValue(value); }
  [[nodiscard]] float getCreaseAngle() const { return data().creaseAngle->getValue(); }
  void setCreaseAngle(float value) { editData().creaseAngle->setValue(value); }
  [[nodiscard]] bool getSolid() const { return data().solid->getValue(); }
  void setSolid(bool value) { editData().solid->setValue(value); }
  [[nodiscard]] const MFRotation& getOrientation() const { return *data().orientation; }
  [[nodiscard]] MFRotation& editOrientation() { return *editData().orientation; }
  [[nodiscard]] const MFVec2f& getScale() const { return *data().scale; }
  [[nodiscard]] MFVec2f& editScale() { return *editData().scale; }
  [[nodiscard]] const MFVec2f& getCrossSection() const { return *data().crossSection; }
  [[nodiscard]] MFVec2f& editCrossSection() { return *editData().crossSection; }
  [[nodiscard]] const MFVec3f& getSpine() const { return *data().spine; }
  [[nodiscard]] MFVec3f& editSpine() { return *editData().spine; }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
