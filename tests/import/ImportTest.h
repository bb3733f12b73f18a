#pragma once

// What the import's tests share: a loader that can be looked into, loading of small texts, and scenes as one line.

#include <VekSG/sglDrawable.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglGroup.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSGdb/CVekDBRoot.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/MessageSink.h"
#include "import/sglLoadFile_wrl.h"
#include "tests/TempFolder.h"

namespace importtest {

/// The loader with its settings, counters and conversions in reach.
class OpenLoader : public sglLoadFile_wrl {
 public:
  using sglLoadFile_wrl::createPixelTexture;
  using sglLoadFile_wrl::createTexture;
  using sglLoadFile_wrl::doCallback;
  using sglLoadFile_wrl::m_alphaRef;
  using sglLoadFile_wrl::m_alphaTest;
  using sglLoadFile_wrl::m_callback;
  using sglLoadFile_wrl::m_callbackData;
  using sglLoadFile_wrl::m_colorMaterial;
  using sglLoadFile_wrl::m_compressionLevel;
  using sglLoadFile_wrl::m_compressTextures;
  using sglLoadFile_wrl::m_magFilter;
  using sglLoadFile_wrl::m_maxStripLength;
  using sglLoadFile_wrl::m_minFilter;
  using sglLoadFile_wrl::m_minStripLength;
  using sglLoadFile_wrl::m_modelDir;
  using sglLoadFile_wrl::m_nodeTable;
  using sglLoadFile_wrl::m_numIndepTris;
  using sglLoadFile_wrl::m_numMaterials;
  using sglLoadFile_wrl::m_numSPolygons;
  using sglLoadFile_wrl::m_numSQuads;
  using sglLoadFile_wrl::m_numStrips;
  using sglLoadFile_wrl::m_numSTris;
  using sglLoadFile_wrl::m_numTextures;
  using sglLoadFile_wrl::m_printStats;
  using sglLoadFile_wrl::m_scene;
  using sglLoadFile_wrl::m_sumStripLength;
  using sglLoadFile_wrl::m_tessellation;
  using sglLoadFile_wrl::m_texelsOther;
  using sglLoadFile_wrl::m_texelsRGB;
  using sglLoadFile_wrl::printStatistics;
  using sglLoadFile_wrl::s_tex_map;
  using sglLoadFile_wrl::travNode;
};

/// What one load gave.
struct Loaded {
  std::unique_ptr<CVekDBRoot> database;
  std::vector<embedded::Message> messages;

  /// The root, null without a scene.
  [[nodiscard]] const sglGroup* scene() const;
  /// The scene as one line, see `dump`.
  [[nodiscard]] std::string text() const;
  /// The messages' texts, without those of the statistics block, each in square brackets with the level in front:
  /// "2[text]".
  [[nodiscard]] std::string report() const;
  /// The number behind a label of the statistics block; -1 when no line has that label.
  [[nodiscard]] int statistic(std::string_view label) const;
  /// The first drawable in document order; null when there is none.
  [[nodiscard]] const sglDrawable* drawable(unsigned index = 0) const;
  /// The same as an indexed triangle set; fails the test and gives an empty one when it is none.
  [[nodiscard]] const sglIndexedTriangleSet& triangles(unsigned index = 0) const;
};

/// A scene as one line: for a node its kind, ":" and its name when it has one, its values in angle brackets, and its
/// children in round ones; for a geode its drawables in braces, a triangle set as its coordinate indices.
[[nodiscard]] std::string dump(const sglNode* node);

/// The kinds and values of a drawable's states, as "Lighting Material<0.8 0.8 0.8 / 1> Texture2D".
[[nodiscard]] std::string dumpStates(const sglDrawable* drawable);

/// A list's numbers separated by blanks; "none" for null.
[[nodiscard]] std::string dumpList(const sglDataPtr* list);

/// Begins with the host's default settings and an empty texture cache, in a folder of its own, and ends so.
class ImportTest : public testing::Test {
 protected:
  ImportTest();
  ~ImportTest() override;

  /// Writes a file into the test's folder and returns its path. A world gets its header line.
  std::string write(const std::string& name, std::string_view text) const;
  std::string writeWorld(std::string_view text, const std::string& name = "a.wrl") const;

  /// Loads a path with a fresh loader.
  Loaded loadPath(const std::string& path, unsigned flags = 0);

  /// Loads a world from its text. `prepare` may change the loader's settings before, `inspect` look at it afterwards.
  using OnLoader = std::function<void(OpenLoader&)>;
  Loaded load(std::string_view text, const OnLoader& prepare = {}, const OnLoader& inspect = {});

  [[nodiscard]] std::string pathOf(const std::string& name) const { return m_folder.path(name); }

 private:
  fixtures::TempFolder m_folder;
};

/// A triangle for shapes whose geometry does not matter, and its coordinates alone.
inline constexpr std::string_view kPoints = "coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0, 0 1 0 ] }";
inline constexpr std::string_view kTriangle =
    "IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0 ] } coordIndex [ 0 1 2 -1 ] }";

/// A Shape of the triangle above.
[[nodiscard]] std::string triangleShape();
/// A Shape with an appearance's fields and a geometry node.
[[nodiscard]] std::string shape(std::string_view appearance, std::string_view geometry = kTriangle);
/// A Shape of the four points and further fields of its face set.
[[nodiscard]] std::string faceSet(std::string_view fields, std::string_view appearance = "");

}  // namespace importtest
