#pragma once

// Opening the interchange module and calling its two functions, the way a host application does.

#include <VekKernel/CVekStager.h>
#include <VekSGdb/CVekDBRoot.h>

#include <memory>
#include <string>

namespace embedded {

// A loaded module, which can be called as long as this object lives. Scenes that it made outlive this object: they are
// the host's. One call at a time.
class ModuleLoader {
 public:
  // Nothing loaded.
  ModuleLoader() = default;
  ModuleLoader(const ModuleLoader&) = delete;
  ModuleLoader& operator=(const ModuleLoader&) = delete;
  ~ModuleLoader();

  // Opens the module file at `path` and looks its functions up by their plain names. False when the file cannot be
  // opened or lacks `loadModelWRL`; errorText() then says why. `writeModelWRL` may be missing.
  bool open(const std::string& path);

  // Why the last open() failed, "" when it did not.
  [[nodiscard]] const std::string& errorText() const { return m_errorText; }

  // Loads a file: what `loadModelWRL` returns, which is null when there is no memory for an empty scene; null also when
  // nothing is loaded. `path` is passed as it stands.
  [[nodiscard]] std::unique_ptr<CVekDBRoot> loadModel(const std::string& path, unsigned flags = 0) const;

  // Whether the module can write.
  [[nodiscard]] bool canWrite() const { return m_write != nullptr; }

  // Writes the stager's assembly to a file by `writeModelWRL`. False, and nothing done, when the module cannot write.
  // Whether a file came of it is to be seen on the disk.
  bool writeModel(const std::string& path, CVekStager* stager) const;

  // The module file that stands beside the host library, or, where it is installed, in the folder "wrl" there.
  [[nodiscard]] static std::string pathBesideHost();

 private:
  using LoadFn = CVekDBRoot* (*)(const std::string& path, unsigned flags);
  using WriteFn = void (*)(const std::string& path, CVekStager* stager);

  void close();

  void* m_handle = nullptr;
  LoadFn m_load = nullptr;
  WriteFn m_write = nullptr;
  std::string m_errorText;
};

}  // namespace embedded
