#pragma once

// Progress for people who wait: one line on standard error that keeps being overwritten, and only when that is a
// terminal.

#include <chrono>
#include <memory>
#include <streambuf>
#include <string>
#include <string_view>

namespace wrl {

class Progress {
 public:
  /// How long nobody needs to be told that something goes on.
  static constexpr std::chrono::milliseconds kPatience{500};

  /// Shows nothing before that time has passed. Until it is gone, what is written to `std::cerr` takes the line's
  /// place. One may live inside the life of another.
  explicit Progress(std::chrono::milliseconds patience = kPatience);
  /// Wipes the line.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Whether there is a terminal to show it on; without one nothing needs to report.
  [[nodiscard]] bool isShown() const { return m_isShown; }

  /// Shows a text, unless another was shown a moment ago.
  void show(std::string_view text);

  /// Takes the line off the terminal, whoever showed it, for something that stays.
  static void wipe();

  /// A reader's progress function: `count` and this object. Shows the count behind the reader's file name.
  static void showCount(int count, void* progress);
  /// The name that `showCount` puts before the count.
  void setFile(std::string file) { m_file = std::move(file); }

  /// What stands before every text that is shown from now on.
  static void setHeading(std::string heading);

 private:
  bool m_isShown;
  std::string m_file;
  std::chrono::steady_clock::time_point m_next;  // when a text may be shown again
  std::unique_ptr<std::streambuf> m_wiping;      // in the place of std::cerr's buffer
  std::streambuf* m_errors = nullptr;            // that buffer
};

}  // namespace wrl
