// The walk follows the import's rules: grouping nodes are entered, a Shape is looked at as a whole, and of every other
// node only the children count. It goes along the tree's own links, since trees can be deeper than the call stack.

#include "tools/wrl/ImportAudit.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "tools/wrl/FaceAudit.h"
#include "vrml/fields/Fields.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/reader/Parser.h"

namespace wrl {

namespace {

using vrml::fieldKey;
using vrml::FieldKey;
using vrml::Node;
using vrml::nodeType;
using vrml::NodeType;
using vrml::NodeTypeSet;

struct KindText {
  AuditKind kind;
  bool sumsUp;  // speaks of a field or of the file, so names of nodes do not matter
  const char* text;
};

// In a text {node} is the type and the name, {count} and {detail} are the note's. In the order of the kinds.
constexpr std::array kTexts = {
    KindText{AuditKind::unsupportedGeometry, false, "{node} is not converted"},
    KindText{AuditKind::shapeWithoutGeometry, false, "{node} has no geometry and gives nothing"},
    KindText{AuditKind::misplacedNode, false, "{node} stands where no Shape uses it and is not converted"},
    KindText{AuditKind::surplusNode, false, "{node} is not used, its {detail} has another one"},
    KindText{AuditKind::strayNode, false, "{node} is not used, its {detail} has no place for it"},
    KindText{AuditKind::noCoordinates, false, "{node} has no Coordinate and gives nothing"},
    KindText{AuditKind::facesOutOfRange, false, "{node}: faces with coordinate indices out of range dropped: {count}"},
    KindText{AuditKind::degenerateFaces, false, "{node}: faces of fewer than three corners dropped: {count}"},
    KindText{AuditKind::degenerateTriangles, false, "{node}: triangles that name a point twice dropped: {count}"},
    KindText{AuditKind::openFaces, false, "{node}: corners of a face without a terminating -1 dropped: {count}"},
    KindText{AuditKind::imageTexture, false, "{node}: image file \"{detail}\" is not read"},
    KindText{AuditKind::movieTexture, false, "{node} is not read"},
    KindText{AuditKind::pixelTexture, false, "{node} has no valid image and is not used"},
    KindText{AuditKind::texturePixels, false, "{node}: its pixels are not handed to the texture"},
    KindText{AuditKind::textureCoordinates, false, "{node}: texture coordinates of a shape without a texture dropped"},
    KindText{AuditKind::proxy, false, "{node} is the proxy of a Collision and is not converted"},
    KindText{AuditKind::fieldNotUsed, true, "{detail} of {node} is not used"},
    KindText{AuditKind::onlyChildren, false, "{node}: only its children are converted"},
    KindText{AuditKind::notConverted, false, "{node} is not converted"},
    KindText{AuditKind::routes, true, "routes not converted: {count}"},
};
static_assert(kTexts.size() == kAuditKindCount);
static_assert([] {
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    if (kTexts[i].kind != static_cast<AuditKind>(i)) return false;
  }
  return true;
}());

constexpr const KindText& textOf(AuditKind kind) { return kTexts[static_cast<std::size_t>(kind)]; }

constexpr NodeTypeSet kUnsupportedGeometry("ElevationGrid", "Extrusion", "IndexedLineSet", "PointSet", "Text");
constexpr NodeTypeSet kEnteredGroups("Group", "Transform", "LOD", "Switch", "Billboard", "Inline");
constexpr NodeTypeSet kFlattenedGroups("Anchor", "Collision");
constexpr NodeTypeSet kPartsOfShapes("Appearance", "Material", "ImageTexture", "MovieTexture", "PixelTexture",
                                     "TextureTransform", "Box", "Cone", "Cylinder", "Sphere", "ElevationGrid",
                                     "Extrusion", "IndexedFaceSet", "IndexedLineSet", "PointSet", "Text", "FontStyle",
                                     "Coordinate", "Color", "Normal", "TextureCoordinate");
constexpr NodeTypeSet kPartsOfShape("Appearance", "Box", "Cone", "Cylinder", "Sphere", "ElevationGrid", "Extrusion",
                                    "IndexedFaceSet", "IndexedLineSet", "PointSet", "Text");
constexpr NodeTypeSet kPartsOfAppearance("Material", "ImageTexture", "PixelTexture");
constexpr NodeTypeSet kPartsOfFaceSet("Coordinate", "Normal", "Color", "TextureCoordinate");

struct FieldOfType {
  NodeType type;
  FieldKey key;
};

constexpr FieldOfType kFieldsNotUsed[] = {
    {nodeType("LOD"), fieldKey("center")},
    {nodeType("Cone"), fieldKey("side")},
    {nodeType("Cone"), fieldKey("bottom")},
    {nodeType("Cylinder"), fieldKey("side")},
    {nodeType("Cylinder"), fieldKey("bottom")},
    {nodeType("Cylinder"), fieldKey("top")},
    {nodeType("IndexedFaceSet"), fieldKey("convex")},
    {nodeType("IndexedFaceSet"), fieldKey("creaseAngle")},
    {nodeType("Material"), fieldKey("ambientIntensity")},
    {nodeType("Material"), fieldKey("emissiveColor")},
    {nodeType("Material"), fieldKey("shininess")},
    {nodeType("Material"), fieldKey("specularColor")},
};

// The value of a field that the node's class is known to have.
template <class F>
const F& valueOf(const Node& node, FieldKey key) {
  return static_cast<const F&>(node.peekField(*node.getClass().findField(key)));
}

std::string firstUrl(const Node& texture) {
  const auto& url = valueOf<vrml::MFString>(texture, fieldKey("url"));
  const char* const first = url.getSize() > 0 ? url.get1Value(0) : nullptr;
  return first != nullptr ? first : "";
}

// Whether a PixelTexture's image becomes a texture.
bool hasValidImage(const Node& texture) {
  const auto values = valueOf<vrml::SFImage>(texture, fieldKey("image")).values();
  if (values.size() < 3) return false;
  const std::int64_t width = values[0];
  const std::int64_t height = values[1];
  const std::int32_t components = values[2];
  return width > 0 && height > 0 && components > 0 && components <= 4 &&
         width * height == static_cast<std::int64_t>(values.size()) - 3;
}

// Tells the first node of each type among those that it is asked about, in their order.
class FirstOfType {
 public:
  [[nodiscard]] bool operator()(const Node& node) {
    return !std::exchange(m_seen[static_cast<std::size_t>(node.getType())], true);
  }

