#pragma once

// The loader: one VRML97 file becomes one host scene.
//
// Its operations stand in five files: the load sequence (sglLoadFile_wrl.cpp) and its figures (Statistics.cpp), the
// walk over the grouping nodes (Traversal.cpp), shapes and their geometry (ShapeGeometry.cpp), and materials and
// textures (Appearance.cpp).

#include <VekSG/sglRef.h>
#include <VekSG/sglStatelet.h>
#include <VekSG/sglTexture.h>
#include <VekSG/sglTexture2D.h>
#include <VekSGdb/sglModelLoader.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "import/HostLists.h"

class CVekDBRoot;
class sglGroup;
class sglNode;

class sglGeode;

namespace vrml {
class ImageTextureNode;
class MaterialNode;
class Node;
class PixelTextureNode;
class SceneGraph;
}  // namespace vrml

namespace importer {
struct ShapeParts;
}

/// Loads one file and is thrown away. What it made belongs to the database that it returns; only the texture cache
/// outlives it. One load at a time in a process: the reader and the cache are shared and unguarded.
class sglLoadFile_wrl {
 public:
  /// Takes over what the host wants of a load: the fineness of curved surfaces and the hook for "wrl".
  sglLoadFile_wrl();
  sglLoadFile_wrl(const sglLoadFile_wrl&) = delete;  // make another one
  sglLoadFile_wrl& operator=(const sglLoadFile_wrl&) = delete;
  virtual ~sglLoadFile_wrl();

  /// Loads a file and reports on the host's message stream how it went. `path` is used and shown as it is; a file that
  /// cannot be loaded under it is looked for once more by the host's file search. `flags` changes nothing.
  ///
  /// Always returns a database, which belongs to the caller; it has no scene when the load failed or the file holds
  /// nothing that can be shown. Throws only when there is no memory left for an error report or for the empty database
  /// itself. The content of the file need not be trusted.
  [[nodiscard]] CVekDBRoot* loadFile(const std::string& path, unsigned flags);

  /// Converts a chain of siblings in order and appends what comes of them to `parent`.
  void buildScene(sglGroup* parent, vrml::Node* first);

 protected:
  // The load sequence (sglLoadFile_wrl.cpp).

  /// The scene that a step of the load gives; null, with the error report, when the step throws.
  template <class Step>
  [[nodiscard]] std::unique_ptr<sglNode> orReport(const std::string& path, Step step) const;

  /// The scene of a file, null when there is none. What went wrong, or that there is nothing, has been reported.
  [[nodiscard]] std::unique_ptr<sglNode> loadScene(const std::string& path);
  static void reportStart(const std::string& path);
  [[nodiscard]] bool parse(const std::string& path);
  void printLoadError(const std::string& path) const;
  [[nodiscard]] static std::unique_ptr<sglNode> mergedIfWanted(std::unique_ptr<sglNode> root);

  // The block of figures that follows a conversion (Statistics.cpp).

  void printStatistics(const std::string& path) const;

  // The walk (Traversal.cpp).

  /// Converts a node and everything under it, at any depth, and appends the result to `parent`: a host group or
  /// nothing, or, for a node that is no group to the host, its children.
  void travNode(sglGroup* parent, vrml::Node* node);

  struct OpenNode;
  void openNode(sglGroup* parent, vrml::Node* node, std::vector<OpenNode>& open);
  void closeNode(OpenNode& open);

  /// Asks the host's hook about a node under the text `prefix` + `typeName`. True when there is no hook.
  [[nodiscard]] bool doCallback(sglNode* created, void* vrmlNode, std::string_view prefix, std::string_view typeName);

  // Shapes (ShapeGeometry.cpp).

  /// Converts a Shape: into the geode that is `parent`'s first child, or into a new one.
  void travShapeNode(sglGroup* parent, vrml::Node* shape);

  /// Both append to the geode. False when the shape is given up.
  [[nodiscard]] bool convertGeometry(const vrml::Node& geometry, sglGeode& geode, importer::ShapeParts& parts);
  [[nodiscard]] bool convertFaceSet(const vrml::Node& node, sglGeode& geode, importer::ShapeParts& parts);
  void countFaces(const importer::FaceCounts& faces, const importer::Primitives& primitives);

