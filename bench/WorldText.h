#pragma once

// Pieces of worlds for the micro-benchmarks: the same text in every run.

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <unistd.h>

namespace bench {

/// `count` times three numbers of six decimals, as exporters print points.
[[nodiscard]] inline std::string pointsText(int count) {
  std::string text;
  char line[96];
  for (int i = 0; i < count; ++i) {
    std::snprintf(line, sizeof line, "%f %f %f,\n", i * 0.1237 - 40.0, i * 0.0171, 3.0 * std::sin(i * 0.37));
    text += line;
  }
  return text;
}

/// `count` triangles, each ended by -1.
[[nodiscard]] inline std::string trianglesText(int count) {
  std::string text;
  for (int i = 0; i < count; ++i)
    text += std::to_string(i) + " " + std::to_string(i + 1) + " " + std::to_string(i + 2) + " -1,\n";
  return text;
}

/// `count` shapes of a named material and a box, each under a transform; or, behind the first, of a USE of it.
[[nodiscard]] inline std::string shapesText(int count, bool uses) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += "Transform { translation " + std::to_string(i) + " 0 0 children Shape { appearance Appearance { material ";
    text += uses && i > 0 ? "USE M0" : "DEF M" + std::to_string(i) + " Material { diffuseColor 0.1 0.5 0.25 }";
    text += " } geometry Box { size 1 2 3 } } }\n";
  }
  return text;
}

/// One face set of `count` triangles over as many points and two.
[[nodiscard]] inline std::string faceSetText(int count) {
  return "Shape { geometry IndexedFaceSet { coord Coordinate { point [\n" + pointsText(count + 2) +
         "] } coordIndex [\n" + trianglesText(count) + "] } }\n";
}

/// A world of the given body, on disk as long as this object.
class WorldFile {
 public:
  explicit WorldFile(std::string_view body)
      : m_path(std::filesystem::temp_directory_path() / ("bench-" + std::to_string(getpid()) + ".wrl")) {
    std::ofstream(m_path, std::ios::binary) << "#VRML V2.0 utf8\n" << body;
  }
  WorldFile(const WorldFile&) = delete;
  WorldFile& operator=(const WorldFile&) = delete;
  ~WorldFile() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
  }

  [[nodiscard]] std::string path() const { return m_path.string(); }

 private:
  std::filesystem::path m_path;
};

}  // namespace bench
