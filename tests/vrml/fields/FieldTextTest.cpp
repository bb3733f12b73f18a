// The text operations of every single-valued class, in tables: what a text makes of the default value, how it prints,
// and how it stands in VRML text.

#include <clocale>
#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "vrml/fields/Fields.h"
#include "vrml/fields/Numbers.h"

namespace vrml {
namespace {

std::string printed(const Field& field) {
  char buffer[kNumberTextSize * 4];
  EXPECT_EQ(field.getValue(buffer), buffer);
  std::string appended = "x";
  field.appendText(appended);
  EXPECT_EQ(appended, std::string("x") + buffer);
  return buffer;
}

std::string vrmlText(const Field& field, bool escapes = false) {
  std::string text;
  field.appendVrml(text, escapes);
  return text;
}

struct Row {
  FieldType type;
  const char* text;     // set on a default value
  const char* printed;  // by getValue
  const char* vrml;     // by appendVrml
};

const Row kRows[] = {
    {FieldType::SFBool, "TRUE", "TRUE", "TRUE"},
    {FieldType::SFBool, "FALSE", "FALSE", "FALSE"},
    {FieldType::SFBool, "false", "TRUE", "TRUE"},
    {FieldType::SFBool, "FALSE ", "TRUE", "TRUE"},
    {FieldType::SFBool, " FALSE", "TRUE", "TRUE"},
    {FieldType::SFBool, "0", "TRUE", "TRUE"},
    {FieldType::SFBool, "", "TRUE", "TRUE"},
    {FieldType::SFBool, nullptr, "TRUE", "TRUE"},
    {FieldType::SFFloat, "1.25", "1.25", "1.25"},
    {FieldType::SFFloat, "  -2e3xyz", "-2000", "-2000"},
    {FieldType::SFFloat, "0.1", "0.1", "0.1"},
    {FieldType::SFFloat, "16777217", "1.67772e+07", "16777216"},
    {FieldType::SFFloat, "0.123456789", "0.123457", "0.12345679"},
    {FieldType::SFFloat, "1e39", "3.40282e+38", "3.4028235e+38"},
    {FieldType::SFFloat, "1e-60", "0", "0"},
    {FieldType::SFFloat, "-0", "-0", "-0"},
    {FieldType::SFFloat, "word", "0", "0"},
    {FieldType::SFFloat, "", "0", "0"},
    {FieldType::SFFloat, nullptr, "0", "0"},
    {FieldType::SFInt32, "15", "15", "15"},
    {FieldType::SFInt32, " -7.9", "-7", "-7"},
    {FieldType::SFInt32, "0x10", "0", "0"},
    {FieldType::SFInt32, "+3", "3", "3"},
    {FieldType::SFInt32, "99999999999", "2147483647", "2147483647"},
    {FieldType::SFInt32, "-99999999999", "-2147483648", "-2147483648"},
    {FieldType::SFInt32, nullptr, "0", "0"},
    {FieldType::SFVec2f, "1 2", "1 2", "1 2"},
    {FieldType::SFVec2f, "1", "0 0", "0 0"},
    {FieldType::SFVec2f, "1 x", "0 0", "0 0"},
    {FieldType::SFVec2f, "1.5\n-.5 9", "1.5 -0.5", "1.5 -0.5"},
    {FieldType::SFVec2f, nullptr, "0 0", "0 0"},
    {FieldType::SFVec3f, "1 2", "0 0 0", "0 0 0"},
    {FieldType::SFVec3f, "1 2 3 4", "1 2 3", "1 2 3"},
    {FieldType::SFVec3f, "1,2,3", "0 0 0", "0 0 0"},
    {FieldType::SFVec3f, " 1e-7 1234567 -0.1", "1e-07 1.23457e+06 -0.1", "1e-07 1234567 -0.1"},
    {FieldType::SFVec3f, nullptr, "0 0 0", "0 0 0"},
    {FieldType::SFColor, "0 0.5", "1 1 1", "1 1 1"},
    {FieldType::SFColor, "0 0.5 2", "0 0.5 2", "0 0.5 2"},
    {FieldType::SFColor, nullptr, "1 1 1", "1 1 1"},
    {FieldType::SFRotation, "0 0 2 1.5", "0 0 1 1.5", "0 0 1 1.5"},
    {FieldType::SFRotation, "0 0 0 3", "0 0 0 3", "0 0 0 3"},
    {FieldType::SFRotation, "0 3 4 1", "0 0.6 0.8 1", "0 0.6 0.8 1"},
    {FieldType::SFRotation, "1 0 0", "0 0 1 0", "0 0 1 0"},
    {FieldType::SFRotation, nullptr, "0 0 1 0", "0 0 1 0"},
    {FieldType::SFTime, "1234567.891", "1234567.875000", "1234567.891"},
    {FieldType::SFTime, "2.5", "2.500000", "2.5"},
    {FieldType::SFTime, "0.1", "0.100000", "0.1"},
    {FieldType::SFTime, "now", "0.000000", "0"},
    {FieldType::SFTime, nullptr, "-1.000000", "-1"},
    {FieldType::SFString, "a b", "a b", "\"a b\""},
    {FieldType::SFString, "", "", "\"\""},
    {FieldType::SFString, nullptr, "", "\"\""},
    {FieldType::SFNode, "anything", "", "NULL"},
    {FieldType::SFNode, nullptr, "", "NULL"},
};

TEST(fieldText, is_read_and_printed_by_class) {
  for (const Row& row : kRows) {
    const std::unique_ptr<Field> field = makeField(row.type);
    field->setValue(row.text);
    const std::string place = std::string(fieldTypeName(row.type)) + " " + (row.text ? row.text : "(null)");
    EXPECT_EQ(printed(*field), row.printed) << place;
    EXPECT_EQ(vrmlText(*field), row.vrml) << place;
  }
}

TEST(fieldText, that_does_not_parse_keeps_an_earlier_value) {
  SFBool truth(false);
  truth.setValue("true");
  EXPECT_FALSE(truth.getValue());
  truth.setValue("TRUE");
  EXPECT_TRUE(truth.getValue());
  SFVec3f vector(7, 8, 9);
  vector.setValue("1 2");
  EXPECT_TRUE(vector.equals(7, 8, 9));
  SFRotation rotation(1, 0, 0, 2);
  rotation.setValue("0 1 0");
  EXPECT_EQ(rotation.getValue(), (SFRotation::Value{1, 0, 0, 2}));
  SFString string("kept");
  string.setValue(static_cast<const char*>(nullptr));
  EXPECT_EQ(string.getValue(), nullptr);
}

TEST(fieldText, of_vrml_has_no_infinities) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  EXPECT_EQ(vrmlText(SFVec3f(kInfinity, -kInfinity, std::numeric_limits<float>::quiet_NaN())),
            "3.4028235e+38 -3.4028235e+38 0");
  EXPECT_EQ(printed(SFFloat(kInfinity)), "inf");
  EXPECT_EQ(vrmlText(SFTime(-std::numeric_limits<double>::infinity())), "-3.4028235e+38");
}

TEST(fieldText, of_strings_escapes_only_when_asked_to) {
  const SFString field("a\"b\\c");
  EXPECT_EQ(vrmlText(field), "\"a\"b\\c\"");
  EXPECT_EQ(vrmlText(field, true), "\"a\\\"b\\\\c\"");
  EXPECT_EQ(printed(field), "a\"b\\c");
}

TEST(fieldText, of_vrml_reads_back_to_the_same_value) {
  std::uint32_t state = 1;
  for (int i = 0; i < 2000; ++i) {
    std::array<float, 3> value;
    for (float& component : value) {
      state = state * 1664525u + 1013904223u;
      component = std::ldexp(static_cast<float>(static_cast<std::int32_t>(state)), static_cast<int>(state % 61) - 60);
    }
    const SFVec3f field(value);
    SFVec3f read;
    read.setValue(vrmlText(field).c_str());
    ASSERT_TRUE(read.equals(&field)) << vrmlText(field);
  }
}

TEST(fieldText, does_not_depend_on_the_process_locale) {
  // The comma locales that a system may have; where there is none the C locale is tested once more.
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"})
    if (std::setlocale(LC_ALL, name)) break;
  SFVec2f field;
  field.setValue("1.5 -2.25");
  EXPECT_EQ(printed(field), "1.5 -2.25");
  EXPECT_EQ(printed(SFTime(0.5)), "0.500000");
  std::setlocale(LC_ALL, before.c_str());
}

// Two equal values and a third one of the same class.
template <class F>
void expectEquality(const F& a, const F& same, const F& different) {
  EXPECT_TRUE(a.equals(&same)) << fieldTypeName(a.getType());
  EXPECT_FALSE(a.equals(&different)) << fieldTypeName(a.getType());
  EXPECT_FALSE(a.equals(static_cast<const Field*>(nullptr)));
  const MFFloat other;
  EXPECT_FALSE(a.equals(&other));
}

TEST(fieldEquals, compares_values_of_one_class) {
  expectEquality(SFBool(true), SFBool(true), SFBool(false));
  expectEquality(SFFloat(1.0f), SFFloat(1.0f), SFFloat(1.0000001f));
  expectEquality(SFInt32(5), SFInt32(5), SFInt32(6));
  expectEquality(SFVec2f(1, 2), SFVec2f(1, 2), SFVec2f(1, 3));
  expectEquality(SFVec3f(1, 2, 3), SFVec3f(1, 2, 3), SFVec3f(1, 2, 4));
  expectEquality(SFColor(0, 0, 1), SFColor(0, 0, 1), SFColor(0, 1, 1));
  expectEquality(SFRotation(0, 0, 1, 1), SFRotation(0, 0, 5, 1), SFRotation(0, 0, 1, 2));
  expectEquality(SFTime(1234567.891), SFTime(1234567.891), SFTime(1234567.8911));
  expectEquality(SFString("a"), SFString("a"), SFString("b"));
  expectEquality(SFString(""), SFString(""), SFString());
  expectEquality(SFString(), SFString(), SFString(""));
  EXPECT_TRUE(SFFloat(0.0f).equals(std::make_unique<SFFloat>(-0.0f).get()));
  EXPECT_FALSE(SFFloat(NAN).equals(std::make_unique<SFFloat>(NAN).get()));
  EXPECT_FALSE(SFVec3f(1, 1, 1).equals(std::make_unique<SFColor>(1.0f, 1.0f, 1.0f).get()));
}

}  // namespace
}  // namespace vrml
