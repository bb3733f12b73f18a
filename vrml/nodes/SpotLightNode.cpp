// The table of the SpotLight node.

#include "vrml/nodes/SpotLightNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kLightFields, std::array{
                             dataField<&SpotLightData::ambientIntensity>(FieldList::exposedField, "ambientIntensity"),
                             dataField<&SpotLightData::location>(FieldList::exposedField, "location"),
                             dataField<&SpotLightData::direction>(FieldList::exposedField, "direction"),
                             dataField<&SpotLightData::radius>(FieldList::exposedField, "radius"),
                             dataField<&SpotLightData::attenuation>(FieldList::exposedField, "attenuation"),
                             dataField<&SpotLightData::beamWidth>(FieldList::exposedField, "beamWidth"),
                             dataField<&SpotLightData::cutOffAngle>(FieldList::exposedField, "cutOffAngle"),
                         });

}  // namespace

constinit const NodeClass SpotLightNode::kClass = describe<SpotLightNode>({.typeName = "SpotLight", .fields = kFields});

}  // namespace vrml
