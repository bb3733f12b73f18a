#pragma once

// The embedded host as the command line wants it.

#include <string>

#include "tools/wrl/HostOptions.h"

class sglNode;

namespace wrl {

/// Sets the process's loader settings by the options, for as long as it lives, and then puts the defaults back. One at
/// a time.
class HostSetUp {
 public:
  /// `options` must outlive this.
  explicit HostSetUp(const HostOptions& options);
  ~HostSetUp();
  HostSetUp(const HostSetUp&) = delete;
  HostSetUp& operator=(const HostSetUp&) = delete;

 private:
  static bool answerHook(sglNode* node, void* fileNode, const std::string& event, void* self);

  const HostOptions& m_options;
};

}  // namespace wrl
