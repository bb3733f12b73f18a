#pragma once

// The owner of one parsed file: the root with everything below it, the routes, and what a reading needs while it runs
// (parse stack, PROTOs, DEF records). The scanner and the grammar have no object argument; they reach the parser that
// is being filled through a process-wide stack of active parsers.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "vrml/nodes/LinkedListNode.h"
#include "vrml/nodes/Names.h"
#include "vrml/nodes/NodeOwner.h"
#include "vrml/reader/FileText.h"
#include "vrml/reader/Lexer.h"
#include "vrml/reader/Limits.h"
#include "vrml/reader/NameIndex.h"
#include "vrml/reader/Notes.h"
#include "vrml/reader/ParserNode.h"
#include "vrml/reader/Proto.h"
#include "vrml/reader/Route.h"

namespace vrml {

class Field;
class Node;
class RootNode;

/// Called with a running count (of lines while a file is scanned, of nodes in the passes over the tree) and the
/// caller's data.
using Progress = void (*)(int count, void* data);

/// Not copyable. Not safe for use from two threads at once, as nothing of the reader is.
class Parser : public LinkedListNode<Parser>, public NodeOwner {
 public:
  Parser();
  ~Parser() override;

  /// Reads one file into this parser, what it holds already stays. The result is read from `succeeded`.
  ///
  /// A file that cannot be opened (a folder is one) gives "Cannot open data file %s\n" on standard error. After a
  /// syntax error, or a limit passed, the nodes built before it stay and the three error values tell where it was.
  /// Untrusted input is allowed. Pipes work. `progress` may be null.
  void load(const std::string& path, Progress progress = nullptr, void* data = nullptr);

  /// Whether the last load parsed its whole file.
  [[nodiscard]] bool succeeded() const noexcept { return m_succeeded; }
  /// True only while the grammar runs.
  [[nodiscard]] bool isParsing() const noexcept { return m_parsing; }
  /// Whether the last load needed the wide rules. What such a tree is written as has escapes in its strings.
  [[nodiscard]] bool readWide() const noexcept { return m_readWide; }

  /// Where the last load went wrong: the line's number (1-based), the token as it stands in the file ("" at the end of
  /// the input), and the text of that line. 0 and "" when it did not, or when the file could not be opened.
  [[nodiscard]] int getErrorLine() const noexcept { return m_error.line; }
  [[nodiscard]] const std::string& getErrorToken() const noexcept { return m_error.token; }
  [[nodiscard]] const std::string& getErrorLineText() const noexcept { return m_error.lineText; }

  /// What the last load passed over, in the order of its lines. Ends with the next load.
  [[nodiscard]] std::span<const Note> notes() const noexcept { return m_notes; }

  /// The root, whose children are the file's top-level nodes. Never null.
  [[nodiscard]] RootNode* getRoot() const noexcept;

  /// The first route, null when there is none; go on with its `next()`.
  [[nodiscard]] Route* getFirstRoute() const noexcept { return m_routes.first(); }
  /// The route with these four members, or null.
  [[nodiscard]] Route* findRoute(Node* fromNode, Field* fromField, Node* toNode, Field* toField) const;
  /// Appends the route, which the parser owns from then on.
  void addRoute(std::unique_ptr<Route> route);

  /// The first node of that type, or of that DEF name, in document order; for a reference (USE) the node that it stands
  /// for. Null for an empty name and when there is none. What Inline files hold is not searched.
  [[nodiscard]] Node* findNodeByType(std::string_view typeName) const;
  [[nodiscard]] Node* findNodeByName(std::string_view defName) const;

  /// Puts the node, which this tree owns from then on, below the innermost open node of the parse, into the field that
  /// is open there; elsewhere to the end of the root's children.
  void addNode(Node* node);

  /// How many lines a file has for the progress report: reads of at most 65,535 characters each. 0, and a message on
  /// standard error, when it cannot be opened.
  [[nodiscard]] static int countLines(const std::string& path);

  /// The stack of active parsers. `pushParser` takes the parser out of any list and puts it on top.
  [[nodiscard]] static Parser* currentParser() noexcept;
  static void pushParser(Parser& parser) noexcept;
  static void popParser() noexcept;

  /// The name that the last DEF header gave, for the node that comes next; null when there is none. Asking clears it.
  /// The text stands in a static buffer until the next call. These five act on the current parser and do nothing
  /// without one.
  static const char* takePendingDefName();
  static void setPendingDefName(std::string_view name);
  /// The PROTO of exactly that name, or null. Of two with one name the first holds.
  [[nodiscard]] static Proto* findPROTO(std::string_view name);
  static void definePROTO(std::string_view name, std::string_view body, std::string_view interface);
  /// Makes the route that the rest of a ROUTE's line describes ("a.x TO b.y"). Dropped, with no more than a note, when
  /// a node or a field is missing or when it leads from a node to itself; in silence when the route is there already.
  static void addRouteText(std::string_view text, int line = 0);

