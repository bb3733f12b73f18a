// The table of the NavigationInfo node.

#include "vrml/nodes/NavigationInfoNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(
    kBindableFields, std::array{
                         dataField<&NavigationInfoData::visibilityLimit>(FieldList::exposedField, "visibilityLimit"),
                         dataField<&NavigationInfoData::avatarSize>(FieldList::exposedField, "avatarSize"),
                         dataField<&NavigationInfoData::type>(FieldList::exposedField, "type"),
                         dataField<&NavigationInfoData::headlight>(FieldList::exposedField, "headlight"),
                         dataField<&NavigationInfoData::speed>(FieldList::exposedField, "speed"),
                     });

}  // namespace

constinit const NodeClass NavigationInfoNode::kClass =
    describe<NavigationInfoNode>({.typeName = "NavigationInfo", .fields = kFields});

}  // namespace vrml
