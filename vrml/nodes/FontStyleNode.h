#pragma once

// How the lines of a text are set.

#include <string_view>

#include "vrml/fields/MFString.h"
#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFString.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct FontStyleData : NodeData {
  Named<SFString> family{"family", "SERIF"};
  Named<SFString> style{"style", "PLAIN"};
  Named<SFString> language{"language", ""};
  Named<MFString> justify{"justify"};
  Named<SFFloat> size{"size", 1.0f};
  Named<SFFloat> spacing{"spacing", 1.0f};
  Named<SFBool> horizontal{"horizontal", true};
  Named<SFBool> leftToRight{"leftToRight", true};
  Named<SFBool> topToBottom{"topToBottom", true};
};

class FontStyleNode final : public TypedNode<Node, FontStyleData> {
 public:
  static const NodeClass kClass;
  explicit FontStyleNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const char* getFamily() const { return data().family->getValue(); }
  void setFamily(std::string_view text) { editData().family->setValue(text); }
  [[nodiscard]] const char* getStyle() const { return data().style->getValue(); }
  void setStyle(std::string_view text) { editData().style->setValue(text); }
  [[nodiscard]] const char* getLanguage() const { return data().language->getValue(); }
  void setLanguage(std::string_view text) { editData().language->setValue(text); }
  [[nodiscard]] const MFString& getJustify() const { return *data().justify; }
  [[nodiscard]] MFString& editJustify() { return *editData().justify; }
  [[nodiscard]] float getSize() const { return data().size->getValue(); }
  void setSize(float value) { editData().size->setValue(value); }
  [[nodiscard]] float getSpacing() const { return data().spacing->getValue(); }
  void setSpacing(float value) { editData().spacing->setValue(value); }
  [[nodiscard]] bool getHorizontal() const { return data().horizontal->getValue(); }
  void setHorizontal(bool value) { editData().horizontal->setValue(value); }
  [[nodiscard]] bool getLeftToRight() const { return data().leftToRight->getValue(); }
  void setLeftToRight(bool value) { editData().leftToRight->setValue(value); }
  [[nodiscard]] bool getTopToBottom() const { return data().topToBottom->getValue(); }
  void setTopToBottom(bool value) { editData().topToBottom->setValue(value); }
};

}  // namespace vrml
