#include "fdrec/whole_program.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "fdrec/commands.h"
#include "fdrec/files.h"
#include "source/diagnostics.h"
#include "text/program_place.h"

namespace fdmorph::fdrec {
namespace {

// Commands that are not on data, and the requests for help, which shows all.
constexpr std::array<std::string_view, 11> kOthers{"show",   "plain",  "check",     "copybook",
                                                   "deps",   "bundle", "map-check", "map-merge",
                                                   "--help", "-h",     "--version"};

bool isOther(std::string_view argument) {
  return std::ranges::find(kOthers, argument) != kOthers.end() || argument.starts_with("--schema");
}

}  // namespace

// A word that is the value of an option may be taken for a command. Then the program
// with all commands runs a command that this one knows as well.
bool isOnData(std::span<char* const> arguments) {
  std::vector<CommandRow> const rows = dataCommands(nullptr);
  bool isKnown = false;
  for (std::string_view argument : arguments.subspan(std::min<std::size_t>(1, arguments.size()))) {
    if (isOther(argument)) return false;
    isKnown |= std::ranges::any_of(
        rows, [argument](CommandRow const& row) { return argument == row.name; });
  }
  return isKnown;
}

int runWholeProgram(char** arguments) {
  std::error_code error;
  std::filesystem::path const program = pathFromProgram(FDREC_ALL, error);
  if (error) {
    printError("cannot read '/proc/self/exe': " + error.message(), "file");
    return kFailed;
  }
  execv(program.c_str(), arguments);
  std::string const why = std::error_code(errno, std::generic_category()).message();
  printError("cannot run " + compiler::quoted(program.string()) + ": " + why, "file");
  return kFailed;
}

}  // namespace fdmorph::fdrec
