// The buffer between the export and its stream.

#include "export/TextWriter.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "tests/export/Written.h"

namespace {

using exporter::TextWriter;
using exporter_test::printed;
using exporter_test::written;

TEST(TextWriter, PrintsTextsAndNumbersInOrder) {
  EXPECT_EQ(
      printed([](TextWriter& out) { out.print("a ", 1.5F, " ", 0.25, " ", -7, " ", 4294967295U, std::string("\n")); }),
      "a 1.500000 0.250000 -7 4294967295\n");
}

TEST(TextWriter, TextsOfAnySizePassTheBufferWhole) {
  for (const std::size_t size :
       {std::size_t{1}, std::size_t{262143}, std::size_t{262144}, std::size_t{262145}, std::size_t{1000000}}) {
    std::string text(size, 'x');
    for (std::size_t i = 0; i < size; i += 101) text[i] = static_cast<char>('a' + i % 26);
    EXPECT_EQ(printed([&text](TextWriter& out) { out.print("<", text, ">"); }), "<" + text + ">");
  }
}

TEST(TextWriter, NumbersAroundTheEndOfTheBufferStayWhole) {
  std::string expected;
  const std::string text = printed([&expected](TextWriter& out) {
    for (int i = 0; i < 100000; ++i) {
      out.print(-1e30F, " ", i, "\n");
      expected += "-1000000015047466219876688855040.000000 " + std::to_string(i) + "\n";
    }
  });
  EXPECT_EQ(text, expected);
}

TEST(TextWriter, RoomIsGivenAcrossTheEndOfTheBuffer) {
  std::string expected;
  const std::string text = printed([&expected](TextWriter& out) {
    for (int i = 0; i < 300; ++i) {
      char* const room = out.room(TextWriter::kMaxRoom);
      std::memset(room, 'a' + i % 26, TextWriter::kMaxRoom);
      out.advanceTo(room + TextWriter::kMaxRoom - 1);
      expected.append(TextWriter::kMaxRoom - 1, static_cast<char>('a' + i % 26));
    }
  });
  EXPECT_EQ(text, expected);
}

TEST(TextWriter, WritersOnOneStreamFollowEachOther) {
  EXPECT_EQ(written([](std::FILE* file) {
              std::fputs("a", file);
              TextWriter(file).print("b");
              std::fputs("c", file);
              TextWriter(file).print("d");
            }),
            "abcd");
}

TEST(TextWriter, LeavesErrnoAloneWhileAllIsWell) {
  errno = EDOM;
  printed([](TextWriter& out) { out.print("text"); });
  EXPECT_EQ(errno, EDOM);
}

TEST(TextWriter, RemembersTheFirstFailure) {
  std::FILE* file = std::fopen("/dev/full", "w");
  ASSERT_NE(file, nullptr);
  std::setvbuf(file, nullptr, _IONBF, 0);
  {
    TextWriter out(file);
    out.print("text");
    EXPECT_EQ(out.error(), 0);
    out.flush();
    EXPECT_EQ(out.error(), ENOSPC);
    EXPECT_EQ(errno, ENOSPC);
    // Text behind the failure is dropped, however much there is of it.
    out.print(std::string(1000000, 'x'));
    EXPECT_EQ(out.error(), ENOSPC);
  }
  EXPECT_NE(std::ferror(file), 0);
  EXPECT_NE(TextWriter(file).error(), 0);
  std::fclose(file);
}

}  // namespace
