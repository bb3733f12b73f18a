// assimp's lines begin with their kind and the number of a thread, as in "Error, T0: ...".

#include "embedded/meshes/ReaderLog.h"

#include <assimp/DefaultLogger.hpp>
#include <assimp/LogStream.hpp>
#include <string_view>

namespace embedded {
namespace {

class Stream : public Assimp::LogStream {
 public:
  explicit Stream(std::vector<std::string>& lines) : m_lines(lines) {}

  void write(const char* message) override {
    std::string_view line(message);
    const std::size_t prefix = line.find(": ");
    if (prefix != std::string_view::npos) line.remove_prefix(prefix + 2);
    while (line.ends_with('\n')) line.remove_suffix(1);
    m_lines.emplace_back(line);
  }

 private:
  std::vector<std::string>& m_lines;
};

}  // namespace

ReaderLog::ReaderLog() {
  Assimp::DefaultLogger::create("", Assimp::Logger::NORMAL, 0);
  // The logger owns the stream.
  Assimp::DefaultLogger::get()->attachStream(new Stream(lines), Assimp::Logger::Err);
}

ReaderLog::~ReaderLog() { Assimp::DefaultLogger::kill(); }

}  // namespace embedded
