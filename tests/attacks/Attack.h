#pragma once

// What the attacks share: a folder, the module as a host opens it, and a world and a stage that have something of
// everything.

#include <VekKernel/CVekStager.h>
#include <VekSGdb/CVekDBRoot.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "embedded/ModuleLoader.h"
#include "tests/FailingMemory.h"
#include "tests/TempFolder.h"

namespace attack {

/// Whether the long forms are wanted: they go on for minutes. scripts/attack.sh sets the variable.
[[nodiscard]] bool isLong();

/// The number of an attack's steps: `quick` as an ordinary test.
[[nodiscard]] inline long steps(long quick, long thorough) { return isLong() ? thorough : quick; }

/// What one load gave.
struct Loaded {
  std::unique_ptr<CVekDBRoot> database;
  std::string messages;

  /// The scene and the messages as JSON.
  [[nodiscard]] std::string document() const;
  [[nodiscard]] bool hasScene() const { return database && database->GetSglRoot() != nullptr; }
  /// Whether the module reported that the file did not load.
  [[nodiscard]] bool isReported() const;
};

/// Begins with the host's default settings in a folder of its own.
class Attack : public testing::Test {
 protected:
  Attack();
  ~Attack() override;

  [[nodiscard]] std::string path(const std::string& name) const { return m_folder.path(name); }
  std::string write(const std::string& name, std::string_view content) const;
  /// The same with the header line in front.
  std::string writeWorld(const std::string& name, std::string_view text) const;

  /// Loads a file through the module's entry, whose `failing`th allocation fails; 0 for none.
  [[nodiscard]] Loaded load(const std::string& file, long failing = 0) const;
  [[nodiscard]] Loaded loadText(std::string_view text) const { return load(writeWorld("world.wrl", text)); }
  /// Exports through the module's entry in the same way. Returns what it left in `errno`.
  int exportTo(const std::string& file, CVekStager& stager, long failing = 0) const;

  /// Writes a world that has something of everything, so many times over, with the files that it names. Returns its
  /// path.
  [[nodiscard]] std::string writeRichWorld(long copies = 1) const;
  /// A stage that has something of everything.
  [[nodiscard]] std::unique_ptr<CVekStager> richStage() const;

 private:
  fixtures::TempFolder m_folder;
  embedded::ModuleLoader m_module;
};

[[nodiscard]] std::string repeated(std::string_view text, std::size_t count);

/// Runs a function on a thread with a stack of that many bytes, and waits for it.
void runOnStack(std::size_t stackBytes, const std::function<void()>& function);

}  // namespace attack
