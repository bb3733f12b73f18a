#include "vrml/fields/PackedArray.h"

#include <cstdint>
#include <limits>
#include <new>
#include <numeric>
#include <utility>

#include <gtest/gtest.h>

namespace vrml {
namespace {

TEST(PackedArray, keeps_what_is_appended_in_every_way) {
  PackedArray<std::int32_t> array;
  EXPECT_TRUE(array.empty());
  for (std::int32_t i = 0; i < 1000; ++i) array.push_back(i);
  std::int32_t* const grown = array.grow(500);
  std::iota(grown, grown + 500, 1000);
  const std::span<std::int32_t> room = array.room(100);
  ASSERT_GE(room.size(), 100u);
  std::iota(room.begin(), room.begin() + 50, 1500);
  array.commit(50);
  array.insert(0, -1);
  array.insert(array.size(), 1550);
  array.insert(3, -2);
  ASSERT_EQ(array.size(), 1553u);
  EXPECT_EQ(array[0], -1);
  EXPECT_EQ(array[3], -2);
  for (std::size_t i = 4; i < array.size(); ++i) ASSERT_EQ(array[i], static_cast<std::int32_t>(i) - 2);
  EXPECT_EQ(array.span().size(), array.size());
  EXPECT_EQ(array.end() - array.begin(), 1553);
}

TEST(PackedArray, appends_a_value_of_its_own) {
  PackedArray<double> array;
  array.push_back(7.5);
  for (int i = 0; i < 100; ++i) array.push_back(array[0]);
  EXPECT_EQ(array[100], 7.5);
}

TEST(PackedArray, gives_back_what_it_does_not_use) {
  PackedArray<float> array;
  for (int i = 0; i < 100; ++i) array.push_back(1.0f);
  array.shrinkToFit();
  EXPECT_EQ(array.capacity(), 100u);
  EXPECT_EQ(array[99], 1.0f);
  array.clear();
  EXPECT_EQ(array.capacity(), 100u);
  array.shrinkToFit();
  EXPECT_EQ(array.capacity(), 0u);
  array.reserve(7);
  EXPECT_EQ(array.capacity(), 7u);
}

TEST(PackedArray, moves_by_exchanging_its_block) {
  PackedArray<float> first;
  first.push_back(3.0f);
  PackedArray<float> second(std::move(first));
  ASSERT_EQ(second.size(), 1u);
  PackedArray<float> third;
  third = std::move(second);
  EXPECT_EQ(third[0], 3.0f);
}

TEST(PackedArray, refuses_more_than_an_int_counts) {
  PackedArray<char> array;
  array.push_back('a');
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
  EXPECT_THROW(array.makeRoom(kMost), std::bad_alloc);
  EXPECT_THROW((void)array.grow(std::numeric_limits<std::size_t>::max()), std::bad_alloc);
  EXPECT_THROW(array.reserve(kMost + 1), std::bad_alloc);
  EXPECT_EQ(array.size(), 1u);
  EXPECT_EQ(array[0], 'a');
}

}  // namespace
}  // namespace vrml
