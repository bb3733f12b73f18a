#pragma once

// What the tests of the reader share: files that live as long as a test, and short texts for what a reading gives.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "vrml/reader/SceneGraph.h"

namespace vrml::readertest {

inline constexpr const char* kHeader = "#VRML V2.0 utf8\n";

/// A folder of its own, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// Writes a file, folders above it included, and returns its path.
  std::string write(const std::string& name, std::string_view text) const;
  [[nodiscard]] std::string path(const std::string& name) const { return (m_folder / name).string(); }

 private:
  std::filesystem::path m_folder;
};

/// Catches what the scanner echoes, and what goes to standard error.
class EchoCapture {
 public:
  EchoCapture();
  ~EchoCapture();
  EchoCapture(const EchoCapture&) = delete;
  EchoCapture& operator=(const EchoCapture&) = delete;
  [[nodiscard]] const std::string& text() const;

 private:
  EchoSink m_found;
};

/// Loads a text as a file; with the header line in front of it when `withHeader` is set.
void loadText(SceneGraph& scene, std::string_view text, bool resolve = true, bool withHeader = true);

/// The tree as text without the header line.
[[nodiscard]] std::string written(const SceneGraph& scene);

/// What loading the text and writing it back gives; "LINE:TOKEN:TEXT" of the error when it is refused.
[[nodiscard]] std::string loaded(std::string_view text, bool resolve = true);

/// "ok", or "LINE:TOKEN:TEXT" of the error.
[[nodiscard]] std::string verdict(const SceneGraph& scene);

/// The token listing of a text, as it is.
[[nodiscard]] std::string listing(std::string_view text, bool wide = false);

/// The same on one line without the line numbers and the end: "integer 1 | punct ,".
[[nodiscard]] std::string tokens(std::string_view text, bool wide = false);

/// The notes as "LINE:KIND:TYPE:DEF:TEXT", one a line.
[[nodiscard]] std::string notesOf(const SceneGraph& scene);

/// `count` times the text.
[[nodiscard]] std::string repeated(std::string_view text, std::size_t count);

/// A text that has every construct of the format at least once.
[[nodiscard]] std::string everyConstruct();

}  // namespace vrml::readertest
