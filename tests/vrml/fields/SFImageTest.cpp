#include "vrml/fields/SFImage.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "vrml/fields/MFInt32.h"

namespace vrml {
namespace {

std::string written(const SFImage& image, const char* indent) {
  std::ostringstream out;
  image.write(out, indent);
  return out.str();
}

TEST(SFImage, writes_33_integers_a_line) {
  SFImage image;
  std::string first = "\t", second = "\t";
  for (int i = 0; i < 40; ++i) {
    image.addValue(i * 1000);
    (i < 33 ? first : second) += std::to_string(i * 1000) + " ";
  }
  EXPECT_EQ(written(image, "\t"), first + "\n" + second + "\n");
}

TEST(SFImage, begins_a_line_behind_the_33rd_integer_whether_there_are_more_or_not) {
  SFImage image;
  EXPECT_EQ(written(image, "  "), "  \n");
  image.addValue(1);
  EXPECT_EQ(written(image, "  "), "  1 \n");
  for (int i = 1; i < 33; ++i) image.addValue(1);
  std::string ones;
  for (int i = 0; i < 33; ++i) ones += "1 ";
  EXPECT_EQ(written(image, "  "), "  " + ones + "\n  \n");
}

TEST(SFImage, prints_an_empty_string_and_equals_nothing) {
  SFImage image;
  image.addValue(7);
  char buffer[8] = "rest";
  const Field& field = image;
  EXPECT_STREQ(field.getValue(buffer), "");
  EXPECT_FALSE(image.equals(&image));
  EXPECT_EQ(image.getType(), FieldType::SFImage);
}

TEST(SFImage, stands_in_vrml_text_without_brackets) {
  SFImage image;
  std::string text;
  image.appendVrml(text);
  EXPECT_EQ(text, "[]");
  const std::int32_t integers[] = {2, 1, 1, 0, 255};
  image.setValues(5, integers);
  text.clear();
  image.appendVrml(text);
  EXPECT_EQ(text, "2 1 1 0 255");
}

TEST(SFImage, copies_from_images_alone) {
  SFImage image, other;
  MFInt32 list;
  list.addValue(1);
  other.addValue(2);
  image.setValue(&list);
  EXPECT_EQ(image.getSize(), 0);
  image.setValue(&other);
  EXPECT_EQ(image.get1Value(0), 2);
}

}  // namespace
}  // namespace vrml
