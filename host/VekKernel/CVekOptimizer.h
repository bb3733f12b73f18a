#pragma once

// Makes scene graphs smaller.

#include <VekFoundations/CString.h>
#include <VekFoundations/VekExport.h>

class sglGroup;
class sglNode;

class VEK_API CVekOptimizer {
 public:
  CVekOptimizer();
  CVekOptimizer(const CVekOptimizer&) = delete;
  CVekOptimizer& operator=(const CVekOptimizer&) = delete;
  virtual ~CVekOptimizer();

  // Flattens a graph into one new group of that name, which belongs to the caller. The graph is taken over and
  // destroyed; it must stand in no group. Null gives null.
  [[nodiscard]] sglGroup* FactorizeGraph(sglNode* root, CString name);
};
