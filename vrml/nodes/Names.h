#pragma once

// The words of the format: node types, field names and the words of a Script's interface, each list as a constexpr
// table and a small integer type whose values are indices into it. The scanner makes its keyword hash from these
// tables, the nodes name their fields from them, so that a word has one spelling and one number everywhere.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vrml {

/// A node type: an index into kNodeTypeNames. Get one from its spelling with nodeType("Transform").
enum class NodeType : std::uint8_t {
  none = 0xff,  // no node type
};

/// A field name that the scanner knows as a keyword: an index into kFieldNames. Get one with fieldKey("translation").
enum class FieldKey : std::uint8_t {
  none = 0xff,  // no keyword: an event name, a declared name, or no field at all
};

/// A word that is a keyword inside a Script: an index into kScriptWords. Get one with scriptWord("eventIn").
enum class ScriptWord : std::uint8_t {
  none = 0xff,  // no keyword of a Script
};

/// The node types that are keywords come first, in alphabetical order; behind them the two that no file can name.
inline constexpr std::size_t kNodeKeywordCount = 54;
inline constexpr std::array<const char*, kNodeKeywordCount + 2> kNodeTypeNames = {"Anchor",
                                                                                  "Appearance",
                                                                                  "AudioClip",
                                                                                  "Background",
                                                                                  "Billboard",
                                                                                  "Box",
                                                                                  "Collision",
                                                                                  "Color",
                                                                                  "ColorInterpolator",
                                                                                  "Cone",
                                                                                  "Coordinate",
                                                                                  "CoordinateInterpolator",
                                                                                  "Cylinder",
                                                                                  "CylinderSensor",
                                                                                  "DirectionalLight",
                                                                                  "ElevationGrid",
                                                                                  "Extrusion",
                                                                                  "Fog",
                                                                                  "FontStyle",
                                                                                  "Group",
                                                                                  "ImageTexture",
                                                                                  "IndexedFaceSet",
                                                                                  "IndexedLineSet",
                                                                                  "Inline",
                                                                                  "LOD",
                                                                                  "Material",
                                                                                  "MovieTexture",
                                                                                  "NavigationInfo",
                                                                                  "Normal",
                                                                                  "NormalInterpolator",
                                                                                  "OrientationInterpolator",
                                                                                  "PixelTexture",
                                                                                  "PlaneSensor",
                                                                                  "PointLight",
                                                                                  "PointSet",
                                                                                  "PositionInterpolator",
                                                                                  "ProximitySensor",
                                                                                  "ScalarInterpolator",
                                                                                  "Script",
                                                                                  "Shape",
                                                                                  "Sound",
                                                                                  "Sphere",
                                                                                  "SphereSensor",
                                                                                  "SpotLight",
                                                                                  "Switch",
                                                                                  "Text",
                                                                                  "TextureCoordinate",
                                                                                  "TextureTransform",
                                                                                  "TimeSensor",
                                                                                  "TouchSensor",
                                                                                  "Transform",
                                                                                  "Viewpoint",
                                                                                  "VisibilitySensor",
                                                                                  "WorldInfo",
                                                                                  "DEF",
                                                                                  "Root"};
inline constexpr std::size_t kNodeTypeCount = kNodeTypeNames.size();

/// Every field name that is a keyword outside of Scripts.
inline constexpr std::array<const char*, 130> kFieldNames = {"ambientIntensity",
                                                             "appearance",
                                                             "attenuation",
                                                             "autoOffset",
                                                             "avatarSize",
                                                             "axisOfRotation",
                                                             "backUrl",
                                                             "bboxCenter",
                                                             "bboxSize",
                                                             "beamWidth",
                                                             "beginCap",
                                                             "bottom",
                                                             "bottomRadius",
                                                             "bottomUrl",
                                                             "ccw",
                                                             "center",
                                                             "children",
                                                             "choice",
                                                             "collide",
                                                             "collideTime",
                                                             "color",
                                                             "colorIndex",
                                                             "colorPerVertex",
                                                             "convex",
                                                             "coord",
                                                             "coordIndex",
                                                             "creaseAngle",
                                                             "crossSection",
                                                             "cutOffAngle",
                                                             "cycleInterval",
                                                             "description",
                                                             "diffuseColor",
                                                             "direction",
                                                             "diskAngle",
                                                             "emissiveColor",
                                                             "enabled",
                                                             "endCap",
                                                             "family",
                                                             "fieldOfView",
                                                             "fogType",
                                                             "fontStyle",
                                                             "frontUrl",
                                                             "geometry",
                                                             "groundAngle",
                                                             "groundColor",
                                                             "headlight",
                                                             "height",
                                                             "horizontal",
                                                             "image",
                                                             "info",
                                                             "intensity",
                                                             "jump",
                                                             "justify",
                                                             "key",
                                                             "keyValue",
                                                             "language",
                                                             "leftToRight",
                                                             "leftUrl",
                                                             "length",
                                                             "level",
                                                             "location",
                                                             "loop",
                                                             "material",
                                                             "maxAngle",
                                                             "maxBack",
                                                             "maxExtent",
                                                             "maxFront",
                                                             "maxPosition",
                                                             "minAngle",
                                                             "minBack",
                                                             "minFront",
                                                             "minPosition",
                                                             "normal",
                                                             "normalIndex",
                                                             "normalPerVertex",
                                                             "offset",
                                                             "on",
                                                             "orientation",
                                                             "parameter",
                                                             "pitch",
                                                             "point",
                                                             "position",
                                                             "priority",
                                                             "proxy",
                                                             "radius",
                                                             "range",
                                                             "repeatS",
                                                             "repeatT",
                                                             "rightUrl",
                                                             "rotation",
                                                             "scale",
                                                             "scaleOrientation",
                                                             "shininess",
                                                             "side",
                                                             "size",
                                                             "skyAngle",
                                                             "skyColor",
                                                             "solid",
                                                             "source",
                                                             "spacing",
                                                             "spatialize",
                                                             "specularColor",
                                                             "speed",
                                                             "spine",
                                                             "startTime",
                                                             "stopTime",
                                                             "string",
                                                             "style",
                                                             "texCoord",
                                                             "texCoordIndex",
                                                             "texture",
                                                             "textureTransform",
                                                             "title",
                                                             "top",
                                                             "topToBottom",
                                                             "topUrl",
                                                             "translation",
                                                             "transparency",
                                                             "type",
                                                             "url",
                                                             "value_changed",
                                                             "vector",
                                                             "visibilityLimit",
                                                             "visibilityRange",
                                                             "whichChoice",
                                                             "whichChild",
                                                             "xDimension",
                                                             "xSpacing",
                                                             "zDimension",
                                                             "zSpacing"};
