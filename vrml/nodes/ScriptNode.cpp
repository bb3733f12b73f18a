// A declared value goes out with the digits that read back to the same number, since nothing else gives a script's
// field a form of its own; text values go out as they came.

#include "vrml/nodes/ScriptNode.h"

#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include "vrml/fields/FieldFactory.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&ScriptData::directOutput>(FieldList::field, "directOutput"),
    dataField<&ScriptData::mustEvaluate>(FieldList::field, "mustEvaluate"),
    dataField<&ScriptData::url>(FieldList::exposedField, "url"),
};

// The class of a declared type: `none` for a word that is no type or whose values stay text.
FieldType fieldTypeOfWord(ScriptWord type) {
  const FieldType known = fieldTypeOf(scriptWordName(type));
  return known == FieldType::SFNode ? FieldType::none : known;
}

bool isTextType(ScriptWord type) {
  return type == scriptWord("SFNode") || type == scriptWord("MFNode") || type == scriptWord("MFBool") ||
         type == scriptWord("MFImage");
}

// A script in a file has no exposed fields but its url: one that was declared so has a value like a field.
const char* listWord(FieldList list) {
  switch (list) {
    case FieldList::eventIn:
      return "eventIn";
    case FieldList::eventOut:
      return "eventOut";
    case FieldList::exposedField:
    case FieldList::field:
      return "field";
    case FieldList::fifth:
      break;
  }
  return "";
}

bool hasValue(FieldList list) { return list == FieldList::field || list == FieldList::exposedField; }

void appendValue(std::string& line, const ScriptDeclaration& declaration, bool escapes) {
  if (!declaration.isText) {
    declaration.field->appendVrml(line, escapes);
    return;
  }
  const char* const text = static_cast<const SFString*>(declaration.field)->getValue();
  const bool missing = text == nullptr || *text == '\0';
  line += !missing ? text : declaration.type == scriptWord("SFNode") ? "NULL" : "[ ]";
}

}  // namespace

constinit const NodeClass ScriptNode::kClass = describe<ScriptNode>({.typeName = "Script", .fields = kFields});

Field* ScriptNode::declare(FieldList list, ScriptWord type, std::string_view name) {
  if (list == FieldList::fifth) return nullptr;
  const bool isText = isTextType(type);
  std::unique_ptr<Field> field = isText ? std::make_unique<SFString>() : makeField(fieldTypeOfWord(type));
  if (!field) return nullptr;
  Field* const declared = addToList(list, std::move(field), name);
  editData().declarations.push_back({list, type, isText, declared});
  return declared;
}

void ScriptNode::writeFields(std::ostream& out, const char* indent) const {
  Node::writeFields(out, indent);
  std::string line;
  for (const ScriptDeclaration& declaration : getDeclarations()) {
    line.assign(indent).append("\t").append(listWord(declaration.list)).append(" ");
    line.append(scriptWordName(declaration.type)).append(" ").append(declaration.field->getName());
    if (hasValue(declaration.list)) {
      line += ' ';
      appendValue(line, declaration, writesEscapes());
    }
    line += '\n';
    out.write(line.data(), static_cast<std::streamsize>(line.size()));
  }
}

}  // namespace vrml
