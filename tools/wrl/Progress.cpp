// A line that changes faster than the eye follows only costs time, so it is drawn ten times a second at most.

#include "tools/wrl/Progress.h"

#include <unistd.h>

#include <cstdio>

namespace wrl {

namespace {

constexpr std::chrono::milliseconds kPause(100);
constexpr std::string_view kWipe = "\r\x1b[K";  // back to the start of the line, and clear it

void writeToTerminal(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stderr); }

}  // namespace

Progress::Progress() : m_isShown(::isatty(STDERR_FILENO) == 1), m_last(std::chrono::steady_clock::now() - kPause) {}

Progress::~Progress() { wipe(); }

void Progress::show(std::string_view text) {
  const auto now = std::chrono::steady_clock::now();
  if (!m_isShown || now - m_last < kPause) return;
  m_last = now;
  m_isDrawn = true;
  writeToTerminal(std::string(kWipe).append(text));
}

void Progress::wipe() {
  if (m_isDrawn) writeToTerminal(std::string(kWipe));
  m_isDrawn = false;
}

void Progress::showCount(int count, void* progress) {
  Progress& self = *static_cast<Progress*>(progress);
  self.show(self.m_file + ": " + std::to_string(count));
}

}  // namespace wrl
