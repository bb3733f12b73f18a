// What the host could not read or write is told to whoever asks.

#include "embedded/FileErrors.h"

#include <VekFoundations/CVekIO.h>
#include <VekFoundations/CVekImage.h>
#include <VekSGdb/sglImageLoader.h>
#include <gtest/gtest.h>

#include <functional>

#include "tests/TempFolder.h"

namespace {

using embedded::FileErrorLog;

TEST(FileErrors, NameTheFileAndWhatWasDoneWithIt) {
  const fixtures::TempFolder folder;
  folder.write("file", "text");
  const std::uint8_t pixel[3] = {};
  struct Row {
    const char* name;
    std::function<bool()> operation;
    std::string path;
    bool isWriting;
    const char* reason;
  };
  const Row rows[] = {
      {"copy of nothing", [&] { return CVekIO::CopyFileA(folder.path("none"), folder.path("to")); },
       folder.path("none"), false, "cannot be read"},
      {"copy to nowhere", [&] { return CVekIO::CopyFileA(folder.path("file"), folder.path("none\\to")); },
       folder.path("none/to"), true, "No such file or directory"},
      {"folder below a file", [&] { return CVekIO::CreateDirectoryA(folder.path("file\\below\\"), false); },
       folder.path("file/below"), true, "Not a directory"},
      {"no image", [&] { return CVekImage().LoadImageA(folder.path() + "\\file", false); }, folder.path("file"), false,
       "holds no image that can be read"},
      {"image to nowhere",
       [&] {
         return sglImageLoader::writeImage(folder.path("none/a.png"), pixel, 1, 1, SGL_IMAGE_RGB,
                                           SGL_IMAGE_UNSIGNED_BYTE, 0);
       },
       folder.path("none/a.png"), true, "No such file or directory"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const FileErrorLog log;
    EXPECT_FALSE(row.operation());
    ASSERT_EQ(log.errors().size(), 1U);
    EXPECT_EQ(log.errors()[0].path, row.path);
    EXPECT_EQ(log.errors()[0].isWriting, row.isWriting);
    EXPECT_EQ(log.errors()[0].reason, row.reason);
  }
}

TEST(FileErrors, GoToTheInnermostLogAndNowhereWithoutOne) {
  embedded::reportFileError("a", false, "lost");
  const FileErrorLog outer;
  {
    const FileErrorLog inner;
    embedded::reportFileError("b", true, "full");
    EXPECT_EQ(inner.errors().size(), 1U);
  }
  embedded::reportFileError("c", true, "full");
  ASSERT_EQ(outer.errors().size(), 1U);
  EXPECT_EQ(outer.errors()[0].path, "c");
}

}  // namespace
