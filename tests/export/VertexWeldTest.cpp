// Welding, against a plain scan over all pairs, and in time on vertices that coincide.

#include "export/VertexWeld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using exporter::WeldTolerance;
using Indices = std::vector<std::uint32_t>;
using Floats = std::vector<float>;

/// The rule itself, record by record, in quadratic time.
class PlainScan {
 public:
  PlainScan(const Floats& coords, const Floats& normals, const WeldTolerance& tolerance)
      : m_coords(coords), m_normals(normals), m_tolerance(tolerance) {}

  [[nodiscard]] Indices weld() {
    sortRecords();
    Indices standsFor(m_records.size());
    std::vector<bool> done(m_records.size());
    for (std::size_t k = 0; k < m_records.size(); ++k) {
      if (done[k]) continue;
      standsFor[m_records[k].index] = m_records[k].index;
      done[k] = true;
      for (std::size_t m = k + 1; m < m_records.size(); ++m) {
        const auto d = static_cast<float>(m_records[k].distance - m_records[m].distance);
        if (!(d >= -m_tolerance.position && d <= m_tolerance.position)) break;
        if (done[m] || !areNear(m_records[k].index, m_records[m].index)) continue;
        standsFor[m_records[m].index] = m_records[k].index;
        done[m] = true;
      }
    }
    return standsFor;
  }

 private:
  struct Record {
    std::uint32_t index;
    double distance;
  };

  void sortRecords() {
    const std::size_t count = m_coords.size() / 3;
    for (std::size_t v = 0; v < count; ++v) {
      float sum = 0.0F;
      for (std::size_t axis = 0; axis < 3; ++axis) {
        const float reference = m_coords[axis] * 2.14F + 2.14F;
        const float difference = m_coords[3 * v + axis] - reference;
        sum += difference * difference;
      }
      m_records.push_back({static_cast<std::uint32_t>(v), double{std::sqrt(sum)}});
    }
    std::stable_sort(m_records.begin(), m_records.end(), [](const Record& a, const Record& b) {
      if (std::isnan(a.distance) || std::isnan(b.distance)) return !std::isnan(a.distance) && std::isnan(b.distance);
      return a.distance < b.distance;
    });
  }

  [[nodiscard]] float normalAt(std::size_t v, std::size_t axis) const {
    return 3 * v + 2 < m_normals.size() ? m_normals[3 * v + axis] : 0.0F;
  }

  [[nodiscard]] bool areNear(std::size_t a, std::size_t b) const {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const float first = m_coords[3 * a + axis];
      const float second = m_coords[3 * b + axis];
      const bool isNear =
          m_tolerance.position == 0.0F ? first == second : std::abs(first - second) < m_tolerance.position;
      if (!isNear) return false;
    }
    if (m_normals.empty()) return true;
    float sum = 0.0F;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const std::size_t j = (axis + 1) % 3;
      const std::size_t k = (axis + 2) % 3;
      const float component = normalAt(a, j) * normalAt(b, k) - normalAt(a, k) * normalAt(b, j);
      sum += component * component;
    }
    return std::sqrt(sum) < m_tolerance.normal;
  }

  const Floats& m_coords;
  const Floats& m_normals;
  WeldTolerance m_tolerance;
  std::vector<Record> m_records;
};

Indices weld(const Floats& coords, const Floats& normals, const WeldTolerance& tolerance) {
  return exporter::WeldIdenticalVertices(coords, normals, tolerance);
}

void expectAsPlainScan(const std::string& name, const Floats& coords, const Floats& normals,
                       const WeldTolerance& tolerance) {
  EXPECT_EQ(weld(coords, normals, tolerance), PlainScan(coords, normals, tolerance).weld()) << name;
}

