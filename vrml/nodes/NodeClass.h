#pragma once

// What the system knows of a node class: one constant table per class that says which fields it has, in creation order,
// which of its members hold nodes, which children it takes, and how its objects are made. The grammar, the writer, the
// field lookups and the copies all read this table, so a new node type is its table and one line in the factory.

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "vrml/fields/FieldType.h"
#include "vrml/nodes/Names.h"

namespace vrml {

class Field;
class Node;
class NodeData;

/// The five lists that a node registers its fields in.
enum class FieldList : std::uint8_t {
  exposedField,  // can be set, read and routed from and to
  eventIn,       // can be routed to
  eventOut,      // can be routed from
  field,         // can be set in the file only
  fifth,         // kept for the node's own use: computed boxes and states
};
inline constexpr std::size_t kFieldListCount = 5;

/// One field of a class. Exposed fields and plain fields are values inside the class's data block; events and fields of
/// the fifth list, which no file sets, come into being when they are first asked for.
struct FieldDecl {
  const char* name;                       // the name it is registered under
  const char* keyword;                    // the word that sets it in a file; "" for events and the fifth list
  FieldKey key;                           // the same as a number; none also for the keywords of a Script
  FieldList list;                         // where it is registered
  FieldType type;                         // its value type
  Field& (*get)(NodeData&);               // the field in a data block, for changing; null when made on demand
  const Field& (*peek)(const NodeData&);  // the same for reading; null when made on demand
  std::unique_ptr<Field> (*make)();       // makes it with its default value; null for fields in the data block
};

/// A member of a class that holds nodes.
struct NodeMember {
  FieldKey key;          // the keyword of the member
  bool many;             // takes a list of nodes
  NodeTypeSet accepted;  // the types meant for it: a child that is added without a word about its place stands here
};

/// How the writer gives a class's children.
enum class ChildrenBlock : std::uint8_t {
  written,    // in one bracketed block
  asMembers,  // each behind the name of its member, and those without one not at all
  hidden,     // not at all
};

struct NodeClass {
  const char* typeName;                     // as VRML spells it
  NodeType type;                            // the same as a number
  std::span<const FieldDecl> fields;        // in creation order, those of the category base first
  std::span<const NodeMember> members;      // node-valued members
  NodeTypeSet acceptedChildren;             // what isChildNodeType says yes to
  ChildrenBlock childrenBlock;              // how children are written
  FieldKey childrenKey;                     // the member that heads the bracketed block
  std::span<const FieldKey> writeOrder;     // the order of the field lines; empty when that of `fields`
  bool copyable;                            // may be made again by copyNode
  Node* (*create)(NodeData* shared);        // a new node; an instance when it is given the data of another node
  NodeData* (*createData)();                // a new data block with every field at its default
  void (*destroyData)(NodeData*) noexcept;  // the end of one
  const NodeData& (*defaults)();            // one data block with the defaults, for reading, which lives for ever

  /// The exposed or plain field that a keyword sets in a file; null when the class has none.
  [[nodiscard]] const FieldDecl* findField(FieldKey key) const noexcept {
    if (key == FieldKey::none) return nullptr;
    for (const FieldDecl& decl : fields)
      if (decl.key == key) return &decl;
    return nullptr;
  }
  [[nodiscard]] const FieldDecl* findField(std::string_view keyword) const noexcept {
    for (const FieldDecl& decl : fields)
      if (decl.peek && keyword == decl.keyword) return &decl;
    return nullptr;
  }

  /// The node-valued member that `key` opens; null when the class has none.
  [[nodiscard]] const NodeMember* findMember(FieldKey key) const noexcept {
    for (const NodeMember& member : members)
      if (member.key == key) return &member;
    return nullptr;
  }
};

}  // namespace vrml
