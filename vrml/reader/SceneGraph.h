#pragma once

// A parsed file as a scene: loading with the post-load pass that turns references into instances and brings Inline
// files in, saving, and the stacks of bound nodes.

#include <array>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "vrml/reader/Parser.h"

namespace vrml {

/// The four kinds of node of which one at a time is bound.
enum class BindStack : std::uint8_t {
  background,      // "Background"
  fog,             // "Fog"
  navigationInfo,  // "NavigationInfo"
  viewpoint,       // "Viewpoint"
};
inline constexpr std::size_t kBindStackCount = 4;

/// The scene owns every node below its root, and the scenes of the Inline files that it brought in.
class SceneGraph : public Parser {
 public:
  SceneGraph();
  ~SceneGraph() override;

  /// Clears the scene, reads the file (see `Parser::load`), runs the post-load pass when `resolve` is set, and binds
  /// the first `Background`, `Fog`, `NavigationInfo` and `Viewpoint`. The result is read from `succeeded`; a limit that
  /// the post-load pass runs into is an error of the load too.
  void load(const std::string& path, bool resolve, Progress progress = nullptr, void* data = nullptr);

  /// Removes all nodes, routes, bound nodes and inlined scenes.
  void clear();

  /// Prepares the top-level nodes, writes the scene as VRML97 text, and runs the post-load pass. False, with nothing
  /// written, when the file cannot be opened for writing. `progress` gets the running count of top-level nodes, in both
  /// passes over them.
  bool save(const std::string& path, Progress progress = nullptr, void* data = nullptr);

  /// What `save` writes: the header line, every top-level node, every route.
  void write(std::ostream& out, Progress progress = nullptr, void* data = nullptr) const;

  /// The post-load pass: initialises every node, turns references into instances of their sources, loads Inline files.
  /// False when it ran into a limit; the error values tell where then.
  bool resolve(Progress progress = nullptr, void* data = nullptr);

  /// Number of top-level nodes.
  [[nodiscard]] int getNodeCount() const;

  /// Puts the node on top of a binding stack (it stands there once), or takes it off.
  void bind(BindStack stack, Node* node, bool push);
  /// The nodes of a binding stack, the bound one first.
  [[nodiscard]] const std::vector<Node*>& boundNodes(BindStack stack) const noexcept {
    return m_bound[static_cast<std::size_t>(stack)];
  }

  void nodeDetached(Node& node) override;

 private:
  // What the files of one load share: those that are open, outermost first, how many were inlined, and the bytes that
  // these held.
  struct InlineChain {
    std::vector<std::string> open;
    int count = 0;
    std::size_t textBytes = 0;
  };

  void loadText(FileText text, const std::string& path, bool resolve, Progress progress, void* data);
  void bindFirst();
  bool resolveTree(Progress progress, void* data);
  bool replaceByCopy(Node*& node, bool& isReplaced);
  void noteOnce(NoteKind kind, const Node& node, int line);
  [[nodiscard]] NodePlace placeOf(const Node& node);
  bool loadInline(Node& node);
  void takeNotes(const SceneGraph& inlined, const std::string& path);
  bool readInline(Node& node, FileText text, const std::string& path, const NodePlace& place);

  std::array<std::vector<Node*>, kBindStackCount> m_bound;
  std::string m_path;
  bool m_hasInstances = false;                         // a pass over this tree has made instances
  InlineChain* m_chain = nullptr;                      // while a load runs
  std::size_t m_nextPlace = 0;                         // of m_places, for the node that the post-load pass is at
  std::set<std::pair<NoteKind, const Node*>> m_noted;  // nodes without a copy that were noted
};

}  // namespace vrml
