// The replaced functions hand on to the ones that the linker would have found without them, so that a sanitizer's stand
// in between as usual.

#include "fuzz/OpenWatch.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

namespace {

bool g_isWatching = false;
std::vector<fuzz::Opened> g_opened;

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void keep(const char* path, bool forWriting, int descriptor) {
  if (!g_isWatching || descriptor < 0) return;
  struct stat status {};
  const bool isRegular = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  g_opened.push_back({path, forWriting, isRegular});
}

int keepDescriptor(const char* path, int flags, int descriptor) {
  keep(path, (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0, descriptor);
  return descriptor;
}

std::FILE* keepFile(const char* path, const char* mode, std::FILE* file) {
  if (file != nullptr) keep(path, std::strpbrk(mode, "wa+") != nullptr, fileno(file));
  return file;
}

// The third argument of an open, when its flags say that there is one.
#define WRL_MODE_ARGUMENT(mode, flags)             \
  mode_t mode = 0;                                 \
  if (((flags) & (O_CREAT | O_TMPFILE)) != 0) {    \
    va_list arguments;                             \
    va_start(arguments, flags);                    \
    mode = va_arg(arguments, mode_t); /* NOLINT */ \
    va_end(arguments);                             \
  }

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  WRL_MODE_ARGUMENT(mode, flags)
  return keepDescriptor(path, flags, next<int(const char*, int, ...)>("open")(path, flags, mode));
}
int open64(const char* path, int flags, ...) {
  WRL_MODE_ARGUMENT(mode, flags)
  return keepDescriptor(path, flags, next<int(const char*, int, ...)>("open64")(path, flags, mode));
}
int openat(int folder, const char* path, int flags, ...) {
  WRL_MODE_ARGUMENT(mode, flags)
  return keepDescriptor(path, flags, next<int(int, const char*, int, ...)>("openat")(folder, path, flags, mode));
}
std::FILE* fopen(const char* path, const char* mode) {
  return keepFile(path, mode, next<std::FILE*(const char*, const char*)>("fopen")(path, mode));
}
std::FILE* fopen64(const char* path, const char* mode) {
  return keepFile(path, mode, next<std::FILE*(const char*, const char*)>("fopen64")(path, mode));
}
int mkdir(const char* path, mode_t mode) noexcept {
  if (g_isWatching) g_opened.push_back({path, true, true});
  return next<int(const char*, mode_t)>("mkdir")(path, mode);
}

}  // extern "C"

namespace fuzz {

void startOpenWatch() {
  g_opened.clear();
  g_isWatching = true;
}

std::vector<Opened> endOpenWatch() {
  g_isWatching = false;
  return std::exchange(g_opened, {});
}

}  // namespace fuzz
