#pragma once

// Matrices of the import, computed in double and handed to the host in single precision.

#include <VekSG/sglMat4.h>

namespace importer {

// Row-vector convention: of a product the leftmost factor acts first on a point.
using Matrix = sglMat4<double>;

/// The matrix that applies `first` and then `second`.
[[nodiscard]] Matrix operator*(const Matrix& first, const Matrix& second);

/// Moves by (x, y, z).
[[nodiscard]] Matrix translation(double x, double y, double z);

/// Turns by an angle in radians about an axis of any length, counterclockwise when the axis points to the eye. A zero
/// axis, or a zero angle, is the identity.
[[nodiscard]] Matrix rotation(double x, double y, double z, double radians);

/// The same matrix, each element rounded to single precision.
[[nodiscard]] sglMat4<float> narrow(const Matrix& matrix);

}  // namespace importer
