#pragma once

// Base of the named objects of the scene graph.

#include <VekFoundations/VekExport.h>

#include <string>

class VEK_API sglObject {
 public:
  sglObject(const sglObject&) = delete;
  sglObject& operator=(const sglObject&) = delete;
  virtual ~sglObject();

  // Any bytes; "" is no name.
  void setName(const std::string& name) { m_name = name; }
  [[nodiscard]] const std::string& getName() const { return m_name; }

 protected:
  sglObject() = default;

 private:
  std::string m_name;
};
