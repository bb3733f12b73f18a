#pragma once

// A matrix of four rows in the row-vector convention: a point p goes to p * M, and of a product the leftmost factor
// acts first.

template <class T>
struct sglMat4 {
  // Row after row; rows 0 to 2 are the images of the unit axes, elements 12, 13, 14 the translation. A new matrix is
  // the identity.
  T m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

  // Element of row and column, 0 to 3 each.
  T operator()(unsigned row, unsigned column) const { return m[row * 4 + column]; }
  T& operator()(unsigned row, unsigned column) { return m[row * 4 + column]; }

  // Element by its place, 0 to 15.
  T operator[](unsigned place) const { return m[place]; }
  T& operator[](unsigned place) { return m[place]; }

  friend bool operator==(const sglMat4&, const sglMat4&) = default;
};
