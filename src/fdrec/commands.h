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

/// In the order of the help.
[[nodiscard]] std::span<CommandRow const> commandTable();

}  // namespace fdmorph::fdrec
