// An output and the files that belong to it come to their place together, or nothing changes there.

#include "tools/wrl/Delivery.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>

#include "tests/TempFolder.h"

namespace wrl {
namespace {

namespace fs = std::filesystem;

void put(const std::string& path, const std::string& text) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

// Every file below a folder with its text, folders with a slash behind them.
std::map<std::string, std::string> contentOf(const fixtures::TempFolder& folder) {
  std::map<std::string, std::string> content;
  const std::string root = folder.path("");
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    const std::string name = entry.path().string().substr(root.size());
    if (entry.is_directory()) {
      content[name + "/"];
    } else {
      content[name] = folder.read(name);
    }
  }
  return content;
}

using Content = std::map<std::string, std::string>;

TEST(Delivery, brings_a_file_and_what_belongs_to_it) {
  const fixtures::TempFolder folder;
  folder.write("a.wrl", "old");
  ASSERT_EQ(::chmod(folder.path("a.wrl").c_str(), 0640), 0);
  put(folder.path("Textures/kept.jpg"), "kept");
  put(folder.path("Textures/old.jpg"), "old");
  {
    Delivery delivery(folder.path("a.wrl"));
    EXPECT_EQ(fs::path(delivery.path()).filename(), "a.wrl");
    EXPECT_EQ(delivery.folder(), folder.path(""));
    put(delivery.path(), "new");
    put(delivery.privateFolder() + "Textures/old.jpg", "new");
    put(delivery.privateFolder() + "Textures/more/new.jpg", "new");
    fs::create_directory(delivery.privateFolder() + "Empty");
    put(delivery.privateFolder() + "Textures/kept.jpg", "kept");
    EXPECT_EQ(folder.read("a.wrl"), "old");
    EXPECT_EQ(delivery.finish(), "");
    EXPECT_EQ(delivery.replaced(), std::vector<std::string>{"Textures/old.jpg"});
  }
  const Content expected = {{"a.wrl", "new"},           {"Empty/", ""},
                            {"Textures/", ""},          {"Textures/kept.jpg", "kept"},
                            {"Textures/more/", ""},     {"Textures/more/new.jpg", "new"},
                            {"Textures/old.jpg", "new"}};
  EXPECT_EQ(contentOf(folder), expected);
  struct stat status {};
  ASSERT_EQ(::stat(folder.path("a.wrl").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST(Delivery, leaves_everything_as_it_was_when_it_is_not_finished) {
  const fixtures::TempFolder folder;
  folder.write("a.wrl", "old");
  {
    const Delivery delivery(folder.path("a.wrl"));
    put(delivery.path(), "new");
  }
  EXPECT_EQ(contentOf(folder), (Content{{"a.wrl", "old"}}));
}

TEST(Delivery, never_shows_half_a_file_of_a_process_that_ended) {
  const fixtures::TempFolder folder;
  folder.write("a.wrl", "old");
  const pid_t child = ::fork();
  if (child == 0) {
    const Delivery delivery(folder.path("a.wrl"));
    put(delivery.path(), "half");
    ::_exit(0);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder.read("a.wrl"), "old");
}

TEST(Delivery, takes_everything_back_when_something_cannot_be_moved) {
  const fixtures::TempFolder folder;
  folder.write("a.wrl", "old");
  for (int i = 0; i < 5; ++i) {
    put(folder.path("Textures/" + std::to_string(i) + ".jpg"), "old");
  }
  fs::create_directories(folder.path("Textures/5.jpg"));
  const Content before = contentOf(folder);
  {
    Delivery delivery(folder.path("a.wrl"));
    put(delivery.path(), "new");
    for (int i = 0; i < 9; ++i) put(delivery.privateFolder() + "Textures/" + std::to_string(i) + ".jpg", "new");
    put(delivery.privateFolder() + "Materials/a.txt", "new");
    EXPECT_EQ(delivery.finish(), "Textures/5.jpg: Is a directory");
  }
  EXPECT_EQ(contentOf(folder), before);
}

TEST(Delivery, refuses_a_file_in_the_place_of_a_folder) {
  const fixtures::TempFolder folder;
  folder.write("Textures", "a file");
  {
    Delivery delivery(folder.path("a.wrl"));
    put(delivery.path(), "new");
    put(delivery.privateFolder() + "Textures/a.jpg", "new");
    EXPECT_EQ(delivery.finish(), "Textures: Not a directory");
  }
  EXPECT_EQ(contentOf(folder), (Content{{"Textures", "a file"}}));
}

TEST(Delivery, fails_when_nothing_was_written) {
  const fixtures::TempFolder folder;
  for (const char* old : {"", "old"}) {
    if (*old != '\0') folder.write("a.wrl", old);
    const Content before = contentOf(folder);
    EXPECT_EQ(Delivery(folder.path("a.wrl")).finish(), "No such file or directory");
    EXPECT_EQ(contentOf(folder), before);
  }
}

TEST(Delivery, tells_why_there_is_no_place) {
  const fixtures::TempFolder folder;
  folder.write("file", "");
  struct Row {
    std::string path;
    const char* reason;
  };
  const Row rows[] = {
      {folder.path("none/a.wrl"), "No such file or directory"},
      {folder.path("file/a.wrl"), "Not a directory"},
      {folder.path(""), "Is a directory"},
      {"", "No such file or directory"},
      {folder.path(std::string(256, 'a')), "File name too long"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.path);
    Delivery delivery(row.path);
    if (delivery.error().empty()) put(delivery.path(), "new");
    EXPECT_EQ(delivery.finish(), row.reason);
  }
  EXPECT_EQ(folder.entryCount(), 1);
}

TEST(Delivery, takes_the_longest_name) {
  const fixtures::TempFolder folder;
  const std::string name(255, 'a');
  for (const char* text : {"old", "new"}) {
    Delivery delivery(folder.path(name));
    put(delivery.path(), text);
    EXPECT_EQ(delivery.finish(), "");
    EXPECT_EQ(folder.read(name), text);
  }
}

TEST(Delivery, keeps_a_symbolic_link_and_puts_other_files_beside_it) {
  const fixtures::TempFolder folder;
  put(folder.path("far/real.wrl"), "old");
  fs::create_directory(folder.path("near"));
  fs::create_symlink("../far/real.wrl", folder.path("near/a.wrl"));
  {
    Delivery delivery(folder.path("near/a.wrl"));
    put(delivery.path(), "new");
    put(delivery.privateFolder() + "Textures/a.jpg", "new");
    EXPECT_EQ(delivery.finish(), "");
  }
  EXPECT_TRUE(fs::is_symlink(folder.path("near/a.wrl")));
  EXPECT_EQ(folder.read("far/real.wrl"), "new");
  EXPECT_EQ(folder.read("near/Textures/a.jpg"), "new");
  EXPECT_FALSE(fs::exists(folder.path("far/Textures")));
}

TEST(Delivery, reaches_a_folder_on_another_file_system) {
  const fixtures::TempFolder folder;
  std::string other = "/dev/shm/wrl-test-XXXXXX";
  struct stat here {};
  struct stat there {};
  ASSERT_EQ(::stat(folder.path("").c_str(), &here), 0);
  if (::mkdtemp(other.data()) == nullptr) GTEST_SKIP() << "no other file system";
  ASSERT_EQ(::stat(other.c_str(), &there), 0);
  fs::create_directory_symlink(other, folder.path("Textures"));
  put(other + "/a.jpg", "old");
  if (here.st_dev != there.st_dev) {
    Delivery delivery(folder.path("a.wrl"));
    put(delivery.path(), "new");
    put(delivery.privateFolder() + "Textures/a.jpg", "new");
    EXPECT_EQ(delivery.finish(), "");
    EXPECT_EQ(folder.read("Textures/a.jpg"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(other), {}), 1);
  }
  fs::remove_all(other);
}

TEST(Delivery, writes_devices_directly) {
  const Delivery delivery("/dev/null");
  EXPECT_EQ(delivery.path(), "/dev/null");
  EXPECT_EQ(delivery.privateFolder(), "");
}

}  // namespace
}  // namespace wrl
