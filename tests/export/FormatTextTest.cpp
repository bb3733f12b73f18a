// Texts that stand as format strings are expanded without a single argument.

#include "export/FormatText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
  const char* name;
  std::string format;
  std::string expected;
};

TEST(FormatText, ExpandsWithoutArguments) {
  const Row rows[] = {
      {"plain text", "wood.jpg", "wood.jpg"},
      {"nothing", "", ""},
      {"doubled sign", "100%% wool", "100% wool"},
      {"three signs", "%%%", "%%"},
      {"four signs", "%%%%", "%%"},
      {"doubled sign before a letter", "%%d", "%d"},
      {"each conversion", "%d%i%o%u%x%X%e%E%f%F%g%G%a%A%c%s%p%n", ""},
      {"between texts", "a%db", "ab"},
      {"all flags", "[%-+ #0d]", "[]"},
      {"width", "[%12d]", "[]"},
      {"width from an argument", "[%*d]", "[]"},
      {"precision", "[%.3f]", "[]"},
      {"precision from an argument", "[%.*f]", "[]"},
      {"precision without digits", "[%.f]", "[]"},
      {"lengths", "[%hhd%hd%ld%lld%Lf%jd%zu%tx]", "[]"},
      {"everything at once", "[%-08.5lf]", "[]"},
      {"a sign at the end", "50%", "50%"},
      {"an incomplete conversion at the end", "50%-8.5l", "50%-8.5l"},
      {"a letter that names none", "%y %k", "%y %k"},
      {"a letter behind a width that names none", "%5y", "%5y"},
      {"a sign before a quote", "50%\"", "50%\""},
      {"a blank is a flag", "50% done", "50one"},
      {"a sign within what is none", "%5%d", "%5"},
      {"two digits after a star begin none", "%*5d", "%*5d"},
      {"bytes above 127", "\xc3\xa4%s\xc3\xb6", "\xc3\xa4\xc3\xb6"},
      {"a zero byte", std::string("a\0%sb", 5), std::string("a\0b", 3)},
  };
  for (const Row& row : rows) EXPECT_EQ(exporter::expandFormat(row.format), row.expected) << row.name;
}

}  // namespace
