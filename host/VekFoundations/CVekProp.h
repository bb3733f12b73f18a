#pragma once

// A property of one plain value.

#include <VekFoundations/CVekProperty.h>

template <class T>
class VEK_API CVekProp : public CVekProperty {
 public:
  explicit CVekProp(T value) : m_value(value) {}
  ~CVekProp() override;

  [[nodiscard]] T GetValue() const { return m_value; }
  void SetValue(T value) { m_value = value; }

 private:
  T m_value;
};

extern template class VEK_API CVekProp<bool>;
extern template class VEK_API CVekProp<float>;
