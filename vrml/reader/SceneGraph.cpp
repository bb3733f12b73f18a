#include "vrml/reader/SceneGraph.h"

// The post-load pass walks the tree once, in document order, always taking the next node before it changes the current
// one. A reference gives way to an instance of its source, which stands in its place; since a source begins before its
// references, its own references are instances by then, and the walk goes on behind the new instance. An instance that
// is there already, from an earlier pass, is made anew from its source. An Inline is filled from its file, which is
// read and resolved as a scene of its own.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <new>
#include <ostream>
#include <system_error>
#include <utility>

#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/LocalUrl.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {
namespace {

constexpr const char* kHeaderLine = "#VRML V2.0 utf8\n";

// In the order of BindStack.
constexpr std::array<NodeType, kBindStackCount> kBindableTypes = {nodeType("Background"), nodeType("Fog"),
                                                                  nodeType("NavigationInfo"), nodeType("Viewpoint")};

// One spelling for all the ways to name a file.
std::string canonicalPath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, error);
  return error ? path : canonical.string();
}

}  // namespace

SceneGraph::SceneGraph() = default;
SceneGraph::~SceneGraph() = default;

// ---- loading

void SceneGraph::load(const std::string& path, bool resolve, Progress progress, void* data) {
  clear();
  reset();
  FileText text;
  if (!text.read(path)) return reportUnopenable(path);
  InlineChain chain;
  chain.open.push_back(canonicalPath(path));
  m_chain = &chain;
  m_nodeLimit = kTreeNodeLimit;
  m_expansionRoom = kExpansionTextLimit;
  try {
    loadText(std::move(text), path, resolve, progress, data);
  } catch (const std::bad_alloc&) {
    m_succeeded = false;
    releaseText();
  }
  m_chain = nullptr;
}

void SceneGraph::loadText(FileText text, const std::string& path, bool resolve, Progress progress, void* data) {
  m_path = path;
  getRoot()->setFile(path);
  readText(std::move(text), progress, data);
  if (resolve && succeeded()) this->resolve(progress, data);
  releaseText();
  m_noted.clear();
  bindFirst();
}

void SceneGraph::clear() {
  for (std::vector<Node*>& stack : m_bound) stack.clear();
  clearTree();
  m_hasInstances = false;
}

int SceneGraph::getNodeCount() const { return getRoot()->getNumChildNodes(); }

// ---- bound nodes

void SceneGraph::bindFirst() {
  for (std::size_t i = 0; i < kBindStackCount; ++i)
    if (Node* const node = findNodeByType(nodeTypeName(kBindableTypes[i]))) bind(static_cast<BindStack>(i), node, true);
}

void SceneGraph::bind(BindStack stack, Node* node, bool push) {
  std::vector<Node*>& nodes = m_bound[static_cast<std::size_t>(stack)];
  std::erase(nodes, node);
  if (push && node) nodes.insert(nodes.begin(), node);
}

void SceneGraph::nodeDetached(Node& node) {
  for (std::size_t i = 0; i < kBindStackCount; ++i)
    if (node.isType(kBindableTypes[i])) std::erase(m_bound[i], &node);
  Parser::nodeDetached(node);
}

// ---- the post-load pass

bool SceneGraph::resolve(Progress progress, void* data) {
  InlineChain chain;
  InlineChain* const running = m_chain;
  if (!running) m_chain = &chain;
  m_inOrder = true;
  m_nextPlace = 0;
  const bool done = resolveTree(progress, data);
  m_inOrder = false;
  m_chain = running;
  m_hasInstances = true;
  for (Route* route = getFirstRoute(); route; route = route->next()) route->setFlag(false);
  return done;
}

bool SceneGraph::resolveTree(Progress progress, void* data) {
  const Node* const root = getRoot();
  int count = 0;
  for (Node* node = root->nextInDocument(root); node;) {
    if (progress) progress(++count, data);
    bool isReplaced = false;
    const NodeType type = node->getType();
    if (type == nodeType("DEF") || (m_hasInstances && node->getReferenceNode())) {
      if (!replaceByCopy(node, isReplaced)) return false;
    } else {
      node->initialize();
      if (type == nodeType("Inline") && !loadInline(*node)) return false;
    }
    node = isReplaced ? node->nextBeyond(root) : node->nextInDocument(root);
  }
  return true;
}

// Puts an instance of its source where a reference, or an instance from an earlier pass, stands. `node` is the instance
// then. False when the tree would have too many nodes.
bool SceneGraph::replaceByCopy(Node*& node, bool& isReplaced) {
  const bool isReference = node->isType(nodeType("DEF"));
  Node* source = node->getReferenceNode();
  if (!source) source = findNodeByName(node->getName());
  // An instance inside its own source has been made once; made again it would hold itself.
  if (!source || (!isReference && node->isAncestor(source))) return true;
  const NodePlace place = isReference ? placeOf(*node) : NodePlace{node, nullptr, 0, 0};
  const std::size_t size = source->countNodes(m_nodeLimit + 1);
  // The copy takes the place of the reference, or of the instance, that is counted already.
  if (treeNodes() - 1 + size > m_nodeLimit) {
    failAt(place, "USE");
    return false;
  }
  std::vector<const Node*> leftOut;
  Node* const copy = copyNode(source, &leftOut);
  if (!copy) {
    noteOnce(NoteKind::referenceWithoutCopy, *source, place.line);
    return true;
  }
  for (const Node* const each : leftOut)
    if (!each->isType(nodeType("DEF"))) noteOnce(NoteKind::nodeWithoutCopy, *each, place.line);
  const std::size_t before = ownNodes();
  node->replaceWith(copy);
  delete node;
  node = copy;
  isReplaced = true;
  // What an Inline in the copy holds belongs to nobody, and counts all the same.
  m_inlinedNodes += size - std::min(size, ownNodes() + 1 - before);
  return true;
}

