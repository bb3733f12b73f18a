// The statistics block is known from its first message to its last, whatever stands between and around.

#include "tools/wrl/StatisticsFilter.h"

#include <gtest/gtest.h>

namespace wrl {
namespace {

TEST(StatisticsFilter, knows_the_block_and_nothing_else) {
  struct Row {
    const char* message;
    bool isStatistics;
  };
  const Row rows[] = {
      {"Texture: a.gif not found.\n", false},
      {"-- Statistics for: a.wrl ---\n", true},
      {"   Num S.Tris     : 1\n", true},
      {"   ---------------- \n", true},
      {"    Length Stats  : Min: 3 Max: 4 Avg: 3\n", true},
      {"   S3TC Cmp+Mipped: 0\n", true},
      {"sglLoadFile_wrl: file contained no scene\n", false},
      {"   Num S.Tris     : 1\n", false},
      {"-- Statistics for: b.wrl ---\n", true},
      {"   S3TC Cmp+Mipped: 1.5\n", true},
      {"", false},
  };
  StatisticsFilter filter;
  for (const Row& row : rows) EXPECT_EQ(filter.isStatistics(row.message), row.isStatistics) << row.message;
}

}  // namespace
}  // namespace wrl
