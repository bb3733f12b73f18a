#pragma once

// Picks the statistics block out of the messages of a load.

#include <string_view>

namespace wrl {

/// To be asked about every message of one load, in order.
class StatisticsFilter {
 public:
  /// Whether this message is one of the block.
  [[nodiscard]] bool isStatistics(std::string_view message);

 private:
  bool m_isInside = false;
};

}  // namespace wrl
