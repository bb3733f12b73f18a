#pragma once

// A group that places its children.

#include <VekSG/sglGroup.h>
#include <VekSG/sglMat4.h>

template <class T>
class VEK_API sglTransform : public sglGroup {
 public:
  // The identity.
  sglTransform();
  ~sglTransform() override;

  // From the children's coordinates to the parent's, row-vector convention.
  void setMatrix(const sglMat4<T>& matrix) { m_matrix = matrix; }
  [[nodiscard]] const sglMat4<T>& getMatrix() const { return m_matrix; }

 private:
  sglMat4<T> m_matrix;
};

extern template class VEK_API sglTransform<float>;
