// A stream appends to the text that it shares with the list of files. Exporters write from front to back, but may ask
// where they are.

#include "embedded/meshes/MemoryFiles.h"

#include <algorithm>

namespace embedded {
namespace {

class Stream : public Assimp::IOStream {
 public:
  explicit Stream(std::shared_ptr<std::string> text) : m_text(std::move(text)) {}

  std::size_t Read(void*, std::size_t, std::size_t) override { return 0; }

  std::size_t Write(const void* data, std::size_t size, std::size_t count) override {
    const std::size_t bytes = size * count;
    m_text->resize(std::max(m_text->size(), m_place + bytes));
    std::copy_n(static_cast<const char*>(data), bytes, m_text->begin() + static_cast<std::ptrdiff_t>(m_place));
    m_place += bytes;
    return count;
  }

  aiReturn Seek(std::size_t offset, aiOrigin origin) override {
    const std::size_t base = origin == aiOrigin_SET ? 0 : origin == aiOrigin_CUR ? m_place : m_text->size();
    if (base + offset > m_text->size()) return aiReturn_FAILURE;
    m_place = base + offset;
    return aiReturn_SUCCESS;
  }

  [[nodiscard]] std::size_t Tell() const override { return m_place; }
  [[nodiscard]] std::size_t FileSize() const override { return m_text->size(); }
  void Flush() override {}

 private:
  std::shared_ptr<std::string> m_text;
  std::size_t m_place = 0;
};

}  // namespace

bool MemoryFiles::Exists(const char* name) const {
  return std::any_of(files.begin(), files.end(), [name](const auto& file) { return file.first == name; });
}

Assimp::IOStream* MemoryFiles::Open(const char* name, const char* mode) {
  if (mode == nullptr || mode[0] != 'w') return nullptr;
  files.emplace_back(name, std::make_shared<std::string>());
  return new Stream(files.back().second);
}

}  // namespace embedded
