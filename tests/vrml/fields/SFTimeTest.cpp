#include "vrml/fields/SFTime.h"

#include <cmath>
#include <ctime>
#include <string>

#include <gtest/gtest.h>

namespace vrml {
namespace {

TEST(SFTime, holds_64_bits_and_prints_32) {
  const SFTime field(1234567.891);
  EXPECT_EQ(field.getValue(), 1234567.891);
  char buffer[64];
  EXPECT_STREQ(field.getValue(buffer), "1234567.875000");
}

TEST(SFTime, is_minus_one_by_default_and_copies_its_value) {
  EXPECT_EQ(SFTime().getValue(), -1.0);
  const double seconds = 2.5;
  const SFTime field(&seconds), copy(field);
  EXPECT_EQ(copy.getValue(), 2.5);
  EXPECT_EQ(copy.getType(), FieldType::SFTime);
}

TEST(SFTime, prints_the_largest_values_into_a_bounded_buffer) {
  std::string text;
  SFTime(-3.4028234663852886e38).appendText(text);
  EXPECT_EQ(text, "-340282346638528859811704183484516925440.000000");
}

TEST(SFTime, tells_the_wall_clock_time_in_milliseconds) {
  const auto before = static_cast<double>(std::time(nullptr));
  const double now = SFTime::currentTime();
  const auto after = static_cast<double>(std::time(nullptr));
  EXPECT_GE(now, before - 1);
  EXPECT_LE(now, after + 2);
  EXPECT_NEAR(now * 1000, std::round(now * 1000), 0.01);
}

}  // namespace
}  // namespace vrml
