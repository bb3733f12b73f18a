#pragma once

// Files of assimp's exporters, kept in memory: they go to disk with everything else that a command writes.

#include <assimp/IOStream.hpp>
#include <assimp/IOSystem.hpp>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace embedded {

// Takes files that are opened for writing; nothing can be read.
class MemoryFiles : public Assimp::IOSystem {
 public:
  bool Exists(const char* name) const override;
  [[nodiscard]] char getOsSeparator() const override { return '/'; }
  Assimp::IOStream* Open(const char* name, const char* mode) override;
  void Close(Assimp::IOStream* stream) override { delete stream; }

  // Names and contents in the order in which the files were opened.
  std::vector<std::pair<std::string, std::shared_ptr<std::string>>> files;
};

}  // namespace embedded
