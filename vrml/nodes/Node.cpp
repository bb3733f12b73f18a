// Every walk over a tree follows the links: down by m_firstChild, along the ring, up by m_parent. Destroying takes the
// first child of the first child and so on until there is none, deletes that one, and goes on from its parent, so the
// call stack never sees how deep the tree is.
//
// A node without a value or a name has no data block; the first change makes one. The block is counted by the nodes
// that share it, and the last one destroys it through the table of the class that it belongs to.

#include "vrml/nodes/Node.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

#include "vrml/fields/FieldFactory.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/TextureNode.h"

namespace vrml {

namespace {

constexpr std::string_view kSetPrefix = "set_";
constexpr std::string_view kChangedSuffix = "_changed";

// Never destroyed: a node may outlive what ends with the process. Takes no memory from the heap: names are asked for
// where nothing can be thrown.
const std::string& noName() noexcept {
  alignas(std::string) static std::byte place[sizeof(std::string)];
  static const std::string& name = *new (place) std::string;
  return name;
}

// The table of a class under another type name.
struct RenamedClass : NodeClass {
  std::string name;
};

}  // namespace

// ---- life

Node::Node(const NodeClass& nodeClass, NodeData* shared) : m_class(&nodeClass), m_data(shared) {
  if (m_data) ++m_data->m_sharers;
}

Node::~Node() {
  destroyDescendants();
  if (m_owner) m_owner->nodeDetached(*this);
  leaveRing();
  releaseData();
  releaseTypeName();
}

void Node::destroyDescendants() noexcept {
  Node* node = this;
  for (;;) {
    while (node->m_firstChild) node = node->m_firstChild;
    if (node == this) return;
    Node* const parent = node->m_parent;
    delete node;  // takes itself out of its parent
    node = parent;
  }
}

void Node::releaseData() noexcept {
  if (!m_data) return;
  if (m_data->m_owner == this) m_data->m_owner = nullptr;
  if (--m_data->m_sharers == 0) findNodeClass(m_data->m_type)->destroyData(m_data);
  m_data = nullptr;
}

NodeData& Node::makeData() {
  m_data = m_class->createData();
  m_data->m_type = m_class->type;
  m_data->m_owner = this;
  return *m_data;
}

NodeExtras& Node::editExtras() {
  NodeData& values = editData();
  if (!values.m_extras) values.m_extras = std::make_unique<NodeExtras>();
  return *values.m_extras;
}

NodeExtras::Fields& Node::editExtraFields() {
  NodeExtras& extras = editExtras();
  if (!extras.fields) extras.fields = std::make_unique<NodeExtras::Fields>();
  return *extras.fields;
}

// ---- what a class may have of its own

bool Node::isChildNodeType(const Node* node) const {
  return node && m_class->acceptedChildren.contains(node->fieldClass().type);
}

const char* Node::refresh() { return nullptr; }
void Node::prepare() {}
void Node::initialize() {}
void Node::recomputeBoundingBox() {}

BoundingBox Node::computedBox() const {
  const bool has = m_data && m_data->m_extras && m_data->m_extras->fields;
  return has ? m_data->m_extras->fields->computedBox : BoundingBox();
}

void Node::setComputedBox(const BoundingBox& box) { editExtraFields().computedBox = box; }

// ---- names and type

void Node::setName(const char* name) { setName(std::string_view(name ? name : "")); }

void Node::setName(std::string_view name) {
  if (name.empty() && !hasName()) return;
  std::string cleaned(name);
  std::replace_if(
      cleaned.begin(), cleaned.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; }, '_');
  cleaned.swap(editExtras().name);
  Node* const source = getReferenceNode();
  Node& bearer = source ? *source : *this;
  if (bearer.m_owner) bearer.m_owner->nodeRenamed(bearer, cleaned);
}

const std::string& Node::getName() const noexcept {
  return m_data && m_data->m_extras ? m_data->m_extras->name : noName();
}

void Node::setTypeName(const char* text) {
  const NodeClass& nodeClass = *findNodeClass(m_class->type);
  std::unique_ptr<RenamedClass> renamed;
  if (!text || std::strcmp(text, nodeClass.typeName) != 0) {
    renamed = std::make_unique<RenamedClass>();
    static_cast<NodeClass&>(*renamed) = nodeClass;
    renamed->name = text ? text : "";
    renamed->typeName = renamed->name.c_str();
    renamed->copyable = false;
  }
  releaseTypeName();
  m_hasTypeName = renamed != nullptr;
  if (renamed) m_class = renamed.release();
}

void Node::releaseTypeName() noexcept {
  if (!m_hasTypeName) return;
  const NodeClass& nodeClass = *findNodeClass(m_class->type);
  delete static_cast<const RenamedClass*>(m_class);
  m_class = &nodeClass;
  m_hasTypeName = false;
}

bool Node::isType(const char* text) const noexcept { return text && std::strcmp(text, m_class->typeName) == 0; }

