// Paths, files, properties, lists and colours of the document model.

#include <VekFoundations/CVekColor.h>
#include <VekFoundations/CVekFList.h>
#include <VekFoundations/CVekIO.h>
#include <VekFoundations/CVekPropNumerical.h>
#include <VekFoundations/CVekPropPath.h>
#include <VekFoundations/CVekPropertySet.h>
#include <VekFoundations/CVekShared.h>
#include <gtest/gtest.h>

#include "tests/TempFolder.h"

namespace {

TEST(IO, PathsComeApartAtEitherSlash) {
  struct Row {
    const char* path;
    const char* folder;
    const char* file;
    const char* base;
    const char* basePath;
    const char* extension;
  };
  const Row rows[] = {
      {"C:\\maps\\wood.png", "C:\\maps", "wood.png", "wood", "C:\\maps\\wood", "png"},
      {"out/scene.wrl", "out", "scene.wrl", "scene", "out/scene", "wrl"},
      {"scene.wrl", ".", "scene.wrl", "scene", "scene", "wrl"},
      {"/scene.wrl", "/", "scene.wrl", "scene", "/scene", "wrl"},
      {"a.b\\my file.v2.JPG", "a.b", "my file.v2.JPG", "my file.v2", "a.b\\my file.v2", "JPG"},
      {"a.b/plain", "a.b", "plain", "plain", "a.b/plain", ""},
      {"dir/", "dir", "", "", "dir/", ""},
      {"name.", ".", "name.", "name", "name", ""},
      {".hidden", ".", ".hidden", "", "", "hidden"},
      {"", ".", "", "", "", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(CVekIO::GetFileFolder(row.path), row.folder) << row.path;
    EXPECT_EQ(CVekIO::GetFile(row.path), row.file) << row.path;
    EXPECT_EQ(CVekIO::GetFileBase(row.path), row.base) << row.path;
    EXPECT_EQ(CVekIO::GetFileBasePath(row.path), row.basePath) << row.path;
    EXPECT_EQ(CVekIO::GetFileExtension(row.path), row.extension) << row.path;
  }
}

TEST(IO, FoldersAreMadeOneLevelAtATime) {
  const fixtures::TempFolder folder;
  EXPECT_TRUE(CVekIO::CreateDirectoryA(folder.path() + "\\Textures\\", false));
  EXPECT_TRUE(CVekIO::IsDirectory(folder.path() + "\\Textures\\"));
  EXPECT_TRUE(CVekIO::CreateDirectoryA(folder.path("Textures"), false));
  EXPECT_FALSE(CVekIO::CreateDirectoryA(folder.path("a/b/c"), false));
  EXPECT_FALSE(CVekIO::IsDirectory(folder.path("a")));
  EXPECT_TRUE(CVekIO::CreateDirectoryA(folder.path("a/b\\c"), true));
  EXPECT_TRUE(CVekIO::IsDirectory(folder.path("a/b/c")));
  EXPECT_FALSE(CVekIO::IsFile(folder.path("a/b/c")));
  EXPECT_FALSE(CVekIO::CreateDirectoryA("", false));
}

TEST(IO, FilesAreCopiedWhole) {
  const fixtures::TempFolder folder;
  const std::string content("\0\r\n\x1A\xFF", 5);
  folder.write("from.jpg", content);
  folder.write("old.jpg", "longer than the other");
  EXPECT_TRUE(CVekIO::CopyFileA(folder.path() + "\\from.jpg", folder.path() + "\\to.jpg"));
  EXPECT_EQ(folder.read("to.jpg"), content);
  EXPECT_TRUE(CVekIO::CopyFileA(folder.path("from.jpg"), folder.path("old.jpg")));
  EXPECT_EQ(folder.read("old.jpg"), content);
  EXPECT_FALSE(CVekIO::CopyFileA(folder.path("missing"), folder.path("to2.jpg")));
  EXPECT_FALSE(CVekIO::CopyFileA(folder.path("from.jpg"), folder.path("no/where.jpg")));
  EXPECT_FALSE(CVekIO::CopyFileA(folder.path(), folder.path("to3.jpg")));
  EXPECT_FALSE(CVekIO::IsFile(folder.path("to3.jpg")));
}

TEST(Properties, NamesKeepTheirNumbers) {
  const CVekPropID path = GetPropIDServer().GetID("Texture.Map.Path");
  const CVekPropID fov = GetPropIDServer().GetID("Navigator.Camera.Fov");
  EXPECT_NE(path, 0U);
  EXPECT_NE(path, fov);
  EXPECT_EQ(GetPropIDServer().GetID("Texture.Map.Path"), path);
}

TEST(Properties, AreFoundByNumberAndToldApartByType) {
  CVekPropertySet set;
  set.SetProperty(1, std::make_unique<CVekPropPath>("a/b.png"));
  set.SetProperty(2, std::make_unique<CVekProp<bool>>(true));
  set.SetProperty(3, std::make_unique<CVekPropNumerical<float>>(0.5F));
  EXPECT_EQ(set.GetProperty(4), nullptr);
  ASSERT_NE(dynamic_cast<CVekPropPath*>(set.GetProperty(1)), nullptr);
  EXPECT_EQ(dynamic_cast<CVekPropPath*>(set.GetProperty(1))->GetValue(), "a/b.png");
  ASSERT_NE(dynamic_cast<CVekProp<bool>*>(set.GetProperty(2)), nullptr);
  EXPECT_EQ(dynamic_cast<CVekPropNumerical<float>*>(set.GetProperty(2)), nullptr);
  ASSERT_NE(dynamic_cast<CVekPropNumerical<float>*>(set.GetProperty(3)), nullptr);
  EXPECT_EQ(dynamic_cast<CVekPropNumerical<float>*>(set.GetProperty(3))->GetValue(), 0.5F);
  set.SetProperty(1, nullptr);
  EXPECT_EQ(set.GetProperty(1), nullptr);
}

TEST(Lists, AreWalkedFromHeadToEndNullIncluded) {
  int one = 1;
  int two = 2;
  CVekFList<int> list;
  list.Append(&one);
  list.Append(nullptr);
  list.Append(&two);
  std::string seen;
  for (const int* item : list) seen += item == nullptr ? "-" : std::to_string(*item);
  EXPECT_EQ(seen, "1-2");
  EXPECT_EQ(list.GetCount(), 3U);
}

TEST(Colors, ChannelsAreRedGreenBlue) {
  const CVekColor color(1, 2, 255);
  EXPECT_EQ(int{color[0]}, 1);
  EXPECT_EQ(int{color[1]}, 2);
  EXPECT_EQ(int{color[2]}, 255);
  EXPECT_EQ(int{CVekColor()[0]}, 0);
}

}  // namespace
