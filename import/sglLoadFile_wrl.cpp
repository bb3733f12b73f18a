// The load sequence: parse, once more under the path that the host's search finds, convert, report, merge, wrap.
//
// Running out of memory, or an exception of the host's, ends a load like a file that cannot be parsed: with the error
// report and a database without a scene.

#include "import/sglLoadFile_wrl.h"

#include <VekKernel/CVekOptimizer.h>
#include <VekSG/sglTransform.h>
#include <VekSGdb/CVekDBRoot.h>
#include <VekSGdb/sglDataLoader.h>

#include <numbers>

#include "import/Matrix.h"
#include "import/Messages.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/reader/SceneGraph.h"
#include "vrml/reader/Unpacker.h"

namespace {

/// Lets the reader unpack files as the host does, for as long as this lives. A host that offers nothing for it, or
/// knows no such thing, leaves compressed files to be refused.
class HostUnpacker {
 public:
  HostUnpacker() : m_before(vrml::setUnpacker(ofHost())) {}
  ~HostUnpacker() { vrml::setUnpacker(m_before); }
  HostUnpacker(const HostUnpacker&) = delete;
  HostUnpacker& operator=(const HostUnpacker&) = delete;

 private:
  static vrml::Unpacker ofHost() {
    return &sglDataLoader::getUnpacker != nullptr ? sglDataLoader::getUnpacker() : nullptr;
  }

  vrml::Unpacker m_before;
};

}  // namespace

sglLoadFile_wrl::sglLoadFile_wrl() : m_tessellation(sglModelLoader::GetIORefinement() * 1.5F + 0.5F) {
  m_callback = sglModelLoader::getCallback("wrl", &m_callbackData);
  // The host is asked for the options of the kind, and none of them is known here.
  static_cast<void>(sglModelLoader::getOptionString("wrl"));
}

sglLoadFile_wrl::~sglLoadFile_wrl() = default;

CVekDBRoot* sglLoadFile_wrl::loadFile(const std::string& path, unsigned /*flags*/) {
  std::unique_ptr<sglNode> root = orReport(path, [&] { return loadScene(path); });
  root = orReport(path, [&] { return mergedIfWanted(std::move(root)); });
  auto database = std::make_unique<CVekDBRoot>();
  database->SetSglRoot(root.get());
  static_cast<void>(root.release());
  return database.release();
}

void sglLoadFile_wrl::buildScene(sglGroup* parent, vrml::Node* first) {
  for (vrml::Node* node = first; node != nullptr; node = node->next()) travNode(parent, node);
}

template <class Step>
std::unique_ptr<sglNode> sglLoadFile_wrl::orReport(const std::string& path, Step step) const {
  try {
    return step();
  } catch (...) {
    printLoadError(path);
    return nullptr;
  }
}

std::unique_ptr<sglNode> sglLoadFile_wrl::loadScene(const std::string& path) {
  reportStart(path);
  auto root = std::make_unique<sglTransform<float>>();
  // The file's world is upright along y, the host's along z.
  root->setMatrix(importer::narrow(importer::rotation(1, 0, 0, std::numbers::pi / 2)));
  if (!parse(path)) {
    printLoadError(path);
    return nullptr;
  }
  buildScene(root.get(), m_scene->getRoot()->getChildNodes());
  if (m_printStats) printStatistics(path);
  if (root->getNumChildren() == 0) {
    importer::warn("sglLoadFile_wrl: file contained no scene\n");
    return nullptr;
  }
  return root;
}

bool sglLoadFile_wrl::parse(const std::string& path) {
  const HostUnpacker unpacker;
  m_scene = std::make_unique<vrml::SceneGraph>();
  m_modelDir = sglDataLoader::extractDirectoryFromPath(path);
  m_scene->load(path, true);
  if (m_scene->succeeded()) return true;

  std::string found;
  if (!sglDataLoader::findFile(path, nullptr, found)) return false;
  m_scene->load(found, true);
  if (!m_scene->succeeded()) return false;
  m_modelDir = sglDataLoader::extractDirectoryFromPath(found);
  return true;
}

void sglLoadFile_wrl::printLoadError(const std::string& path) const {
  importer::warn("sglLoadFile_wrl: Error loading: ", path, '\n');
  // Without a scene memory ran out before there was anything to point at.
  const int line = m_scene ? m_scene->getErrorLine() : 0;
  const std::string_view token = m_scene ? std::string_view(m_scene->getErrorToken()) : "";
  const std::string_view text = m_scene ? std::string_view(m_scene->getErrorLineText()) : "";
  importer::warn("\tLine ", std::to_string(line), ", at or about \"", token, "\"\n", "\t>>", text, '\n');
}

void sglLoadFile_wrl::reportStart(const std::string& path) {
  const std::string text = "Loading " + sglModelLoader::GetFileName(path.c_str());
  if (const auto progress = sglModelLoader::GetCallbackProgress()) progress(0.0F, text.c_str());
}

std::unique_ptr<sglNode> sglLoadFile_wrl::mergedIfWanted(std::unique_ptr<sglNode> root) {
  if (!sglModelLoader::GetIOMergeFileInOneActor()) return root;
  CVekOptimizer optimizer;
  return std::unique_ptr<sglNode>(optimizer.FactorizeGraph(root.release(), ""));  // it takes the graph over
}
