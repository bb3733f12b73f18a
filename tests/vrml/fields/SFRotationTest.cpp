#include "vrml/fields/SFRotation.h"

#include <cmath>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace vrml {
namespace {

using Value = SFRotation::Value;

TEST(SFRotation, normalises_its_axis_in_every_way_to_set_it) {
  const float array[4] = {0, 0, 2, 1.5f};
  const SFVec3f axis(0, 0, 2);
  const SFRotation made[] = {SFRotation(0, 0, 2, 1.5f), SFRotation(axis, 1.5f), SFRotation(array),
                             SFRotation(Value{0, 0, 2, 1.5f})};
  for (const SFRotation& field : made) {
    EXPECT_EQ(field.getType(), FieldType::SFRotation);
    EXPECT_EQ(field.getValue(), (Value{0, 0, 1, 1.5f}));
  }
  SFRotation field;
  EXPECT_EQ(field.getValue(), (Value{0, 0, 1, 0}));
  field.setValue(3, 0, 4, 2);
  EXPECT_EQ(field.getValue(), (Value{0.6f, 0, 0.8f, 2}));
  field.setValue(axis, 3);
  EXPECT_EQ(field.getValue(), (Value{0, 0, 1, 3}));
  field.setValue("0 5 0 1");
  EXPECT_EQ(field.getValue(), (Value{0, 1, 0, 1}));
  field.setValue(array);
  EXPECT_EQ(field.getValue(), (Value{0, 0, 1, 1.5f}));
}

TEST(SFRotation, keeps_a_zero_axis) {
  const SFRotation field(0, 0, 0, 1);
  EXPECT_EQ(field.getValue(), (Value{0, 0, 0, 1}));
}

TEST(SFRotation, keeps_an_axis_without_a_finite_length) {
  SFRotation field;
  for (const char* text : {"0 0 inf 5", "0 -inf 1 5", "1 0 nan 5"}) {
    field.setValue(text);
    std::string printed;
    field.appendText(printed);
    EXPECT_EQ(printed, text);
  }
}

TEST(SFRotation, takes_an_axis_that_is_of_unit_length_as_it_stands) {
  const Value near{0.577350f, 0.577350f, 0.577351f, 1};
  EXPECT_EQ(SFRotation(near).getValue(), near);
  EXPECT_EQ(SFRotation(1.0000015f, 0, 0, 1).x(), 1.0000015f);
  EXPECT_EQ(SFRotation(1.00001f, 0, 0, 1).x(), 1.0f);
  // Setting a value that was read from a field changes nothing any more.
  std::uint32_t state = 9;
  for (int i = 0; i < 10000; ++i) {
    Value value;
    for (float& component : value) {
      state = state * 1664525u + 1013904223u;
      component = static_cast<float>(static_cast<std::int32_t>(state)) / 65536.0f;
    }
    const SFRotation once(value), twice(once.getValue());
    ASSERT_EQ(once.getValue(), twice.getValue());
    ASSERT_NEAR(once.axis().length(), 1.0f, 1e-6f);
  }
}

// An axis at the edge of what is taken as it stands: what is written must read back to a value that is written the
// same, also where the six digits lie beyond the edge.
TEST(SFRotation, is_written_with_digits_that_stay) {
  const auto written = [](const Value& value) {
    std::string text;
    SFRotation::formatStream(text, value, false);
    return text;
  };
  const Value edge{0.8000015f, 0.6000005f, 0, 1};
  EXPECT_EQ(SFRotation::stored(edge), edge);
  EXPECT_EQ(written(edge), "0.8 0.6 0 1");
  EXPECT_EQ(written({0.6f, 0, 0.8f, 2}), "0.6 0 0.8 2");
  EXPECT_EQ(written({0, 0, 0, 2}), "0 0 0 2");

  std::uint32_t state = 5;
  const auto random = [&state] {
    state = state * 1664525u + 1013904223u;
    return static_cast<double>(state >> 8) / (1 << 24);
  };
  int beyond = 0;
  for (int i = 0; i < 20000; ++i) {
    const double height = 2 * random() - 1, turn = 6.2831853 * random(), length = 1 + 5e-6 * (random() - 0.5);
    const double reach = std::sqrt(1 - height * height);
    const Value value = SFRotation::stored({static_cast<float>(length * reach * std::cos(turn)),
                                            static_cast<float>(length * reach * std::sin(turn)),
                                            static_cast<float>(length * height), 1});
    const std::string text = written(value);
    SFRotation read;
    read.setValue(text.c_str());
    ASSERT_EQ(written(read.getValue()), text);
    std::string plain;
    SFRotation::formatText(plain, value);
    if (plain != text) ++beyond;
  }
  EXPECT_GT(beyond, 0);
}

TEST(SFRotation, is_taken_apart) {
  SFRotation field(0, 1, 0, 0.5f);
  float axis[3], all[4];
  field.getAxis(axis);
  field.getValue(all);
  EXPECT_EQ(axis[1], 1);
  EXPECT_EQ(all[3], 0.5f);
  EXPECT_EQ(field.angle(), 0.5f);
  EXPECT_EQ(field.axis().getType(), FieldType::SFVec3f);
  field.setAngle(2);
  EXPECT_EQ(field.angle(), 2);
}

TEST(SFRotation, inverting_negates_the_angle_alone) {
  SFRotation field(0, 1, 0, 0.5f);
  field.invert();
  EXPECT_EQ(field.getValue(), (Value{0, 1, 0, -0.5f}));
}

}  // namespace
}  // namespace vrml
