// The module always writes the block. Its messages follow each other, and the first and the last are known by how they
// begin.

#include "tools/wrl/StatisticsFilter.h"

namespace wrl {

namespace {

constexpr std::string_view kFirst = "-- Statistics for: ";
constexpr std::string_view kLast = "   S3TC Cmp+Mipped: ";

}  // namespace

bool StatisticsFilter::isStatistics(std::string_view message) {
  if (message.starts_with(kFirst)) m_isInside = true;
  const bool belongs = m_isInside;
  if (message.starts_with(kLast)) m_isInside = false;
  return belongs;
}

}  // namespace wrl
