#pragma once

// Where a command's result goes: standard output, or a file that is either written whole or not touched.

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace wrl {

/// A stream buffer over a file descriptor that keeps the number of the first error and swallows everything behind it.
/// It does not own the descriptor.
class DescriptorBuffer : public std::streambuf {
 public:
  explicit DescriptorBuffer(int descriptor);
  DescriptorBuffer(const DescriptorBuffer&) = delete;
  DescriptorBuffer& operator=(const DescriptorBuffer&) = delete;

  /// The `errno` of the first write that failed, 0 when none did.
  [[nodiscard]] int error() const { return m_error; }

 protected:
  int_type overflow(int_type next) override;
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  int sync() override;

 private:
  bool drain();
  bool writeAll(std::string_view text);

  int m_descriptor;
  int m_error = 0;
  std::vector<char> m_buffer;
};

/// The destination of one result. Text goes into `stream()`, then `finish()` delivers it.
///
/// A regular file is written under another name beside its place and renamed at the end, so that nobody ever sees half
/// of it and a failure leaves what was there before. Devices and pipes are written directly.
class Output {
 public:
  /// Opens the destination: the empty path and "-" mean standard output. A failure is reported by `finish()`.
  explicit Output(const std::string& path);
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  [[nodiscard]] std::ostream& stream() { return m_stream; }

  /// Flushes, closes and renames. True when every byte has been accepted; otherwise `error()` says what went wrong, and
  /// nothing is left of a file that was not finished. To be called once, after the last write.
  [[nodiscard]] bool finish();

  /// `finish()`, with the error as a line on standard error.
  [[nodiscard]] bool finishOrReport();

  /// One line without its end, "NAME: error: REASON"; "" as long as nothing failed.
  [[nodiscard]] std::string error() const { return m_reason.empty() ? "" : m_name + ": error: " + m_reason; }

  /// Why nothing could be written, without the name; "" as long as nothing failed.
  [[nodiscard]] const std::string& reason() const { return m_reason; }

 private:
  struct Destination {
    int descriptor = -1;
    bool owned = false;     // the descriptor is ours to close
    std::string target;     // what the file is renamed to at the end, "" when it is written in place
    std::string temporary;  // its name until then
    int error = 0;          // the `errno` of opening it
  };

  static Destination open(const std::string& path);
  static Destination openInPlace(const std::string& path);
  static Destination openBeside(const std::string& path, unsigned mode);
  int closeDescriptor();
  void discard();

  std::string m_name;  // as reports call it
  Destination m_destination;
  DescriptorBuffer m_buffer;
  std::ostream m_stream;
  std::string m_reason;
};

}  // namespace wrl
