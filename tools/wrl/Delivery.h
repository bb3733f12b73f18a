#pragma once

// Output by a writer that takes a path and may put further files beside it: all of it appears at its place at the end,
// or none of it.

#include <string>
#include <vector>

namespace wrl {

/// The place of one output. The writer is given `path()`, in a private folder beside the place; `finish()` moves what
/// it left there, the file itself last, so that whoever finds the new file finds all that belongs to it. What is
/// replaced comes back when something cannot be moved. Devices and pipes are written directly.
class Delivery {
 public:
  /// Makes the private folder. `finish()` tells when that failed; `path()` is "" then.
  explicit Delivery(const std::string& path);

  /// Removes the private folder, and with it what was not delivered.
  ~Delivery();
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;

  /// Where to write; its file name is the one that the output will have.
  [[nodiscard]] const std::string& path() const { return m_path; }

  /// The private folder, with a slash behind it; "" when the output is written directly.
  [[nodiscard]] const std::string& privateFolder() const { return m_privateFolder; }

  /// The folder in which the output will stand, with a slash behind it; "" for the current one.
  [[nodiscard]] const std::string& folder() const { return m_folder; }

  /// Why there is no place to write to; "" when there is one.
  [[nodiscard]] const std::string& error() const { return m_error; }

  /// Moves everything to its place; why that failed, or "". To be called once, when all of it has been written.
  [[nodiscard]] std::string finish();

  /// The further files, in folders beside the output, that took the place of others with other content, by their names
  /// from there. Known after `finish()`.
  [[nodiscard]] const std::vector<std::string>& replaced() const { return m_replaced; }

 private:
  struct Move {
    std::string from;
    std::string to;
    std::string backup;     // what stood there, "" when nothing did
    bool isPlaced = false;  // the new file stands there
  };

  void openBeside();
  std::string moveAll();
  void listMoves();
  std::string makeFolder(const std::string& path);
  std::string place(Move& move);
  void undo();

  std::string m_target;  // the file in the end, symbolic links followed
  std::string m_folder;  // where further files go
  std::string m_privateFolder;
  std::string m_path;
  std::string m_error;
  std::vector<std::string> m_subfolders;   // of the private folder, by their relative names
  std::vector<std::string> m_madeFolders;  // at the place
  std::vector<Move> m_moves;
  std::vector<std::string> m_replaced;
};

}  // namespace wrl
