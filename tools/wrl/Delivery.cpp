// A rename within a file system is atomic, so the private folder lies in the folder of the file that is written. A file
// that is about to be replaced gets a second name first, under which it waits until all is done. A folder of further
// files may be a link to another file system; a file that goes there is first copied beside its place.

#include "tools/wrl/Delivery.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "embedded/FileCopy.h"
#include "embedded/Paths.h"

namespace wrl {

namespace {

namespace fs = std::filesystem;

std::string messageOf(int error) { return std::generic_category().message(error); }

// The error of making `to` another name of `from`, or else its only name; 0 when it was made.
int keepAs(const std::string& from, const std::string& to) {
  if (::link(from.c_str(), to.c_str()) == 0) return 0;
  return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

// The error of giving a file its final name, across file systems too; 0 when it has it.
int moveFile(const std::string& from, const std::string& to, const std::string& spare) {
  if (std::rename(from.c_str(), to.c_str()) == 0) return 0;
  if (errno != EXDEV) return errno;
  int error = embedded::copyFile(from, spare);
  if (error == 0 && std::rename(spare.c_str(), to.c_str()) != 0) error = errno;
  if (error != 0) ::unlink(spare.c_str());
  return error;
}

bool hasSameContent(const std::string& path, const std::string& other) {
  using Bytes = std::istreambuf_iterator<char>;
  std::error_code error;
  if (fs::file_size(path, error) != fs::file_size(other, error)) return false;
  std::ifstream in(path, std::ios::binary);
  std::ifstream otherIn(other, std::ios::binary);
  return std::equal(Bytes(in), Bytes(), Bytes(otherIn), Bytes());
}

}  // namespace

Delivery::Delivery(const std::string& path) : m_target(path), m_folder(embedded::nativePath(embedded::folderOf(path))) {
  struct stat status {};
  const bool exists = ::stat(path.c_str(), &status) == 0;
  const bool isRegular = exists && S_ISREG(status.st_mode);
  if (exists && S_ISDIR(status.st_mode)) {
    m_error = messageOf(EISDIR);
  } else if (exists && ::access(path.c_str(), W_OK) != 0) {
    m_error = messageOf(errno);
  } else if (exists && !isRegular) {
    m_path = path;
  } else {
    // A symbolic link stays one: what it points to is replaced.
    std::error_code ignored;
    const fs::path canonical = exists ? fs::canonical(path, ignored) : fs::path();
    if (!canonical.empty()) m_target = canonical.string();
    openBeside();
  }
}

Delivery::~Delivery() {
  std::error_code ignored;
  if (!m_privateFolder.empty()) fs::remove_all(m_privateFolder, ignored);
}

void Delivery::openBeside() {
  const std::string name(embedded::fileNameOf(m_target));
  std::string folder = (fs::path(m_target).parent_path() / ".wrl-XXXXXX").string();
  if (name.empty()) {
    m_error = messageOf(ENOENT);
  } else if (::mkdtemp(folder.data()) == nullptr) {
    m_error = messageOf(errno);
  } else {
    m_privateFolder = folder + "/";
    m_path = m_privateFolder + name;
  }
}

std::string Delivery::finish() {
  if (!m_error.empty() || m_privateFolder.empty()) return m_error;
  struct stat status {};
  if (::stat(m_target.c_str(), &status) == 0 && ::chmod(m_path.c_str(), status.st_mode & 07777U) != 0) {
    return m_error = messageOf(errno);
  }
  m_error = moveAll();
  if (!m_error.empty()) {
    undo();
    return m_error;
  }
  for (const Move& move : m_moves) {
    if (!move.backup.empty()) ::unlink(move.backup.c_str());
  }
  return "";
}

std::string Delivery::moveAll() {
  listMoves();
  for (const std::string& subfolder : m_subfolders) {
    const std::string error = makeFolder(m_folder + subfolder);
    if (!error.empty()) return subfolder + ": " + error;
  }
  for (Move& move : m_moves) {
    const std::string error = place(move);
    if (error.empty()) continue;
    return move.to == m_target ? error : move.from.substr(m_privateFolder.size()) + ": " + error;
  }
  return "";
}

// Everything in the private folder; the file itself comes last.
void Delivery::listMoves() {
  std::error_code error;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_privateFolder, error)) {
    const std::string from = entry.path().string();
    const std::string relative = from.substr(m_privateFolder.size());
    if (entry.is_directory()) {
      m_subfolders.push_back(relative);
    } else if (from != m_path) {
      m_moves.push_back({from, m_folder + relative, "", false});
    }
  }
  m_moves.push_back({m_path, m_target, "", false});
}

std::string Delivery::makeFolder(const std::string& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) return "";
  if (::mkdir(path.c_str(), 0777) != 0) return messageOf(errno == EEXIST ? ENOTDIR : errno);
  m_madeFolders.push_back(path);
  return "";
}

std::string Delivery::place(Move& move) {
  // The private folder's name is unique where it lies, and as good as unique elsewhere.
  const std::string own = fs::path(m_privateFolder).parent_path().filename().string();
  const std::string number = std::to_string(&move - m_moves.data());
  const std::string spare = (fs::path(move.to).parent_path() / (own + "-" + number)).string();
  struct stat status {};
  if (::lstat(move.to.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return messageOf(EISDIR);
    const std::string name = move.from.substr(m_privateFolder.size());
    if (name.find('/') != std::string::npos && !hasSameContent(move.from, move.to)) m_replaced.push_back(name);
    const std::string backup = spare + ".old";
    if (const int error = keepAs(move.to, backup); error != 0) return messageOf(error);
    move.backup = backup;
  }
  const int error = moveFile(move.from, move.to, spare);
  move.isPlaced = error == 0;
  return error == 0 ? "" : messageOf(error);
}

void Delivery::undo() {
  for (auto move = m_moves.rbegin(); move != m_moves.rend(); ++move) {
    if (!move->backup.empty()) {
      // A rename between two names of one file leaves both.
      if (std::rename(move->backup.c_str(), move->to.c_str()) == 0) ::unlink(move->backup.c_str());
    } else if (move->isPlaced) {
      ::unlink(move->to.c_str());
    }
  }
  for (auto folder = m_madeFolders.rbegin(); folder != m_madeFolders.rend(); ++folder) ::rmdir(folder->c_str());
}

}  // namespace wrl
