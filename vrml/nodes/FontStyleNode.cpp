// The table of the FontStyle node.

#include "vrml/nodes/FontStyleNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&FontStyleData::family>(FieldList::field, "family"),
    dataField<&FontStyleData::style>(FieldList::field, "style"),
    dataField<&FontStyleData::language>(FieldList::field, "language"),
    dataField<&FontStyleData::justify>(FieldList::field, "justify"),
    dataField<&FontStyleData::size>(FieldList::field, "size"),
    dataField<&FontStyleData::spacing>(FieldList::field, "spacing"),
    dataField<&FontStyleData::horizontal>(FieldList::field, "horizontal"),
    dataField<&FontStyleData::leftToRight>(FieldList::field, "leftToRight"),
    dataField<&FontStyleData::topToBottom>(FieldList::field, "topToBottom"),
};

}  // namespace

constinit const NodeClass FontStyleNode::kClass = describe<FontStyleNode>({.typeName = "FontStyle", .fields = kFields});

}  // namespace vrml
