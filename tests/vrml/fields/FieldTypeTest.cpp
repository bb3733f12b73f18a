#include "vrml/fields/FieldType.h"

#include <string>

#include <gtest/gtest.h>

namespace vrml {
namespace {

TEST(FieldType, codes_and_names_are_fixed) {
  const struct {
    int code;
    const char* name;
  } rows[] = {{1, "SFBool"},    {2, "SFFloat"},  {3, "SFInt32"},  {4, "SFVec2f"},    {5, "SFVec3f"},
              {6, "SFString"},  {7, "SFColor"},  {8, "SFTime"},   {9, "SFRotation"}, {10, "SFImage"},
              {11, "SFNode"},   {12, "MFFloat"}, {13, "MFInt32"}, {14, "MFVec2f"},   {15, "MFVec3f"},
              {16, "MFString"}, {17, "MFColor"}, {18, "MFTime"},  {19, "MFRotation"}};
  for (const auto& row : rows) {
    EXPECT_STREQ(fieldTypeName(static_cast<FieldType>(row.code)), row.name);
    EXPECT_EQ(fieldTypeOf(row.name), static_cast<FieldType>(row.code)) << row.name;
  }
}

TEST(FieldType, other_codes_and_names_are_none) {
  for (const int code : {0, -1, 20, 1000}) EXPECT_STREQ(fieldTypeName(static_cast<FieldType>(code)), "") << code;
  for (const char* name : {"", "none", "SFMatrix", "MFNode", "MFBool", "sfbool", "SFBool "})
    EXPECT_EQ(fieldTypeOf(name), FieldType::none) << name;
}

}  // namespace
}  // namespace vrml
