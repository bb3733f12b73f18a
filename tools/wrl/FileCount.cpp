// One file needs no count.

#include "tools/wrl/FileCount.h"

namespace wrl {

FileCount::FileCount(std::size_t total, std::chrono::milliseconds patience) : m_progress(patience), m_total(total) {}

FileCount::~FileCount() { Progress::setHeading(""); }

void FileCount::begin(const std::string& file) {
  ++m_number;
  if (m_total < 2 || !m_progress.isShown()) return;
  Progress::setHeading(std::to_string(m_number) + " of " + std::to_string(m_total) + ": ");
  m_progress.show(file);
}

}  // namespace wrl
