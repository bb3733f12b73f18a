#pragma once

// The base of every node class. A node is a place in the tree (its siblings, its parent, its children, the container
// that owns it) and a hold on its values (NodeData), which an instance shares with its source. Trees come from files
// and can be millions of levels deep, so no operation here recurses: destruction, copying, writing and searching walk
// along the links.
//
// The children of a node stand in one ring, in the order they were added. A child knows the member of its parent that
// it stands in (its role). Children in the role `proxy` are kept, owned and written like the others, but
// getChildNodes() and next() pass them over.

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vrml/fields/Field.h"
#include "vrml/nodes/AddedFields.h"
#include "vrml/nodes/BoundingBox.h"
#include "vrml/nodes/LinkedListNode.h"
#include "vrml/nodes/Names.h"
#include "vrml/nodes/NodeClass.h"
#include "vrml/nodes/NodeData.h"
#include "vrml/nodes/NodeOwner.h"
#include "vrml/nodes/NodePool.h"

namespace vrml {

class GeometryNode;
class GroupingNode;
class TextureNode;

class Node : public LinkedListNode<Node>, public Pooled {
 public:
  /// Destroys the node and all its descendants, and takes it out of its parent and its container. Instances of it live
  /// on with its values.
  ~Node() override;

  // ---- what a class may have of its own; must stay in this order

  /// True when `node` may stand among this node's children. A reference counts as what it refers to. Null is false.
  [[nodiscard]] virtual bool isChildNodeType(const Node* node) const;
  /// Writes this node's field lines, each behind `indent` and a tab: single values always, lists when they have an
  /// element.
  virtual void writeFields(std::ostream& out, const char* indent) const;
  /// Brings up to date what the node names outside itself. An image texture answers with the name of its file, every
  /// other class with null. The name is valid until the next refresh or prepare.
  virtual const char* refresh();
  /// Makes the node ready to be written or converted: computes bounding boxes, forgets a file name that has no url any
  /// more.
  virtual void prepare();
  /// Called for every node by the pass that follows a load. Does nothing in every class.
  virtual void initialize();
  /// Computes the bounding box of a grouping or geometry node from what it holds now. Does nothing in other classes.
  virtual void recomputeBoundingBox();

  // ---- names and type

  /// Sets the DEF name to a copy of `name` in which every character of code 0 to 32 is a "_". Null is the empty name.
  /// An instance renames its source.
  void setName(const char* name);
  void setName(std::string_view name);
  /// The DEF name; "" when there is none. An instance has its source's name. Valid until the name is set again.
  [[nodiscard]] const std::string& getName() const noexcept;
  [[nodiscard]] bool hasName() const noexcept { return !getName().empty(); }

  [[nodiscard]] const NodeClass& getClass() const noexcept { return *m_class; }
  [[nodiscard]] NodeType getType() const noexcept { return m_class->type; }
  /// The name of the class's type, unless the node was given another one. Never null.
  [[nodiscard]] const char* getTypeName() const noexcept { return m_class->typeName; }
  /// Gives this node another type name, for the tests by name and for the written text; null is the empty one. What the
  /// node is stays as it was: its fields, `getType` and the tests by number. It has no copy until it is given the name
  /// of its class back.
  void setTypeName(const char* text);
  /// Whether `text` is the type name; false for null.
  [[nodiscard]] bool isType(const char* text) const noexcept;
  [[nodiscard]] bool isType(NodeType type) const noexcept { return m_class->type == type; }
  /// True for the node that a USE put into the tree and that no pass has resolved.
  [[nodiscard]] bool isInstanceNode() const noexcept { return isType("DEF"); }

  /// For an instance or a reference the node that it stands for; null for every other node, and when that node has been
  /// destroyed.
  [[nodiscard]] Node* getReferenceNode() const noexcept;
  // Whether another node has the same values as this one because one of them is an instance: what is made from the
  // values may be made once for all of them.
  [[nodiscard]] bool sharesValues() const noexcept { return m_data && m_data->isShared(); }

  // A hint that a node will be wanted soon, with the values that came to lie behind it when it was made. The node may
  // have gone; null is nothing. Put in place wherever it stands: a compiler takes a call that gives hints alone for one
  // that does nothing, and leaves it out.
  [[gnu::always_inline]] static void prefetch(const Node* node) noexcept {
    if (!node) return;
    constexpr std::size_t kCacheLine = 64;
    const char* const start = reinterpret_cast<const char*>(node);
    for (std::size_t i = 0; i < 3; ++i) __builtin_prefetch(start + i * kCacheLine);
  }

