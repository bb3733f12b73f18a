#pragma once

// The urls in a world as files of this machine. Nothing is ever fetched: a url with another scheme than file names no
// file here.

#include <string>
#include <string_view>

namespace vrml {

class Node;

/// The local file that a url names, relative to the folder of the file `base`, in which the url stands; "" when it
/// names none. Either slash separates. Whether the file is there is not asked.
[[nodiscard]] std::string localPath(std::string_view url, std::string_view base);

/// Whether there is a regular file. A world must not make its reader wait for a pipe, or read a device that never ends,
/// so the files that it names are regular ones.
[[nodiscard]] bool isRegularFile(const std::string& path);

/// The file that a node was read from: that of the innermost Inline that holds it, else that of the root; "" when it
/// stands below neither, or was read from none.
[[nodiscard]] std::string fileOfNode(const Node& node);

}  // namespace vrml