  // Appearances (Appearance.cpp).

  /// Each appends its states to the shape's.
  void convertAppearance(const vrml::Node& appearance, importer::ShapeParts& parts);
  void convertMaterial(const vrml::MaterialNode& node, importer::ShapeParts& parts);
  void addTextureStates(const sglRef<sglTexture2D>& texture, importer::ShapeParts& parts);

  /// Both give null, with a message, when there is no texture.
  [[nodiscard]] sglRef<sglTexture2D> convertImageTexture(const vrml::ImageTextureNode& node);
  [[nodiscard]] sglRef<sglTexture2D> convertPixelTexture(const vrml::PixelTextureNode& node);

  /// The texture of that name from the cache. Otherwise, when the host offers a reader of image files, the file of that
  /// name, searched along the host's paths and then beside the model, as a new texture that enters the cache. Null when
  /// there is none. The cache holds what is returned.
  [[nodiscard]] sglTexture2D* createTexture(const std::string& name, bool repeatS, bool repeatT);

  /// A new texture, which nobody holds yet, for an image of 1 to 4 bytes a pixel. The host is not handed the pixels;
  /// only their presence counts. Null, with a message, when `components` is anything else, and null when there are no
  /// pixels.
  [[nodiscard]] sglTexture2D* createPixelTexture(unsigned width, unsigned height, unsigned components, void* data,
                                                 bool repeatS, bool repeatT);

  /// Gives a new texture the loader's settings and counts it.
  void setUpTexture(sglTexture2D& texture, sglTexture::FormatEnum format, unsigned width, unsigned height, bool repeatS,
                    bool repeatT);

  /// Textures by the name under which files ask for them, for as long as the module stays loaded.
  static std::map<std::string, sglRef<sglTexture2D>> s_tex_map;

  // Settings and state. What is called `m_spare...` is a setting that no step consults.
  std::unordered_map<std::string, sglNode*> m_nodeTable;
  std::string m_modelDir;                     // the folder of the file, where textures are searched
  std::string m_inlineDir;                    // the folder of the inlined file that a texture stands in, or ""
  std::unique_ptr<vrml::SceneGraph> m_scene;  // the parsed file
  bool m_spareFlag = false;
  bool m_printStats = true;
  std::array<bool, 2> m_spareFlags2{false, false};
  bool m_colorMaterial = false;  // let the drawables' colours replace the material's
  bool m_spareFlag3 = true;
  std::array<bool, 2> m_spareFlags4{false, false};
  sglTexture::FilterEnum m_minFilter = sglTexture::LINEAR_MIPMAP_LINEAR;
  sglTexture::FilterEnum m_magFilter = sglTexture::LINEAR;
  bool m_compressTextures = false;
  sglTexture::CompressionLevelEnum m_compressionLevel = sglTexture::COMPRESSION_HIGH;
  std::int32_t m_spareSetting = 1;
  std::array<bool, 2> m_spareFlags5{true, false};
  bool m_alphaTest = true;  // test alpha where it would be blended otherwise
  float m_alphaRef = 0.5F;
  bool m_spareFlag6 = true;
  float m_tessellation;                             // how finely primitives are cut
  sglModelLoader::CallbackFn m_callback = nullptr;  // the host's hook, null without one
  void* m_callbackData = nullptr;                   // what the hook is handed back

  // Counters of the statistics block. They stop at the largest number.
  std::array<std::int32_t, 6> m_spareCounters{};
  std::int32_t m_numSQuads = 0;
  std::int32_t m_numSPolygons = 0;
  std::int32_t m_numSTris = 0;
  std::int32_t m_numStrips = 0;
  std::int32_t m_numIndepTris = 0;
  std::int32_t m_numMaterials = 0;
  std::int32_t m_numTextures = 0;
  std::int32_t m_texelsRGB = 0;
  std::int32_t m_texelsOther = 0;  // of 1, 2 and 4 components
  std::int32_t m_minStripLength = 99999;
  std::int32_t m_maxStripLength = 0;
  std::int32_t m_sumStripLength = 0;

  importer::HostLists m_hostLists;
};
