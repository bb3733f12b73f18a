// The table of the MovieTexture node.

#include "vrml/nodes/MovieTextureNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kTextureFields, std::array{
                               dataField<&MovieTextureData::url>(FieldList::exposedField, "url"),
                               dataField<&MovieTextureData::loop>(FieldList::exposedField, "loop"),
                               dataField<&MovieTextureData::startTime>(FieldList::exposedField, "startTime"),
                               dataField<&MovieTextureData::stopTime>(FieldList::exposedField, "stopTime"),
                               dataField<&MovieTextureData::speedTime>(FieldList::exposedField, "speedTime", "speed"),
                               madeField<SFBool, 0>(FieldList::eventOut, "isActive"),
                               madeField<SFTime, -1>(FieldList::eventOut, "duration"),
                           });

}  // namespace

constinit const NodeClass MovieTextureNode::kClass =
    describe<MovieTextureNode>({.typeName = "MovieTexture", .fields = kFields});

}  // namespace vrml
