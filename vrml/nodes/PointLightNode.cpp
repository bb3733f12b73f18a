// The table of the PointLight node.

#include "vrml/nodes/PointLightNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kLightFields, std::array{
                             dataField<&PointLightData::ambientIntensity>(FieldList::exposedField, "ambientIntensity"),
                             dataField<&PointLightData::location>(FieldList::exposedField, "location"),
                             dataField<&PointLightData::radius>(FieldList::exposedField, "radius"),
                             dataField<&PointLightData::attenuation>(FieldList::exposedField, "attenuation"),
                         });

}  // namespace

constinit const NodeClass PointLightNode::kClass =
    describe<PointLightNode>({.typeName = "PointLight", .fields = kFields});

}  // namespace vrml
