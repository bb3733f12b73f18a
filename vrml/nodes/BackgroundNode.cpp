// The table of the Background node.

#include "vrml/nodes/BackgroundNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kBindableFields, std::array{
                                dataField<&BackgroundData::groundColor>(FieldList::exposedField, "groundColor"),
                                dataField<&BackgroundData::skyColor>(FieldList::exposedField, "skyColor"),
                                dataField<&BackgroundData::groundAngle>(FieldList::exposedField, "groundAngle"),
                                dataField<&BackgroundData::skyAngle>(FieldList::exposedField, "skyAngle"),
                                dataField<&BackgroundData::frontUrl>(FieldList::exposedField, "frontUrl"),
                                dataField<&BackgroundData::backUrl>(FieldList::exposedField, "backUrl"),
                                dataField<&BackgroundData::leftUrl>(FieldList::exposedField, "leftUrl"),
                                dataField<&BackgroundData::rightUrl>(FieldList::exposedField, "rightUrl"),
                                dataField<&BackgroundData::topUrl>(FieldList::exposedField, "topUrl"),
                                dataField<&BackgroundData::bottomUrl>(FieldList::exposedField, "bottomUrl"),
                            });

}  // namespace

constinit const NodeClass BackgroundNode::kClass =
    describe<BackgroundNode>({.typeName = "Background", .fields = kFields});

}  // namespace vrml