 private:
  std::array<bool, vrml::kNodeTypeCount> m_seen{};
};

class Auditor {
 public:
  explicit Auditor(const AuditOptions& options) : m_options(options) {}

  std::vector<AuditNote> run(const vrml::Parser& scene) {
    const Node* const root = scene.getRoot();
    for (const Node* node = root->getChildNodes(); node != nullptr;) {
      node = following(*node, *root, visit(*node));
    }
    addRoutes(scene);
    std::stable_partition(m_notes.begin(), m_notes.end(),
                          [](const AuditNote& note) { return !textOf(note.kind).sumsUp; });
    return std::move(m_notes);
  }

 private:
  // The next node that the import comes to.
  static const Node* following(const Node& node, const Node& root, bool enter) {
    if (enter && node.getChildNodes() != nullptr) return node.getChildNodes();
    for (const Node* at = &node; at != &root; at = at->getParent()) {
      if (const Node* const sibling = at->next()) return sibling;
    }
    return nullptr;
  }

  // Notes what is lost of one node of the traversal; true when its children are traversed.
  bool visit(const Node& node) {
    const NodeType type = node.getType();
    if (type == nodeType("Shape")) {
      addShape(node);
      return false;
    }
    if (node.isInstanceNode()) return false;  // the reader's notes name what stays a reference
    if (kEnteredGroups.contains(type)) {
      addFieldsNotUsed(node);
    } else if (kFlattenedGroups.contains(type)) {
      addFlattened(node);
    } else if (kPartsOfShapes.contains(type)) {
      if (!kPartsOfShapes.contains(node.getParent()->getType())) add(AuditKind::misplacedNode, node);
    } else if (type != nodeType("WorldInfo")) {  // which tells of the file and shows nothing
      add(AuditKind::notConverted, node);
    }
    return true;
  }

  void addFlattened(const Node& node) {
    add(AuditKind::onlyChildren, node);
    if (const Node* const proxy = node.getFirstChildInRole(fieldKey("proxy"))) add(AuditKind::proxy, *proxy);
  }

