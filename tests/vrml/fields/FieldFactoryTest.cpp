#include "vrml/fields/FieldFactory.h"

#include <string>

#include <gtest/gtest.h>

namespace vrml {
namespace {

std::string textOf(const Field& field) {
  std::string text;
  field.appendText(text);
  return text;
}

TEST(createField, makes_default_valued_single_values_for_the_codes_1_to_9) {
  const char* const defaults[] = {"TRUE", "0", "0", "0 0", "0 0 0", "", "1 1 1", "-1.000000", "0 0 1 0"};
  for (int code = 1; code <= 9; ++code) {
    const std::unique_ptr<Field> field = createField(static_cast<FieldType>(code));
    ASSERT_TRUE(field) << code;
    EXPECT_EQ(field->getType(), static_cast<FieldType>(code));
    EXPECT_EQ(textOf(*field), defaults[code - 1]);
    EXPECT_STREQ(field->getName(), "");
  }
}

TEST(createField, gives_null_for_every_other_code) {
  for (int code = -3; code <= 30; ++code)
    if (code < 1 || code > 9) {
      EXPECT_FALSE(createField(static_cast<FieldType>(code))) << code;
    }
}

TEST(makeField, makes_every_class_that_has_a_code) {
  for (int code = 1; code <= 19; ++code) {
    const std::unique_ptr<Field> field = makeField(static_cast<FieldType>(code));
    ASSERT_TRUE(field) << code;
    EXPECT_EQ(field->getType(), static_cast<FieldType>(code));
  }
  for (const int code : {-1, 0, 20, 1 << 30}) EXPECT_FALSE(makeField(static_cast<FieldType>(code))) << code;
}

}  // namespace
}  // namespace vrml