TEST(VertexWeld, SmallCases) {
  struct Row {
    const char* name;
    Floats coords;
    Floats normals;
    float tolerance;
    Indices expected;
  };
  const Row rows[] = {
      {"nothing", {}, {}, 0.1F, {}},
      {"one vertex", {1, 2, 3}, {}, 0.1F, {0}},
      {"equal vertices go to the lowest number", {1, 2, 3, 1, 2, 3, 1, 2, 3}, {}, 0.1F, {0, 0, 0}},
      {"the nearer to the reference point stands for the other",
       {0, 0, 0, 0, 10, 0, 0, 10.0005F, 0},
       {},
       0.001F,
       {0, 1, 1}},
      {"nearness does not run on", {0, 0, 0, 10, 0, 0, 10.001F, 0, 0, 10.002F, 0, 0}, {}, 0.0015F, {0, 1, 1, 3}},
      {"as far as the tolerance is too far", {0, 0, 0, 0.5F, 0, 0}, {}, 0.5F, {0, 1}},
      {"without a tolerance only equal ones", {0, 0, 0, 0, 0, 0, 1e-30F, 0, 0}, {}, 0.0F, {0, 0, 2}},
      {"without a tolerance zeros are equal", {0, 0, 0, -0.0F, 0, -0.0F}, {}, 0.0F, {0, 0}},
      {"other normals", {0, 0, 0, 0, 0, 0}, {0, 0, 1, 0, 1, 0}, 0.1F, {0, 1}},
      {"opposite normals count as equal", {0, 0, 0, 0, 0, 0}, {0, 0, 1, 0, 0, -1}, 0.1F, {0, 0}},
      {"nearly equal normals", {0, 0, 0, 0, 0, 0}, {0, 0, 1, 0.009F, 0, 1}, 0.1F, {0, 0}},
      {"not quite equal normals", {0, 0, 0, 0, 0, 0}, {0, 0, 1, 0.011F, 0, 1}, 0.1F, {0, 1}},
      {"the length of normals counts", {0, 0, 0, 0, 0, 0}, {0, 0, 0.5F, 0.011F, 0, 1}, 0.1F, {0, 0}},
      {"a vertex that the normals do not reach", {0, 0, 0, 0, 0, 0}, {0, 0, 1}, 0.1F, {0, 0}},
      {"a tolerance that is no number", {0, 0, 0, 0, 0, 0}, {}, NAN, {0, 1}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(weld(row.coords, row.normals, {.position = row.tolerance}), row.expected) << row.name;
    expectAsPlainScan(row.name, row.coords, row.normals, {.position = row.tolerance});
  }
}

/// Vertices in clusters a few tolerances wide, so that every rule decides somewhere.
Floats clusteredCoords(std::mt19937& random, std::size_t count, std::size_t clusterCount, float spread) {
  std::uniform_real_distribution<float> place(-10.0F, 10.0F);
  std::uniform_real_distribution<float> offset(-spread, spread);
  std::uniform_int_distribution<std::size_t> choice(0, clusterCount - 1);
  Floats centres(3 * clusterCount);
  for (float& coordinate : centres) coordinate = place(random);
  Floats coords;
  for (std::size_t v = 0; v < count; ++v) {
    const std::size_t cluster = choice(random);
    for (std::size_t axis = 0; axis < 3; ++axis) coords.push_back(centres[3 * cluster + axis] + offset(random));
  }
  return coords;
}

Floats randomNormals(std::mt19937& random, std::size_t count, float spread, float length) {
  std::uniform_real_distribution<float> offset(-spread, spread);
  std::bernoulli_distribution isTurned(0.5);
  Floats normals;
  for (std::size_t v = 0; v < count; ++v) {
    const float sign = isTurned(random) ? length : -length;
    normals.insert(normals.end(), {sign * offset(random), sign * offset(random), sign * (1.0F + offset(random))});
  }
  return normals;
}

TEST(VertexWeld, AnswersLikeAPlainScan) {
  std::mt19937 random(7);
  const float tolerance = 0.003F;
  for (const float spread : {0.0F, 0.4F, 1.0F, 3.0F, 20.0F}) {
    for (const std::size_t clusterCount : {1U, 20U, 400U}) {
      for (const float normalSpread : {0.0F, 0.01F, 0.3F, 2.0F}) {
        for (const float length : {1.0F, 0.01F, 50.0F}) {
          const Floats coords = clusteredCoords(random, 500, clusterCount, spread * tolerance);
          const std::string name = std::to_string(spread) + " " + std::to_string(clusterCount) + " " +
                                   std::to_string(normalSpread) + " " + std::to_string(length);
          expectAsPlainScan(name, coords, {}, {.position = tolerance});
          expectAsPlainScan(name, coords, randomNormals(random, 500, normalSpread, length), {.position = tolerance});
        }
      }
    }
  }
}

TEST(VertexWeld, AnswersLikeAPlainScanWhereFloatsAreCoarse) {
  std::mt19937 random(8);
  for (const float scale : {1e-38F, 1e-20F, 1e6F, 1e18F, 1e19F, 1e25F, 1e38F}) {
    for (const float tolerance : {0.0F, 1e-4F * scale, 1e-2F * scale, 10.0F * scale}) {
      Floats coords = clusteredCoords(random, 800, 50, 0.01F);
      for (float& coordinate : coords) coordinate = (coordinate + 1000.0F) * 0.001F * scale;
      expectAsPlainScan(std::to_string(scale), coords, {}, {.position = tolerance});
    }
  }
}

TEST(VertexWeld, AnswersLikeAPlainScanWhereNumbersAreNone) {
  std::mt19937 random(9);
  const float infinity = std::numeric_limits<float>::infinity();
  const float specials[] = {infinity, -infinity, NAN, 3e38F, -3e38F, 0.0F};
  std::uniform_int_distribution<std::size_t> choice(0, 40);
  for (const float tolerance : {0.0F, 0.003F, 1e30F, infinity}) {
    for (int round = 0; round < 20; ++round) {
      Floats coords = clusteredCoords(random, 300, 10, 0.003F);
      Floats normals = randomNormals(random, 290, 0.01F, 1.0F);
      for (Floats* list : {&coords, &normals}) {
        for (float& value : *list) {
          const std::size_t special = choice(random);
          if (special < std::size(specials)) value = specials[special];
        }
      }
      const std::string name = std::to_string(tolerance) + " " + std::to_string(round);
      expectAsPlainScan(name, coords, {}, {.position = tolerance});
      expectAsPlainScan(name, coords, normals, {.position = tolerance});
    }
  }
}

/// A crowd of vertices that a plain scan compares each with each.
struct Crowd {
  Floats coords;
  Floats normals;
};

/// Processor time that welding takes, in clock ticks: the least of some runs, and not 0. What else the machine does
/// meanwhile does not count.
std::clock_t ticksFor(const Crowd& crowd, int runCount) {
  std::clock_t least = std::numeric_limits<std::clock_t>::max();
  for (int run = 0; run < runCount; ++run) {
    const std::clock_t start = std::clock();
    const Indices result = weld(crowd.coords, crowd.normals, {.position = 0.001F});
    least = std::min(least, std::clock() - start);
    EXPECT_EQ(result.size(), crowd.coords.size() / 3);
  }
  return std::max<std::clock_t>(least, 1);
}

constexpr std::size_t kCrowdSize = 60000;

/// Sixteen times the vertices take sixteen times as long and somewhat more; with all pairs, 256 times.
template <class MakeCrowd>
void expectNoQuadraticTime(MakeCrowd makeCrowd) {
  const std::clock_t small = ticksFor(makeCrowd(kCrowdSize / 16), 5);
  EXPECT_LT(ticksFor(makeCrowd(kCrowdSize), 1), 90 * small);
}

/// Corners at one point.
Crowd coincidentCorners(std::size_t count) { return {Floats(3 * count, 1.5F), {}}; }

/// The tip of a fan: corners at one point, each with another normal, none of them near another.
Crowd fanTip(std::size_t count) {
  Crowd crowd = coincidentCorners(count);
  for (std::size_t v = 0; v < count; ++v) {
    const double angle = 3.141592653589793 * static_cast<double>(v) / static_cast<double>(count);
    crowd.normals.insert(crowd.normals.end(), {static_cast<float>(1000.0 * std::cos(angle)),
                                               static_cast<float>(1000.0 * std::sin(angle)), 0.0F});
  }
  return crowd;
}

/// Vertices all over a sphere around the reference point, so that their order says nothing about who is near.
Crowd equidistantVertices(std::size_t count) {
  std::mt19937 random(10);
  std::normal_distribution<float> normal;
  Crowd crowd = {{0, 0, 0}, {}};
  const float radius = 2.14F * std::sqrt(3.0F);
  while (crowd.coords.size() < 3 * count) {
    const float x = normal(random);
    const float y = normal(random);
    const float z = normal(random);
    const float scale = radius / std::sqrt(x * x + y * y + z * z);
    crowd.coords.insert(crowd.coords.end(), {2.14F + scale * x, 2.14F + scale * y, 2.14F + scale * z});
  }
  return crowd;
}

TEST(VertexWeld, CoincidentCornersTakeNoQuadraticTime) {
  expectNoQuadraticTime(coincidentCorners);
  EXPECT_EQ(weld(coincidentCorners(kCrowdSize).coords, {}, {.position = 0.001F}), Indices(kCrowdSize, 0));
}

TEST(VertexWeld, CoincidentCornersWithNormalsAllAroundTakeNoQuadraticTime) {
  expectNoQuadraticTime(fanTip);
  const Crowd fan = fanTip(1000);
  Indices each(1000);
  std::iota(each.begin(), each.end(), 0U);
  EXPECT_EQ(weld(fan.coords, fan.normals, {.position = 0.001F}), each);
}

TEST(VertexWeld, VerticesAtOneDistanceTakeNoQuadraticTime) { expectNoQuadraticTime(equidistantVertices); }

}  // namespace
