// The node's name is asked for through the function that was remembered with the node.

#include "vrml/fields/SFNode.h"

namespace vrml {

void SFNode::setValue(const char*) {}

bool SFNode::equals(const Field* other) const {
  return isSameType(other) && static_cast<const SFNode*>(other)->m_node == m_node;
}

void SFNode::appendText(std::string& out) const {
  if (m_node) m_appendName(m_node, out);
}

void SFNode::appendVrml(std::string& out, bool) const {
  std::string name;
  appendText(name);
  out += name.empty() ? "NULL" : "USE " + name;
}

}  // namespace vrml
