#pragma once

// A reference to a node, not owned, null by default. Values stand below nodes and know nothing of them: how to ask a
// node for its name is remembered when a node is set.

#include <concepts>
#include <string>

#include "vrml/fields/Field.h"

namespace vrml {

class Node;

class SFNode final : public Field {
 public:
  using Field::getValue;

  SFNode() noexcept : Field(FieldType::SFNode) {}
  template <std::derived_from<Node> N>
  explicit SFNode(N* node) : SFNode() {
    setValue(node);
  }
  SFNode(const SFNode& other) noexcept : SFNode() { setValue(other); }

  [[nodiscard]] Node* getValue() const noexcept { return m_node; }

  /// Refers to a node, which must live as long as it is referred to; null is allowed.
  template <std::derived_from<Node> N>
  void setValue(N* node) noexcept {
    m_node = node;
    m_appendName = [](const Node* referred, std::string& out) { out += static_cast<const N*>(referred)->getName(); };
  }
  void setValue(const SFNode& other) noexcept {
    m_node = other.m_node;
    m_appendName = other.m_appendName;
  }

  /// There is no text form to read: ignored.
  void setValue(const char* text) override;
  /// Whether both refer to the same node, or to none.
  [[nodiscard]] bool equals(const Field* other) const override;
  /// The DEF name of the node, nothing without a node.
  void appendText(std::string& out) const override;
  /// `USE` and the node's name; `NULL` without a node or a name.
  void appendVrml(std::string& out, bool escapes = false) const override;

 private:
  Node* m_node = nullptr;
  void (*m_appendName)(const Node*, std::string&) = nullptr;
};

}  // namespace vrml
