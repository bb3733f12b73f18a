// Files are told apart by where they lie in the end, whatever they are called: an output follows symbolic links.

#include "tools/wrl/WritingCommand.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include "embedded/JsonWriter.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/FileCount.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/InputFiles.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/PictureMark.h"

namespace wrl {

namespace {

namespace fs = std::filesystem;

// A file's name with another extension; that of a compressed world has two.
std::string withExtension(const std::string& file, const std::string& extension) {
  fs::path path(file);
  if (path.extension() == ".gz") path.replace_extension();
  return path.replace_extension(extension).string();
}

// Where a file lies, or would lie.
std::string placeOf(const std::string& file) {
  std::error_code error;
  const fs::path place = fs::weakly_canonical(fs::absolute(file, error), error);
  return error ? file : place.string();
}

// An image that is there already may be a texture of a world that has not been read yet.
bool isForeignPicture(const std::string& file) {
  const WriterFormat* const format = writerOf(file);
  std::error_code error;
  return format != nullptr && format->extension == "png" && fs::exists(file, error) && !isMarkedPicture(file);
}

}  // namespace

void WritingCommand::addWriting(CLI::App& app, const Names& names) {
  m_outputName = names.output;
  addPath(app, names.input, m_input, names.inputText)->required();
  addPath(app, names.output, m_output, names.outputText);
  addMore(app, "MORE", m_more, std::string("With --to, ") + names.output + " and these are files to read, too");
  const CLI::callback_t takeExtension = [this](const CLI::results_t& results) {
    m_extension = results.front();
    return true;
  };
  app.add_option("--to", takeExtension,
                 "Read every file, and every world in a folder, and write each beside itself with this extension; "
                 "- alone goes to standard output")
      ->type_name("EXT");
  addListing(app, m_listing);
}

ExitStatus WritingCommand::run() {
  if (!m_extension) return writeOne();
  const std::string error = extensionError();
  if (!error.empty()) {
    std::cerr << "--to: error: " << error << '\n';
    return ExitStatus::usage;
  }
  std::vector<std::string> arguments = {m_input};
  if (!m_output.empty()) arguments.push_back(m_output);
  arguments.insert(arguments.end(), m_more.begin(), m_more.end());
  if (arguments.size() > 1 || !isStandardInput(m_input)) return writeAll(arguments);
  m_output = "-";
  return writeOne();
}

std::string WritingCommand::nameForFormat(const std::string& output) const {
  if (output != "-") return output;
  return m_extension ? withExtension("x", *m_extension) : "";
}

ExitStatus WritingCommand::writeOne() {
  std::string error;
  if (m_output.empty()) {
    error = std::string(m_outputName) + " is required\nRun with --help for more information.";
  } else if (!m_more.empty()) {
    error = m_more.front() + ": error: more than two files want --to";
  }
  std::error_code ignored;
  if (error.empty() && !isStandardInput(m_input) && fs::is_directory(m_input, ignored)) {
    error = m_input + ": error: a folder; with --to EXT the worlds in it are read";
  }
  if (error.empty()) error = inputError(m_input);
  if (error.empty()) error = outputError(m_output);
  if (error.empty()) return write(m_input, m_output);
  std::cerr << error << '\n';
  return ExitStatus::usage;
}

// An extension with a slash in it would put every file into another folder.
std::string WritingCommand::extensionError() const {
  if (m_extension->find('/') != std::string::npos) return "\"" + *m_extension + "\" is no extension";
  const std::string name = withExtension("x", *m_extension);
  const std::string error = outputError(name);
  return error.starts_with(name + ": error: ") ? error.substr(name.size() + 9) : error;
}

ExitStatus WritingCommand::writeAll(const std::vector<std::string>& arguments) {
  const InputFiles input = findInputFiles(arguments);
  for (const std::string& file : input.files) m_sources.emplace(placeOf(file), file);
  Output output("");
  Tally tally;
  FileCount count(input.files.size());
  for (const std::string& file : input.files) {
    count.begin(file);
    const std::string target = withExtension(file, *m_extension);
    const bool isDone = writeBeside(file, target);
    count.wipe();
    ++(isDone ? tally.ok : tally.failed);
    if (!isDone || !m_options.quiet || m_listing.json) report(output.stream(), file, isDone ? target : "");
    output.stream().flush();
  }
  if (m_listing.summary || input.hasFolder) writeTally(output.stream(), tally, m_listing);
  return output.finishOrReport() && tally.failed == 0 ? ExitStatus::done : ExitStatus::failed;
}

bool WritingCommand::writeBeside(const std::string& file, const std::string& target) {
  std::string error = isStandardInput(file) ? "-: error: standard input has no name to be written under" : "";
  if (error.empty()) error = inputError(file);
  if (error.empty()) error = takePlace(file, target);
  if (!error.empty()) std::cerr << error << '\n';
  return error.empty() && write(file, target) == ExitStatus::done;
}

// The place stays taken when the file fails: what is written does not hang on what went wrong before.
std::string WritingCommand::takePlace(const std::string& file, const std::string& target) {
  const std::string place = placeOf(target);
  if (m_sources.contains(place)) return target + ": error: is one of the files to read";
  if (isForeignPicture(target)) return target + ": error: is there already, and no picture of wrl's";
  const auto& [owner, isFree] = m_targets.emplace(place, file);
  if (isFree || placeOf(owner->second) == placeOf(file)) return "";
  return target + ": error: is the place of " + owner->second;
}

void WritingCommand::report(std::ostream& out, const std::string& file, const std::string& target) const {
  if (!m_listing.json) {
    out << file << (target.empty() ? ": failed" : ": " + target) << '\n';
    return;
  }
  {
    embedded::JsonWriter json(out);
    json.beginObject();
    json.key("file");
    json.text(file);
    json.key("status");
    json.text(target.empty() ? "failed" : "ok");
    if (!target.empty()) json.key("output"), json.text(target);
    json.endObject();
  }
  out << '\n';
}

}  // namespace wrl
