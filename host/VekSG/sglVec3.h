#pragma once

// A point or vector of three numbers.

template <class T>
struct sglVec3 {
  T x{};
  T y{};
  T z{};

  // Component 0 x, 1 y, 2 z. No other index is allowed.
  T operator[](unsigned component) const { return component == 0 ? x : component == 1 ? y : z; }
  T& operator[](unsigned component) { return component == 0 ? x : component == 1 ? y : z; }

  friend bool operator==(const sglVec3&, const sglVec3&) = default;
};
