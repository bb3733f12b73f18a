#pragma once

// File operations on 8-bit paths. Either slash separates the pieces of a path, and both reach the disk as separators;
// what is put together from the pieces of a path keeps the slashes that the path had. Nothing here throws.

#include <VekFoundations/CString.h>
#include <VekFoundations/VekExport.h>

class VEK_API CVekIO {
 public:
  CVekIO() = delete;

  // The folder of a path, without a slash at its end; "." for a bare file name; the slash itself for a file in the
  // root.
  [[nodiscard]] static CString GetFileFolder(const CString& path);

  // The file name with its extension: what stands behind the last slash of either kind.
  [[nodiscard]] static CString GetFile(const CString& path);

  // The file name without folder and extension. The last full stop of the name begins the extension.
  [[nodiscard]] static CString GetFileBase(const CString& path);

  // The whole path without the extension and its full stop.
  [[nodiscard]] static CString GetFileBasePath(const CString& path);

  // The extension without the full stop, case unchanged; "" when there is none.
  [[nodiscard]] static CString GetFileExtension(const CString& path);

  // Whether the path names an existing folder; a slash at its end does not matter.
  [[nodiscard]] static bool IsDirectory(const CString& path);

  // Makes a folder; with `withParents` the missing ones above it as well. True when the folder exists afterwards.
  static bool CreateDirectoryA(const CString& path, bool withParents);

  // Whether the path names an existing regular file.
  [[nodiscard]] static bool IsFile(const CString& path);

  // Copies a regular file over whatever file stands at `to`. False when that failed; then `to` may be incomplete.
  static bool CopyFileA(const CString& from, const CString& to);
};
