// All commands of fdrec.
#pragma once

#include <memory>
#include <span>

#include "fdrec/command.h"

namespace fdmorph::fdrec {

/// A command by its name.
struct CommandRow {
  char const* name;
  char const* summary;
  std::unique_ptr<Command> (*make)();
};

// The commands, each from a source of its own.
[[nodiscard]] std::unique_ptr<Command> makeCheckCommand();
[[nodiscard]] std::unique_ptr<Command> makeCopybookCommand();
[[nodiscard]] std::unique_ptr<Command> makeIndexCommand();
[[nodiscard]] std::unique_ptr<Command> makeShowCommand();
[[nodiscard]] std::unique_ptr<Command> makePlainCommand();
[[nodiscard]] std::unique_ptr<Command> makeSchemaCommand();
[[nodiscard]] std::unique_ptr<Command> makeToXmlCommand();
[[nodiscard]] std::unique_ptr<Command> makeToJsonCommand();
[[nodiscard]] std::unique_ptr<Command> makeFromXmlCommand();
[[nodiscard]] std::unique_ptr<Command> makeFromJsonCommand();
[[nodiscard]] std::unique_ptr<Command> makeVerifyCommand();

/// In the order of the help.
[[nodiscard]] std::span<CommandRow const> commandTable();

}  // namespace fdmorph::fdrec
