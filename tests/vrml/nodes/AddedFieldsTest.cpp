// Fields that were added are found by name alike whether there are few of them or many.

#include "vrml/nodes/AddedFields.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "vrml/fields/SFBool.h"

namespace vrml {
namespace {

Field* add(AddedFields& fields, FieldList list, const std::string& name) {
  auto field = std::make_unique<SFBool>();
  field->setName(name);
  return fields.add(list, std::move(field));
}

// One after the other: what every look-up must equal.
Field* scanned(const AddedFields& fields, FieldList list, const NamePattern& wanted) {
  for (const AddedFields::Entry& entry : fields.all())
    if (entry.list == list && wanted.matches(entry.field->getName())) return entry.field.get();
  return nullptr;
}

class Words {
 public:
  // Up to `longest` letters out of two, so that most words are a part of others.
  std::string next(std::size_t longest) {
    std::string word(random() % (longest + 1), 'a');
    for (char& c : word) c = random() % 2 == 0 ? 'a' : 'b';
    return word;
  }
  std::uint32_t random() {
    m_state = m_state * 1664525u + 1013904223u;
    return m_state >> 16;
  }

 private:
  std::uint32_t m_state = 7;
};

constexpr NamePattern kPatterns[] = {
    {.text = {}, .isWhole = true},
    {.text = {}, .isWhole = false, .isTail = true},
    {.text = {}, .isWhole = false, .isHead = true},
    {.text = {}, .isWhole = false, .isTail = true, .isHead = true},
    {.text = {}, .isWhole = true, .isTail = true, .isHead = true},
};

TEST(AddedFields, AreFoundAsAScanFindsThem) {
  Words words;
  AddedFields fields;
  for (int size = 0; size < 200; ++size) {
    for (int i = 0; i < 20; ++i) {
      const std::string text = words.next(9);
      const auto list = static_cast<FieldList>(words.random() % kFieldListCount);
      for (NamePattern pattern : kPatterns) {
        pattern.text = text;
        ASSERT_EQ(fields.first(list, pattern), scanned(fields, list, pattern)) << text << " of " << size;
      }
    }
    add(fields, static_cast<FieldList>(words.random() % kFieldListCount), words.next(7));
  }
}

TEST(AddedFields, TheFirstOfANameIsFoundAmongMany) {
  AddedFields fields;
  Field* const nameless = add(fields, FieldList::eventIn, "");
  Field* const first = add(fields, FieldList::eventIn, "go");
  for (int i = 0; i < 100; ++i) add(fields, FieldList::eventIn, "go");
  EXPECT_EQ(fields.first(FieldList::eventIn, {.text = "go"}), first);
  EXPECT_EQ(fields.first(FieldList::eventIn, {.text = "set_go", .isWhole = false, .isTail = true}), first);
  EXPECT_EQ(fields.first(FieldList::eventOut, {.text = "go"}), nullptr);
  EXPECT_EQ(fields.first(FieldList::eventIn, {.text = ""}), nameless);
  EXPECT_EQ(fields.first(FieldList::eventIn, {.text = "", .isWhole = false, .isTail = true, .isHead = true}), nullptr);
}

// A hundred thousand look-ups, of names that are there and of names that are not, among a hundred thousand fields: in
// time for a test only if none of them goes through all fields.
TEST(AddedFields, ManyLookUpsAmongManyFields) {
  constexpr int kCount = 100'000;
  AddedFields fields;
  for (int i = 0; i < kCount; ++i) add(fields, FieldList::eventIn, "event" + std::to_string(i));
  int found = 0;
  for (int i = 0; i < kCount; ++i) {
    const std::string name = "event" + std::to_string(kCount - 1 - i);
    if (fields.first(FieldList::eventIn, {.text = name})) ++found;
    if (fields.first(FieldList::eventIn, {.text = name + "x", .isWhole = false, .isTail = true})) ++found;
  }
  EXPECT_EQ(found, kCount);
}

}  // namespace
}  // namespace vrml
