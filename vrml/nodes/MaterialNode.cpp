// The table of the Material node.

#include "vrml/nodes/MaterialNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&MaterialData::transparency>(FieldList::exposedField, "transparency"),
    rareField<&MaterialData::rare, &MaterialRare::ambientIntensity>(FieldList::exposedField, "ambientIntensity"),
    rareField<&MaterialData::rare, &MaterialRare::shininess>(FieldList::exposedField, "shininess"),
    dataField<&MaterialData::diffuseColor>(FieldList::exposedField, "diffuseColor"),
    rareField<&MaterialData::rare, &MaterialRare::specularColor>(FieldList::exposedField, "specularColor"),
    rareField<&MaterialData::rare, &MaterialRare::emissiveColor>(FieldList::exposedField, "emissiveColor"),
};

}  // namespace

constinit const NodeClass MaterialNode::kClass = describe<MaterialNode>({.typeName = "Material", .fields = kFields});

}  // namespace vrml
