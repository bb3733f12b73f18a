// The walk over the parsed nodes. Trees can be millions of levels deep, so the nodes whose children are being converted
// stand on a stack of their own. A host group is built with its whole subtree before the hook sees it and before its
// parent does.

#include <VekSG/sglBillboard.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTransform.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "import/Matrix.h"
#include "import/sglLoadFile_wrl.h"
#include "vrml/nodes/BillboardNode.h"
#include "vrml/nodes/LodNode.h"
#include "vrml/nodes/SwitchNode.h"
#include "vrml/nodes/TransformNode.h"

namespace {

/// How one type of grouping node is converted, before its children and after them.
struct GroupKind {
  vrml::NodeType type;
  std::string_view hostType;  // what the hook is told
  std::unique_ptr<sglGroup> (*begin)(const vrml::Node& node, sglGroup& parent);
  void (*finish)(const vrml::Node& node, sglGroup& parent, sglGroup& created);
};

void nameAfter(const vrml::Node& node, sglNode& created) {
  if (node.hasName()) created.setName(node.getName());
}

/// Puts an empty geode in front of all children, where the shapes of the group will look for one.
sglGeode& addLeadingGeode(sglGroup& group) {
  auto geode = std::make_unique<sglGeode>();
  group.addChild(geode.get(), true);
  return *geode.release();
}

std::unique_ptr<sglGroup> beginGroup(const vrml::Node& node, sglGroup& /*parent*/) {
  auto group = std::make_unique<sglGroup>();
  nameAfter(node, *group);
  nameAfter(node, addLeadingGeode(*group));
  return group;
}

void finishGroup(const vrml::Node& /*node*/, sglGroup& /*parent*/, sglGroup& /*created*/) {}

/// A transform passes its name on to the group around it, or takes that one's.
void nameTransform(const vrml::Node& node, sglGroup& parent, sglGroup& transform) {
  nameAfter(node, transform);
  if (node.hasName())
    parent.setName(node.getName());
  else
    transform.setName(parent.getName());
}

std::unique_ptr<sglGroup> beginTransform(const vrml::Node& node, sglGroup& parent) {
  auto transform = std::make_unique<sglTransform<float>>();
  nameTransform(node, parent, *transform);
  addLeadingGeode(*transform);
  return transform;
}

void finishTransform(const vrml::Node& node, sglGroup& parent, sglGroup& created) {
  auto& transform = static_cast<sglTransform<float>&>(created);
  importer::Matrix matrix;
  static_cast<const vrml::TransformNode&>(node).getMatrix(matrix.m);
  transform.setMatrix(importer::narrow(matrix));
  nameTransform(node, parent, transform);  // a child may have passed its name on meanwhile
}

template <class Group>
std::unique_ptr<sglGroup> begin(const vrml::Node& /*node*/, sglGroup& /*parent*/) {
  return std::make_unique<Group>();
}

void finishLOD(const vrml::Node& node, sglGroup& /*parent*/, sglGroup& created) {
  constexpr float kFarthest = 10000000.0F;
  auto& lod = static_cast<sglLOD&>(created);
  unsigned index = 0;
  lod.setRange(index++, 0.0F);
  for (const float range : static_cast<const vrml::LodNode&>(node).getRange().values()) lod.setRange(index++, range);
  lod.setRange(index, kFarthest);
  nameAfter(node, lod);
}

void finishSwitch(const vrml::Node& node, sglGroup& /*parent*/, sglGroup& created) {
  constexpr std::int32_t kNoChoice = -1;
  const std::int32_t choice = static_cast<const vrml::SwitchNode&>(node).getWhichChoice();
  auto& selection = static_cast<sglSwitch&>(created);
  selection.setSelectedChild(choice == kNoChoice ? std::int32_t{sglSwitch::SELECT_NONE} : choice);
  nameAfter(node, selection);
}

void finishBillboard(const vrml::Node& node, sglGroup& /*parent*/, sglGroup& created) {
  auto& billboard = static_cast<sglBillboard&>(created);
  const auto& [x, y, z] = static_cast<const vrml::BillboardNode&>(node).getAxisOfRotation().getValue();
  billboard.setAxis({x, y, z});
  billboard.setMode(sglBillboard::AXIAL);
  nameAfter(node, billboard);
}

constexpr std::array kGroupKinds = {
    GroupKind{vrml::nodeType("Group"), "sglGroup", beginGroup, finishGroup},
    GroupKind{vrml::nodeType("Transform"), "sglTransform", beginTransform, finishTransform},
    GroupKind{vrml::nodeType("LOD"), "sglLOD", begin<sglLOD>, finishLOD},
    GroupKind{vrml::nodeType("Switch"), "sglSwitch", begin<sglSwitch>, finishSwitch},
    GroupKind{vrml::nodeType("Billboard"), "sglBillboard", begin<sglBillboard>, finishBillboard},
};

/// Null for a type that makes no host group of its own.
const GroupKind* groupKindOf(const vrml::Node& node) {
  const auto found = std::ranges::find(kGroupKinds, node.getType(), &GroupKind::type);
  return found == kGroupKinds.end() ? nullptr : &*found;
}

}  // namespace

/// A node whose children are being converted.
struct sglLoadFile_wrl::OpenNode {
  vrml::Node* node;
  vrml::Node* nextChild;              // null behind the last one
  sglGroup* parent;                   // the host group around the node
  std::unique_ptr<sglGroup> created;  // null when the children go to `parent`
};

void sglLoadFile_wrl::travNode(sglGroup* parent, vrml::Node* node) {
  std::vector<OpenNode> open;
  openNode(parent, node, open);
  while (!open.empty()) {
    OpenNode& innermost = open.back();
    if (vrml::Node* const child = innermost.nextChild) {
      innermost.nextChild = child->next();
      openNode(innermost.created ? innermost.created.get() : innermost.parent, child, open);
    } else {
      closeNode(innermost);
      open.pop_back();
    }
  }
}

void sglLoadFile_wrl::openNode(sglGroup* parent, vrml::Node* node, std::vector<OpenNode>& open) {
  if (!doCallback(nullptr, node, "onParse:", node->getTypeName())) return;
  if (node->isType(vrml::nodeType("Shape"))) {
    travShapeNode(parent, node);
    return;
  }
  const GroupKind* const kind = groupKindOf(*node);
  open.push_back({node, node->getChildNodes(), parent, kind ? kind->begin(*node, *parent) : nullptr});
}

void sglLoadFile_wrl::closeNode(OpenNode& open) {
  if (!open.created) return;
  const GroupKind& kind = *groupKindOf(*open.node);
  kind.finish(*open.node, *open.parent, *open.created);
  if (!doCallback(open.created.get(), open.node, "onCreate:", kind.hostType)) return;  // it goes with what is under it
  open.parent->addChild(open.created.get(), true);
  static_cast<void>(open.created.release());
}

bool sglLoadFile_wrl::doCallback(sglNode* created, void* vrmlNode, std::string_view prefix, std::string_view typeName) {
  if (m_callback == nullptr) return true;
  std::string text(prefix);
  text += typeName;
  return m_callback(created, vrmlNode, text, m_callbackData);
}
