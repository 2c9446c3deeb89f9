// The commands of fdrec.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "fdrec/command.h"
#include "fdrec/record_schema.h"

namespace fdmorph::fdrec {

/// A command by its name.
struct CommandRow {
  char const* name;
  char const* summary;
  std::function<std::unique_ptr<Command>()> make;
};

// The commands, each from a source of its own.
[[nodiscard]] std::unique_ptr<Command> makeBundleCommand();
[[nodiscard]] std::unique_ptr<Command> makeCheckCommand();
[[nodiscard]] std::unique_ptr<Command> makeCopybookCommand();
[[nodiscard]] std::unique_ptr<Command> makeDepsCommand();
[[nodiscard]] std::unique_ptr<Command> makeIndexCommand();
[[nodiscard]] std::unique_ptr<Command> makeMapCheckCommand();
[[nodiscard]] std::unique_ptr<Command> makeMapMergeCommand();
[[nodiscard]] std::unique_ptr<Command> makeShowCommand();
[[nodiscard]] std::unique_ptr<Command> makePlainCommand();
[[nodiscard]] std::unique_ptr<Command> makeSchemaCommand();
[[nodiscard]] std::unique_ptr<Command> makeToXmlCommand(OpenSchema openSchema);
[[nodiscard]] std::unique_ptr<Command> makeToJsonCommand(OpenSchema openSchema);
[[nodiscard]] std::unique_ptr<Command> makeFromXmlCommand(OpenSchema openSchema);
[[nodiscard]] std::unique_ptr<Command> makeFromJsonCommand(OpenSchema openSchema);
[[nodiscard]] std::unique_ptr<Command> makeVerifyCommand();

/// The commands on data, which need the XML library for --schema only.
[[nodiscard]] std::vector<CommandRow> dataCommands(OpenSchema openSchema);

/// All commands, in the order of the help.
[[nodiscard]] std::vector<CommandRow> allCommands();

}  // namespace fdmorph::fdrec