  // The tree reports to its container.
  void nodeAttached(Node& node) override;
  void nodeDetached(Node& node) override;
  void nodeRenamed(Node& node, std::string_view oldName) override;
  [[nodiscard]] bool writesEscapes() const override { return m_readWide; }

  // ---- for the scanner and the grammar, while they run

  /// Whether `takePendingDefName` has one to give.
  [[nodiscard]] bool hasPendingDefName() const noexcept { return !m_pendingDefName.empty(); }
  /// Makes the reference of a USE statement, which the grammar takes with `takeUse`; none for a name that nothing
  /// bears.
  void setUse(std::string_view name, int line);
  /// Whether it is worth saying early, by `prefetchUse`, which name the next USE will ask for.
  [[nodiscard]] bool hasManyNames() const noexcept { return m_names.isLarge(); }
  /// A hint, which may be wrong. Changes nothing but how long the next look-up takes.
  void prefetchUse(std::string_view name) const noexcept { m_names.prefetch(name); }
  /// The reference that the last USE made, owned by the caller; null, and noted, when it made none.
  [[nodiscard]] Node* takeUse();
  void addNote(Note note) { m_notes.push_back(std::move(note)); }
  /// Remembers where in the file a node was read, for an error that the post-load pass runs into.
  void markPlace(const Node& node);

  /// The innermost open node, null at the top level.
  [[nodiscard]] ParserNode* innermost() const noexcept { return m_parseStack.last(); }
  void pushNode(Node& node);
  void popNode() noexcept;
  /// Open nodes.
  [[nodiscard]] std::size_t openNodes() const noexcept { return m_openNodes; }
  /// Whether the tree may have no node more.
  [[nodiscard]] bool isFull() const noexcept { return treeNodes() >= m_nodeLimit; }
  /// Whether the file's first line says that it is VRML 2.0.
  [[nodiscard]] bool isVrml2() const noexcept { return m_isVrml2; }
  /// Stores the three error values from the scanner's state.
  void setError(const Lexer& lexer);

 protected:
  struct ErrorPlace {
    int line = 0;
    std::string token;
    std::string lineText;
  };
  // Where in the file a node was read that the post-load pass has work with.
  struct NodePlace {
    const Node* node;
    const Node* source;  // of a reference; it is not sure to live still
    int line;
    std::size_t lineOffset;
  };

  // Reads a text that was opened already; `load` without the opening. The text is kept until `releaseText`.
  void readText(FileText text, Progress progress, void* data);
  void releaseText();
  // Forgets what the last load left beside the tree.
  void reset();
  // Removes all nodes and routes.
  void clearTree();

  // Nodes below the root, without and with those that inlined files brought in.
  [[nodiscard]] std::size_t ownNodes() const noexcept { return m_nodeCount - 1; }
  [[nodiscard]] std::size_t treeNodes() const noexcept { return ownNodes() + m_inlinedNodes; }
  // Ends the load at the place of a node: a limit was passed there.
  void failAt(const NodePlace& place, std::string_view token);

  ErrorPlace m_error;
  bool m_succeeded = false;
  bool m_readWide = false;
  bool m_limitPassed = false;  // by the last load: it is refused for good
  bool m_inOrder = false;      // nodes come in document order
  std::vector<Note> m_notes;
  std::vector<NodePlace> m_places;  // in document order
  std::size_t m_nodeLimit = kTreeNodeLimit;
  std::size_t m_expansionRoom = kExpansionTextLimit;  // bytes that the PROTO expansions of a reading may produce
  std::size_t m_expansionLeft = 0;                    // of them, after the reading
  std::size_t m_inlinedNodes = 0;

 private:
  enum class Verdict : std::uint8_t { accepted, refused, limitPassed };
  struct Mark {
    Node* lastNode;
    Route* lastRoute;
  };
  struct RouteHash {
    std::size_t operator()(const Route* route) const noexcept;
  };
  struct SameRoute {
    bool operator()(const Route* a, const Route* b) const noexcept;
  };

  Verdict readOnce(const Rules& rules, Progress progress, void* data, Lexer::Reach& reach);
  void startReading();
  [[nodiscard]] Mark mark() const;
  void rollBack(const Mark& mark);

  bool m_parsing = false;
  bool m_isVrml2 = false;
  FileText m_text;
  LinkedListHead<ParserNode> m_parseStack;
  LinkedListHead<ParserNode> m_spareNodes;  // entries of the parse stack that wait for their next use
  std::size_t m_openNodes = 0;
  LinkedListHead<Proto> m_protos;
  std::unordered_map<std::string_view, Proto*> m_protoByName;  // the first of each name; keys view the PROTOs' names
  std::string m_pendingDefName;
  std::string m_useName;
  int m_useLine = 0;
  std::unique_ptr<Node> m_useNode;
  LinkedListHead<Route> m_routes;
  std::unordered_set<const Route*, RouteHash, SameRoute> m_routeIndex;
  mutable NameIndex m_names;
  std::array<std::size_t, kNodeTypeCount> m_typeCounts{};
  std::size_t m_nodeCount = 0;
  std::unique_ptr<RootNode> m_root;
};

}  // namespace vrml
