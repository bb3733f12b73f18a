// The table of the DEF node.

#include "vrml/nodes/DEFNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

constinit const NodeClass DEFNode::kClass = describe<DEFNode>({.typeName = "DEF", .copyable = false});

}  // namespace vrml
