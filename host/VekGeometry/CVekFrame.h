#pragma once

// A coordinate frame: three axes and an origin.

#include <VekFoundations/VekExport.h>
#include <VekSG/sglMat4.h>
#include <VekSG/sglVec3.h>

// Kept as a matrix whose rows are the x axis, the y axis, the z axis and the origin. Axes may have any length.
class VEK_API CVekFrame {
 public:
  // The identity.
  CVekFrame() = default;

  void SetMatLocalToGlobal(const sglMat4<float>& matrix) { m_matrix = matrix; }
  [[nodiscard]] const sglMat4<float>& GetMatLocalToGlobal() const { return m_matrix; }

  [[nodiscard]] sglVec3<float> GetVx() const { return {m_matrix[0], m_matrix[1], m_matrix[2]}; }
  [[nodiscard]] sglVec3<float> GetVy() const { return {m_matrix[4], m_matrix[5], m_matrix[6]}; }
  [[nodiscard]] sglVec3<float> GetVz() const { return {m_matrix[8], m_matrix[9], m_matrix[10]}; }
  [[nodiscard]] sglVec3<float> GetOrigin() const { return {m_matrix[12], m_matrix[13], m_matrix[14]}; }

  // Makes the axes unit vectors at right angles, right-handed: z' is z normalised, x' is (y cross z') normalised, y' is
  // z' cross x'. A zero vector stays zero. The origin stays.
  void NormalizeOrthoAlongZ();

  // The image of a point, point * matrix, without division by the fourth component.
  [[nodiscard]] static sglVec3<float> TransformPoint(const sglMat4<float>& matrix, const sglVec3<float>& point);

 private:
  sglMat4<float> m_matrix;
};
