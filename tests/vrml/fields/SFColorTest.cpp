#include "vrml/fields/SFColor.h"

#include <gtest/gtest.h>

namespace vrml {
namespace {

TEST(SFColor, is_made_and_taken_apart_by_components) {
  const float array[3] = {0.25f, 0.5f, 0.75f};
  SFColor field(array);
  EXPECT_EQ(field.getType(), FieldType::SFColor);
  EXPECT_EQ(field.r(), 0.25f);
  EXPECT_EQ(field.g(), 0.5f);
  EXPECT_EQ(field.b(), 0.75f);
  const SFColor copy(field);
  EXPECT_TRUE(copy.equals(&field));
  field.setR(1);
  field.setG(2);
  field.setB(3);
  float out[3];
  field.getValue(out);
  EXPECT_EQ(out[0] + out[1] + out[2], 6);
  EXPECT_EQ(SFColor().getValue(), (SFColor::Value{1, 1, 1}));
}

TEST(SFColor, adding_averages) {
  SFColor field(1, 0.5f, 0);
  field.add(SFColor(0, 0.5f, 1));
  EXPECT_EQ(field.getValue(), (SFColor::Value{0.5f, 0.5f, 0.5f}));
}

TEST(SFColor, subtracting_halves_the_difference) {
  SFColor field(1, 0.5f, 0);
  field.subtract(SFColor(0, 0.5f, 1));
  EXPECT_EQ(field.getValue(), (SFColor::Value{0.5f, 0, -0.5f}));
}

}  // namespace
}  // namespace vrml
