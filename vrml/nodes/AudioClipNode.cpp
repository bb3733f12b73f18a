// The table of the AudioClip node.

#include "vrml/nodes/AudioClipNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&AudioClipData::description>(FieldList::exposedField, "description"),
    dataField<&AudioClipData::loop>(FieldList::exposedField, "loop"),
    dataField<&AudioClipData::startTime>(FieldList::exposedField, "startTime"),
    dataField<&AudioClipData::stopTime>(FieldList::exposedField, "stopTime"),
    dataField<&AudioClipData::pitch>(FieldList::exposedField, "pitch"),
    dataField<&AudioClipData::url>(FieldList::exposedField, "url"),
    madeField<SFBool, 0>(FieldList::eventOut, "isActive"),
    madeField<SFTime, -1>(FieldList::eventOut, "duration"),
};

}  // namespace

constinit const NodeClass AudioClipNode::kClass = describe<AudioClipNode>({.typeName = "AudioClip", .fields = kFields});

}  // namespace vrml