Node* Node::getReferenceNode() const noexcept { return m_data && m_data->m_owner != this ? m_data->m_owner : nullptr; }

const NodeClass& Node::fieldClass() const noexcept { return m_data ? *findNodeClass(m_data->m_type) : *m_class; }

// ---- fields

Field& Node::fieldOf(const FieldDecl& decl) { return decl.get ? decl.get(editData()) : *makeDeclared(decl); }

const Field& Node::peekField(const FieldDecl& decl) const { return decl.peek(data()); }

Field* Node::makeDeclared(const FieldDecl& decl) {
  auto& made = editExtraFields().made;
  for (const NodeExtras::MadeField& each : made)
    if (each.decl == &decl) return each.field.get();
  std::unique_ptr<Field> field = decl.make();
  field->setStaticName(decl.name);
  return made.emplace_back(NodeExtras::MadeField{&decl, std::move(field)}).field.get();
}

std::span<const AddedFields::Entry> Node::addedFields() const noexcept {
  if (!m_data || !m_data->m_extras || !m_data->m_extras->fields) return {};
  return m_data->m_extras->fields->added.all();
}

Field* Node::firstField(FieldList list, const NamePattern& wanted) {
  for (const FieldDecl& decl : fieldClass().fields)
    if (decl.list == list && wanted.matches(decl.name)) return &fieldOf(decl);
  return addedFields().empty() ? nullptr : m_data->m_extras->fields->added.first(list, wanted);
}

int Node::countFields(FieldList list) const {
  const auto countIn = [list](const auto& all) {
    return std::count_if(all.begin(), all.end(), [list](const auto& each) { return each.list == list; });
  };
  return static_cast<int>(countIn(fieldClass().fields) + countIn(addedFields()));
}

Field* Node::fieldAt(FieldList list, int index) {
  if (index < 0) return nullptr;
  for (const FieldDecl& decl : fieldClass().fields)
    if (decl.list == list && index-- == 0) return &fieldOf(decl);
  for (const AddedFields::Entry& added : addedFields())
    if (added.list == list && index-- == 0) return added.field.get();
  return nullptr;
}

int Node::indexOfField(FieldList list, const Field* field) const {
  const NodeExtras::Fields* const extra = m_data && m_data->m_extras ? m_data->m_extras->fields.get() : nullptr;
  const auto isAt = [&](const FieldDecl& decl) {
    if (decl.peek) return &decl.peek(data()) == field;
    return extra && std::any_of(extra->made.begin(), extra->made.end(), [&](const NodeExtras::MadeField& made) {
             return made.decl == &decl && made.field.get() == field;
           });
  };
  int index = 0;
  for (const FieldDecl& decl : fieldClass().fields) {
    if (decl.list != list) continue;
    if (isAt(decl)) return index;
    ++index;
  }
  for (const AddedFields::Entry& added : addedFields()) {
    if (added.list != list) continue;
    if (added.field.get() == field) return index;
    ++index;
  }
  return -1;
}

Field* Node::findField(FieldList list, std::string_view name) { return firstField(list, {.text = name}); }

Field* Node::addToList(FieldList list, std::unique_ptr<Field> field) {
  return field ? editExtraFields().added.add(list, std::move(field)) : nullptr;
}

Field* Node::addToList(FieldList list, std::unique_ptr<Field> field, std::string_view name) {
  if (field) field->setName(name);
  return addToList(list, std::move(field));
}

Field* Node::addToList(FieldList list, FieldType type, std::string_view name) {
  return addToList(list, createField(type), name);
}

Field* Node::getEventIn(std::string_view name) {
  if (Field* const exact = findField(FieldList::eventIn, name)) return exact;
  if (!name.starts_with(kSetPrefix)) return nullptr;
  if (Field* const bare = findField(FieldList::eventIn, name.substr(kSetPrefix.size()))) return bare;
  return firstField(FieldList::eventIn, {.text = name, .isWhole = false, .isTail = true});
}

Field* Node::getEventOut(std::string_view name) {
  if (Field* const exact = findField(FieldList::eventOut, name)) return exact;
  if (!name.ends_with(kChangedSuffix)) return nullptr;
  const std::string_view bareName = name.substr(0, name.size() - kChangedSuffix.size());
  if (Field* const bare = findField(FieldList::eventOut, bareName)) return bare;
  return firstField(FieldList::eventOut, {.text = name, .isWhole = false, .isHead = true});
}

Field* Node::getExposedField(std::string_view name) {
  constexpr FieldList list = FieldList::exposedField;
  if (Field* const exact = findField(list, name)) return exact;
  const bool sets = name.starts_with(kSetPrefix);
  const bool tells = name.ends_with(kChangedSuffix);
  if (sets)
    if (Field* const bare = findField(list, name.substr(kSetPrefix.size()))) return bare;
  if (tells)
    if (Field* const bare = findField(list, name.substr(0, name.size() - kChangedSuffix.size()))) return bare;
  return firstField(list, {.text = name, .isWhole = false, .isTail = sets, .isHead = tells});
}

