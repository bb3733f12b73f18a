#pragma once

// Base of the named objects of the document.

#include <VekFoundations/CString.h>
#include <VekFoundations/CVekPropertySet.h>
#include <VekFoundations/CVekShared.h>

class VEK_API CVekModifiable : public CVekShared {
 public:
  CVekModifiable();
  ~CVekModifiable() override;

  [[nodiscard]] const CString& GetName() const { return m_name; }
  void SetName(const CString& name) { m_name = name; }

  // The object's properties, never null. They stay the object's.
  [[nodiscard]] CVekPropertySet* GetProperties() { return &m_properties; }
  [[nodiscard]] const CVekPropertySet* GetProperties() const { return &m_properties; }

 private:
  CString m_name;
  CVekPropertySet m_properties;
};
