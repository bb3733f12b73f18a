// File operations on paths of either slash.

#include <VekFoundations/CVekIO.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "embedded/FileCopy.h"
#include "embedded/FileErrors.h"
#include "embedded/Paths.h"

namespace {

// The place of the full stop that begins the extension of the path's file name, npos without one.
std::size_t extensionDot(const CString& path) {
  const std::size_t dot = path.rfind('.');
  const std::size_t slash = embedded::lastSlash(path);
  const bool inName = dot != CString::npos && (slash == CString::npos || dot > slash);
  return inName ? dot : CString::npos;
}

}  // namespace

CString CVekIO::GetFileFolder(const CString& path) {
  const std::size_t slash = embedded::lastSlash(path);
  if (slash == CString::npos) return ".";
  return path.substr(0, slash == 0 ? 1 : slash);
}

CString CVekIO::GetFile(const CString& path) { return CString(embedded::fileNameOf(path)); }

CString CVekIO::GetFileBase(const CString& path) { return GetFile(GetFileBasePath(path)); }

CString CVekIO::GetFileBasePath(const CString& path) { return path.substr(0, extensionDot(path)); }

CString CVekIO::GetFileExtension(const CString& path) {
  const std::size_t dot = extensionDot(path);
  return dot == CString::npos ? CString() : path.substr(dot + 1);
}

bool CVekIO::IsDirectory(const CString& path) {
  std::error_code error;
  return std::filesystem::is_directory(embedded::nativePath(path), error);
}

bool CVekIO::CreateDirectoryA(const CString& path, bool withParents) {
  std::error_code error;
  CString native = embedded::nativePath(path);
  while (native.size() > 1 && native.back() == '/') native.pop_back();
  if (withParents) {
    std::filesystem::create_directories(native, error);
  } else {
    std::filesystem::create_directory(native, error);
  }
  if (IsDirectory(native)) return true;
  embedded::reportFileError(native, true, error ? error.message() : "Not a directory");
  return false;
}

bool CVekIO::IsFile(const CString& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(embedded::nativePath(path), error);
}

bool CVekIO::CopyFileA(const CString& from, const CString& to) {
  const CString source = embedded::nativePath(from);
  if (!IsFile(source) || !std::ifstream(source)) {
    embedded::reportFileError(source, false, "cannot be read");
    return false;
  }
  const CString target = embedded::nativePath(to);
  const int error = embedded::copyFile(source, target);
  if (error == 0) return true;
  embedded::reportFileError(target, true, std::generic_category().message(error));
  return false;
}
