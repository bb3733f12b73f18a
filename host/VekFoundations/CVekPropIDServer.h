#pragma once

// Numbers for property names, the same for the life of the process.

#include <VekFoundations/CString.h>
#include <VekFoundations/VekExport.h>

#include <cstdint>

// A property name's number. 0 is nobody's.
using CVekPropID = std::uint32_t;

class VEK_API CVekPropIDServer {
 public:
  // The number of a name; a name asked for the first time gets a new one.
  CVekPropID GetID(const CString& name);
};

// The process's one server.
VEK_API CVekPropIDServer& GetPropIDServer();
