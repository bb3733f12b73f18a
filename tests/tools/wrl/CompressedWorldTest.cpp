// Worlds that are compressed: every command reads them, under their own name and from their own folder.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/embedded/Packing.h"
#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

using fixtures::pack;

const std::string kHeader = "#VRML V2.0 utf8\n";
const std::string kPart = kHeader + "Group { }\nShape { geometry Box { } }\n";

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// The same with each file under the name of its plain twin.
std::string withoutFolder(std::string text, const std::string& folder) {
  for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at))
    text.replace(at, folder.size(), "");
  return text;
}

TEST(CompressedWorld, gives_every_command_what_the_plain_one_gives) {
  const fixtures::TempFolder folder;
  for (const char* name : {"plain", "packed"}) std::filesystem::create_directories(folder.path(name) + "/parts");
  const std::string world =
      kHeader + "DEF a Group { }\nInline { url \"parts/part.wrl\" }\nInline { url \"parts\\\\gone.wrl\" }\n" +
      "Shape { geometry Sphere { } appearance Appearance { texture ImageTexture { url \"none.png\" } } }\n";
  folder.write("plain/w.wrl", world);
  folder.write("plain/parts/part.wrl", kPart);
  folder.write("packed/w.wrl", pack(world));
  folder.write("packed/parts/part.wrl", pack(kPart));
  const std::vector<std::string> calls[] = {{"check"}, {"nodes"}, {"tokens"},
                                            {"scene"}, {"stage"}, {"nodes", "--no-resolve"}};
  for (std::vector<std::string> call : calls) {
    SCOPED_TRACE(call[0]);
    call.push_back(folder.path("plain/w.wrl"));
    const ToolResult plain = runToolWith(call);
    call.back() = folder.path("packed/w.wrl");
    const ToolResult packed = runToolWith(call);
    EXPECT_EQ(packed.status, ExitStatus::done);
    EXPECT_EQ(plain.status, ExitStatus::done);
    EXPECT_EQ(withoutFolder(packed.out, folder.path("packed")), withoutFolder(plain.out, folder.path("plain")));
    EXPECT_EQ(withoutFolder(packed.err, folder.path("packed")), withoutFolder(plain.err, folder.path("plain")));
  }
  EXPECT_TRUE(holds(runToolWith({"scene", folder.path("packed/w.wrl")}).out, "sglCube"));
  EXPECT_TRUE(holds(runToolWith({"info", folder.path("packed/w.wrl")}).out, "2 Inline"));
}

TEST(CompressedWorld, is_converted_under_its_usual_names) {
  const fixtures::TempFolder folder;
  folder.write("a.wrl", kPart);
  ASSERT_EQ(runToolWith({"convert", folder.path("a.wrl"), folder.path("plain.wrl")}).status, ExitStatus::done);
  for (const char* name : {"a.wrz", "a.WRZ", "a.gz"}) {
    folder.write(name, pack(kPart));
    const ToolResult result = runToolWith({"convert", folder.path(name), folder.path("packed.wrl")});
    EXPECT_EQ(result.status, ExitStatus::done) << result.err;
    EXPECT_EQ(folder.read("packed.wrl"), folder.read("plain.wrl")) << name;
  }
}

TEST(CompressedWorld, is_read_from_standard_input_and_in_a_folder_where_nothing_can_be_written) {
  const fixtures::TempFolder folder;
  EXPECT_EQ(runToolWith({"check", "-"}, pack(kPart)).out, "-: ok\n");
  EXPECT_TRUE(holds(runToolWith({"scene", "-"}, pack(kPart)).out, "sglCube"));
  std::filesystem::create_directory(folder.path("locked"));
  folder.write("locked/part.wrl", kPart);
  const std::string world = folder.write("locked/w.wrl", pack(kHeader + "Inline { url \"part.wrl\" }\n"));
  std::filesystem::permissions(folder.path("locked"), std::filesystem::perms(0500));
  EXPECT_TRUE(holds(runToolWith({"scene", world}).out, "sglCube"));
  std::filesystem::permissions(folder.path("locked"), std::filesystem::perms(0700));
}

TEST(CompressedWorld, has_its_errors_reported_under_its_own_name_and_line) {
  const fixtures::TempFolder folder;
  const std::string file = folder.write("w.wrl", pack(kHeader + "Group {\n  Foo { }\n}\n"));
  const ToolResult check = runToolWith({"check", file});
  EXPECT_EQ(check.status, ExitStatus::failed);
  EXPECT_EQ(check.out, file + ":3: error at or about \"Foo\":   Foo { }\n");
  const ToolResult scene = runToolWith({"scene", file});
  EXPECT_EQ(scene.status, ExitStatus::failed);
  EXPECT_EQ(scene.err, "sglLoadFile_wrl: Error loading: " + file + "\n\tLine 3, at or about \"Foo\"\n\t>>  Foo { }\n");
}

TEST(CompressedWorld, is_refused_when_it_is_damaged_or_unpacks_to_too_much) {
  const fixtures::TempFolder folder;
  const std::string packed = pack(kPart);
  const struct {
    const char* name;
    std::string content;
    const char* expected;
  } rows[] = {
      {"cut", packed.substr(0, packed.size() - 9), "compressed with gzip, and its data are damaged or cut short"},
      {"a bomb", pack(kHeader + std::string((std::size_t{32} << 20), ' ')),
       "compressed and unpacks to more than 200 times its size or 1024 MiB"},
      {"VRML 1.0", pack("#VRML V1.0 ascii\nSeparator { }\n"), "a VRML 1.0 file, compressed with gzip, not VRML97"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string file = folder.write("w.wrl", row.content);
    const std::string line = file + ": error: this is " + row.expected + "\n";
    const ToolResult check = runToolWith({"check", file});
    EXPECT_EQ(check.status, ExitStatus::failed);
    EXPECT_TRUE(check.out.starts_with(file + ":")) << check.out;
    EXPECT_TRUE(check.out.ends_with("\n" + line)) << check.out;
    for (const char* command : {"scene", "info", "stage", "nodes"}) {
      SCOPED_TRACE(command);
      const ToolResult result = runToolWith({command, file});
      EXPECT_EQ(result.status, ExitStatus::failed);
      EXPECT_TRUE(result.err.ends_with(line)) << result.err;
    }
  }
}

TEST(CompressedWorld, attaches_nothing_when_it_is_inlined_and_damaged) {
  const fixtures::TempFolder folder;
  folder.write("part.wrl", pack(kPart).substr(0, 30));
  const std::string file = folder.write("w.wrl", kHeader + "Inline { url \"part.wrl\" }\nGroup { }\n");
  const ToolResult check = runToolWith({"check", file});
  EXPECT_EQ(check.status, ExitStatus::done);
  EXPECT_TRUE(holds(check.out, file + ": note: Inline: " + folder.path("part.wrl") + ":1 does not parse")) << check.out;
}

}  // namespace
}  // namespace wrl
