#pragma once

// The host's search for files.

#include <VekFoundations/VekExport.h>

#include <string>
#include <string_view>

class VEK_API sglDataLoader {
 public:
  // Unpacks the bytes of a compressed file into `plain`. False when they cannot be unpacked.
  using UnpackFn = bool (*)(std::string_view packed, std::string& plain);

  sglDataLoader() = delete;

  // What stands before the last slash of either kind; "" for a bare file name, the slash for a file in the root.
  [[nodiscard]] static std::string extractDirectoryFromPath(const std::string& path);

  // Looks for a file in `directory`, when that is not null ("" is the current folder), and then in the host's search
  // folders, first with the whole of `name` behind the folder, then with its file name alone. True when one was found,
  // with its path in `found`; otherwise `found` is left as it is. Either slash separates. The answer is never `name`
  // itself as it stands.
  [[nodiscard]] static bool findFile(const std::string& name, const char* directory, std::string& found);

  // What unpacks compressed models; null, the usual answer, when they are to be refused. A host may lack this query
  // altogether: test its address before calling it.
  [[nodiscard]] VEK_OPTIONAL static UnpackFn getUnpacker();
};
