// Reading while one allocation fails, each in turn. Nothing may crash or leak, and nothing may be thrown.

#include "tests/FailingMemory.h"
#include "tests/TempFolder.h"
#include "tests/image/ImageTest.h"

namespace {

using imagetest::Bytes;
using imagetest::operator+;

/// Reads the file once for each allocation. Returns the allocations, after the reading in which none failed.
template <typename Reader>
long failEachAllocation(const std::string& path, const Bytes& expected) {
  for (long number = 1;; ++number) {
    fixtures::failAllocation(number);
    const Reader reader(path);
    fixtures::endFailing();
    const bool failed = fixtures::hasAllocationFailed();
    const Bytes pixels = imagetest::pixelsOf(reader);
    if (!failed) {
      EXPECT_EQ(pixels, expected);
      return number - 1;
    }
    EXPECT_TRUE(pixels.empty() || pixels == expected) << "allocation " << number;
  }
}

TEST(OutOfMemory, leaves_an_empty_reader_or_the_first_frame) {
  const fixtures::TempFolder folder;
  const std::string path = folder.path("image-with-a-name-that-no-string-keeps-in-itself");
  const Bytes one = imagetest::gifImage(2, 2, {0, 1, 2, 3}, 0x40);
  const Bytes local = imagetest::gifDescriptor(1, 1, 0x81) + imagetest::fourColors() + Bytes{2} +
                      imagetest::subBlocks(imagetest::literalData(2, {1}));
  imagetest::writeFile(path, imagetest::gifScreen() + Bytes{','} + one + local + one);
  EXPECT_GE(failEachAllocation<image::FileGIF89a>(path, imagetest::colored(imagetest::fourColors(), {0, 1, 2, 3})), 6);

  const Bytes pixels = {1, 2, 3};
  imagetest::writeFile(path, Bytes{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 1, 0, 24, 0} + pixels);
  EXPECT_GE(failEachAllocation<image::FileTarga>(path, pixels), 1);
}

}  // namespace
