// Names of host objects as node names, byte for byte.

#include "export/VRMLName.h"

#include <gtest/gtest.h>

#include <string>

#include "export/CVekVRMLLoader.h"

namespace {

std::string nameOf(std::string name) {
  CVekVRMLLoader::CreateVRMLName(name);
  return name;
}

TEST(VRMLName, ReplacesWhatANameCannotHold) {
  struct Row {
    const char* name;
    std::string input;
    std::string expected;
  };
  const Row rows[] = {
      {"a digit in front, a minus and a full stop", "3D-Part.1", "_D_Part_1"},
      {"empty", "", "no_name"},
      {"reserved word", "USE", "_USE"},
      {"reserved word in another case", "Use", "Use"},
      {"longer than a reserved word", "fields", "fields"},
      {"a digit alone", "7", "_"},
      {"only the first digit", "12", "_2"},
      {"a digit behind a replaced byte", " 1", "_1"},
      {"every replaced byte", "a'\"+-\\{}`.;:,[]", "a______________"},
      {"blanks and controls",
       std::string("a b\tc\nd\re\x01"
                   "f\0g\x1f",
                   14),
       "a_b_c_d_e_f_g_"},
      {"printable bytes that stay", "a!#$%&()*/<=>?@^_|~9", "a!#$%&()*/<=>?@^_|~9"},
      {"the delete character stays", "a\x7f", "a\x7f"},
      {"bytes above 127 stay", "\xb2\x80\xff\xc3\xa4", "\xb2\x80\xff\xc3\xa4"},
  };
  for (const Row& row : rows) EXPECT_EQ(nameOf(row.input), row.expected) << row.name;
}

TEST(VRMLName, ReservedWordsGetAnUnderscoreAndNothingElse) {
  for (const char* word : {"DEF", "EXTERNPROTO", "FALSE", "IS", "NULL", "PROTO", "ROUTE", "TO", "TRUE", "USE",
                           "eventIn", "eventOut", "exposedField", "field"}) {
    EXPECT_EQ(nameOf(word), std::string("_") + word);
  }
}

TEST(VRMLName, EveryByteKeepsTheLength) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string name = {'n', static_cast<char>(byte), static_cast<char>(byte)};
    const std::string result = nameOf(name);
    EXPECT_EQ(result.size(), name.size());
    EXPECT_TRUE(result == name || result == "n__") << byte;
  }
}

}  // namespace
