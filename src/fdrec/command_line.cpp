#include "fdrec/command_line.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <sstream>
#include <string>
#include <vector>

#include "fdrec/commands.h"
#include "fdrec/common_options.h"
#include "fdrec/files.h"
#include "text/depfile.h"
#include "text/early_end.h"
#include "text/letter_case.h"
#include "text/near_words.h"
#include "text/pending_files.h"
#include "text/stack_guard.h"

namespace fdmorph::fdrec {
namespace {

constexpr std::size_t kHelpColumn = 28;

/// The help of a command also has the common options, which belong to the program.
class CommandFormatter : public CLI::Formatter {
 public:
  std::string make_footer(CLI::App const* app) const override {
    CLI::App const* program = app->get_parent();
    if (program == nullptr) return CLI::Formatter::make_footer(app);
    std::vector<CLI::Option const*> options = program->get_options(
        [](CLI::Option const* each) { return each->get_group() == kCommonOptionsGroup; });
    return make_group(kCommonOptionsGroup, false, options) + CLI::Formatter::make_footer(app);
  }
};

// Whether a word is an option whose value is the next word.
bool takesNextWord(CLI::App const& app, std::string const& word) {
  auto takesValue = [&word](CLI::App const* each) {
    CLI::Option const* option = each->get_option_no_throw(word);
    return option != nullptr && option->get_items_expected_max() > 0;
  };
  // An option takes a value in all commands that have it, or in none.
  return takesValue(&app) || std::ranges::any_of(app.get_subcommands(nullptr), takesValue);
}

// Options may stand before the command, too, but the library knows those of a command
// only after it.
void putCommandFirst(CLI::App const& app, std::vector<std::string>& words) {
  for (std::size_t at = 0; at < words.size(); ++at) {
    std::string const& word = words[at];
    if (word == "--") return;
    bool isOption = word.size() > 1 && word.front() == '-';
    if (!isOption) {
      auto const command = words.begin() + static_cast<std::ptrdiff_t>(at);
      std::rotate(words.begin(), command, command + 1);
      return;
    }
    if (takesNextWord(app, word)) ++at;
  }
}

// Writes the rule of --depfile. The result is an exit status.
int writeRule(CommonOptions const& options) {
  for (std::string const& each : options.readFiles->paths()) {
    if (int status = refuseOutputOver(options.depfile, each); status != kClean) return status;
  }
  std::vector<std::string> const targets{options.output};
  return writeOutput(options.depfile, writeDepfile(targets, options.readFiles->paths()));
}

// Refuses --depfile without an output that the rule could name, or over another file.
int checkDepfile(CommonOptions const& options) {
  if (options.depfile.empty()) return kClean;
  if (options.output.empty() || options.output == "-") {
    printError("--depfile takes an output file; -o names it", "usage");
    return kUsageError;
  }
  return refuseSharedOutput(options.output, options.depfile);
}

int runCommand(Command& command, CommonOptions const& options) {
  if (int status = checkDepfile(options); status != kClean) return status;
  int const status = command.run(options);
  bool const hasRule = status == kClean && !options.depfile.empty();
  return hasRule ? writeRule(options) : status;
}

// What is wrong with the first word, which names the command; empty if nothing is.
std::string faultOfCommand(CLI::App const& app, std::vector<std::string> const& words) {
  if (words.empty()) return "expected a command; fdrec --help lists them";
  std::string const& word = words.front();
  if (word.starts_with('-')) return {};
  std::vector<std::string> names;
  for (CLI::App const* each : app.get_subcommands(nullptr)) {
    if (each->get_name() == word) return {};
    names.push_back(upperCase(each->get_name()));
  }
  std::vector<std::string_view> const views(names.begin(), names.end());
  std::string nearest(nearestWord(word, views));
  std::ranges::transform(nearest, nearest.begin(), toLower);
  return "unknown command " + compiler::quoted(word) +
         (nearest.empty() ? "; fdrec --help lists them" : "; did you mean " + nearest + "?");
}

[[noreturn]] void end(char const* line) {
  removePendingFiles();
  writeLastLine(STDERR_FILENO, line);
  _exit(kErrors);
}

void endWithMessages() {
  endWithoutMemory([] { writeLastLine(STDERR_FILENO, "fdrec: error: out of memory [size]\n"); });
  // The XML library reads nested types by recursion.
  installStackGuard(
      [](bool isMemoryUsed) {
        end(isMemoryUsed ? "fdrec: error: out of memory [size]\n"
                         : "fdrec: error: the input is nested too deeply [size]\n");
      },
      [] { end("fdrec: error: invalid memory access [internal]\n"); });
  endOnSignals(nullptr);  // the shell says enough
}

}  // namespace

int runProgram(int count, char** arguments, std::vector<CommandRow> const& rows) {
  endWithMessages();
  // A file that is too large or a closed pipe makes the write fail.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  CLI::App app("Shows COBOL records, checks them against schemas, and converts their data.",
               "fdrec");
  CommonOptions common;
  app.formatter(std::make_shared<CommandFormatter>());
  app.get_formatter()->column_width(kHelpColumn);
  app.set_version_flag("--version", "fdrec " FDMORPH_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  declareCommonOptions(app, common);
  Command* chosen = nullptr;
  std::vector<std::unique_ptr<Command>> commands;
  std::vector<std::string> words(arguments + std::min(count, 1), arguments + count);
  bool const isCommandFirst =
      !words.empty() &&
      std::ranges::any_of(rows, [&](CommandRow const& row) { return row.name == words.front(); });
  for (CommandRow const& row : rows) {
    // The others would only take time, and words that are names of files.
    if (isCommandFirst && row.name != words.front()) continue;
    Command* command = commands.emplace_back(row.make()).get();
    CLI::App* sub = app.add_subcommand(row.name, row.summary);
    sub->callback([&chosen, command] { chosen = command; });
    command->declare(*sub);
  }
  try {
    putCommandFirst(app, words);
    if (std::string const fault = faultOfCommand(app, words); !fault.empty()) {
      printError(fault, "usage");
      return kUsageError;
    }
    std::ranges::reverse(words);  // as the library takes them
    app.parse(std::move(words));
  } catch (CLI::Success const& request) {  // the help or the version was asked for
    std::ostringstream text;
    app.exit(request, text, text);
    return writeOutput({}, text.str());
  } catch (CLI::ParseError const& error) {
    printError(error.what(), "usage");
    return kUsageError;
  }
  return runCommand(*chosen, common);
}

}  // namespace fdmorph::fdrec
