#include "vrml/reader/Route.h"

// A route is written by the names that its nodes and fields bear now.

#include <ostream>

#include "vrml/fields/Field.h"
#include "vrml/nodes/Node.h"

namespace vrml {

void Route::write(std::ostream& out) const {
  if (!m_fromNode && !m_fromField && !m_toNode && !m_toField) return;
  const auto nodeName = [](const Node* node) { return node ? node->getName() : std::string(); };
  const auto fieldName = [](const Field* field) { return field ? field->getName() : ""; };
  out << "ROUTE " << nodeName(m_fromNode) << '.' << fieldName(m_fromField) << " TO " << nodeName(m_toNode) << '.'
      << fieldName(m_toField) << '\n';
}

}  // namespace vrml
