#pragma once

// The formats that are read as an assembly, and those that one is written as. A format that is added is a row of one of
// the two tables in Formats.cpp, or of both, and a function to read or write it.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/wrl/StageInput.h"

namespace wrl {

/// A format that is read.
struct ReaderFormat {
  std::string_view extension;  // in small letters, without the full stop
  std::string_view name;       // as the help calls it

  /// Reads a file as an assembly with views and background, by the options. Which axis is up is said by
  /// `options.up`; without it, by the file or by its format. Failures are told on standard error.
  LoadedStage (*read)(const std::string& file, const HostOptions& options);

  bool hasUpAxis = true;  // whether `options.up` may be given: not where the format leaves no doubt
};

/// Where what is written was read.
struct JobSource {
  std::string file;                          // as given on the command line
  const std::vector<std::string>& messages;  // what its reader had to say
  const HostOptions& options;
};

/// What is written, and where.
struct WriteJob {
  CVekStager& stager;
  std::string path;    // the file to write; further files that belong to it go beside it
  std::string folder;  // the folder in which all of it will stand in the end: what paths in the file are relative to
  const JobSource* source = nullptr;  // null where nobody wants to know
};

/// A format that is written.
struct WriterFormat {
  std::string_view extension;  // in small letters, without the full stop
  std::string_view name;       // as the help calls it

  /// Writes the file; why it could not, or "". What it leaves behind after a failure is never seen.
  std::string (*write)(const WriteJob& job);

  bool namesImages = false;  // whether the file names images where they lie, instead of bringing copies of them
};

/// The format of a file by the extension of its name, in either case; null for one that is not known, or without one.
/// Standard input is a world.
[[nodiscard]] const ReaderFormat* readerOf(const std::string& file);
[[nodiscard]] const WriterFormat* writerOf(const std::string& file);

/// Both tables, in the order of the messages. A build without the viewer of HTML pages does not write them.
[[nodiscard]] std::span<const ReaderFormat> readerFormats();
[[nodiscard]] std::span<const WriterFormat> writerFormats();

/// Why these options cannot be meant for a file of that name, one line without its end; "" when they can.
[[nodiscard]] std::string optionError(const std::string& file, const HostOptions& options);

/// The format of VRML97 worlds, whatever a file is called.
[[nodiscard]] const WriterFormat& worldFormat();

/// The extensions that are known, for messages and help: ".a, .b and .c".
[[nodiscard]] std::string knownReaders();
[[nodiscard]] std::string knownWriters();

}  // namespace wrl
