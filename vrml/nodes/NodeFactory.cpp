// The table of all node classes, indexed by node type, and the copies that stand for a USE. A copy walks the subtree of
// its original and the growing one of the copy side by side.

#include "vrml/nodes/NodeFactory.h"

#include <array>
#include <memory>

#include "vrml/nodes/AnchorNode.h"
#include "vrml/nodes/AppearanceNode.h"
#include "vrml/nodes/AudioClipNode.h"
#include "vrml/nodes/BackgroundNode.h"
#include "vrml/nodes/BillboardNode.h"
#include "vrml/nodes/BoxNode.h"
#include "vrml/nodes/CollisionNode.h"
#include "vrml/nodes/ColorInterpolatorNode.h"
#include "vrml/nodes/ColorNode.h"
#include "vrml/nodes/ConeNode.h"
#include "vrml/nodes/CoordinateInterpolatorNode.h"
#include "vrml/nodes/CoordinateNode.h"
#include "vrml/nodes/CylinderNode.h"
#include "vrml/nodes/CylinderSensorNode.h"
#include "vrml/nodes/DEFNode.h"
#include "vrml/nodes/DirectionalLightNode.h"
#include "vrml/nodes/ElevationGridNode.h"
#include "vrml/nodes/ExtrusionNode.h"
#include "vrml/nodes/FogNode.h"
#include "vrml/nodes/FontStyleNode.h"
#include "vrml/nodes/GroupNode.h"
#include "vrml/nodes/ImageTextureNode.h"
#include "vrml/nodes/IndexedFaceSetNode.h"
#include "vrml/nodes/IndexedLineSetNode.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/LodNode.h"
#include "vrml/nodes/MaterialNode.h"
#include "vrml/nodes/MovieTextureNode.h"
#include "vrml/nodes/NavigationInfoNode.h"
#include "vrml/nodes/NormalInterpolatorNode.h"
#include "vrml/nodes/NormalNode.h"
#include "vrml/nodes/OrientationInterpolatorNode.h"
#include "vrml/nodes/PixelTextureNode.h"
#include "vrml/nodes/PlaneSensorNode.h"
#include "vrml/nodes/PointLightNode.h"
#include "vrml/nodes/PointSetNode.h"
#include "vrml/nodes/PositionInterpolatorNode.h"
#include "vrml/nodes/ProximitySensorNode.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/nodes/ScalarInterpolatorNode.h"
#include "vrml/nodes/ScriptNode.h"
#include "vrml/nodes/ShapeNode.h"
#include "vrml/nodes/SoundNode.h"
#include "vrml/nodes/SphereNode.h"
#include "vrml/nodes/SphereSensorNode.h"
#include "vrml/nodes/SpotLightNode.h"
#include "vrml/nodes/SwitchNode.h"
#include "vrml/nodes/TextNode.h"
#include "vrml/nodes/TextureCoordinateNode.h"
#include "vrml/nodes/TextureTransformNode.h"
#include "vrml/nodes/TimeSensorNode.h"
#include "vrml/nodes/TouchSensorNode.h"
#include "vrml/nodes/TransformNode.h"
#include "vrml/nodes/ViewpointNode.h"
#include "vrml/nodes/VisibilitySensorNode.h"
#include "vrml/nodes/WorldInfoNode.h"

namespace vrml {

namespace {

// In the order of kNodeTypeNames.
constexpr std::array<const NodeClass*, kNodeTypeCount> kNodeClasses = {
    &AnchorNode::kClass,
    &AppearanceNode::kClass,
    &AudioClipNode::kClass,
    &BackgroundNode::kClass,
    &BillboardNode::kClass,
    &BoxNode::kClass,
    &CollisionNode::kClass,
    &ColorNode::kClass,
    &ColorInterpolatorNode::kClass,
    &ConeNode::kClass,
    &CoordinateNode::kClass,
    &CoordinateInterpolatorNode::kClass,
    &CylinderNode::kClass,
    &CylinderSensorNode::kClass,
    &DirectionalLightNode::kClass,
    &ElevationGridNode::kClass,
    &ExtrusionNode::kClass,
    &FogNode::kClass,
    &FontStyleNode::kClass,
    &GroupNode::kClass,
    &ImageTextureNode::kClass,
    &IndexedFaceSetNode::kClass,
    &IndexedLineSetNode::kClass,
    &InlineNode::kClass,
    &LodNode::kClass,
    &MaterialNode::kClass,
    &MovieTextureNode::kClass,
    &NavigationInfoNode::kClass,
    &NormalNode::kClass,
    &NormalInterpolatorNode::kClass,
    &OrientationInterpolatorNode::kClass,
    &PixelTextureNode::kClass,
    &PlaneSensorNode::kClass,
    &PointLightNode::kClass,
    &PointSetNode::kClass,
    &PositionInterpolatorNode::kClass,
    &ProximitySensorNode::kClass,
    &ScalarInterpolatorNode::kClass,
    &ScriptNode::kClass,
    &ShapeNode::kClass,
    &SoundNode::kClass,
    &SphereNode::kClass,
    &SphereSensorNode::kClass,
    &SpotLightNode::kClass,
    &SwitchNode::kClass,
    &TextNode::kClass,
    &TextureCoordinateNode::kClass,
    &TextureTransformNode::kClass,
    &TimeSensorNode::kClass,
    &TouchSensorNode::kClass,
    &TransformNode::kClass,
    &ViewpointNode::kClass,
    &VisibilitySensorNode::kClass,
    &WorldInfoNode::kClass,
    &DEFNode::kClass,
    &RootNode::kClass,
};

}  // namespace

const NodeClass* findNodeClass(NodeType type) noexcept {
  return type == NodeType::none ? nullptr : kNodeClasses[static_cast<std::size_t>(type)];
}

const NodeClass* findNodeClass(std::string_view typeName) noexcept { return findNodeClass(findNodeType(typeName)); }

Node* createNode(NodeType type) {
  const NodeClass* const nodeClass = findNodeClass(type);
  return nodeClass ? nodeClass->create(nullptr) : nullptr;
}

Node* createNode(std::string_view typeName) { return createNode(findNodeType(typeName)); }

// A node of the same class that shares the original's values. The original gets a block of values for that if it has
// none, which changes none of them.
Node* Node::makeInstance() const { return m_class->create(&const_cast<Node*>(this)->editData()); }

Node* copyNode(const Node* node, std::vector<const Node*>* leftOut) {
  if (!node || !node->getClass().copyable) return nullptr;
  std::unique_ptr<Node> top(node->makeInstance());
  const Node* original = node->m_firstChild;
  Node* parent = top.get();
  while (original) {
    const bool copied = original->getClass().copyable;
    if (copied) {
      Node* const copy = original->makeInstance();
      parent->place(*copy, nullptr, original->m_role);
      if (original->m_firstChild) {
        original = original->m_firstChild;
        parent = copy;
        continue;
      }
    } else if (leftOut) {
      leftOut->push_back(original);
    }
    for (; original != node; original = original->m_parent, parent = parent->m_parent)
      if (const Node* const sibling = original->nextInRing()) {
        original = sibling;
        break;
      }
    if (original == node) break;
  }
  return top.release();
}

Node* createReference(Node& source) { return new DEFNode(&source.editData()); }

}  // namespace vrml
