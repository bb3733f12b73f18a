// The form of the token listing.

#include "vrml/reader/TokenLister.h"

#include <gtest/gtest.h>

#include <sstream>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::listing;
using readertest::TemporaryFolder;

TEST(listTokens, writes_line_class_and_text) {
  EXPECT_EQ(listing("# first\n-3 1.5 \"a b\" name NULL Group size\nUSE x , { } [ ]\nScript { field url }\n"),
            "2\tinteger\t-3\n2\tfloat\t1.5\n2\tstring\t\"a b\"\n2\tidentifier\tname\n2\tnull\tNULL\n2\tnode\tGroup\n"
            "2\tfield\tsize\n3\tuse\tUSE\n3\tpunct\t,\n3\tpunct\t{\n3\tpunct\t}\n3\tpunct\t[\n3\tpunct\t]\n"
            "4\tnode\tScript\n4\tpunct\t{\n4\tscript\tfield\n4\tscript\turl\n4\tpunct\t}\n5\tend\t\n");
}

TEST(listTokens, ends_with_the_end) {
  EXPECT_EQ(listing(""), "1\tend\t\n");
  EXPECT_EQ(listing("\n\n"), "3\tend\t\n");
}

TEST(listTokens, expands_PROTOs) {
  EXPECT_EQ(listing("PROTO B [ field SFFloat r 3.5 ] { Sphere { radius IS r } }\nB { r 2.5 }\n"),
            "2\tnode\tSphere\n2\tpunct\t{\n2\tfield\tradius\n2\tfloat\t2.5\n2\tpunct\t}\n3\tend\t\n");
}

TEST(listTokens, ends_where_a_limit_is_passed) {
  EXPECT_EQ(listing("PROTO P [ ] { P { } }\nP { }\nGroup { }\n"), "2\tend\t\n");
}

TEST(listTokens, goes_on_where_a_load_would_stop) {
  EXPECT_EQ(readertest::tokens("} } 5"), "punct } | punct } | integer 5");
}

TEST(listTokens, names_a_file_that_cannot_be_opened) {
  const TemporaryFolder folder;
  std::ostringstream out;
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(listTokens(folder.path("none.wrl"), false, out));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Cannot open data file " + folder.path("none.wrl") + "\n");
  EXPECT_EQ(out.str(), "");
}

TEST(listTokens, leaves_no_parser_active) {
  static_cast<void>(listing("Group {"));
  EXPECT_EQ(Parser::currentParser(), nullptr);
}

}  // namespace
}  // namespace vrml
