#pragma once

// Progress for people who wait: one line on standard error that keeps being overwritten, and only when that is a
// terminal.

#include <chrono>
#include <string>
#include <string_view>

namespace wrl {

class Progress {
 public:
  Progress();
  /// Wipes the line.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Whether there is a terminal to show it on; without one nothing needs to report.
  [[nodiscard]] bool isShown() const { return m_isShown; }

  /// Shows a text, unless another was shown a moment ago.
  void show(std::string_view text);

  /// Takes the text off the terminal, for something that stays.
  void wipe();

  /// A reader's progress function: `count` and this object. Shows the count behind the reader's file name.
  static void showCount(int count, void* progress);
  /// The name that `showCount` puts before the count.
  void setFile(std::string file) { m_file = std::move(file); }

 private:
  bool m_isShown;
  bool m_isDrawn = false;
  std::string m_file;
  std::chrono::steady_clock::time_point m_last;
};

}  // namespace wrl
