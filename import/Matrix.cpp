// The usual formulas. A rotation's rows are the images of the unit axes.

#include "import/Matrix.h"

#include <cmath>

namespace importer {

Matrix operator*(const Matrix& first, const Matrix& second) {
  Matrix product;
  for (unsigned row = 0; row < 4; ++row) {
    for (unsigned column = 0; column < 4; ++column) {
      double sum = 0.0;
      for (unsigned k = 0; k < 4; ++k) sum += first(row, k) * second(k, column);
      product(row, column) = sum;
    }
  }
  return product;
}

Matrix translation(double x, double y, double z) { return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1}}; }

Matrix rotation(double x, double y, double z, double radians) {
  const double length = std::sqrt(x * x + y * y + z * z);
  if (length == 0.0 || radians == 0.0) return {};
  x /= length;
  y /= length;
  z /= length;
  const double c = std::cos(radians);
  const double s = std::sin(radians);
  const double t = 1.0 - c;
  return {{t * x * x + c, t * x * y + s * z, t * x * z - s * y, 0,  //
           t * x * y - s * z, t * y * y + c, t * y * z + s * x, 0,  //
           t * x * z + s * y, t * y * z - s * x, t * z * z + c, 0,  //
           0, 0, 0, 1}};
}

sglMat4<float> narrow(const Matrix& matrix) {
  sglMat4<float> narrowed;
  for (unsigned place = 0; place < 16; ++place) narrowed[place] = static_cast<float>(matrix[place]);
  return narrowed;
}

}  // namespace importer
