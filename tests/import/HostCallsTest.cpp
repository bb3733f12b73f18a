// The host as the import meets it: every call, in order. The functions below stand in front of the embedded host's of
// the same names and write down that they were called.

#include <VekKernel/CVekOptimizer.h>
#include <VekSG/sglGroup.h>
#include <VekSG/sglOStream.h>
#include <VekSGdb/CVekDBRoot.h>
#include <VekSGdb/sglDataLoader.h>
#include <VekSGdb/sglModelLoader.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "import/sglLoadFile_wrl.h"
#include "tests/TempFolder.h"

namespace {

/// The calls of one load, each in a line of its own.
std::string calls;

/// The call that throws, counted from 1; 0 when none does.
int throwing = 0;
int callCount = 0;

/// Whether the host wants one object of a file.
bool isMerged = false;

/// What the file search finds; "" for nothing.
std::string fileFound;

void noteAll(const std::string& call) { calls += call + "\n"; }

void note(const std::string& call) {
  noteAll(call);
  if (++callCount == throwing) throw call;
}

bool hear(sglNode* node, void* fileNode, const std::string& event, void* userData) {
  EXPECT_NE(fileNode, nullptr);
  note("hook " + event + (node == nullptr ? "" : " with a node") + (userData == &calls ? "" : ", wrong data"));
  return true;
}

void progress(float fraction, const char* text) { note("progress " + std::to_string(fraction) + " " + text); }

std::string withoutLineEnd(std::string text) {
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

}  // namespace

float sglModelLoader::GetIORefinement() {
  note("GetIORefinement");
  return 1.0F;
}

sglModelLoader::CallbackFn sglModelLoader::getCallback(const char* extension, void** userData) {
  note(std::string("getCallback ") + extension);
  *userData = &calls;
  return hear;
}

std::string sglModelLoader::getOptionString(const char* extension) {
  note(std::string("getOptionString ") + extension);
  return "-refinement 9";
}

std::string sglModelLoader::GetFileName(const char* path) {
  note(std::string("GetFileName ") + path);
  return "<the file's name>";
}

sglModelLoader::CallbackProgressFn sglModelLoader::GetCallbackProgress() {
  note("GetCallbackProgress");
  return progress;
}

bool sglModelLoader::GetIOMergeFileInOneActor() {
  note("GetIOMergeFileInOneActor");
  return isMerged;
}

std::string sglDataLoader::extractDirectoryFromPath(const std::string& path) {
  note("extractDirectoryFromPath " + path);
  return "<the folder of " + path + ">";
}

bool sglDataLoader::findFile(const std::string& name, const char* directory, std::string& found) {
  note("findFile " + name + (directory == nullptr ? "" : std::string(" in ") + directory));
  if (fileFound.empty()) return false;
  found = fileFound;
  return true;
}

sglGroup* CVekOptimizer::FactorizeGraph(sglNode* root, CString name) {
  const std::unique_ptr<sglNode> graph(root);
  note("FactorizeGraph " + std::string(root == nullptr ? "of nothing" : "of a scene") + " '" + name + "'");
  return root == nullptr ? nullptr : new sglGroup;
}

void CVekDBRoot::SetSglRoot(sglNode* root) {
  note(root == nullptr ? "SetSglRoot nothing" : "SetSglRoot a scene");
  m_root = root;
}

void sglGroup::addChild(sglNode* child, bool notify) {
  note(std::string("addChild") + (notify ? "" : ", nobody is told"));
  if (child->getParent() != nullptr) child->getParent()->removeChild(child);
  m_children.push_back(child);
  child->m_parent = this;
}

sglOStream::~sglOStream() { noteAll("message " + std::to_string(m_level) + " " + withoutLineEnd(m_text.str())); }

namespace {

class HostCalls : public testing::Test {
 protected:
  HostCalls() {
    std::filesystem::current_path(m_folder.path());
    isMerged = false;
    fileFound.clear();
    throwing = 0;
  }
  ~HostCalls() override {
    std::error_code ignored;
    std::filesystem::current_path(std::filesystem::temp_directory_path(), ignored);
  }

  static void write(const std::string& name, const std::string& world) {
    std::ofstream(name, std::ios::binary) << "#VRML V2.0 utf8\n" << world << "\n";
  }

  /// The calls while a file is loaded; those of the statistics block are cut down to its first line.
  static std::string callsOfLoading(const std::string& path) {
    calls.clear();
    callCount = 0;
    {
      sglLoadFile_wrl loader;
      const std::unique_ptr<CVekDBRoot> database(loader.loadFile(path, 0));
      EXPECT_NE(database, nullptr);
    }
    for (std::size_t line = 0; (line = calls.find("message 2    ")) != std::string::npos;)
      calls.erase(line, calls.find('\n', line) + 1 - line);
    return calls;
  }

