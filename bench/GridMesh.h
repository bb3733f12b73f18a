#pragma once

// The mesh that the export is measured with: a wavy grid with a normal at every vertex, the surface of the generated
// face sets.

#include <cmath>
#include <cstddef>
#include <vector>

namespace bench {

/// A grid of columnCount by rowCount vertices, two triangles a cell.
struct GridMesh {
  static constexpr int kColumns = 912;  // 833,568 vertices: five million floats, 1.66 million triangles
  static constexpr int kRows = 914;

  std::vector<float> points;   // 3 a vertex
  std::vector<float> normals;  // 3 a vertex
  std::vector<int> indices;    // 3 a triangle

  GridMesh(int columnCount, int rowCount) {
    const std::size_t vertexCount = static_cast<std::size_t>(columnCount) * static_cast<std::size_t>(rowCount);
    points.reserve(vertexCount * 3);
    normals.reserve(vertexCount * 3);
    for (int row = 0; row < rowCount; ++row) {
      for (int column = 0; column < columnCount; ++column) addVertex(column * 0.1237 - 40.0, row * 0.1171 - 40.0);
    }
    for (int row = 0; row + 1 < rowCount; ++row) {
      for (int column = 0; column + 1 < columnCount; ++column) addCell(row * columnCount + column, columnCount);
    }
  }

 private:
  void addVertex(double x, double y) {
    append(points, x, y, 3.0 * std::sin(x * 0.37) * std::cos(y * 0.23));
    const double slopeX = -3.0 * 0.37 * std::cos(x * 0.37) * std::cos(y * 0.23);
    const double slopeY = 3.0 * 0.23 * std::sin(x * 0.37) * std::sin(y * 0.23);
    const double scale = 1 / std::sqrt(slopeX * slopeX + slopeY * slopeY + 1);
    append(normals, slopeX * scale, slopeY * scale, scale);
  }

  void addCell(int corner, int columnCount) {
    const int right = corner + 1;
    const int below = corner + columnCount;
    const int across = below + 1;
    indices.insert(indices.end(), {corner, right, across, corner, across, below});
  }

  static void append(std::vector<float>& list, double x, double y, double z) {
    list.push_back(static_cast<float>(x));
    list.push_back(static_cast<float>(y));
    list.push_back(static_cast<float>(z));
  }
};

}  // namespace bench
