// Unpacking: whole files, files in several members, damage at every byte, and files that unpack to more than is good.

#include "embedded/Gzip.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/embedded/Packing.h"

namespace {

using embedded::GzipResult;
using embedded::unpackGzip;
using fixtures::pack;

// The result for a heap block of exactly the size of the bytes; what was unpacked in `plain`.
GzipResult unpackExact(std::string_view packed, std::string& plain) {
  const auto block = std::make_unique<char[]>(packed.size());
  packed.copy(block.get(), packed.size());
  return unpackGzip({block.get(), packed.size()}, plain);
}

std::string numbers(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += std::to_string(i * 7919) + "\n";
  return text;
}

TEST(Gzip, UnpacksTextsOfAnySize) {
  for (const std::string& plain : {std::string(), std::string("x"), numbers(10), std::string(65536, 'a'),
                                   numbers(20'000), std::string(1, '\0') + numbers(100'000)}) {
    SCOPED_TRACE(plain.size());
    std::string unpacked = "left from before";
    EXPECT_EQ(unpackExact(pack(plain), unpacked), GzipResult::unpacked);
    EXPECT_TRUE(unpacked == plain);
    EXPECT_TRUE(embedded::unpackFile(pack(plain), unpacked));
  }
}

TEST(Gzip, PutsMembersTogetherAndIgnoresWhatFollows) {
  const std::string first = numbers(30'000);
  std::string unpacked;
  EXPECT_EQ(unpackExact(pack(first) + pack("") + pack("end"), unpacked), GzipResult::unpacked);
  EXPECT_TRUE(unpacked == first + "end");
  for (const std::string& behind : {std::string(512, '\0'), std::string("\x1F"), std::string("garbage")}) {
    EXPECT_EQ(unpackExact(pack("text") + behind, unpacked), GzipResult::unpacked);
    EXPECT_EQ(unpacked, "text");
  }
  EXPECT_EQ(unpackExact(pack("text") + "\x1F\x8B and no more", unpacked), GzipResult::damaged);
}

TEST(Gzip, KnowsWhatIsNotGzip) {
  for (const char* bytes : {"", "\x1F", "#VRML V2.0 utf8\n", "\x8B\x1F", "\x1F\x9D\x90"}) {
    std::string unpacked = "left from before";
    EXPECT_EQ(unpackExact(bytes, unpacked), GzipResult::notGzip);
    EXPECT_EQ(unpacked, "");
    EXPECT_FALSE(embedded::unpackFile(bytes, unpacked));
  }
}

TEST(Gzip, NoticesEveryCutAndEveryChangedByteOfTheDataAndTheCheck) {
  const std::string packed = pack(numbers(40));
  std::string unpacked;
  for (std::size_t length = 2; length < packed.size(); ++length) {
    EXPECT_EQ(unpackExact(packed.substr(0, length), unpacked), GzipResult::damaged) << "cut off after " << length;
    EXPECT_EQ(unpacked, "");
  }
  constexpr std::size_t kHeader = 10;
  for (std::size_t at = kHeader; at < packed.size(); ++at) {
    std::string changed = packed;
    changed[at] = static_cast<char>(changed[at] ^ 0x10);
    EXPECT_EQ(unpackExact(changed, unpacked), GzipResult::damaged) << "changed at " << at;
  }
}

TEST(Gzip, StopsWhereAFileUnpacksToMuchMoreThanItIs) {
  std::string zeros(embedded::kMaxRepeatedBytes, '\0');
  const std::string allowed = pack(zeros);
  ASSERT_LT(allowed.size() * embedded::kMaxUnpackRatio, zeros.size());
  std::string unpacked;
  EXPECT_EQ(unpackGzip(allowed, unpacked), GzipResult::unpacked);
  EXPECT_EQ(unpacked.size(), zeros.size());
  zeros += '\0';
  const std::string bomb = pack(zeros);
  EXPECT_EQ(unpackGzip(bomb, unpacked), GzipResult::tooLarge);
  EXPECT_EQ(unpacked.capacity(), std::string().capacity());
  EXPECT_FALSE(embedded::unpackFile(bomb, unpacked));
  // The same in members, none of which is too large.
  EXPECT_EQ(unpackGzip(allowed + allowed, unpacked), GzipResult::tooLarge);
}

}  // namespace
