// The buffer speaks to the descriptor itself: C++'s file streams say that a write failed but not why, and the reason (a
// full disk, a closed pipe) is what a user needs. A file's text goes to ".wrl-XXXXXX" in the folder of its target, the
// only place from which a rename is atomic.

#include "tools/wrl/Output.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace wrl {

namespace {

constexpr std::size_t kBufferBytes = 64 * 1024;

// Waits until a descriptor that somebody made non-blocking takes bytes again.
void waitUntilWritable(int descriptor) {
  pollfd entry{descriptor, POLLOUT, 0};
  ::poll(&entry, 1, -1);
}

unsigned modeOfNewFiles() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666U & ~static_cast<unsigned>(mask);
}

}  // namespace

DescriptorBuffer::DescriptorBuffer(int descriptor) : m_descriptor(descriptor), m_buffer(kBufferBytes) {
  setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type next) {
  if (!drain()) return traits_type::eof();
  if (!traits_type::eq_int_type(next, traits_type::eof())) sputc(traits_type::to_char_type(next));
  return traits_type::not_eof(next);
}

std::streamsize DescriptorBuffer::xsputn(const char* text, std::streamsize count) {
  if (count <= epptr() - pptr()) {
    traits_type::copy(pptr(), text, static_cast<std::size_t>(count));
    pbump(static_cast<int>(count));
    return count;
  }
  return drain() && writeAll({text, static_cast<std::size_t>(count)}) ? count : 0;
}

int DescriptorBuffer::sync() { return drain() ? 0 : -1; }

bool DescriptorBuffer::drain() {
  const std::string_view pending(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
  return writeAll(pending);
}

bool DescriptorBuffer::writeAll(std::string_view text) {
  while (m_error == 0 && !text.empty()) {
    const ssize_t written = ::write(m_descriptor, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      waitUntilWritable(m_descriptor);
    } else if (errno != EINTR) {
      m_error = errno;
    }
  }
  return m_error == 0;
}

Output::Output(const std::string& path)
    : m_name(path.empty() || path == "-" ? "standard output" : path),
      m_destination(open(path)),
      m_buffer(m_destination.descriptor),
      m_stream(&m_buffer) {}

Output::~Output() { discard(); }

Output::Destination Output::open(const std::string& path) {
  if (path.empty() || path == "-") return {STDOUT_FILENO, false, "", "", 0};
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return openBeside(path, modeOfNewFiles());
  if (!S_ISREG(status.st_mode) || ::access(path.c_str(), W_OK) != 0) return openInPlace(path);
  // A symbolic link stays one: what it points to is replaced.
  std::error_code ignored;
  const std::filesystem::path target = std::filesystem::canonical(path, ignored);
  return openBeside(target.empty() ? path : target.string(), status.st_mode & 07777U);
}

Output::Destination Output::openInPlace(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  return {descriptor, descriptor != -1, "", "", descriptor == -1 ? errno : 0};
}

Output::Destination Output::openBeside(const std::string& path, unsigned mode) {
  std::string temporary = (std::filesystem::path(path).parent_path() / ".wrl-XXXXXX").string();
  const int descriptor = ::mkstemp(temporary.data());
  if (descriptor == -1) return {-1, false, "", "", errno};
  Destination destination{descriptor, true, path, temporary, 0};
  if (::fchmod(descriptor, mode) != 0) destination.error = errno;
  return destination;
}

bool Output::finish() {
  m_stream.flush();
  int error = m_destination.error != 0 ? m_destination.error : m_buffer.error();
  const int closing = closeDescriptor();
  if (error == 0) error = closing;
  if (error == 0 && !m_destination.target.empty()) {
    if (std::rename(m_destination.temporary.c_str(), m_destination.target.c_str()) != 0) error = errno;
    if (error == 0) m_destination.temporary.clear();
  }
  if (error == 0) return true;
  m_reason = std::generic_category().message(error);
  discard();
  return false;
}

bool Output::finishOrReport() {
  if (finish()) return true;
  std::cerr << error() << '\n';
  return false;
}

int Output::closeDescriptor() {
  if (!m_destination.owned) return 0;
  m_destination.owned = false;
  return ::close(m_destination.descriptor) == 0 ? 0 : errno;
}

void Output::discard() {
  closeDescriptor();
  if (!m_destination.temporary.empty()) ::unlink(m_destination.temporary.c_str());
  m_destination.temporary.clear();
}

}  // namespace wrl
