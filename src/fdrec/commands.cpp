#include "fdrec/commands.h"

#include <vector>

namespace fdmorph::fdrec {

std::unique_ptr<Command> makeShowCommand();

std::span<CommandRow const> commandTable() {
  static std::vector<CommandRow> const kCommands{
      {"show", "show the items of records with offset, length, picture and XML path",
       makeShowCommand},
  };
  return kCommands;
}

}  // namespace fdmorph::fdrec
