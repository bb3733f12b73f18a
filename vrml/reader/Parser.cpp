#include "vrml/reader/Parser.h"

// A load reads the whole file into memory and runs the grammar over it by the exact rules. When these refuse the file,
// what the reading has built is taken back and the same text is read by the wide rules. When these refuse it too, the
// exact reading is done once more: a reading is determined by its text, so this gives the tree and the error of the
// first one without two trees standing side by side.

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <new>
#include <utility>

#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/reader/Grammar.h"

namespace vrml {
namespace {

LinkedListHead<Parser>& parserStack() noexcept {
  static LinkedListHead<Parser> stack;
  return stack;
}

// Takes the parser off the stack whatever ends the reading.
class ActiveParser {
 public:
  explicit ActiveParser(Parser& parser) noexcept { Parser::pushParser(parser); }
  ~ActiveParser() { Parser::popParser(); }
  ActiveParser(const ActiveParser&) = delete;
  ActiveParser& operator=(const ActiveParser&) = delete;
};

Node* withoutReference(Node* node) noexcept {
  Node* const source = node ? node->getReferenceNode() : nullptr;
  return source ? source : node;
}

// A byte order mark in front of the header is none of its characters.
bool saysVrml2(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return text.starts_with("#VRML V2.0");
}

constexpr std::string_view kRouteBlanks = " \t\n\r\v\f.";

// The words of a ROUTE's text, in which a dot is a blank: four of them around the word TO, as "%s %s TO %s %s" reads
// them.
std::array<std::string_view, 4> splitRoute(std::string_view text) {
  const auto skipBlanks = [&] { text.remove_prefix(std::min(text.find_first_not_of(kRouteBlanks), text.size())); };
  const auto takeWord = [&] {
    skipBlanks();
    const std::string_view word = text.substr(0, text.find_first_of(kRouteBlanks));
    text.remove_prefix(word.size());
    return word;
  };
  std::array<std::string_view, 4> words;
  words[0] = takeWord();
  words[1] = takeWord();
  skipBlanks();
  if (!text.starts_with("TO")) return words;
  text.remove_prefix(2);
  words[2] = takeWord();
  words[3] = takeWord();
  return words;
}

// The words as a ROUTE has them, as far as there are any.
std::string routeText(const std::array<std::string_view, 4>& words) {
  constexpr std::array kSeparators = {"", ".", " TO ", "."};
  std::string text;
  for (std::size_t i = 0; i < words.size() && !words[i].empty(); ++i) text.append(kSeparators[i]).append(words[i]);
  return text;
}

}  // namespace

Parser::Parser() : m_root(std::make_unique<RootNode>()) { m_root->setSceneGraph(this); }

Parser::~Parser() {
  m_useNode.reset();
  m_routes.deleteElements();
  m_names.clear();
  m_root.reset();
}

RootNode* Parser::getRoot() const noexcept { return m_root.get(); }

// ---- loading

void Parser::load(const std::string& path, Progress progress, void* data) {
  reset();
  FileText text;
  if (!text.read(path)) return reportUnopenable(path);
  readText(std::move(text), progress, data);
  releaseText();
}

void Parser::reset() {
  m_error = {};
  m_succeeded = m_parsing = m_readWide = m_limitPassed = false;
  m_notes.clear();
}

void Parser::releaseText() {
  m_text = FileText();
  m_places = {};
}

void Parser::readText(FileText text, Progress progress, void* data) {
  m_text = std::move(text);
  m_isVrml2 = saysVrml2(m_text.text());
  const Mark before = mark();
  Lexer::Reach reach;
  Verdict verdict = readOnce(Rules::exact(), progress, data, reach);
  if (verdict == Verdict::refused) {
    const ErrorPlace refusal = m_error;
    rollBack(before);
    m_readWide = true;
    verdict = readOnce(Rules::wide(), progress, data, reach);
    if (verdict == Verdict::accepted) {
      m_notes.insert(m_notes.begin(), Note{refusal.line, NoteKind::secondReading, {}, {}, refusal.token});
    } else {
      rollBack(before);
      m_readWide = false;
      verdict = readOnce(Rules::exact(), progress, data, reach);
    }
  }
  m_succeeded = verdict == Verdict::accepted;
  m_limitPassed = verdict == Verdict::limitPassed;
}

void Parser::startReading() {
  m_parseStack.deleteElements();
  m_openNodes = 0;
  m_protoByName.clear();
  m_protos.deleteElements();
  m_pendingDefName.clear();
  m_useNode.reset();
  m_error = {};
  m_notes.clear();
  m_places.clear();
}

Parser::Verdict Parser::readOnce(const Rules& rules, Progress progress, void* data, Lexer::Reach& reach) {
  startReading();
  const ActiveParser activeParser(*this);
  Lexer lexer(m_text.text(), rules, *this, m_expansionRoom);
  lexer.setReach(reach);
  lexer.setProgress(progress, data);
  const ActiveLexer activeLexer(lexer);
  Verdict verdict = Verdict::refused;
  m_parsing = m_inOrder = true;
  try {
    const int result = yyparse();
    verdict = result == 0 ? Verdict::accepted : result == 1 ? Verdict::refused : Verdict::limitPassed;
  } catch (const std::bad_alloc&) {  // a list with more elements than can be counted, or no memory
    setError(lexer);
    verdict = Verdict::limitPassed;
  }
  m_parsing = m_inOrder = false;
  m_useNode.reset();
  m_parseStack.deleteElements();
  m_spareNodes.deleteElements();
  reach = lexer.reach();
  m_expansionLeft = lexer.expansionRoom();
  return verdict;
}

Parser::Mark Parser::mark() const {
  Node* last = nullptr;
  for (Node* node = m_root->getChildNodes(); node; node = node->next()) last = node;
  return {last, m_routes.last()};
}

void Parser::rollBack(const Mark& mark) {
  while (m_routes.last() != mark.lastRoute) {
    m_routeIndex.erase(m_routes.last());
    delete m_routes.last();
  }
  const auto firstNew = [&] { return mark.lastNode ? mark.lastNode->next() : m_root->getChildNodes(); };
  while (Node* const node = firstNew()) delete node;
}

void Parser::clearTree() {
  m_names.clear();
  rollBack({nullptr, nullptr});
  m_inlinedNodes = 0;
}

void Parser::setError(const Lexer& lexer) {
  m_error.line = lexer.line();
  m_error.token = lexer.token().text;
  m_error.lineText = lineTextAt(m_text.text(), lexer.lineOffset());
}

void Parser::failAt(const NodePlace& place, std::string_view token) {
  m_error = {place.line, std::string(token), std::string(lineTextAt(m_text.text(), place.lineOffset))};
  m_limitPassed = true;
  m_succeeded = false;
}

// ---- the parse stack

void Parser::pushNode(Node& node) {
  ParserNode* entry = m_spareNodes.first();
  if (!entry) entry = new ParserNode;
  entry->node = &node;
  entry->field = FieldKey::none;
  entry->inList = false;
  m_parseStack.append(*entry);
  ++m_openNodes;
}

void Parser::popNode() noexcept {
  m_spareNodes.append(*m_parseStack.last());
  --m_openNodes;
}

void Parser::addNode(Node* node) {
  if (!node) return;
  const ParserNode* const open = m_parsing ? innermost() : nullptr;
  if (open)
    open->node->addChildNode(node, open->field);
  else
    m_root->addChildNode(node);
}

void Parser::markPlace(const Node& node) {
  const Lexer* const lexer = activeLexer();
  if (lexer) m_places.push_back({&node, node.getReferenceNode(), lexer->line(), lexer->lineOffset()});
}

// ---- USE

void Parser::setUse(std::string_view name, int line) {
  m_useName = name;
  m_useLine = line;
  Node* const source = findNodeByName(name);
  m_useNode.reset(source ? createReference(*source) : nullptr);
}

Node* Parser::takeUse() {
  if (!m_useNode) addNote({m_useLine, NoteKind::unresolvedUse, {}, m_useName, {}});
  return m_useNode.release();
}

// ---- searching

Node* Parser::findNodeByName(std::string_view defName) const {
  if (defName.empty()) return nullptr;
  return withoutReference(m_names.find(defName, *m_root));
}

Node* Parser::findNodeByType(std::string_view typeName) const {
  const NodeType type = findNodeType(typeName);
  if (type == NodeType::none || m_typeCounts[static_cast<std::size_t>(type)] == 0) return nullptr;
  for (Node* node = m_root->nextInDocument(m_root.get()); node; node = node->nextInDocument(m_root.get()))
    if (node->isType(type)) return withoutReference(node);
  return nullptr;
}

void Parser::nodeAttached(Node& node) {
  ++m_nodeCount;
  ++m_typeCounts[static_cast<std::size_t>(node.getType())];
  m_names.add(node, m_inOrder);
}

void Parser::nodeDetached(Node& node) {
  --m_nodeCount;
  --m_typeCounts[static_cast<std::size_t>(node.getType())];
  m_names.remove(node);
}

void Parser::nodeRenamed(Node& node, std::string_view oldName) {
  static_cast<void>(node);
  static_cast<void>(oldName);
  m_names.invalidate();
}

// ---- routes

// The fields alone, which hardly ever belong to two pairs of nodes. Where routes go to is left as it is: a file tends
// to name its targets in the order in which it made them, and neighbours then have neighbouring places in the table.
// Where they come from is mixed, so that no pattern of sources and targets meets in one place.
std::size_t Parser::RouteHash::operator()(const Route* route) const noexcept {
  constexpr std::hash<const void*> hash;
  const std::size_t from = hash(route->getFromField());
  return hash(route->getToField()) + (from ^ (from >> 29)) * 0x9e3779b97f4a7c15u;
}

bool Parser::SameRoute::operator()(const Route* a, const Route* b) const noexcept {
  return a->getFromNode() == b->getFromNode() && a->getFromField() == b->getFromField() &&
         a->getToNode() == b->getToNode() && a->getToField() == b->getToField();
}

Route* Parser::findRoute(Node* fromNode, Field* fromField, Node* toNode, Field* toField) const {
  const Route wanted(fromNode, fromField, toNode, toField);
  const auto found = m_routeIndex.find(&wanted);
  return found == m_routeIndex.end() ? nullptr : const_cast<Route*>(*found);
}

void Parser::addRoute(std::unique_ptr<Route> route) {
  if (!route) return;
  m_routeIndex.insert(route.get());
  m_routes.append(*route.release());
}

void Parser::addRouteText(std::string_view text, int line) {
  Parser* const parser = currentParser();
  if (!parser || text.empty()) return;
  const auto words = splitRoute(text);
  const auto [fromName, outName, toName, inName] = words;
  Node* const from = parser->findNodeByName(fromName);
  Node* const to = parser->findNodeByName(toName);
  const auto drop = [&](NoteKind kind) { parser->addNote({line, kind, {}, {}, routeText(words)}); };
  if (!from || !to) return drop(NoteKind::droppedRoute);
  if (from == to) return drop(NoteKind::routeToItself);
  Field* fromField = from->getEventOut(outName);
  if (!fromField) fromField = from->getExposedField(outName);
  Field* toField = to->getEventIn(inName);
  if (!toField) toField = to->getExposedField(inName);
  if (!fromField || !toField) return drop(NoteKind::droppedRoute);
  if (!parser->findRoute(from, fromField, to, toField))
    parser->addRoute(std::make_unique<Route>(from, fromField, to, toField));
}

// ---- the stack of active parsers

Parser* Parser::currentParser() noexcept { return parserStack().first(); }

void Parser::pushParser(Parser& parser) noexcept { parserStack().prepend(parser); }

void Parser::popParser() noexcept {
  if (Parser* const top = currentParser()) top->unlink();
}

const char* Parser::takePendingDefName() {
  static char buffer[kPendingNameSize];
  Parser* const parser = currentParser();
  if (!parser || parser->m_pendingDefName.empty()) return nullptr;
  const std::size_t length = std::min(parser->m_pendingDefName.size(), sizeof buffer - 1);
  std::memcpy(buffer, parser->m_pendingDefName.data(), length);
  buffer[length] = '\0';
  parser->m_pendingDefName.clear();
  return buffer;
}

void Parser::setPendingDefName(std::string_view name) {
  if (Parser* const parser = currentParser()) parser->m_pendingDefName = name;
}

Proto* Parser::findPROTO(std::string_view name) {
  const Parser* const parser = currentParser();
  if (!parser || parser->m_protoByName.empty()) return nullptr;
  const auto found = parser->m_protoByName.find(name);
  return found == parser->m_protoByName.end() ? nullptr : found->second;
}

void Parser::definePROTO(std::string_view name, std::string_view body, std::string_view interface) {
  Parser* const parser = currentParser();
  if (!parser) return;
  const Lexer* const lexer = activeLexer();
  auto* const proto = new Proto(name, body, interface, lexer ? lexer->rules() : Rules::exact());
  parser->m_protos.append(*proto);
  parser->m_protoByName.try_emplace(proto->name(), proto);
}

// ---- counting lines

int Parser::countLines(const std::string& path) {
  FileText file;
  if (!file.read(path)) {
    reportUnopenable(path);
    return 0;
  }
  constexpr std::size_t kReadSize = kLineBufferSize - 1;
  std::size_t count = 0;
  for (std::string_view text = file.text(); !text.empty();) {
    const std::size_t lineEnd = text.find('\n');
    const std::size_t length = lineEnd == std::string_view::npos ? text.size() : lineEnd + 1;
    count += (length + kReadSize - 1) / kReadSize;
    text.remove_prefix(length);
  }
  return static_cast<int>(count);
}

}  // namespace vrml