// ---- children

Node* Node::getChild(int index) const noexcept {
  if (index < 0) return nullptr;
  Node* child = getChildNodes();
  while (child && index-- > 0) child = child->next();
  return child;
}

int Node::getNumChildNodes() const noexcept {
  int count = 0;
  for (const Node* child = getChildNodes(); child; child = child->next()) ++count;
  return count;
}

Node* Node::getFirstChildInRole(FieldKey role) const noexcept {
  Node* child = m_firstChild;
  while (child && child->m_role != role) child = child->nextInRing();
  return child;
}

Node* Node::firstChildOf(const NodeTypeSet& types) const noexcept {
  Node* child = getChildNodes();
  while (child && !types.contains(child->getType())) child = child->next();
  return child;
}

GroupingNode* Node::getGroupingNode() const noexcept {
  return static_cast<GroupingNode*>(firstChildOf(kGroupingTypes));
}

GeometryNode* Node::getGeometryNode() const noexcept {
  return static_cast<GeometryNode*>(firstChildOf(kGeometryTypes));
}

TextureNode* Node::getTextureNode() const noexcept { return static_cast<TextureNode*>(firstChildOf(kTextureTypes)); }

bool Node::isAncestor(const Node* node) const noexcept {
  if (!node) return false;
  const Node* above = m_parent;
  while (above && above != node) above = above->m_parent;
  return above != nullptr;
}

// A node must not come to stand below itself. The climb to the root is saved in the cases that loading consists of: a
// node without children, and one that is not in the container yet that everything above this node is in.
bool Node::mayTake(const Node* node) const noexcept {
  if (!node || node == this) return false;
  if (!node->m_firstChild) return true;
  if (m_owner && node->m_owner != m_owner) return true;
  return !isAncestor(node);
}

FieldKey Node::roleFor(const Node& node) const noexcept {
  const NodeType type = node.fieldClass().type;
  for (const NodeMember& member : m_class->members)
    if (member.accepted.contains(type)) return member.key;
  const NodeMember* const block = m_class->findMember(m_class->childrenKey);
  return block && m_class->childrenBlock == ChildrenBlock::written ? block->key : FieldKey::none;
}

bool Node::addChildNode(Node* node) { return node && addChildNode(node, roleFor(*node)); }

bool Node::addChildNode(Node* node, FieldKey role) {
  if (!mayTake(node)) return false;
  place(*node, nullptr, role);
  return true;
}

bool Node::insertBeforeThis(Node* node) {
  if (!m_parent || node == this || !m_parent->mayTake(node)) return false;
  m_parent->place(*node, this, m_role);
  return true;
}

bool Node::replaceWith(Node* node) {
  if (!insertBeforeThis(node)) return false;
  remove();
  return true;
}

// Puts `node` in front of the child `before`, or behind the last child.
void Node::place(Node& node, Node* before, FieldKey role) {
  if (node.m_parent) node.remove();
  node.m_parent = this;
  node.m_role = role;
  if (m_firstChild) node.insertBefore(before ? *before : *m_firstChild);  // in front of the first is behind the last
  if (!m_firstChild || before == m_firstChild) m_firstChild = &node;
  NodeOwner* const owner = holdsContent() ? nullptr : m_owner;
  if (node.m_owner != owner) node.setSceneGraph(owner);
}

void Node::remove() noexcept {
  leaveRing();
  setSceneGraph(nullptr);
}

void Node::leaveRing() noexcept {
  if (!m_parent) return;
  if (m_parent->m_firstChild == this) m_parent->m_firstChild = isLinked() ? static_cast<Node*>(rawNext()) : nullptr;
  unlink();
  m_parent = nullptr;
  m_role = FieldKey::none;
}

Node* Node::nextInDocument(const Node* top) const noexcept {
  return m_firstChild && !holdsContent() ? m_firstChild : nextBeyond(top);
}

Node* Node::nextBeyond(const Node* top) const noexcept {
  for (const Node* node = this; node && node != top; node = node->m_parent)
    if (Node* const sibling = node->nextInRing()) return sibling;
  return nullptr;
}

std::size_t Node::countNodes(std::size_t limit) const noexcept {
  std::size_t count = 0;
  for (const Node* node = this; node && count < limit; ++count)
    node = node->m_firstChild ? node->m_firstChild : node->nextBeyond(this);
  return count;
}

// ---- the container

void Node::setSceneGraph(NodeOwner* owner) {
  for (Node* node = this; node; node = node->nextInDocument(this)) {
    if (node->m_owner == owner) continue;
    NodeOwner* const former = std::exchange(node->m_owner, owner);
    if (former) former->nodeDetached(*node);
    if (owner) owner->nodeAttached(*node);
  }
}

}  // namespace vrml
