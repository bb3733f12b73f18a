// What a loader hears from the host.

#include <VekSG/sglGroup.h>
#include <VekSGdb/CVekDBRoot.h>
#include <VekSGdb/sglDataLoader.h>
#include <VekSGdb/sglModelLoader.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "embedded/LoaderSettings.h"
#include "tests/TempFolder.h"

namespace {

bool vetoAll(sglNode*, void*, const std::string&, void*) { return false; }

void hearProgress(float, const char*) {}

bool readNothing(const std::string&, sglTexture2D*) { return false; }

bool unpackNothing(std::string_view, std::string&) { return false; }

class LoaderSupport : public testing::Test {
 protected:
  ~LoaderSupport() override { embedded::resetLoaderSettings(); }
};

TEST_F(LoaderSupport, DefaultsAreAPlainHost) {
  int something = 0;
  void* userData = &something;
  EXPECT_EQ(sglModelLoader::GetIORefinement(), 1.0F);
  EXPECT_EQ(sglModelLoader::getCallback("wrl", &userData), nullptr);
  EXPECT_EQ(userData, nullptr);
  EXPECT_EQ(sglModelLoader::getOptionString("wrl"), "");
  EXPECT_EQ(sglModelLoader::GetCallbackProgress(), nullptr);
  EXPECT_FALSE(sglModelLoader::GetIOMergeFileInOneActor());
  EXPECT_EQ(sglModelLoader::getImageReader(), nullptr);
  EXPECT_EQ(sglDataLoader::getUnpacker(), nullptr);
}

TEST_F(LoaderSupport, SettingsAreAnsweredAndReset) {
  int something = 0;
  void* userData = nullptr;
  embedded::LoaderSettings& settings = embedded::loaderSettings();
  settings.refinement = 2.5F;
  settings.mergeInOneActor = true;
  settings.hooks["wrl"] = {vetoAll, &something};
  settings.options["wrl"] = "-x";
  settings.progress = hearProgress;
  settings.imageReader = readNothing;
  settings.unpacker = unpackNothing;
  EXPECT_EQ(sglModelLoader::GetIORefinement(), 2.5F);
  EXPECT_TRUE(sglModelLoader::GetIOMergeFileInOneActor());
  EXPECT_EQ(sglModelLoader::getCallback("wrl", &userData), vetoAll);
  EXPECT_EQ(userData, &something);
  EXPECT_EQ(sglModelLoader::getCallback("obj", &userData), nullptr);
  EXPECT_EQ(sglModelLoader::getOptionString("wrl"), "-x");
  EXPECT_EQ(sglModelLoader::GetCallbackProgress(), hearProgress);
  EXPECT_EQ(sglModelLoader::getImageReader(), readNothing);
  EXPECT_EQ(sglDataLoader::getUnpacker(), unpackNothing);
  embedded::resetLoaderSettings();
  EXPECT_EQ(sglModelLoader::GetIORefinement(), 1.0F);
  EXPECT_EQ(sglModelLoader::getImageReader(), nullptr);
  EXPECT_EQ(sglDataLoader::getUnpacker(), nullptr);
}

TEST_F(LoaderSupport, NullArgumentsAreAnswered) {
  EXPECT_EQ(sglModelLoader::getCallback(nullptr, nullptr), nullptr);
  EXPECT_EQ(sglModelLoader::getOptionString(nullptr), "");
  EXPECT_EQ(sglModelLoader::GetFileName(nullptr), "");
}

TEST_F(LoaderSupport, FileNamesAndFoldersAreSplitAtEitherSlash) {
  struct Row {
    const char* path;
    const char* name;
    const char* folder;
  };
  const Row rows[] = {
      {"a.wrl", "a.wrl", ""},
      {"dir/a.wrl", "a.wrl", "dir"},
      {"dir\\sub/a.wrl", "a.wrl", "dir\\sub"},
      {"/dir\\a.wrl", "a.wrl", "/dir"},
      {"/a.wrl", "a.wrl", "/"},
      {"dir/", "", "dir"},
      {"", "", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(sglModelLoader::GetFileName(row.path), row.name) << row.path;
    EXPECT_EQ(sglDataLoader::extractDirectoryFromPath(row.path), row.folder) << row.path;
  }
}

TEST_F(LoaderSupport, TheSearchLooksInTheFolderThenInTheSearchFolders) {
  const fixtures::TempFolder folder;
  folder.write("one/maps/a.png", "1");
  folder.write("two/a.png", "2");
  folder.write("two/b.png", "3");
  embedded::loaderSettings().searchFolders = {folder.path("nowhere"), folder.path("two")};
  const std::string one = folder.path("one");
  struct Row {
    const char* name;
    const char* directory;
    std::string found;
  };
  const Row rows[] = {
      {"a.png", nullptr, folder.path("two/a.png")},
      {"maps/a.png", one.c_str(), folder.path("one/maps/a.png")},
      {"maps\\a.png", one.c_str(), folder.path("one/maps/a.png")},
      {"other/b.png", one.c_str(), folder.path("two/b.png")},
      {"C:\\elsewhere\\b.png", nullptr, folder.path("two/b.png")},
      {"maps", one.c_str(), ""},
      {"missing.png", one.c_str(), ""},
      {"", one.c_str(), ""},
      {"maps/", one.c_str(), ""},
  };
  for (const Row& row : rows) {
    std::string found = "untouched";
    const bool isFound = sglDataLoader::findFile(row.name, row.directory, found);
    EXPECT_EQ(isFound, !row.found.empty()) << row.name;
    EXPECT_EQ(found, row.found.empty() ? "untouched" : row.found) << row.name;
  }
}

TEST_F(LoaderSupport, TheSearchNeverAnswersWithWhatItWasAskedFor) {
  const fixtures::TempFolder folder;
  folder.write("a.wrl", "");
  const std::string asked = folder.path("a.wrl");
  embedded::loaderSettings().searchFolders = {folder.path()};
  std::string found;
  EXPECT_FALSE(sglDataLoader::findFile(asked, nullptr, found));
  EXPECT_FALSE(sglDataLoader::findFile(asked, folder.path().c_str(), found));
}

TEST_F(LoaderSupport, AnEmptyFolderIsTheCurrentOne) {
  const fixtures::TempFolder folder;
  folder.write("a.png", "");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  std::string found;
  EXPECT_TRUE(sglDataLoader::findFile("a.png", "", found));
  EXPECT_EQ(found, "./a.png");
  EXPECT_FALSE(sglDataLoader::findFile("a.png", nullptr, found));
  std::filesystem::current_path(before);
}

TEST_F(LoaderSupport, ADatabaseRootOwnsItsScene) {
  CVekDBRoot root;
  EXPECT_EQ(root.GetSglRoot(), nullptr);
  auto* scene = new sglGroup;
  root.SetSglRoot(scene);
  root.SetSglRoot(scene);
  EXPECT_EQ(root.GetSglRoot(), scene);
  root.SetSglRoot(new sglGroup);
  root.SetSglRoot(nullptr);
  EXPECT_EQ(root.GetSglRoot(), nullptr);
}

}  // namespace
