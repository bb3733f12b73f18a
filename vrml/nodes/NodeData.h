#pragma once

// The values of a node, apart from the node itself: an instance made by a USE has a place of its own in the tree and
// shares the values of its source. The block is counted by the nodes that share it, so that they may end in any order.
// A node that was never given a value has no block at all and reads its class's defaults.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "vrml/fields/Field.h"
#include "vrml/nodes/AddedFields.h"
#include "vrml/nodes/BoundingBox.h"
#include "vrml/nodes/NodeClass.h"
#include "vrml/nodes/NodePool.h"

namespace vrml {

/// The part of a node's data that most nodes lack: a name, the fields that do not stand in the data block, a computed
/// box.
struct NodeExtras : Pooled {
  /// A field of the class that was asked for: an event, or one of the fifth list.
  struct MadeField {
    const FieldDecl* decl;
    std::unique_ptr<Field> field;
  };
  struct Fields {
    std::vector<MadeField> made;
    AddedFields added;
    BoundingBox computedBox;
  };

  std::string name;
  std::unique_ptr<Fields> fields;
};

/// Each node class derives a struct of its fields from this. There is no virtual destructor: the class's table knows
/// the type.
class NodeData : public Pooled {
 public:
  NodeData() noexcept = default;
  NodeData(const NodeData&) = delete;
  NodeData& operator=(const NodeData&) = delete;

  /// The class whose fields these are: also for a reference, whose own class has none.
  [[nodiscard]] NodeType type() const noexcept { return m_type; }
  /// The node that the data were made for; null when it has been destroyed and only instances are left.
  [[nodiscard]] Node* owner() const noexcept { return m_owner; }
  // Whether more than one node holds these values.
  [[nodiscard]] bool isShared() const noexcept { return m_sharers > 1; }

 protected:
  ~NodeData() = default;

 private:
  friend class Node;

  std::uint32_t m_sharers = 1;  // nodes that hold this block
  NodeType m_type = NodeType::none;
  Node* m_owner = nullptr;
  std::unique_ptr<NodeExtras> m_extras;
};

/// A part of a data block that most nodes of the class leave at its defaults: it takes a pointer until it is changed.
template <class Part>
class Rare {
 public:
  /// For reading: the part, or the defaults when it was never changed.
  [[nodiscard]] const Part& get() const { return m_part ? *m_part : defaults(); }
  /// For changing: the part, made with its defaults the first time.
  [[nodiscard]] Part& edit() {
    if (!m_part) m_part = std::make_unique<Part>();
    return *m_part;
  }
  /// Whether the part was ever changed.
  [[nodiscard]] bool exists() const noexcept { return m_part != nullptr; }

 private:
  // Never destroyed: a node may outlive whatever ends with the process.
  static const Part& defaults() {
    static const Part& part = *new Part;
    return part;
  }
  std::unique_ptr<Part> m_part;
};

/// A field in a data block, which bears its name from the start. Used like a pointer to the field.
template <class F>
class Named {
 public:
  template <class... Arguments>
  explicit Named(const char* name, Arguments&&... arguments) : m_field(std::forward<Arguments>(arguments)...) {
    m_field.setStaticName(name);
  }
  [[nodiscard]] F& operator*() noexcept { return m_field; }
  [[nodiscard]] const F& operator*() const noexcept { return m_field; }
  [[nodiscard]] F* operator->() noexcept { return &m_field; }
  [[nodiscard]] const F* operator->() const noexcept { return &m_field; }

 private:
  F m_field;
};

}  // namespace vrml
