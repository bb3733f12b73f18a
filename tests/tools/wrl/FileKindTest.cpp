// What a refused file is said to be.

#include "tools/wrl/FileKind.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/TempFolder.h"
#include "tests/embedded/Packing.h"

namespace wrl {
namespace {

TEST(FileKind, is_told_by_the_first_bytes) {
  const struct {
    const char* name;
    std::string content;
    const char* expected;
  } rows[] = {
      {"VRML97", "#VRML V2.0 utf8\n}", ""},
      {"VRML97 with zero bytes in it", std::string("#VRML V2.0 utf8\n\0", 17), ""},
      {"no header", "Group { foo }", ""},
      {"nothing", "", ""},
      {"VRML 1.0", "#VRML V1.0 ascii\nSeparator { }\n", "a VRML 1.0 file, not VRML97"},
      {"VRML 1.0 behind a byte order mark", "\xEF\xBB\xBF#VRML V1.0 ascii\n", "a VRML 1.0 file, not VRML97"},
      {"X3D as text", "#X3D V3.0 utf8\nPROFILE Immersive\n", "an X3D file in the classic encoding, not VRML97"},
      {"X3D as XML", "<?xml version=\"1.0\"?>\n<!DOCTYPE X3D PUBLIC \"x\" \"y\">\n<X3D>",
       "an X3D file in the XML encoding, not VRML97"},
      {"X3D alone", "  <X3D profile='Immersive'>", "an X3D file in the XML encoding, not VRML97"},
      {"HTML", "\r\n<!DOCTYPE HTML>\n<html>", "an HTML page, not VRML97"},
      {"HTML without a type", "<HTML><body>404</body></HTML>", "an HTML page, not VRML97"},
      {"XHTML", "<?xml version=\"1.0\"?><html xmlns=\"x\">", "an HTML page, not VRML97"},
      {"XML", "<?xml version=\"1.0\"?><COLLADA>", "an XML document, not VRML97"},
      {"JSON", "{ \"asset\": {} }", "a JSON document, not VRML97"},
      {"UTF-16", std::string("\xFF\xFE#\0V\0R\0", 8), "text in UTF-16, not VRML97"},
      {"UTF-16 without a mark", std::string("#\0V\0R\0M\0", 8), "text in UTF-16, not VRML97"},
      {"UTF-16 from its high bytes", std::string("\0#\0V\0R\0M", 8), "text in UTF-16, not VRML97"},
      {"a ZIP archive", "PK\x03\x04 and so on", "a ZIP archive, not VRML97"},
      {"a PNG image", "\x89PNG\r\n\x1A\n", "a PNG image, not VRML97"},
      {"zero bytes", std::string("solid\0\1\2", 8), "a binary file, not VRML97"},
      {"a packed world", fixtures::pack("#VRML V2.0 utf8\n}"), ""},
      {"a packed VRML 1.0 file", fixtures::pack("#VRML V1.0 ascii\n"),
       "a VRML 1.0 file, compressed with gzip, not VRML97"},
      {"a packed archive", fixtures::pack(std::string("ustar\0", 6)),
       "a binary file, compressed with gzip, not VRML97"},
      {"a cut packed world", fixtures::pack("#VRML V2.0 utf8\n").substr(0, 25),
       "compressed with gzip, and its data are damaged or cut short"},
      {"a packed world that never ends", fixtures::pack(std::string((std::size_t{32} << 20) + 1, ' ')),
       "compressed and unpacks to more than 200 times its size or 1024 MiB"},
  };
  const fixtures::TempFolder folder;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string path = folder.write("file", row.content);
    const std::string expected = row.expected;
    EXPECT_EQ(foreignKind(path), expected);
    EXPECT_EQ(foreignKindLine("a.wrl", path), expected.empty() ? "" : "a.wrl: error: this is " + expected + "\n");
  }
}

TEST(FileKind, is_not_asked_of_what_is_no_regular_file) {
  const fixtures::TempFolder folder;
  const std::string pipe = folder.path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);  // reading it would wait for ever
  for (const std::string& path : {pipe, folder.path("missing"), folder.path(""), std::string("/dev/zero")})
    EXPECT_EQ(foreignKind(path), "") << path;
}

TEST(FileKind, a_file_that_cannot_be_opened_has_a_reason) {
  const fixtures::TempFolder folder;
  EXPECT_EQ(openingError(folder.write("a.wrl", "")), "");
  EXPECT_EQ(openingError(folder.path("none.wrl")), "");
  EXPECT_EQ(openingError(folder.path("a.wrl/b.wrl")), "Not a directory");
  EXPECT_EQ(foreignKindLine("a.wrl", folder.path("")), "a.wrl: error: Is a directory\n");
  EXPECT_EQ(foreignKindLine("a.wrl", folder.path("none.wrl")), "");
}

}  // namespace
}  // namespace wrl