  // ---- fields

  /// The fields of one list: those of the class in creation order, then those added to this node. An instance reads and
  /// changes its source's. The node owns every field; a pointer stays valid as long as a node shares the values.
  [[nodiscard]] int countFields(FieldList list) const;
  [[nodiscard]] Field* fieldAt(FieldList list, int index);                   // null when out of range
  [[nodiscard]] int indexOfField(FieldList list, const Field* field) const;  // -1 when absent
  /// The first field of exactly that name; null when there is none.
  [[nodiscard]] Field* findField(FieldList list, std::string_view name);
  /// Adds a field under the name that it has, or under `name`, and returns it. Null adds nothing and gives null.
  Field* addToList(FieldList list, std::unique_ptr<Field> field);
  Field* addToList(FieldList list, std::unique_ptr<Field> field, std::string_view name);
  /// Adds a new default field of a single-valued type code (1 to 9); any other code adds nothing and gives null.
  Field* addToList(FieldList list, FieldType type, std::string_view name);

  Field* addExposedField(std::unique_ptr<Field> field) { return addToList(FieldList::exposedField, std::move(field)); }
  Field* addExposedField(std::unique_ptr<Field> field, std::string_view name) {
    return addToList(FieldList::exposedField, std::move(field), name);
  }
  Field* addExposedField(FieldType type, std::string_view name) {
    return addToList(FieldList::exposedField, type, name);
  }
  Field* addEventIn(std::unique_ptr<Field> field) { return addToList(FieldList::eventIn, std::move(field)); }
  Field* addEventIn(std::unique_ptr<Field> field, std::string_view name) {
    return addToList(FieldList::eventIn, std::move(field), name);
  }
  Field* addEventIn(FieldType type, std::string_view name) { return addToList(FieldList::eventIn, type, name); }
  Field* addEventOut(std::unique_ptr<Field> field) { return addToList(FieldList::eventOut, std::move(field)); }
  Field* addEventOut(std::unique_ptr<Field> field, std::string_view name) {
    return addToList(FieldList::eventOut, std::move(field), name);
  }
  Field* addEventOut(FieldType type, std::string_view name) { return addToList(FieldList::eventOut, type, name); }
  Field* addField(std::unique_ptr<Field> field) { return addToList(FieldList::field, std::move(field)); }
  Field* addField(std::unique_ptr<Field> field, std::string_view name) {
    return addToList(FieldList::field, std::move(field), name);
  }
  Field* addField(FieldType type, std::string_view name) { return addToList(FieldList::field, type, name); }
  Field* addFifthField(std::unique_ptr<Field> field) { return addToList(FieldList::fifth, std::move(field)); }
  Field* addFifthField(std::unique_ptr<Field> field, std::string_view name) {
    return addToList(FieldList::fifth, std::move(field), name);
  }
  Field* addFifthField(FieldType type, std::string_view name) { return addToList(FieldList::fifth, type, name); }

  [[nodiscard]] int getNumExposedFields() const { return countFields(FieldList::exposedField); }
  [[nodiscard]] int getNumEventIns() const { return countFields(FieldList::eventIn); }
  [[nodiscard]] int getNumEventOuts() const { return countFields(FieldList::eventOut); }
  [[nodiscard]] int getNumFields() const { return countFields(FieldList::field); }
  [[nodiscard]] int getNumFifthFields() const { return countFields(FieldList::fifth); }

  [[nodiscard]] Field* getExposedField(int index) { return fieldAt(FieldList::exposedField, index); }
  [[nodiscard]] Field* getEventIn(int index) { return fieldAt(FieldList::eventIn, index); }
  [[nodiscard]] Field* getEventOut(int index) { return fieldAt(FieldList::eventOut, index); }
  [[nodiscard]] Field* getField(int index) { return fieldAt(FieldList::field, index); }
  [[nodiscard]] Field* getFifthField(int index) { return fieldAt(FieldList::fifth, index); }

  [[nodiscard]] int getExposedFieldIndex(const Field* field) const {
    return indexOfField(FieldList::exposedField, field);
  }
  [[nodiscard]] int getEventInIndex(const Field* field) const { return indexOfField(FieldList::eventIn, field); }
  [[nodiscard]] int getEventOutIndex(const Field* field) const { return indexOfField(FieldList::eventOut, field); }
  [[nodiscard]] int getFieldIndex(const Field* field) const { return indexOfField(FieldList::field, field); }
  [[nodiscard]] int getFifthFieldIndex(const Field* field) const { return indexOfField(FieldList::fifth, field); }

