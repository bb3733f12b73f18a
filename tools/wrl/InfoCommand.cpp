// wrl info: what a file holds, in a few lines. The scene's figures come from the module; the node types of the file and
// its viewpoints, of which the scene keeps nothing, from a reading of its own behind that.

#include <charconv>
#include <iostream>
#include <vector>

#include "embedded/JsonWriter.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/FileCount.h"
#include "tools/wrl/FileReading.h"
#include "tools/wrl/HostOptions.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/InputFiles.h"
#include "tools/wrl/Listing.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/SceneLoad.h"
#include "tools/wrl/SceneSummary.h"
#include "tools/wrl/WorldViews.h"
#include "vrml/nodes/RootNode.h"
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

FileSummary summarizeFile(const std::string& path, const HostOptions& options) {
  vrml::SceneGraph scene;
  readAgain(scene, path, options);
  FileSummary summary;
  const vrml::Node* const root = scene.getRoot();
  for (const vrml::Node* node = root->nextInDocument(root); node != nullptr; node = node->nextInDocument(root)) {
    ++summary.nodes[node->getTypeName()];
    if (node->isType(vrml::nodeType("Viewpoint"))) summary.viewpoints.push_back(viewpointName(*node));
  }
  return summary;
}

struct FileReport {
  std::string name;
  SceneSummary scene;
  FileSummary file;
  double seconds = 0.0;
};

void writeText(std::ostream& out, const FileReport& report) {
  out << report.name << '\n'
      << "  nodes         " << listCounts(report.file.nodes) << '\n'
      << "  scene         " << listCounts(report.scene.nodes) << '\n'
      << "  drawables     " << listCounts(report.scene.drawables) << '\n'
      << "  triangles     " << std::to_string(report.scene.triangles) << '\n'
      << "  materials     " << std::to_string(report.scene.materials) << '\n'
      << "  textures      " << std::to_string(report.scene.textures) << '\n'
      << "  bounding box  " << describeBox(report.scene.box) << '\n'
      << "  viewpoints    " << listNames(report.file.viewpoints) << '\n'
      << "  time          " << inSeconds(report.seconds) << " s\n";
}

void writeCounts(embedded::JsonWriter& json, const char* key, const TypeCounts& counts) {
  json.key(key);
  json.beginObject();
  for (const auto& [type, count] : counts) {
    json.key(type);
    json.integer(count);
  }
  json.endObject();
}

void writeCount(embedded::JsonWriter& json, const char* key, std::int64_t count) {
  json.key(key);
  json.integer(count);
}

void writeCorner(embedded::JsonWriter& json, const char* key, const sglVec3<float>& corner) {
  const float values[] = {corner.x, corner.y, corner.z};
  json.key(key);
  json.numbers(values);
}

void writeBox(embedded::JsonWriter& json, const CVekBBox& box) {
  json.key("boundingBox");
  if (box.isEmpty()) return json.null();
  json.beginObject();
  writeCorner(json, "min", box.getMin());
  writeCorner(json, "max", box.getMax());
  json.endObject();
}

// One line; without a report, that of a file that could not be loaded.
void writeJson(std::ostream& out, const std::string& name, const FileReport* report) {
  {
    embedded::JsonWriter json(out);
    json.beginObject();
    json.key("file");
    json.text(name);
    json.key("status");
    json.text(report != nullptr ? "ok" : "failed");
    if (report != nullptr) {
      writeCounts(json, "nodes", report->file.nodes);
      writeCounts(json, "scene", report->scene.nodes);
      writeCounts(json, "drawables", report->scene.drawables);
      writeCount(json, "triangles", static_cast<std::int64_t>(report->scene.triangles));
      writeCount(json, "materials", report->scene.materials);
      writeCount(json, "textures", report->scene.textures);
      writeBox(json, report->scene.box);
      json.key("viewpoints");
      json.beginList();
      for (const std::string& viewpoint : report->file.viewpoints) json.text(viewpoint);
      json.endList();
      json.key("seconds");
      json.wideNumber(report->seconds);
    }
    json.endObject();
  }
  out << '\n';
}

class InfoCommand : public Command {
 public:
  void addOptions(CLI::App& app) override {
    addFiles(app, m_files);
    addListing(app, m_listing);
    addHostOptions(app, m_options);
  }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {
        {"wrl info garden.wrl", "what a world holds, behind the module's own statistics"},
        {"wrl info -q garden.wrl", "the summary alone"},
        {"wrl info -q worlds", "the worlds in a folder, one after the other"},
        {"wrl info -q --json worlds", "one JSON document a line"},
    };
    return kExamples;
  }

  ExitStatus run() override {
    const InputFiles input = findInputFiles(m_files);
    Output output("");
    Tally tally;
    FileCount count(input.files.size());
    for (const std::string& file : input.files) {
      count.begin(file);
      const std::optional<FileReport> report = describeFile(file);
      count.wipe();
      ++(report ? tally.ok : tally.failed);
      if (m_listing.json) writeJson(output.stream(), file, report ? &*report : nullptr);
      if (!m_listing.json && report) writeText(output.stream(), *report);
      output.stream().flush();
    }
    if (m_listing.summary || input.hasFolder) writeTally(output.stream(), tally, m_listing);
    return output.finishOrReport() && tally.failed == 0 ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::optional<FileReport> describeFile(const std::string& file) const {
    std::optional<LoadedScene> loaded = loadScene(file, m_options);
    if (!loaded || loaded->failed) return std::nullopt;
    FileReport report{file, summarizeScene(loaded->database->GetSglRoot()), {}, loaded->seconds};
    loaded.reset();  // the second reading need not find room beside it
    report.file = summarizeFile(inputPath(file).path, m_options);
    return report;
  }

  std::vector<std::string> m_files;
  ListingOptions m_listing;
  HostOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeInfoCommand() { return std::make_unique<InfoCommand>(); }

}  // namespace wrl