  void addShape(const Node& shape) {
    const Node* const geometry = geometryOf(shape);
    const Node* const appearance = shape.getFirstChild(nodeType("Appearance"));
    if (isNew(shape)) {
      for (const Node* child = shape.getChildNodes(); child != nullptr; child = child->next()) {
        if (child != geometry && child != appearance) addUnused(*child, shape, kPartsOfShape);
      }
      if (geometry == nullptr && !holdsReference(shape)) add(AuditKind::shapeWithoutGeometry, shape);
    }
    if (geometry == nullptr) return;
    if (appearance != nullptr && isNew(*appearance)) addAppearance(*appearance);
    addGeometry(*geometry, appearance != nullptr && makesTexture(*appearance));
  }

  static const Node* geometryOf(const Node& shape) { return shape.getGeometryNode(); }

  static bool holdsReference(const Node& node) { return node.getFirstChild(nodeType("DEF")) != nullptr; }

  bool makesTexture(const Node& appearance) {
    if (const Node* const image = appearance.getFirstChild(nodeType("ImageTexture"))) return readsImage(*image);
    const Node* const pixels = appearance.getFirstChild(nodeType("PixelTexture"));
    return pixels != nullptr && hasValidImage(*pixels);
  }

  // Images are large, so each is tried once from each file. One that was read serves all files, as in the import.
  bool readsImage(const Node& image) {
    if (!m_options.readsImage) return false;
    const std::string url = firstUrl(image);
    if (m_imagesRead.contains(url)) return true;
    const std::string file = vrml::inlinedFileOf(image);
    if (!m_imagesTried.emplace(url, file).second || !m_options.readsImage(url, file)) return false;
    m_imagesRead.insert(url);
    return true;
  }

  void addAppearance(const Node& appearance) {
    const bool hasImage = appearance.getFirstChild(nodeType("ImageTexture")) != nullptr;
    FirstOfType isFirstOfItsType;
    for (const Node* child = appearance.getChildNodes(); child != nullptr; child = child->next()) {
      const bool isHidden = hasImage && child->isType(nodeType("PixelTexture"));
      if (isHidden || (kPartsOfAppearance.contains(child->getType()) && !isFirstOfItsType(*child))) {
        addUnused(*child, appearance, kPartsOfAppearance);
      } else if (isNew(*child)) {
        addPartOfAppearance(*child, appearance);
      }
    }
  }

  void addPartOfAppearance(const Node& part, const Node& appearance) {
    const NodeType type = part.getType();
    if (type == nodeType("Material")) {
      addFieldsNotUsed(part);
    } else if (type == nodeType("ImageTexture")) {
      if (!readsImage(part)) add(AuditKind::imageTexture, part, 0, firstUrl(part));
    } else if (type == nodeType("PixelTexture")) {
      add(hasValidImage(part) ? AuditKind::texturePixels : AuditKind::pixelTexture, part);
    } else if (type == nodeType("MovieTexture")) {
      add(AuditKind::movieTexture, part);
    } else if (type == nodeType("TextureTransform")) {
      add(AuditKind::notConverted, part);
    } else {
      addUnused(part, appearance, kPartsOfAppearance);
    }
  }

  void addGeometry(const Node& geometry, bool hasTexture) {
    if (geometry.isType(nodeType("IndexedFaceSet"))) {
      addFaceSet(geometry, hasTexture);
    } else if (isNew(geometry)) {
      if (kUnsupportedGeometry.contains(geometry.getType())) add(AuditKind::unsupportedGeometry, geometry);
      addFieldsNotUsed(geometry);
    }
  }

  void addFaceSet(const Node& faceSet, bool hasTexture) {
    const Node* const coordinates = faceSet.getFirstChild(nodeType("Coordinate"));
    const bool hasTexCoords = faceSet.getFirstChild(nodeType("TextureCoordinate")) != nullptr;
    if (coordinates != nullptr && hasTexCoords && !hasTexture) add(AuditKind::textureCoordinates, faceSet);
    if (!isNew(faceSet)) return;
    FirstOfType isFirstOfItsType;
    for (const Node* child = faceSet.getChildNodes(); child != nullptr; child = child->next()) {
      if (!kPartsOfFaceSet.contains(child->getType()) || !isFirstOfItsType(*child))
        addUnused(*child, faceSet, kPartsOfFaceSet);
    }
    if (coordinates == nullptr) {
      add(AuditKind::noCoordinates, faceSet);
      return;
    }
    addFieldsNotUsed(faceSet);
    addFaces(faceSet, valueOf<vrml::MFVec3f>(*coordinates, fieldKey("point")).getSize());
  }

