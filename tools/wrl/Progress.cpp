// A line that changes faster than the eye follows only costs time, so it is drawn ten times a second at most. There is
// one terminal, so whether the line stands there is known to all objects.

#include "tools/wrl/Progress.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>

namespace wrl {

namespace {

constexpr std::chrono::milliseconds kPause(100);
constexpr std::string_view kWipe = "\r\x1b[K";  // back to the start of the line, and clear it

bool isDrawn = false;
std::string heading;  // before every text

void writeToTerminal(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stderr); }

// Hands everything on, with the line gone before it.
class WipingBuffer : public std::streambuf {
 public:
  explicit WipingBuffer(std::streambuf& behind) : m_behind(behind) {}

 protected:
  int_type overflow(int_type next) override {
    Progress::wipe();
    return traits_type::eq_int_type(next, traits_type::eof()) ? traits_type::not_eof(next)
                                                              : m_behind.sputc(traits_type::to_char_type(next));
  }
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    Progress::wipe();
    return m_behind.sputn(text, count);
  }
  int sync() override { return m_behind.pubsync(); }

 private:
  std::streambuf& m_behind;
};

}  // namespace

Progress::Progress(std::chrono::milliseconds patience)
    : m_isShown(::isatty(STDERR_FILENO) == 1), m_next(std::chrono::steady_clock::now() + patience) {
  if (!m_isShown) return;
  m_wiping = std::make_unique<WipingBuffer>(*std::cerr.rdbuf());
  m_errors = std::cerr.rdbuf(m_wiping.get());
}

Progress::~Progress() {
  if (!m_isShown) return;
  std::cerr.rdbuf(m_errors);
  wipe();
}

void Progress::show(std::string_view text) {
  const auto now = std::chrono::steady_clock::now();
  if (!m_isShown || now < m_next) return;
  m_next = now + kPause;
  isDrawn = true;
  writeToTerminal(std::string(kWipe).append(heading).append(text));
}

void Progress::wipe() {
  if (isDrawn) writeToTerminal(std::string(kWipe));
  isDrawn = false;
}

void Progress::showCount(int count, void* progress) {
  Progress& self = *static_cast<Progress*>(progress);
  self.show(self.m_file + ": " + std::to_string(count));
}

void Progress::setHeading(std::string text) { heading = std::move(text); }

}  // namespace wrl
