// The tree is walked along its links, without a stack: what a child was written as (the member's name before it, or in
// the bracketed block) follows from the child itself, so the way up undoes what the way down did to the indent.
// Children are written in the order in which they stand, since a USE must come behind its DEF: a child in a single
// member, as a Collision's proxy, that stands between others parts their block.

#include "vrml/nodes/NodeWriter.h"

#include <ostream>
#include <string_view>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/GroupingNode.h"

namespace vrml {

namespace {

bool isMultiValued(FieldType type) { return type == FieldType::SFImage || type >= FieldType::MFFloat; }

// A box is written when the file gave one; one that was computed never is.
bool isAbsentBox(const Node& node, const FieldDecl& decl) {
  const bool isBox = decl.key == fieldKey("bboxCenter") || decl.key == fieldKey("bboxSize");
  return isBox && !static_cast<const GroupingNode&>(node).hasBboxSize();
}

}  // namespace

void Node::write(std::ostream& out, int depth) const { NodeWriter(out).write(*this, depth); }

void Node::writeFields(std::ostream& out, const char* indent) const { NodeWriter(out).writeFields(*this, indent); }

std::string Node::makeIndent(int count) { return std::string(count < 1 ? 0 : static_cast<std::size_t>(count), '\t'); }

// ---- the tree

void NodeWriter::write(const Node& top, int depth) {
  m_indent = Node::makeIndent(depth);
  put(m_indent);
  begin(top);
  const Node* node = &top;
  const Node* previous = nullptr;  // the part of `node` that was written last
  for (;;) {
    if (const Node* const part = isWrittenAsUse(*node) ? nullptr : nextPart(*node, previous)) {
      enter(*part, previous);
      begin(*part);
      node = part;
      previous = nullptr;
      continue;
    }
    end(*node, previous);
    if (node == &top) return;
    leave(*node);
    previous = node;
    node = node->getParent();
  }
}

// A reference always; an instance while its source has a name to refer to it by.
bool NodeWriter::isWrittenAsUse(const Node& node) {
  return node.isInstanceNode() || (node.getReferenceNode() && node.hasName());
}

// Whether a child is written in the bracketed block of its parent rather than behind a member's name.
bool NodeWriter::standsInBlock(const Node& child) {
  const NodeClass& parentClass = child.getParent()->getClass();
  if (parentClass.childrenBlock != ChildrenBlock::written) return false;
  const NodeMember* const member = parentClass.findMember(child.getRole());
  return !member || member->many;
}

// What follows `part` among the children of `parent` that are written; the first of them for null.
const Node* NodeWriter::nextPart(const Node& parent, const Node* part) {
  const Node* child = part ? part->nextInRing() : parent.m_firstChild;
  switch (parent.getClass().childrenBlock) {
    case ChildrenBlock::hidden:
      return nullptr;
    case ChildrenBlock::asMembers:
      while (child && child->getRole() == FieldKey::none) child = child->nextInRing();
      return child;
    case ChildrenBlock::written:
      return child;
  }
  return nullptr;
}

void NodeWriter::begin(const Node& node) {
  if (isWrittenAsUse(node)) {
    m_line.assign("USE ").append(node.getName()).append("\n");
    put(m_line);
    return;
  }
  m_line.clear();
  if (node.hasName()) m_line.append("DEF ").append(node.getName()).append(" ");
  m_line.append(node.getTypeName()).append(" {\n");
  put(m_line);
  node.writeFields(m_out, m_indent.c_str());
}

// `last` is the part that was written last; null when the node has none.
void NodeWriter::end(const Node& node, const Node* last) {
  if (isWrittenAsUse(node)) return;
  m_line.clear();
  if (last && standsInBlock(*last)) closeBlock();
  m_line.append(m_indent).append("}\n");
  put(m_line);
}

// Writes what comes before a child's own text and sets the indent for it. `previous` is the part written before it.
void NodeWriter::enter(const Node& child, const Node* previous) {
  const bool isBlockOpen = previous && standsInBlock(*previous);
  const bool goesInBlock = standsInBlock(child);
  m_line.clear();
  if (isBlockOpen && !goesInBlock) closeBlock();
  if (!goesInBlock) {
    m_line.append(m_indent).append("\t").append(fieldName(child.getRole())).append(" ");
    m_indent.append(1, '\t');
  } else {
    if (!isBlockOpen)
      m_line.append(m_indent).append("\t").append(fieldName(child.getParent()->getClass().childrenKey)).append(" [\n");
    m_indent.append(2, '\t');
    m_line.append(m_indent);
  }
  put(m_line);
}

void NodeWriter::closeBlock() { m_line.append(m_indent).append("\t]\n"); }

void NodeWriter::leave(const Node& child) { m_indent.resize(m_indent.size() - (standsInBlock(child) ? 2 : 1)); }

// ---- fields

void NodeWriter::writeFields(const Node& node, const char* indent) {
  const NodeClass& nodeClass = node.getClass();
  if (nodeClass.writeOrder.empty()) {
    for (const FieldDecl& decl : nodeClass.fields)
      if (decl.peek) writeField(node, decl, indent);
  } else {
    for (const FieldKey key : nodeClass.writeOrder)
      if (const FieldDecl* const decl = nodeClass.findField(key)) writeField(node, *decl, indent);
  }
}

void NodeWriter::writeField(const Node& node, const FieldDecl& decl, const char* indent) {
  if (isAbsentBox(node, decl)) return;
  const Field& field = node.peekField(decl);
  const bool isList = isMultiValued(decl.type);
  if (isList && static_cast<const MField&>(field).getSize() == 0) return;
  m_line.assign(indent).append("\t").append(decl.keyword);
  if (isList)
    writeList(static_cast<const MField&>(field), indent, node.writesEscapes());
  else
    writeSingle(field, node.writesEscapes());
}

void NodeWriter::writeSingle(const Field& field, bool escapes) {
  m_line += ' ';
  if (field.getType() == FieldType::SFString)
    field.appendVrml(m_line, escapes);
  else if (field.getType() == FieldType::SFRotation)
    SFRotation::formatStream(m_line, static_cast<const SFRotation&>(field).getValue(), escapes);
  else
    field.appendText(m_line);
  m_line += '\n';
  put(m_line);
}

void NodeWriter::writeList(const MField& list, const char* indent, bool escapes) {
  const bool isImage = list.getType() == FieldType::SFImage;
  m_line.append(isImage ? "\n" : " [\n");
  put(m_line);
  m_line.assign(indent).append("\t\t");
  if (list.getType() == FieldType::MFString)
    static_cast<const MFString&>(list).write(m_out, m_line.c_str(), escapes);
  else
    list.write(m_out, m_line.c_str());
  if (isImage) return;
  m_line.assign(indent).append("\t]\n");
  put(m_line);
}

void NodeWriter::put(std::string_view text) { m_out.write(text.data(), static_cast<std::streamsize>(text.size())); }

}  // namespace vrml
