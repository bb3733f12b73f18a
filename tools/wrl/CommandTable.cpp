// The subcommands. One that is added is declared and listed here.

#include <array>

#include "tools/wrl/Command.h"

namespace wrl {

std::unique_ptr<Command> makeInfoCommand();
std::unique_ptr<Command> makeCheckCommand();
std::unique_ptr<Command> makeTokensCommand();
std::unique_ptr<Command> makeNodesCommand();
std::unique_ptr<Command> makeSceneCommand();
std::unique_ptr<Command> makeStageCommand();
std::unique_ptr<Command> makeExportCommand();
std::unique_ptr<Command> makeConvertCommand();
std::unique_ptr<Command> makeRenderCommand();
std::unique_ptr<Command> makeFormatsCommand();
std::unique_ptr<Command> makeManualCommand();
std::unique_ptr<Command> makeCompletionCommand();

std::span<const CommandEntry> commandTable() {
  static constexpr std::array kCommands = {
      CommandEntry{"info", "Sums up what a file holds.", makeInfoCommand},
      CommandEntry{"check", "Reads files and names what is wrong with them and what an import drops.",
                   makeCheckCommand},
      CommandEntry{"tokens", "Lists the tokens that the scanner makes of a file.", makeTokensCommand},
      CommandEntry{"nodes", "Writes the parsed node tree back as VRML97 text.", makeNodesCommand},
      CommandEntry{"scene", "Prints the host scene graph that an import makes of a file, as JSON.", makeSceneCommand},
      CommandEntry{"stage", "Prints the assembly, views and background that the host makes of a file, as JSON.",
                   makeStageCommand},
      CommandEntry{"export", "Writes a stage document as a VRML97 file.", makeExportCommand},
      CommandEntry{"convert", "Reads a file and writes it in another format, each told by its extension.",
                   makeConvertCommand},
      CommandEntry{"render", "Draws a picture of a file off screen, as PNG.", makeRenderCommand},
      CommandEntry{"formats", "Lists the formats that are read and written.", makeFormatsCommand},
      CommandEntry{"manual", "Prints the manual page, as roff.", makeManualCommand},
      CommandEntry{"completion", "Prints a script that completes wrl's arguments in a shell.", makeCompletionCommand},
  };
  return kCommands;
}

}  // namespace wrl
