// SFVec2f and SFVec3f: components, lengths and arithmetic.

#include <cmath>

#include <gtest/gtest.h>

#include "vrml/fields/SFVec2f.h"
#include "vrml/fields/SFVec3f.h"

namespace vrml {
namespace {

TEST(SFVec2f, is_made_and_taken_apart_by_components) {
  const float array[2] = {3, 4};
  const SFVec2f fromArray(array), copy(fromArray), fromValue(SFVec2f::Value{3, 4});
  for (const SFVec2f* field : {&fromArray, &copy, &fromValue}) {
    EXPECT_EQ(field->getType(), FieldType::SFVec2f);
    EXPECT_TRUE(field->equals(3, 4));
  }
  SFVec2f field;
  EXPECT_TRUE(field.equals(0, 0));
  field.setX(5);
  field.setY(6);
  float out[2];
  field.getValue(out);
  EXPECT_EQ(out[0], 5);
  EXPECT_EQ(out[1], 6);
  field.setValue(array);
  EXPECT_EQ(field.x() + field.y(), 7);
}

TEST(SFVec2f, computes) {
  SFVec2f field(3, 4);
  EXPECT_EQ(field.length(), 5);
  field.normalize();
  EXPECT_TRUE(field.equals(0.6f, 0.8f));
  field.negate();
  EXPECT_TRUE(field.equals(-0.6f, -0.8f));
  field.setValue(1, 2);
  field.scale(3);
  EXPECT_TRUE(field.equals(3, 6));
  field.add(SFVec2f(1, 1));
  EXPECT_TRUE(field.equals(4, 7));
  field.subtract(SFVec2f(5, 5));
  EXPECT_TRUE(field.equals(-1, 2));
}

TEST(SFVec3f, is_made_and_taken_apart_by_components) {
  const float array[3] = {3, 4, 5};
  const SFVec3f fromArray(array), copy(fromArray), fromValue(SFVec3f::Value{3, 4, 5});
  for (const SFVec3f* field : {&fromArray, &copy, &fromValue}) {
    EXPECT_EQ(field->getType(), FieldType::SFVec3f);
    EXPECT_TRUE(field->equals(3, 4, 5));
    EXPECT_FALSE(field->equals(3, 4, 6));
  }
  SFVec3f field;
  EXPECT_TRUE(field.equals(0, 0, 0));
  field.setX(5);
  field.setY(6);
  field.setZ(7);
  float out[3];
  field.getValue(out);
  EXPECT_EQ(out[0], 5);
  EXPECT_EQ(out[1], 6);
  EXPECT_EQ(out[2], 7);
  field.setValue(array);
  EXPECT_EQ(field.x() + field.y() + field.z(), 12);
  field.setValue(SFVec3f(1, 2, 3));
  EXPECT_EQ(field.getValue(), (SFVec3f::Value{1, 2, 3}));
}

TEST(SFVec3f, computes) {
  SFVec3f field(2, 3, 6);
  EXPECT_EQ(field.length(), 7);
  field.negate();
  EXPECT_TRUE(field.equals(-2, -3, -6));
  field.scale(-0.5f);
  EXPECT_TRUE(field.equals(1, 1.5f, 3));
  field.add(SFVec3f(1, 1, 1));
  EXPECT_TRUE(field.equals(2, 2.5f, 4));
  field.subtract(SFVec3f(2, 2, 2));
  EXPECT_TRUE(field.equals(0, 0.5f, 2));
  field.setValue(0, 0, -4);
  field.normalize();
  EXPECT_TRUE(field.equals(0, 0, -1));
}

TEST(SFVec3f, normalising_a_zero_vector_does_nothing) {
  SFVec3f field(0, -0.0f, 0);
  field.normalize();
  EXPECT_TRUE(field.equals(0, 0, 0));
  EXPECT_EQ(field.length(), 0);
}

TEST(SFVec3f, normalises_what_squares_would_not_survive) {
  SFVec3f huge(3e38f, 0, 0), tiny(0, 1e-42f, 0);
  huge.normalize();
  tiny.normalize();
  EXPECT_TRUE(huge.equals(1, 0, 0));
  EXPECT_TRUE(tiny.equals(0, 1, 0));
}

}  // namespace
}  // namespace vrml
