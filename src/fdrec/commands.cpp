#include "fdrec/commands.h"

#include <vector>

namespace fdmorph::fdrec {

std::span<CommandRow const> commandTable() {
  static std::vector<CommandRow> const kCommands{};
  return kCommands;
}

}  // namespace fdmorph::fdrec
