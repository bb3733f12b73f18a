// The base class: names, types, what the base's own operations do, and the sizes that memory depends on.

#include "vrml/fields/Field.h"

#include <sstream>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "vrml/fields/Fields.h"

namespace vrml {
namespace {

static_assert(sizeof(SFBool) == 24 && sizeof(SFFloat) == 24 && sizeof(SFInt32) == 24);
static_assert(sizeof(SFVec2f) <= 32 && sizeof(SFVec3f) <= 32 && sizeof(SFColor) <= 32);
static_assert(sizeof(SFTime) <= 32 && sizeof(SFString) <= 32 && sizeof(SFNode) <= 40 && sizeof(SFRotation) <= 64);
static_assert(sizeof(MFFloat) <= 56 && sizeof(MFString) <= 56 && sizeof(SFImage) <= 56);
static_assert(!std::is_copy_constructible_v<Field> && !std::is_copy_assignable_v<SFVec3f>);
static_assert(!std::is_copy_constructible_v<MFVec3f>);

TEST(Field, base_has_no_type_and_its_operations_do_nothing) {
  Field field;
  EXPECT_EQ(field.getType(), FieldType::none);
  EXPECT_STREQ(field.getName(), "");
  field.setValue("1 2 3");
  char buffer[8] = "rest";
  EXPECT_EQ(field.getValue(buffer), buffer);
  EXPECT_STREQ(buffer, "");
  EXPECT_FALSE(field.equals(&field));
}

TEST(Field, keeps_a_static_name_by_pointer_and_another_by_copy) {
  static const char kKeyword[] = "translation";
  SFVec3f field;
  field.setStaticName(kKeyword);
  EXPECT_EQ(field.getName(), kKeyword);
  std::string made = "made-up";
  field.setName(made);
  made = "changed";
  EXPECT_STREQ(field.getName(), "made-up");
  field.setName(std::string_view(field.getName()).substr(5));
  EXPECT_STREQ(field.getName(), "up");
  field.setStaticName(kKeyword);
  EXPECT_EQ(field.getName(), kKeyword);
}

TEST(Field, copy_of_a_value_has_no_name) {
  SFFloat field(2.5f);
  field.setName("radius");
  const SFFloat copy(field);
  EXPECT_STREQ(copy.getName(), "");
  EXPECT_EQ(copy.getValue(), 2.5f);
}

TEST(Field, matrix_and_base_share_the_code_of_no_type) {
  const SFMatrix matrix;
  EXPECT_EQ(matrix.getType(), FieldType::none);
}

TEST(Field, prints_on_a_stream_whatever_the_streams_locale) {
  struct Commas : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::ostringstream out;
  out.imbue(std::locale(std::locale::classic(), new Commas));
  out << SFVec3f(1.5f, -2.0f, 1e-7f) << '|' << SFInt32(1234567) << '|' << SFColor(0.1f, 0.25f, 1.0f) << '|'
      << SFTime(1234567.891) << '|' << SFBool(false) << '|' << SFRotation(0, 0, 2, 0.5f);
  EXPECT_EQ(out.str(), "1.5 -2 1e-07|1234567|0.1 0.25 1|1.23457e+06|FALSE|0 0 1 0.5");
}

}  // namespace
}  // namespace vrml
