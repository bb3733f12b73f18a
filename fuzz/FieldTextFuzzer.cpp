// The text operations of every field class: the first byte names the class, the rest is the text. What a number's text
// reads as is printed as a text that reads as the same.

#include <vector>

#include "fuzz/Harness.h"
#include "vrml/fields/FieldFactory.h"
#include "vrml/fields/MField.h"

namespace {

std::string textOf(const vrml::Field& field) {
  std::string text;
  field.appendText(text);
  return text;
}

void useList(vrml::MField& list, const char* text) {
  const auto other = vrml::makeField(list.getType());
  static_cast<vrml::MField&>(*other).setValue(&list);
  std::vector<char> room(textOf(list).size() + 3);
  for (std::size_t size = 0; size <= room.size(); size += 1 + size / 2)
    static_cast<void>(list.getValue(room.data(), static_cast<int>(size)));
  if (vrml::Field* const element = list.getElement(0)) element->setValue(text);
  list.setValue(text);
  list.clear();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto field = vrml::makeField(static_cast<vrml::FieldType>(data[0] % 20));
  if (!field) return 0;
  const std::string text(fuzz::textOf(data + 1, size - 1));
  field->setValue(text.c_str());
  const std::string first = textOf(*field);
  std::string vrmlText;
  field->appendVrml(vrmlText, size % 2 == 0);
  field->setName(text);
  if (auto* const list = dynamic_cast<vrml::MField*>(field.get())) {
    useList(*list, text.c_str());
    return 0;
  }
  const auto copy = vrml::makeField(field->getType());
  copy->setValue(first.c_str());
  const std::string second = textOf(*copy);
  if (second != first) fuzz::fail("printed differently", first, second);
  return 0;
}
