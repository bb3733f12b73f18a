#include "vrml/fields/SFString.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace vrml {
namespace {

TEST(SFString, holds_a_copy_or_nothing) {
  SFString field;
  EXPECT_EQ(field.getValue(), nullptr);
  std::string text = "first";
  field.setValue(text.c_str());
  text = "other";
  EXPECT_STREQ(field.getValue(), "first");
  const SFString copy(field);
  field.setValue(std::string_view("second").substr(0, 3));
  EXPECT_STREQ(field.getValue(), "sec");
  EXPECT_STREQ(copy.getValue(), "first");
  field.setValue(static_cast<const char*>(nullptr));
  EXPECT_EQ(field.getValue(), nullptr);
  EXPECT_EQ(SFString(field).getValue(), nullptr);
}

TEST(SFString, may_be_set_from_its_own_text) {
  SFString field("abcdef");
  field.setValue(field.getValue() + 2);
  EXPECT_STREQ(field.getValue(), "cdef");
}

TEST(SFString, ends_at_a_zero_byte) {
  SFString field;
  field.setValue(std::string_view("ab\0cd", 5));
  EXPECT_STREQ(field.getValue(), "ab");
}

TEST(SFString, prints_texts_of_any_length) {
  const std::string text(100000, 'x');
  std::string printed;
  SFString(text).appendText(printed);
  EXPECT_EQ(printed, text);
}

}  // namespace
}  // namespace vrml