  /// The field that an event name means: the one of exactly that name; else the one that is left when "set_" (eventIn),
  /// "_changed" (eventOut) or either (exposed field) is taken off; else, when the name has such an addition, the first
  /// field whose name ends, or begins, the given one. Null when there is none.
  [[nodiscard]] Field* getExposedField(std::string_view name);
  [[nodiscard]] Field* getEventIn(std::string_view name);
  [[nodiscard]] Field* getEventOut(std::string_view name);
  /// The plain field of exactly that name, and the same of the fifth list.
  [[nodiscard]] Field* getField(std::string_view name) { return findField(FieldList::field, name); }
  [[nodiscard]] Field* getFifthField(std::string_view name) { return findField(FieldList::fifth, name); }

  /// The field that `decl` declares, which must come from the class of this node (for an instance, the same class):
  /// what the grammar stores values into.
  [[nodiscard]] Field& fieldOf(const FieldDecl& decl);
  /// The same for reading; of a node without values of its own it is the class's default. `decl` is not an event's.
  [[nodiscard]] const Field& peekField(const FieldDecl& decl) const;

  // ---- children

  /// The first child; null when there is none.
  [[nodiscard]] Node* getChildNodes() const noexcept { return skipProxies(m_firstChild); }
  /// The next sibling; null behind the last one and for a node without a parent.
  [[nodiscard]] Node* next() const noexcept { return skipProxies(nextInRing()); }
  [[nodiscard]] Node* getChild(int index) const noexcept;  // null when negative or past the end
  [[nodiscard]] int getNumChildNodes() const noexcept;
  /// The first child, or the next sibling, of a type.
  [[nodiscard]] Node* getFirstChild(const char* typeName) const noexcept { return firstOf(getChildNodes(), typeName); }
  [[nodiscard]] Node* getFirstChild(NodeType type) const noexcept { return firstOf(getChildNodes(), type); }
  [[nodiscard]] Node* next(const char* typeName) const noexcept { return firstOf(next(), typeName); }
  [[nodiscard]] Node* next(NodeType type) const noexcept { return firstOf(next(), type); }
  /// The first child in a role: the way to a Collision's proxy, which the others pass over.
  [[nodiscard]] Node* getFirstChildInRole(FieldKey role) const noexcept;

  /// The first child that is a grouping, a geometry or a texture node; null when there is none.
  [[nodiscard]] GroupingNode* getGroupingNode() const noexcept;
  [[nodiscard]] GeometryNode* getGeometryNode() const noexcept;
  [[nodiscard]] TextureNode* getTextureNode() const noexcept;

  /// Puts `node` behind the last child, out of the place it stands in. This node owns it from then on, and it and all
  /// its descendants belong to this node's container. Without a role it stands in the first member that is meant for
  /// its type. Null and a node that this one stands under are refused: false.
  bool addChildNode(Node* node);
  bool addChildNode(Node* node, FieldKey role);
  /// Puts `node` in front of this one, in the same parent and role. False as above, and when this node has no parent.
  bool insertBeforeThis(Node* node);
  /// Puts `node` in this node's place and role, and takes this node out of the tree; the caller owns it then. False as
  /// above.
  bool replaceWith(Node* node);
  /// Takes this node out of its parent and, with all its descendants, out of its container. The caller owns it then.
  void remove() noexcept;

  /// The member of the parent that this node stands in; none when it stands in no particular one.
  [[nodiscard]] FieldKey getRole() const noexcept { return m_role; }

  [[nodiscard]] Node* getParent() const noexcept { return m_parent; }
  [[nodiscard]] bool isParent(const Node* node) const noexcept { return node && m_parent == node; }
  /// True when `node` stands above this one.
  [[nodiscard]] bool isAncestor(const Node* node) const noexcept;
  /// True when `node` stands below this one.
  [[nodiscard]] bool isAncestorOf(const Node* node) const noexcept { return node && node->isAncestor(this); }

  /// The next node of the tree under `top` in document order, proxies included; null at the end. An Inline's content is
  /// passed over: it is a file of its own.
  [[nodiscard]] Node* nextInDocument(const Node* top) const noexcept;
  /// The same, passing over everything below this node.
  [[nodiscard]] Node* nextBeyond(const Node* top) const noexcept;
  /// Number of nodes in this subtree, itself, proxies and an Inline's content included; stops counting at `limit`.
  [[nodiscard]] std::size_t countNodes(std::size_t limit = static_cast<std::size_t>(-1)) const noexcept;

