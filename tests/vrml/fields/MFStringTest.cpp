#include "vrml/fields/MFString.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace vrml {
namespace {

std::string written(const MFString& field, bool escapes = false) {
  std::ostringstream out;
  field.write(out, "\t", escapes);
  return out.str();
}

// Every behaviour holds in both forms of the list.
class MFStringForms : public testing::TestWithParam<bool> {
 protected:
  MFStringForms() {
    if (GetParam()) m_field.addElement(std::make_unique<SFString>());
    m_field.clear();
  }
  MFString m_field;
};

INSTANTIATE_TEST_SUITE_P(both, MFStringForms, testing::Values(false, true),
                         [](const auto& form) { return form.param ? "entries" : "packed"; });

TEST_P(MFStringForms, writes_a_missing_string_as_an_empty_one) {
  m_field.addValue("a");
  m_field.addValue(static_cast<const char*>(nullptr));
  EXPECT_EQ(written(m_field), "\t\"a\",\n\t\"\"\n");
  EXPECT_EQ(m_field.get1Value(1), nullptr);
  EXPECT_EQ(m_field.isPacked(), !GetParam());
}

TEST_P(MFStringForms, owns_copies_of_its_texts) {
  std::string text = "first";
  m_field.addValue(text.c_str());
  m_field.addValue(std::string_view(text).substr(1, 2));
  text = "other";
  EXPECT_STREQ(m_field.get1Value(0), "first");
  EXPECT_STREQ(m_field.get1Value(1), "ir");
  m_field.insertValue(1, "between");
  m_field.replaceValue(0, m_field.get1Value(0) + 2);
  m_field.addValue(m_field.get1Value(1));
  ASSERT_EQ(m_field.values().size(), 4u);
  EXPECT_STREQ(m_field.values()[0], "rst");
  EXPECT_STREQ(m_field.values()[1], "between");
  EXPECT_STREQ(m_field.values()[2], "ir");
  EXPECT_STREQ(m_field.values()[3], "between");
}

TEST_P(MFStringForms, writes_escapes_only_when_asked_to) {
  m_field.addValue("a\"b\\");
  EXPECT_EQ(written(m_field), "\t\"a\"b\\\"\n");
  EXPECT_EQ(written(m_field, true), "\t\"a\\\"b\\\\\"\n");
  std::string text;
  m_field.appendVrml(text, true);
  EXPECT_EQ(text, "[\"a\\\"b\\\\\"]");
}

TEST_P(MFStringForms, copies_texts_instead_of_sharing_elements) {
  m_field.addValue("a");
  m_field.addValue(static_cast<const char*>(nullptr));
  MFString other;
  other.addValue("gone");
  other.setValue(&m_field);
  EXPECT_EQ(m_field.isPacked(), !GetParam());
  EXPECT_TRUE(other.isPacked());
  m_field.replaceValue(0, "changed");
  ASSERT_EQ(other.getSize(), 2);
  EXPECT_STREQ(other.get1Value(0), "a");
  EXPECT_EQ(other.get1Value(1), nullptr);
  other.getElement(0)->setValue("own");
  EXPECT_STREQ(m_field.get1Value(0), "changed");
  other.setValue(&other);
  EXPECT_STREQ(other.get1Value(0), "own");
}

TEST_P(MFStringForms, sets_from_an_array_of_texts) {
  const char* const texts[] = {"x", nullptr, "z"};
  m_field.addValue("old");
  m_field.setValues(3, texts);
  std::string text;
  m_field.appendText(text);
  EXPECT_EQ(text, "x, , z");
}

TEST_P(MFStringForms, gives_no_text_outside_and_prints_long_ones) {
  EXPECT_EQ(m_field.get1Value(0), nullptr);
  EXPECT_EQ(m_field.get1Value(-1), nullptr);
  const std::string longText(200000, 'y');
  m_field.addValue(longText);
  EXPECT_EQ(written(m_field), "\t\"" + longText + "\"\n");
}

}  // namespace
}  // namespace vrml
