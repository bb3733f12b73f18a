// wrl info: what a file holds, in a few lines. The scene's figures come from the module; the node types of the file and
// its viewpoints, of which the scene keeps nothing, from a reading of its own behind that.

#include <charconv>
#include <iostream>
#include <vector>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/FileReading.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/HostSetUp.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/SceneLoad.h"
#include "tools/wrl/SceneSummary.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/nodes/ViewpointNode.h"
#include "vrml/reader/Lexer.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {

namespace {

// What the file holds that its scene does not show.
struct FileSummary {
  TypeCounts nodes;
  std::vector<std::string> viewpoints;  // in the order of the file
};

// As %g prints it: more digits would be noise to a reader.
std::string inBrief(float value) {
  char text[32];
  const auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6);
  return {text, end};
}

std::string inSeconds(double seconds) {
  char text[400];
  const auto [end, error] = std::to_chars(text, text + sizeof text, seconds, std::chars_format::fixed, 3);
  return {text, end};
}

std::string listCounts(const TypeCounts& counts) {
  std::string list;
  for (const auto& [type, count] : counts) {
    if (!list.empty()) list += ", ";
    list += std::to_string(count) + ' ' + type;
  }
  return list.empty() ? "none" : list;
}

std::string listNames(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    if (!list.empty()) list += ", ";
    list += '"' + name + '"';
  }
  return list.empty() ? "none" : list;
}

std::string describeCorner(const sglVec3<float>& corner) {
  return inBrief(corner.x) + ' ' + inBrief(corner.y) + ' ' + inBrief(corner.z);
}

std::string describeBox(const CVekBBox& box) {
  return box.isEmpty() ? "empty" : describeCorner(box.getMin()) + " to " + describeCorner(box.getMax());
}

// A viewpoint is known by its description, without one by its DEF name.
std::string viewpointName(const vrml::Node& viewpoint) {
  std::string description;
  viewpoint.peekField(*viewpoint.getClass().findField(vrml::fieldKey("description"))).appendText(description);
  return description.empty() ? viewpoint.getName() : description;
}

FileSummary summarizeFile(const std::string& path, const HostOptions& options) {
  vrml::SceneGraph scene;
  // The module has echoed already what there is to echo.
  const vrml::EchoSink before = vrml::setEchoSink([](const char*, std::size_t) {});
  const HostSetUp host(options);
  readFileOrSearch(scene, path);
  vrml::setEchoSink(before);
  FileSummary summary;
  const vrml::Node* const root = scene.getRoot();
  for (const vrml::Node* node = root->nextInDocument(root); node != nullptr; node = node->nextInDocument(root)) {
    ++summary.nodes[node->getTypeName()];
    if (node->isType(vrml::nodeType("Viewpoint"))) summary.viewpoints.push_back(viewpointName(*node));
  }
  return summary;
}

class InfoCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFile(app, m_file);
    addHostOptions(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl info garden.wrl", "what a world holds, behind the module's own statistics"},
        {"wrl info --no-stats garden.wrl", "the summary alone"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    std::optional<LoadedScene> loaded = loadScene(m_file, m_options);
    if (!loaded || loaded->failed) return ExitStatus::failed;
    const SceneSummary scene = summarizeScene(loaded->database->GetSglRoot());
    loaded->database.reset();  // the second reading need not find room beside it
    const FileSummary file = summarizeFile(inputPath(m_file).path, m_options);
    Output output("");
    write(output.stream(), scene, file, loaded->seconds);
    return output.finishOrReport() ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  void write(std::ostream& out, const SceneSummary& scene, const FileSummary& file, double seconds) const {
    out << m_file << '\n'
        << "  nodes         " << listCounts(file.nodes) << '\n'
        << "  scene         " << listCounts(scene.nodes) << '\n'
        << "  drawables     " << listCounts(scene.drawables) << '\n'
        << "  triangles     " << std::to_string(scene.triangles) << '\n'
        << "  materials     " << std::to_string(scene.materials) << '\n'
        << "  textures      " << std::to_string(scene.textures) << '\n'
        << "  bounding box  " << describeBox(scene.box) << '\n'
        << "  viewpoints    " << listNames(file.viewpoints) << '\n'
        << "  time          " << inSeconds(seconds) << " s\n";
  }

  std::string m_file;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeInfoCommand() { return std::make_unique<InfoCommand>(); }

}  // namespace wrl
