#pragma once

// A set of assembly nodes, ordered by their identity.

#include <VekKernel/CVekAssyNode.h>

#include <set>

// Null comes before every node.
struct CVekAssyNodeLess {
  bool operator()(const CVekAssyNode* first, const CVekAssyNode* second) const {
    return (first != nullptr ? first->GetIdentity() : 0) < (second != nullptr ? second->GetIdentity() : 0);
  }
};

using CVekAssyNodeSet = std::set<CVekAssyNode*, CVekAssyNodeLess>;
