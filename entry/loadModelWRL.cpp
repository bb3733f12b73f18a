// Nothing that is thrown below leaves the module: the host is not built to catch it.

#include "entry/loadModelWRL.h"

#include <VekSGdb/CVekDBRoot.h>

#include <new>

#include "import/sglLoadFile_wrl.h"

CVekDBRoot* loadModelWRL(const std::string& path, unsigned flags) noexcept {
  try {
    sglLoadFile_wrl loader;
    return loader.loadFile(path, flags);
  } catch (...) {
    // The loader reports what goes wrong with a file by itself; here not even its report could be made.
    return new (std::nothrow) CVekDBRoot;
  }
}