 private:
  fixtures::TempFolder m_folder;
};

constexpr const char* kConstruction = "GetIORefinement\ngetCallback wrl\ngetOptionString wrl\n";

std::string beginningOf(const std::string& path) {
  return kConstruction + ("GetFileName " + path) +
         "\nGetCallbackProgress\nprogress 0.000000 Loading <the file's name>\nextractDirectoryFromPath " + path + "\n";
}

TEST_F(HostCalls, of_a_load_that_succeeds) {
  write(
      "a.wrl",
      "Group { children Shape { appearance Appearance { texture ImageTexture { url \"t.png\" } } geometry Box { } } }");
  for (const bool merged : {false, true}) {
    isMerged = merged;
    EXPECT_EQ(callsOfLoading("a.wrl"), beginningOf("a.wrl") +
                                           "hook onParse:Group\n"
                                           "addChild\n"
                                           "hook onParse:Shape\n"
                                           "findFile t.png\n"
                                           "findFile t.png in <the folder of a.wrl>\n"
                                           "message 2 Texture: t.png not found.\n"
                                           "hook onCreate:sglGeode with a node\n"
                                           "addChild\n"
                                           "addChild\n"
                                           "hook onCreate:sglGroup with a node\n"
                                           "addChild\n"
                                           "message 2 -- Statistics for: a.wrl ---\n"
                                           "GetIOMergeFileInOneActor\n" +
                                           (merged ? "FactorizeGraph of a scene ''\n" : "") + "SetSglRoot a scene\n");
  }
}

TEST_F(HostCalls, that_throw_end_a_load_with_its_report_and_leave_nothing) {
  write(
      "a.wrl",
      "Group { children Shape { appearance Appearance { texture ImageTexture { url \"t.png\" } } geometry Box { } } }");
  isMerged = true;
  callsOfLoading("a.wrl");
  const int callsInAll = callCount;
  for (throwing = 1; throwing <= callsInAll; ++throwing) {
    // Without a loader there is nobody to report, and behind the last call there is nothing left that could fail.
    const bool isReported = throwing > 3 && throwing < callsInAll;
    try {
      callsOfLoading("a.wrl");
      EXPECT_TRUE(isReported) << calls;
      EXPECT_NE(calls.find("\nmessage 2 sglLoadFile_wrl: Error loading: a.wrl\n"), std::string::npos) << calls;
      EXPECT_TRUE(calls.ends_with("SetSglRoot nothing\n")) << calls;
    } catch (const std::string& call) {
      EXPECT_FALSE(isReported) << call;
    }
  }
  EXPECT_EQ(callsInAll, 20);
}

TEST_F(HostCalls, of_a_load_without_a_scene) {
  write("a.wrl", "Viewpoint { }");
  isMerged = true;
  EXPECT_EQ(callsOfLoading("a.wrl"), beginningOf("a.wrl") +
                                         "hook onParse:Viewpoint\n"
                                         "message 2 -- Statistics for: a.wrl ---\n"
                                         "message 2 sglLoadFile_wrl: file contained no scene\n"
                                         "GetIOMergeFileInOneActor\nFactorizeGraph of nothing ''\n"
                                         "SetSglRoot nothing\n");
}

TEST_F(HostCalls, of_a_load_that_fails) {
  write("a.wrl", "nonsense");
  const std::string report =
      "message 2 sglLoadFile_wrl: Error loading: a.wrl\nmessage 2 \tLine 2, at or about \"nonsense\"\n\t>>nonsense\n";
  isMerged = true;
  const std::string end = "GetIOMergeFileInOneActor\nFactorizeGraph of nothing ''\nSetSglRoot nothing\n";
  EXPECT_EQ(callsOfLoading("a.wrl"), beginningOf("a.wrl") + "findFile a.wrl\n" + report + end);

  write("found.wrl", "nonsense");
  fileFound = "found.wrl";
  EXPECT_EQ(callsOfLoading("a.wrl"), beginningOf("a.wrl") + "findFile a.wrl\n" + report + end);
}

TEST_F(HostCalls, of_a_load_that_succeeds_with_the_file_that_the_search_finds) {
  write("a.wrl", "Group { children LOD { } nonsense");
  write("found.wrl", "Switch { }");
  fileFound = "found.wrl";
  EXPECT_EQ(callsOfLoading("a.wrl"), beginningOf("a.wrl") +
                                         "findFile a.wrl\n"
                                         "extractDirectoryFromPath found.wrl\n"
                                         "hook onParse:Switch\n"
                                         "hook onCreate:sglSwitch with a node\n"
                                         "addChild\n"
                                         "message 2 -- Statistics for: a.wrl ---\n"
                                         "GetIOMergeFileInOneActor\n"
                                         "SetSglRoot a scene\n");
}

}  // namespace
