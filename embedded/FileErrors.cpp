// The innermost log, which is all that a report needs.

#include "embedded/FileErrors.h"

#include <utility>

namespace embedded {
namespace {

FileErrorLog*& innermostLog() {
  static FileErrorLog* log = nullptr;
  return log;
}

}  // namespace

void reportFileError(std::string_view path, bool isWriting, std::string_view reason) {
  if (FileErrorLog* const log = innermostLog()) {
    log->m_errors.push_back({std::string(path), isWriting, std::string(reason)});
  }
}

FileErrorLog::FileErrorLog() : m_previous(std::exchange(innermostLog(), this)) {}

FileErrorLog::~FileErrorLog() { innermostLog() = m_previous; }

}  // namespace embedded
