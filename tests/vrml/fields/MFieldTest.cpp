// What holds for every multi-valued class: both forms answer alike, elements may be shared, and the text operations
// keep their peculiarities.

#include "vrml/fields/MField.h"

#include <array>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "vrml/fields/Fields.h"

namespace vrml {
namespace {

// The n-th sample value of a class.
template <class F>
typename F::Value sample(int n) {
  typename F::Value value{};
  if constexpr (std::is_arithmetic_v<typename F::Value>) {
    value = static_cast<typename F::Value>(n + 1) / 2;
  } else if constexpr (std::is_pointer_v<typename F::Value>) {
    static const char* const kTexts[] = {"zero", "one", "two", "", "four", "five", "six", "seven"};
    value = kTexts[n % 8];
  } else {
    for (float& component : value) component = static_cast<float>(n + 1) * 0.5f;
    value = F::Element::stored(value);
  }
  return value;
}

template <class F>
bool same(const typename F::Value& a, const typename F::Value& b) {
  if constexpr (std::is_pointer_v<typename F::Value>) {
    return a == b || (a && b && std::string(a) == b);
  } else {
    return a == b;
  }
}

// Turns an empty field into entry form.
template <class F>
void makeEntries(F& field) {
  field.addElement(std::make_unique<typename F::Element>());
  field.clear();
}

template <class F>
std::string written(const F& field, const char* indent = "  ") {
  std::ostringstream out;
  field.write(out, indent);
  return out.str();
}

template <class F>
class MFieldClasses : public testing::Test {};

using Classes = testing::Types<MFFloat, MFInt32, MFTime, MFVec2f, MFVec3f, MFColor, MFRotation, MFString, SFImage>;
TYPED_TEST_SUITE(MFieldClasses, Classes);

TYPED_TEST(MFieldClasses, starts_empty_and_packed) {
  TypeParam field;
  EXPECT_EQ(field.getSize(), 0);
  EXPECT_TRUE(field.isPacked());
  EXPECT_TRUE(field.values().empty());
  EXPECT_EQ(field.getElement(0), nullptr);
  EXPECT_TRUE(field.isPacked());
}

TYPED_TEST(MFieldClasses, answers_alike_in_both_forms) {
  TypeParam packed, entries;
  makeEntries(entries);
  for (TypeParam* field : {&packed, &entries}) {
    for (int i = 0; i < 6; ++i) field->addValue(sample<TypeParam>(i));
    field->insertValue(2, sample<TypeParam>(6));
    field->insertValue(7, sample<TypeParam>(7));
    field->insertValue(-1, sample<TypeParam>(0));
    field->insertValue(9, sample<TypeParam>(0));
    field->replaceValue(0, sample<TypeParam>(5));
    field->replaceValue(-1, sample<TypeParam>(0));
    field->replaceValue(8, sample<TypeParam>(0));
  }
  EXPECT_TRUE(packed.isPacked());
  EXPECT_FALSE(entries.isPacked());
  const int order[] = {5, 1, 6, 2, 3, 4, 5, 7};
  for (TypeParam* field : {&packed, &entries}) {
    ASSERT_EQ(field->getSize(), 8);
    const auto values = field->values();
    ASSERT_EQ(values.size(), 8u);
    for (int i = 0; i < 8; ++i) {
      EXPECT_TRUE(same<TypeParam>(field->get1Value(i), sample<TypeParam>(order[i]))) << i;
      EXPECT_TRUE(same<TypeParam>(values[static_cast<std::size_t>(i)], sample<TypeParam>(order[i]))) << i;
    }
    EXPECT_TRUE(same<TypeParam>(field->get1Value(8), typename TypeParam::Value{}));
    EXPECT_TRUE(same<TypeParam>(field->get1Value(-1), typename TypeParam::Value{}));
  }
  EXPECT_EQ(written(packed), written(entries));
  std::string text, otherText;
  packed.appendVrml(text);
  entries.appendVrml(otherText);
  EXPECT_EQ(text, otherText);
  packed.clear();
  entries.clear();
  EXPECT_EQ(packed.getSize() + entries.getSize(), 0);
  EXPECT_FALSE(entries.isPacked());
}

TYPED_TEST(MFieldClasses, takes_values_of_its_own) {
  for (const bool entryForm : {false, true}) {
    TypeParam field;
    if (entryForm) makeEntries(field);
    field.addValue(sample<TypeParam>(0));
    for (int i = 1; i < 70; ++i) {
      field.addValue(sample<TypeParam>(1));
      field.insertValue(0, field.values().back());  // where it stands moves each time the list grows
      field.addValue(field.values().front());
      field.replaceValue(1, field.values()[2]);
    }
    ASSERT_EQ(field.getSize(), 1 + 3 * 69);
    EXPECT_TRUE(same<TypeParam>(field.get1Value(0), sample<TypeParam>(1)));
    EXPECT_TRUE(same<TypeParam>(field.get1Value(field.getSize() - 1), sample<TypeParam>(1)));
  }
}

TYPED_TEST(MFieldClasses, takes_no_null_element) {
  TypeParam field;
  field.addElement(std::unique_ptr<typename TypeParam::Element>());
  field.addElement(static_cast<typename TypeParam::Element*>(nullptr));
  EXPECT_EQ(field.getSize(), 0);
  EXPECT_TRUE(field.isPacked());
}

TYPED_TEST(MFieldClasses, elements_are_objects_that_the_field_reads_from) {
  TypeParam field;
  for (int i = 0; i < 3; ++i) field.addValue(sample<TypeParam>(i));
  EXPECT_EQ(field.getElement(-1), nullptr);
  EXPECT_EQ(field.getElement(3), nullptr);
  EXPECT_TRUE(field.isPacked());
  typename TypeParam::Element* const element = field.getElement(1);
  ASSERT_NE(element, nullptr);
  EXPECT_FALSE(field.isPacked());
  element->setValue(sample<TypeParam>(7));
  EXPECT_TRUE(same<TypeParam>(field.get1Value(1), sample<TypeParam>(7)));
  EXPECT_TRUE(same<TypeParam>(field.values()[1], sample<TypeParam>(7)));
  EXPECT_EQ(field.getElement(1), element);
  MField& base = field;
  EXPECT_EQ(base.getElement(1), element);
}

TYPED_TEST(MFieldClasses, replacing_writes_into_the_existing_element) {
  TypeParam field;
  field.addValue(sample<TypeParam>(0));
  typename TypeParam::Element* const element = field.getElement(0);
  field.replaceValue(0, sample<TypeParam>(4));
  EXPECT_EQ(field.getElement(0), element);
  EXPECT_TRUE(same<TypeParam>(element->getValue(), sample<TypeParam>(4)));
}

TYPED_TEST(MFieldClasses, sets_from_a_flat_array) {
  std::vector<typename TypeParam::Component> flat;
  for (std::size_t i = 0; i < 3 * TypeParam::kComponents; ++i) {
    if constexpr (std::is_pointer_v<typename TypeParam::Component>) {
      flat.push_back("text");
    } else {
      flat.push_back(static_cast<typename TypeParam::Component>(i));
    }
  }
  for (const bool entryForm : {false, true}) {
    TypeParam field;
    if (entryForm) makeEntries(field);
    field.addValue(sample<TypeParam>(0));
    field.setValues(3, flat.data());
    EXPECT_EQ(field.getSize(), 3);
    EXPECT_EQ(field.isPacked(), !entryForm);
    field.setValues(0, flat.data());
    EXPECT_EQ(field.getSize(), 0);
    field.addValue(sample<TypeParam>(0));
    field.setValues(-4, flat.data());
    EXPECT_EQ(field.getSize(), 0);
    field.setValues(2, nullptr);
    EXPECT_EQ(field.getSize(), 0);
  }
}

TYPED_TEST(MFieldClasses, holds_elements_of_others_without_owning_them) {
  typename TypeParam::Element element(sample<TypeParam>(2));
  {
    TypeParam field;
    field.addValue(sample<TypeParam>(0));
    field.addElement(&element);
    EXPECT_EQ(field.getElement(1), &element);
    TypeParam other;
    other.setValue(&field);
    EXPECT_TRUE(same<TypeParam>(other.get1Value(1), sample<TypeParam>(2)));
  }
  EXPECT_TRUE(same<TypeParam>(element.getValue(), sample<TypeParam>(2)));
}

TYPED_TEST(MFieldClasses, equals_nothing_and_prints_an_empty_string_unbounded) {
  TypeParam field, other;
  EXPECT_FALSE(field.equals(&field));
  EXPECT_FALSE(field.equals(&other));
  field.addValue(sample<TypeParam>(1));
  char buffer[8] = "rest";
  const Field& base = field;
  EXPECT_STREQ(base.getValue(buffer), "");
}

TYPED_TEST(MFieldClasses, ignores_a_copy_from_another_type_or_from_nothing) {
  TypeParam field;
  field.addValue(sample<TypeParam>(1));
  for (const FieldType type : {FieldType::MFFloat, FieldType::MFInt32, FieldType::MFString, FieldType::SFImage}) {
    if (type == field.getType()) continue;
    const std::unique_ptr<Field> other = makeField(type);
    field.setValue(static_cast<const MField*>(other.get()));
  }
  field.setValue(static_cast<const MField*>(nullptr));
  field.setValue(&field);
  EXPECT_EQ(field.getSize(), 1);
  EXPECT_TRUE(field.isPacked());
}

TYPED_TEST(MFieldClasses, is_empty_after_a_copy_from_an_empty_field) {
  for (const bool entryForm : {false, true}) {
    TypeParam field, empty;
    if (entryForm) makeEntries(empty);
    field.addValue(sample<TypeParam>(1));
    field.setValue(&empty);
    EXPECT_EQ(field.getSize(), 0);
    field.addValue(sample<TypeParam>(2));
    EXPECT_EQ(field.getSize(), 1);
    EXPECT_EQ(empty.getSize(), 0);
  }
}

// All orders in which three fields that copied from each other may end.
TYPED_TEST(MFieldClasses, shared_elements_live_as_long_as_any_field_that_holds_them) {
  const std::array<std::array<std::size_t, 3>, 6> orders = {
      {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}}};
  for (const auto& order : orders) {
    std::array<std::unique_ptr<TypeParam>, 3> fields;
    for (auto& field : fields) field = std::make_unique<TypeParam>();
    for (int i = 0; i < 4; ++i) fields[0]->addValue(sample<TypeParam>(i));
    fields[1]->addValue(sample<TypeParam>(6));
    fields[1]->setValue(fields[0].get());
    fields[2]->setValue(fields[1].get());
    for (const std::size_t next : order) {
      for (const auto& field : fields) {
        if (!field) continue;
        ASSERT_EQ(field->getSize(), 4);
        EXPECT_TRUE(same<TypeParam>(field->get1Value(3), sample<TypeParam>(3)));
      }
      fields[next].reset();
    }
  }
}

TYPED_TEST(MFieldClasses, clearing_one_sharer_leaves_the_others_elements) {
  TypeParam first, second;
  first.addValue(sample<TypeParam>(1));
  second.setValue(&first);
  first.clear();
  first.addValue(sample<TypeParam>(2));
  EXPECT_TRUE(same<TypeParam>(second.get1Value(0), sample<TypeParam>(1)));
  second.clear();
  EXPECT_TRUE(same<TypeParam>(first.get1Value(0), sample<TypeParam>(2)));
}

TEST(MField, copying_shares_element_objects) {
  MFVec3f first, second;
  first.addValue(1, 2, 3);
  second.setValue(&first);
  EXPECT_FALSE(first.isPacked());
  EXPECT_FALSE(second.isPacked());
  EXPECT_EQ(first.getElement(0), second.getElement(0));
  second.replaceValue(0, 4, 5, 6);
  EXPECT_EQ(first.get1Value(0), (SFVec3f::Value{4, 5, 6}));
}

TEST(MField, copying_colours_copies_values) {
  MFColor first, second;
  first.addValue(1, 0, 0);
  second.addValue(0, 0, 0);
  second.setValue(&first);
  EXPECT_TRUE(first.isPacked());
  ASSERT_EQ(second.getSize(), 1);
  second.replaceValue(0, 0, 1, 0);
  EXPECT_EQ(first.get1Value(0), (SFColor::Value{1, 0, 0}));
}

TEST(MField, adds_values_by_components) {
  MFVec2f field;
  field.addValue(1, 2.5);
  field.insertValue(0, 3.0f, 4.0f);
  field.replaceValue(1, 5, 6);
  std::string text;
  field.appendText(text);
  EXPECT_EQ(text, "3 4, 5 6");
}

TEST(MField, appends_in_bulk_into_the_packed_values) {
  MFInt32 field;
  std::int32_t* const values = field.packed().grow(3);
  for (std::int32_t i = 0; i < 3; ++i) values[i] = i * 10;
  field.packed().push_back(99);
  EXPECT_EQ(field.getSize(), 4);
  EXPECT_EQ(field.getElement(2)->getValue(), 20);
  EXPECT_EQ(field.get1Value(3), 99);
}

TEST(MField, writes_one_element_a_line) {
  MFFloat floats;
  EXPECT_EQ(written(floats), "");
  for (const float value : {1.0f, 0.1f, 1234567.0f}) floats.addValue(value);
  EXPECT_EQ(written(floats), "  1,\n  0.1,\n  1.23457e+06\n");
  MFTime times;
  times.addValue(1234567.891);
  times.addValue(-1.0);
  EXPECT_EQ(written(times, ""), "1.23457e+06,\n-1\n");
  MFInt32 integers;
  integers.addValue(-1);
  EXPECT_EQ(written(integers, "\t\t"), "\t\t-1\n");
  MFVec2f pairs;
  pairs.addValue(1, 2);
  pairs.addValue(3, 4);
  EXPECT_EQ(written(pairs), "  1 2,\n  3 4\n");
  MFVec3f points;
  points.addValue(0.5f, -1, 2);
  EXPECT_EQ(written(points), "  0.5 -1 2\n");
  MFColor colors;
  colors.addValue(1, 0.25f, 0);
  EXPECT_EQ(written(colors), "  1 0.25 0\n");
  MFRotation rotations;
  rotations.addValue(0, 1, 0, 3.5f);
  EXPECT_EQ(written(rotations), "  0 1 0 3.5\n");
}

TEST(MField, writes_long_lists_whole) {
  MFInt32 field;
  std::string expected;
  for (int i = 0; i < 50000; ++i) {
    field.addValue(i);
    expected += "\t" + std::to_string(i) + (i < 49999 ? ",\n" : "\n");
  }
  EXPECT_EQ(written(field, "\t"), expected);
}

TEST(MField, prints_joined_texts_that_fit) {
  MFInt32 field;
  for (const int value : {11, 22, 333}) field.addValue(value);
  const struct {
    int size;
    const char* text;
  } rows[] = {{100, "11, 22, 333"},
              {12, "11, 22, 333"},
              {11, "11, 22"},
              {9, "11, 22"},
              {7, "11, 22"},
              {6, "11"},
              {5, "11"},
              {4, ""},
              {1, ""}};
  for (const auto& row : rows) {
    const auto buffer =
        std::make_unique<char[]>(static_cast<std::size_t>(row.size));  // so that a write beyond is found
    EXPECT_EQ(field.getValue(buffer.get(), row.size), buffer.get());
    EXPECT_STREQ(buffer.get(), row.text) << row.size;
  }
  char untouched = 'x';
  field.getValue(&untouched, 0);
  field.getValue(&untouched, -5);
  EXPECT_EQ(untouched, 'x');
  char buffer[4] = "x";
  EXPECT_STREQ(MFFloat().getValue(buffer, 4), "");
}

TEST(MField, prints_elements_by_their_own_texts) {
  MFTime times;
  times.addValue(1234567.891);
  times.addValue(2);
  char buffer[100];
  EXPECT_STREQ(times.getValue(buffer, 100), "1234567.875000, 2.000000");
  MFString strings;
  strings.addValue("a b");
  strings.addValue(static_cast<const char*>(nullptr));
  strings.addValue("c");
  EXPECT_STREQ(strings.getValue(buffer, 100), "a b, , c");
}

TEST(MField, text_gives_the_first_piece_to_every_element_when_a_comma_follows) {
  const struct {
    const char* text;
    const char* values;
  } rows[] = {{"7, 8, 9", "7, 7, 7"}, {"7,", "7, 7, 7"}, {"7", "1, 2, 3"},   {"7 8 9", "1, 2, 3"},
              {"", "1, 2, 3"},        {",7", "0, 0, 0"}, {"x,1", "0, 0, 0"}, {nullptr, "1, 2, 3"}};
  for (const bool entryForm : {false, true})
    for (const auto& row : rows) {
      MFInt32 field;
      if (entryForm) makeEntries(field);
      for (const int value : {1, 2, 3}) field.addValue(value);
      field.setValue(row.text);
      std::string text;
      field.appendText(text);
      EXPECT_EQ(text, row.values) << (row.text ? row.text : "(null)");
      EXPECT_EQ(field.isPacked(), !entryForm);
    }
}

TEST(MField, text_that_an_element_cannot_read_keeps_it) {
  MFVec3f field;
  field.addValue(1, 2, 3);
  field.setValue("4 5, 6 7 8");
  EXPECT_EQ(field.get1Value(0), (SFVec3f::Value{1, 2, 3}));
  field.setValue("4 5 6, 7 8 9");
  EXPECT_EQ(field.get1Value(0), (SFVec3f::Value{4, 5, 6}));
}

TEST(MField, text_pieces_end_at_127_characters) {
  MFString field;
  field.addValue("old");
  field.setValue((std::string(500, 'a') + ",").c_str());
  EXPECT_EQ(field.get1Value(0), std::string(127, 'a'));
}

TEST(MField, never_makes_elements_from_a_text) {
  MFFloat field;
  field.setValue("1, 2, 3");
  EXPECT_EQ(field.getSize(), 0);
}

TEST(MField, stands_in_vrml_text_in_brackets) {
  MFVec2f field;
  std::string text;
  field.appendVrml(text);
  EXPECT_EQ(text, "[]");
  field.addValue(0.1f, 16777216.0f);
  field.addValue(1, 2);
  text.clear();
  field.appendVrml(text);
  EXPECT_EQ(text, "[0.1 16777216, 1 2]");
}

}  // namespace
}  // namespace vrml
