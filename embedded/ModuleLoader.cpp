// The module is opened with all its symbols bound at once, so that a host that lacks one is found out here and not in
// the middle of a load.

#include "embedded/ModuleLoader.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

#include "embedded/Paths.h"

namespace embedded {

namespace {

constexpr const char* kModuleName = "modelwrl.so";

// A build leaves the module in the host library's own folder. An installed one stands in a folder of the project's,
// since a library folder is for what programs link with.
std::string modulePathIn(const std::string& folder) {
  std::string beside = folder + kModuleName;
  std::string installed = folder + "wrl/" + kModuleName;
  std::error_code ignored;
  const bool isInstalled = !std::filesystem::exists(beside, ignored) && std::filesystem::exists(installed, ignored);
  return isInstalled ? installed : beside;
}

}  // namespace

ModuleLoader::~ModuleLoader() { close(); }

void ModuleLoader::close() {
  m_load = nullptr;
  m_write = nullptr;
  if (m_handle != nullptr) dlclose(m_handle);
  m_handle = nullptr;
}

bool ModuleLoader::open(const std::string& path) {
  close();
  m_errorText.clear();
  m_handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (m_handle != nullptr) m_load = reinterpret_cast<LoadFn>(dlsym(m_handle, "loadModelWRL"));
  if (m_load == nullptr) {
    const char* reason = dlerror();
    m_errorText = reason != nullptr ? reason : path + ": loadModelWRL is null";
    close();
    return false;
  }
  m_write = reinterpret_cast<WriteFn>(dlsym(m_handle, "writeModelWRL"));
  return true;
}

std::unique_ptr<CVekDBRoot> ModuleLoader::loadModel(const std::string& path, unsigned flags) const {
  return std::unique_ptr<CVekDBRoot>(m_load != nullptr ? m_load(path, flags) : nullptr);
}

bool ModuleLoader::writeModel(const std::string& path, CVekStager* stager) const {
  if (m_write == nullptr) return false;
  m_write(path, stager);
  return true;
}

std::string ModuleLoader::pathBesideHost() {
  static const char anchor = 0;  // something whose address lies in the host library
  Dl_info info{};
  if (dladdr(&anchor, &info) == 0 || info.dli_fname == nullptr) return kModuleName;
  const std::string host = info.dli_fname;
  const std::size_t slash = lastSlash(host);
  return modulePathIn(slash == std::string::npos ? "./" : host.substr(0, slash + 1));
}

}  // namespace embedded