  // ---- the container

  /// Makes `owner` (null: nobody) the container of this node and all its descendants, and tells the old and the new
  /// one.
  void setSceneGraph(NodeOwner* owner);
  [[nodiscard]] NodeOwner* getSceneGraph() const noexcept { return m_owner; }

  // ---- text

  /// Writes this node and everything below it as VRML text, `depth` tabs deep.
  void write(std::ostream& out, int depth) const;
  /// Whether strings are written with a backslash before quotes and backslashes: as the container says.
  [[nodiscard]] bool writesEscapes() const { return m_owner && m_owner->writesEscapes(); }
  /// A text of `count` tabs; empty for a count below 1.
  [[nodiscard]] static std::string makeIndent(int count);

 protected:
  /// A node of a class; an instance when it is given another node's data.
  Node(const NodeClass& nodeClass, NodeData* shared);

  /// The values, for reading: the node's own, its source's, or the class's defaults.
  [[nodiscard]] const NodeData& data() const { return m_data ? *m_data : m_class->defaults(); }
  /// The values, for changing; makes the block when there is none.
  [[nodiscard]] NodeData& editData() { return m_data ? *m_data : makeData(); }

  /// The bounding box that recomputeBoundingBox left; empty when it never ran.
  [[nodiscard]] BoundingBox computedBox() const;
  void setComputedBox(const BoundingBox& box);

 private:
  friend class NodeWriter;

  // A node stands in its parent's ring, which has no head: the list's own operations do not fit it.
  using LinkedListNode<Node>::insertBefore;
  using LinkedListNode<Node>::isLinked;
  using LinkedListNode<Node>::previous;
  using LinkedListNode<Node>::unlink;

  friend Node* copyNode(const Node* node, std::vector<const Node*>* leftOut);
  friend Node* createReference(Node& source);

  /// The first of `node` and its next siblings that is of a type, by name or by number.
  template <class Type>
  [[nodiscard]] static Node* firstOf(Node* node, Type type) noexcept {
    while (node && !node->isType(type)) node = node->next();
    return node;
  }
  [[nodiscard]] static Node* skipProxies(Node* node) noexcept {
    while (node && node->m_role == fieldKey("proxy")) node = node->nextInRing();
    return node;
  }
  /// The sibling behind this one, whatever its role; null behind the last.
  [[nodiscard]] Node* nextInRing() const noexcept {
    if (!m_parent) return nullptr;
    Node* const following = static_cast<Node*>(rawNext());
    return following == m_parent->m_firstChild ? nullptr : following;
  }
  [[nodiscard]] bool holdsContent() const noexcept { return isType(nodeType("Inline")); }
  [[nodiscard]] Node* firstChildOf(const NodeTypeSet& types) const noexcept;
  /// The member that a node takes when nobody says which.
  [[nodiscard]] FieldKey roleFor(const Node& node) const noexcept;
  [[nodiscard]] bool mayTake(const Node* node) const noexcept;
  void place(Node& node, Node* before, FieldKey role);
  void leaveRing() noexcept;
  void destroyDescendants() noexcept;
  void releaseData() noexcept;
  NodeData& makeData();
  [[nodiscard]] Node* makeInstance() const;
  NodeExtras& editExtras();
  NodeExtras::Fields& editExtraFields();
  Field* makeDeclared(const FieldDecl& decl);
  /// The class whose fields the data hold: of a reference that of its source.
  [[nodiscard]] const NodeClass& fieldClass() const noexcept;
  /// The first field of a list whose name matches. Of those made on demand only that one comes into being.
  [[nodiscard]] Field* firstField(FieldList list, const NamePattern& wanted);
  /// The fields that were added, of all lists.
  [[nodiscard]] std::span<const AddedFields::Entry> addedFields() const noexcept;
  void releaseTypeName() noexcept;

  FieldKey m_role = FieldKey::none;
  bool m_hasTypeName = false;  // m_class is this node's own copy of its class's table, under another name
  const NodeClass* m_class;
  NodeData* m_data = nullptr;  // null while the node has neither a value nor a name of its own
  Node* m_parent = nullptr;
  Node* m_firstChild = nullptr;  // the ring of children begins here
  NodeOwner* m_owner = nullptr;
};

static_assert(sizeof(Node) <= 80, "an instance must stay near 100 bytes");

}  // namespace vrml