  void addFaces(const Node& faceSet, std::int64_t pointCount) {
    const auto indices = valueOf<vrml::MFInt32>(faceSet, fieldKey("coordIndex")).values();
    const FaceLosses losses = findFaceLosses(indices, pointCount);
    addCounted(AuditKind::facesOutOfRange, faceSet, losses.facesOutOfRange);
    addCounted(AuditKind::degenerateFaces, faceSet, losses.degenerateFaces);
    addCounted(AuditKind::degenerateTriangles, faceSet, losses.degenerateTriangles);
    addCounted(AuditKind::openFaces, faceSet, losses.openCorners);
  }

  void addFieldsNotUsed(const Node& node) {
    for (const FieldOfType& entry : kFieldsNotUsed) {
      if (!node.isType(entry.type)) continue;
      const vrml::FieldDecl& field = *node.getClass().findField(entry.key);
      if (node.peekField(field).equals(&field.peek(node.getClass().defaults()))) continue;
      add(AuditKind::fieldNotUsed, node, 0, vrml::fieldName(entry.key));
    }
  }

  void addRoutes(const vrml::Parser& scene) {
    std::int64_t count = 0;
    for (const vrml::Route* route = scene.getFirstRoute(); route != nullptr; route = route->next()) ++count;
    if (count > 0) m_notes.push_back({AuditKind::routes, "", "", "", count, 1});
  }

  // A node beside the one of its kind that is used, or of a kind that is none of the holder's parts; of a reference the
  // reader speaks.
  void addUnused(const Node& node, const Node& holder, const NodeTypeSet& parts) {
    if (node.isInstanceNode()) return;
    add(parts.contains(node.getType()) ? AuditKind::surplusNode : AuditKind::strayNode, node, 0, holder.getTypeName());
  }

  void addCounted(AuditKind kind, const Node& node, std::int64_t count) {
    if (count > 0) add(kind, node, count);
  }

  // True the first time that a node, or the source of an instance, is asked about.
  bool isNew(const Node& node) {
    const Node* const source = node.getReferenceNode();
    return m_seen.insert(source != nullptr ? source : &node).second;
  }

  // Findings that read the same are one note.
  void add(AuditKind kind, const Node& node, std::int64_t count = 0, std::string detail = "") {
    const std::string name = textOf(kind).sumsUp ? std::string() : node.getName();
    const auto [place, isFirst] = m_places.try_emplace({kind, node.getType(), name, detail}, m_notes.size());
    if (isFirst) m_notes.push_back({kind, node.getTypeName(), name, std::move(detail), 0, 0});
    AuditNote& note = m_notes[place->second];
    note.count += count;
    ++note.nodes;
  }

  using Key = std::tuple<AuditKind, NodeType, std::string, std::string>;

  const AuditOptions& m_options;
  std::vector<AuditNote> m_notes;
  std::map<Key, std::size_t> m_places;  // of the notes that are there already
  std::unordered_set<const Node*> m_seen;
  std::set<std::pair<std::string, std::string>> m_imagesTried;  // urls, and the files that they stand in
  std::set<std::string> m_imagesRead;                           // urls
};

void replaceAll(std::string& text, std::string_view mark, const std::string& value) {
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + value.size())) {
    text.replace(at, mark.size(), value);
  }
}

}  // namespace

std::vector<AuditNote> auditImport(const vrml::Parser& scene, const AuditOptions& options) {
  return Auditor(options).run(scene);
}

std::string auditText(const AuditNote& note) {
  std::string text = textOf(note.kind).text;
  replaceAll(text, "{count}", std::to_string(note.count));
  replaceAll(text, "{node}", note.defName.empty() ? note.nodeType : note.nodeType + " \"" + note.defName + "\"");
  replaceAll(text, "{detail}", note.detail);
  if (note.nodes > 1) text += " (" + std::to_string(note.nodes) + " nodes)";
  return text;
}

}  // namespace wrl
