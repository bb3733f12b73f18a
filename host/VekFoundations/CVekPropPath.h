#pragma once

// A property that holds a file path.

#include <VekFoundations/CString.h>
#include <VekFoundations/CVekProperty.h>

#include <utility>

class VEK_API CVekPropPath : public CVekProperty {
 public:
  explicit CVekPropPath(CString path) : m_path(std::move(path)) {}
  ~CVekPropPath() override;

  // The path, "" when none is set. Either slash separates.
  [[nodiscard]] const CString& GetValue() const { return m_path; }
  void SetValue(const CString& path) { m_path = path; }

 private:
  CString m_path;
};
