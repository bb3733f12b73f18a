#pragma once

// The properties of one host object, found by the number of their name.

#include <VekFoundations/CVekPropIDServer.h>
#include <VekFoundations/CVekProperty.h>
#include <VekFoundations/VekExport.h>

#include <map>
#include <memory>

// Owns its properties.
class VEK_API CVekPropertySet {
 public:
  CVekPropertySet();
  CVekPropertySet(const CVekPropertySet&) = delete;
  CVekPropertySet& operator=(const CVekPropertySet&) = delete;
  ~CVekPropertySet();

  // The property of that number, or null. It stays the set's.
  [[nodiscard]] CVekProperty* GetProperty(CVekPropID id) const;

  // Takes a property over and drops the one that had that number. Null only drops.
  void SetProperty(CVekPropID id, std::unique_ptr<CVekProperty> property);

 private:
  std::map<CVekPropID, std::unique_ptr<CVekProperty>> m_properties;
};
