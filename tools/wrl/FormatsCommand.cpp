// wrl formats: what the extensions of file names mean.

#include <algorithm>

#include "tools/wrl/Arguments.h"
#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/Output.h"

namespace wrl {

namespace {

// One line of the list.
struct FormatRow {
  std::string_view extension;
  std::string_view name;
  bool isRead;
  bool isWritten;
};

std::vector<FormatRow> listFormats() {
  std::vector<FormatRow> rows;
  for (const ReaderFormat& format : readerFormats()) rows.push_back({format.extension, format.name, true, false});
  for (const WriterFormat& format : writerFormats()) {
    const auto known = [&format](const FormatRow& row) { return row.extension == format.extension; };
    const auto row = std::find_if(rows.begin(), rows.end(), known);
    if (row == rows.end()) {
      rows.push_back({format.extension, format.name, false, true});
    } else {
      row->isWritten = true;
    }
  }
  return rows;
}

class FormatsCommand : public Command {
 public:
  void addOptions(CLI::App& app) override { addOutput(app, m_output); }

  [[nodiscard]] std::span<const CommandExample> examples() const override {
    static constexpr CommandExample kExamples[] = {{"wrl formats", "extension, read or written, and name of each"}};
    return kExamples;
  }

  ExitStatus run() override {
    Output output(m_output);
    for (const FormatRow& row : listFormats()) {
      const std::string extension = '.' + std::string(row.extension);
      output.stream() << extension << std::string(extension.size() < 8 ? 8 - extension.size() : 1, ' ')
                      << (row.isRead ? "read  " : "      ") << (row.isWritten ? "written  " : "         ") << row.name
                      << '\n';
    }
    return output.finishOrReport() ? ExitStatus::done : ExitStatus::failed;
  }

 private:
  std::string m_output;
};

}  // namespace

std::unique_ptr<Command> makeFormatsCommand() { return std::make_unique<FormatsCommand>(); }

}  // namespace wrl
