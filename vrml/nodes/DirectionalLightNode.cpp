// The table of the DirectionalLight node.

#include "vrml/nodes/DirectionalLightNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(
    kLightFields, std::array{
                      dataField<&DirectionalLightData::ambientIntensity>(FieldList::exposedField, "ambientIntensity"),
                      dataField<&DirectionalLightData::direction>(FieldList::exposedField, "direction"),
                  });

}  // namespace

constinit const NodeClass DirectionalLightNode::kClass =
    describe<DirectionalLightNode>({.typeName = "DirectionalLight", .fields = kFields});

}  // namespace vrml