void SceneGraph::noteOnce(NoteKind kind, const Node& node, int line) {
  if (m_noted.insert({kind, &node}).second) addNote({line, kind, node.getTypeName(), node.getName(), {}});
}

// Where a reference or an Inline was read. They are asked for in the order in which they were.
SceneGraph::NodePlace SceneGraph::placeOf(const Node& node) {
  for (std::size_t i = m_nextPlace; i < m_places.size(); ++i)
    if (m_places[i].node == &node) {
      m_nextPlace = i + 1;
      // The sources of the references to come lie anywhere in memory: they are brought in ahead.
      constexpr std::size_t kAhead = 8;
      if (i + kAhead < m_places.size()) Node::prefetch(m_places[i + kAhead].source);
      return m_places[i];
    }
  return {&node, nullptr, 0, 0};
}

// ---- Inline

// False when a limit was passed, which ends the load.
bool SceneGraph::loadInline(Node& node) {
  const NodePlace place = placeOf(node);
  const MFString& urls = static_cast<InlineNode&>(node).getUrl();
  if (node.getChildNodes() || urls.getSize() == 0) return true;
  for (const char* const url : urls.values()) {
    const std::string path = localPath(url ? url : "", m_path);
    if (path.empty()) continue;
    const std::string canonical = canonicalPath(path);
    if (std::find(m_chain->open.begin(), m_chain->open.end(), canonical) != m_chain->open.end()) {
      addNote({place.line, NoteKind::inlineAlreadyLoading, {}, node.getName(), path});
      return true;
    }
    FileText text;
    if (!isRegularFile(path) || !text.read(path)) continue;
    m_chain->textBytes += text.text().size();
    if (m_chain->open.size() > kInlineDepthLimit || m_chain->count == kInlineCountLimit ||
        m_chain->textBytes > kInlineTextLimit) {
      addNote({place.line, NoteKind::inlineLimit, {}, node.getName(), path});
      failAt(place, node.getTypeName());
      return false;
    }
    m_chain->open.push_back(canonical);
    ++m_chain->count;
    const bool done = readInline(node, std::move(text), path, place);
    m_chain->open.pop_back();
    return done;
  }
  const char* const first = urls.get1Value(0);
  addNote({place.line, NoteKind::inlineNotOpened, {}, node.getName(), first ? first : ""});
  return true;
}

// What was passed over in an inlined file is noted with that file's name.
void SceneGraph::takeNotes(const SceneGraph& inlined, const std::string& path) {
  for (Note note : inlined.notes()) {
    if (note.file.empty()) note.file = path;
    addNote(std::move(note));
  }
}

// The file is read as a scene of its own, whose nodes then move below the Inline. Its names and routes end with it.
bool SceneGraph::readInline(Node& node, FileText text, const std::string& path, const NodePlace& place) {
  SceneGraph scene;
  scene.m_chain = m_chain;
  scene.m_nodeLimit = m_nodeLimit - std::min(m_nodeLimit, treeNodes());
  scene.m_expansionRoom = m_expansionLeft;
  scene.loadText(std::move(text), path, true, nullptr, nullptr);
  m_expansionLeft = scene.m_expansionLeft;
  takeNotes(scene, path);
  if (scene.m_limitPassed) {
    addNote({place.line, NoteKind::inlineLimit, {}, node.getName(), path});
    failAt(place, node.getTypeName());
    return false;
  }
  if (!scene.succeeded()) {
    addNote(
        {place.line, NoteKind::inlineNotParsed, {}, node.getName(), path + ":" + std::to_string(scene.getErrorLine())});
    return true;
  }
  m_inlinedNodes += scene.treeNodes();
  static_cast<InlineNode&>(node).setFile(path);
  while (Node* const child = scene.getRoot()->getChildNodes()) node.addChildNode(child, fieldKey("children"));
  return true;
}

// ---- saving

void SceneGraph::write(std::ostream& out, Progress progress, void* data) const {
  out << kHeaderLine;
  int count = 0;
  for (const Node* node = getRoot()->getChildNodes(); node; node = node->next()) {
    node->write(out, 0);
    if (progress) progress(++count, data);
  }
  for (const Route* route = getFirstRoute(); route; route = route->next()) route->write(out);
}

bool SceneGraph::save(const std::string& path, Progress progress, void* data) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  int count = 0;
  for (Node* node = getRoot()->getChildNodes(); node; node = node->next()) {
    node->prepare();
    if (progress) progress(++count, data);
  }
  write(out, progress, data);
  out.close();
  resolve();
  return true;
}

}  // namespace vrml
