#pragma once

// A program with an interface of its own. What a script declares is registered in its field lists like any other field,
// so that routes find it, and is kept in the order of the file for writing.

#include <span>
#include <string_view>
#include <vector>

#include "vrml/fields/MFString.h"
#include "vrml/fields/SFBool.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

/// One declaration of a script: "field SFFloat x 1.5", "eventIn SFBool go".
struct ScriptDeclaration {
  FieldList list;   // field, eventIn, eventOut, or exposedField
  ScriptWord type;  // the type as it is spelled
  bool isText;      // the value is VRML text, held in an SFString: the type has no field class, or holds nodes
  Field* field;     // the declared field, owned by the script's lists; bears the declared name
};

struct ScriptData : NodeData {
  Named<SFBool> directOutput{"directOutput", false};
  Named<SFBool> mustEvaluate{"mustEvaluate", false};
  Named<MFString> url{"url"};
  std::vector<ScriptDeclaration> declarations;
};

class ScriptNode final : public TypedNode<Node, ScriptData> {
 public:
  static const NodeClass kClass;
  explicit ScriptNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  /// Declares a field or an event of a type and returns it, with its default value, to be set by its FieldType. For
  /// SFNode, MFNode, MFBool and MFImage it is an SFString, to be set to the value's VRML text ("NULL", "USE a", "[ TRUE
  /// FALSE ]"); without a text "NULL" is written for SFNode and "[ ]" for the others. Null, and nothing declared, when
  /// `type` is no type or `list` the fifth list.
  Field* declare(FieldList list, ScriptWord type, std::string_view name);

  /// The declarations in order. Valid until the next one.
  [[nodiscard]] std::span<const ScriptDeclaration> getDeclarations() const { return data().declarations; }

  /// Writes the script's own fields, then its declarations, events without a value and exposed fields as fields.
  void writeFields(std::ostream& out, const char* indent) const override;

  [[nodiscard]] bool getDirectOutput() const { return data().directOutput->getValue(); }
  void setDirectOutput(bool value) { editData().directOutput->setValue(value); }
  [[nodiscard]] bool getMustEvaluate() const { return data().mustEvaluate->getValue(); }
  void setMustEvaluate(bool value) { editData().mustEvaluate->setValue(value); }
  [[nodiscard]] const MFString& getUrl() const { return *data().url; }
  [[nodiscard]] MFString& editUrl() { return *editData().url; }
};

}  // namespace vrml
