// The access bracket stands around everything that looks at the tree, and is closed whatever happens in it.

#include "export/WriteModel.h"

#include <VekKernel/CVekAssyRoot.h>
#include <VekKernel/CVekSceneManager.h>
#include <VekKernel/CVekStager.h>

#include <cerrno>

#include "export/CVekVRMLLoader.h"

namespace exporter {
namespace {

/// Holds the access to a tree open.
class Access {
 public:
  explicit Access(CVekAssyRoot& root) : m_root(root) { m_root.BeginAccess(true); }
  Access(const Access&) = delete;
  Access& operator=(const Access&) = delete;
  ~Access() { m_root.EndAccess(true); }

 private:
  CVekAssyRoot& m_root;
};

CVekAssyRoot* assemblyRootOf(const CVekStager* stager) {
  const CVekSceneManager* manager = stager != nullptr ? stager->GetSceneManager() : nullptr;
  return manager != nullptr ? manager->GetAssyRoot() : nullptr;
}

/// Returns 0 when the file was written whole, else the error number.
int writeAssembly(const std::string& path, CVekStager* stager) {
  CVekAssyRoot* root = assemblyRootOf(stager);
  if (root == nullptr) return EINVAL;
  CVekVRMLLoader writer;
  const Access access(*root);
  writer.SetStager(stager);
  writer.SetFileName(path);
  writer.WriteSceneGraph(path, root);
  return errno;
}

}  // namespace

void writeModel(const std::string& path, CVekStager* stager) noexcept {
  try {
    errno = writeAssembly(path, stager);
  } catch (...) {
    // What is thrown below is memory that ran out, or comes from the host's own callbacks.
    errno = ENOMEM;
  }
}

}  // namespace exporter