inline constexpr std::size_t kFieldKeyCount = kFieldNames.size();

/// The keywords inside a Script: interface words, the Script's own fields, and the field types.
inline constexpr std::array<const char*, 27> kScriptWords = {
    "field",   "eventIn",    "eventOut",   "directOutput", "mustEvaluate", "url",     "SFBool",   "SFFloat", "SFInt32",
    "SFTime",  "SFRotation", "SFNode",     "SFColor",      "SFString",     "SFVec2f", "SFVec3f",  "MFBool",  "MFFloat",
    "MFInt32", "MFTime",     "MFRotation", "MFNode",       "MFColor",      "MFImage", "MFString", "MFVec2f", "MFVec3f"};
inline constexpr std::size_t kScriptWordCount = kScriptWords.size();

/// Index of `word` in `table`, 0xff when it is not there.
template <std::size_t N>
[[nodiscard]] constexpr std::uint8_t indexOfWord(const std::array<const char*, N>& table,
                                                 std::string_view word) noexcept {
  static_assert(N < 0xff);
  for (std::size_t i = 0; i < N; ++i)
    if (word == table[i]) return static_cast<std::uint8_t>(i);
  return 0xff;
}

/// The node type, field key or script word spelled `word`, `none` when there is none. A scan: not for the scanner's
/// path.
[[nodiscard]] constexpr NodeType findNodeType(std::string_view word) noexcept {
  return static_cast<NodeType>(indexOfWord(kNodeTypeNames, word));
}
[[nodiscard]] constexpr FieldKey findFieldKey(std::string_view word) noexcept {
  return static_cast<FieldKey>(indexOfWord(kFieldNames, word));
}
[[nodiscard]] constexpr ScriptWord findScriptWord(std::string_view word) noexcept {
  return static_cast<ScriptWord>(indexOfWord(kScriptWords, word));
}

/// The same at compile time, where a word that does not exist is an error.
[[nodiscard]] consteval NodeType nodeType(std::string_view word) {
  const NodeType type = findNodeType(word);
  return type != NodeType::none ? type : throw "no such node type";
}
[[nodiscard]] consteval FieldKey fieldKey(std::string_view word) {
  const FieldKey key = findFieldKey(word);
  return key != FieldKey::none ? key : throw "no such field name";
}
[[nodiscard]] consteval ScriptWord scriptWord(std::string_view word) {
  const ScriptWord found = findScriptWord(word);
  return found != ScriptWord::none ? found : throw "no such word of a Script";
}

/// The spelling, a static zero-terminated text; "" for `none`.
[[nodiscard]] constexpr const char* nodeTypeName(NodeType type) noexcept {
  return type == NodeType::none ? "" : kNodeTypeNames[static_cast<std::size_t>(type)];
}
[[nodiscard]] constexpr const char* fieldName(FieldKey key) noexcept {
  return key == FieldKey::none ? "" : kFieldNames[static_cast<std::size_t>(key)];
}
[[nodiscard]] constexpr const char* scriptWordName(ScriptWord word) noexcept {
  return word == ScriptWord::none ? "" : kScriptWords[static_cast<std::size_t>(word)];
}

/// A set of node types, as one word of bits.
class NodeTypeSet {
 public:
  constexpr NodeTypeSet() noexcept = default;
  template <class... Names>
  explicit consteval NodeTypeSet(const char* first, const Names*... others)
      : m_bits((bit(nodeType(first)) | ... | bit(nodeType(others)))) {}

  [[nodiscard]] constexpr bool contains(NodeType type) const noexcept {
    return type != NodeType::none && (m_bits & bit(type)) != 0;
  }
  [[nodiscard]] friend constexpr NodeTypeSet operator|(NodeTypeSet a, NodeTypeSet b) noexcept {
    NodeTypeSet both;
    both.m_bits = a.m_bits | b.m_bits;
    return both;
  }

 private:
  static_assert(kNodeTypeCount <= 64);
  [[nodiscard]] static constexpr std::uint64_t bit(NodeType type) noexcept {
    return std::uint64_t{1} << static_cast<unsigned>(type);
  }
  std::uint64_t m_bits = 0;
};

}  // namespace vrml
