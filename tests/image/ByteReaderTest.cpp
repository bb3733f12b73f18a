// Reading records from the front of a buffer.

#include "image/ByteReader.h"

#include "tests/image/ImageTest.h"

namespace image {
namespace {

TEST(ByteReader, reads_bytes_words_and_blocks_in_order) {
  const imagetest::ExactBuffer buffer(imagetest::Bytes{1, 0x34, 0x12, 7, 8, 9});
  ByteReader reader(buffer.span());
  EXPECT_EQ(reader.byte(), 1);
  EXPECT_EQ(reader.word(), 0x1234);
  reader.skip(1);
  const std::span<const std::uint8_t> block = reader.bytes(2);
  ASSERT_EQ(block.size(), 2u);
  EXPECT_EQ(block[0], 8);
  EXPECT_EQ(block[1], 9);
  EXPECT_EQ(reader.left(), 0u);
  EXPECT_TRUE(reader.isOk());
  EXPECT_TRUE(reader.bytes(0).empty());
  EXPECT_TRUE(reader.isOk());
}

TEST(ByteReader, reads_zeros_and_nothing_past_the_end) {
  const imagetest::ExactBuffer buffer(imagetest::Bytes{5, 6, 7});
  ByteReader reader(buffer.span());
  EXPECT_TRUE(reader.bytes(4).empty());
  EXPECT_FALSE(reader.isOk());
  EXPECT_EQ(reader.left(), 0u);
  EXPECT_EQ(reader.byte(), 0);
  EXPECT_EQ(reader.word(), 0);
  EXPECT_FALSE(reader.isOk());

  ByteReader halfWord(buffer.span().first(1));
  EXPECT_EQ(halfWord.word(), 5);
  EXPECT_FALSE(halfWord.isOk());
}

}  // namespace
}  // namespace image
