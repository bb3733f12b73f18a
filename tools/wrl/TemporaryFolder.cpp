// In the system's folder for such things, under a name that the system makes unique.

#include "tools/wrl/TemporaryFolder.h"

#include <stdlib.h>

#include <filesystem>
#include <system_error>

namespace wrl {

TemporaryFolder::TemporaryFolder() {
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  if (error) return;
  std::string name = (parent / "wrl-XXXXXX").string();
  if (::mkdtemp(name.data()) != nullptr) m_path = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  if (!m_path.empty()) std::filesystem::remove_all(m_path, error);
}

}  // namespace wrl
