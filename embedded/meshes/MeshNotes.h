#pragma once

// What a reader or writer of another format has to say beside its result.

#include <algorithm>
#include <string>
#include <vector>

namespace embedded {

// Collects notes, each once: one line of text, no line end.
class MeshNotes {
 public:
  void add(const std::string& note) {
    if (std::find(m_notes.begin(), m_notes.end(), note) == m_notes.end()) m_notes.push_back(note);
  }
  [[nodiscard]] const std::vector<std::string>& all() const { return m_notes; }

 private:
  std::vector<std::string> m_notes;
};

}  // namespace embedded
