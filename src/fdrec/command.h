// The commands of fdrec, and the options that they share.
#pragma once

#include <memory>
#include <string>

#include "fdrec/read_files.h"
#include "frontend/compiled_source.h"
#include "record/record_choice.h"
#include "record/record_tree.h"

namespace CLI {  // NOLINT(readability-identifier-naming): that of the library
class App;
}

namespace fdmorph::fdrec {

/// Exit statuses.
enum Status : int {
  kClean = 0,
  kErrors = 1,      ///< in the copybook, the schema, or how they fit
  kUsageError = 2,  ///< in the command line
  kFailed = 3,      ///< input could not be read or output not be written
};

/// The options that all commands take.
struct CommonOptions {
  CommonOptions() { source.dialect = compiler::Dialect::ibm; }

  compiler::SourceOptions source;
  record::RecordChoice choice;
  record::NamingRules naming;
  std::string encoding;              ///< of the data; empty: that of the dialect
  std::string output;                ///< empty or "-": the standard output
  std::string depfile;               ///< a rule for make goes there; empty: none
  bool hasWarningsAsErrors = false;  ///< warnings count for the exit status

  /// What is read is added here. Copies of the options share it.
  std::shared_ptr<ReadFiles> readFiles = std::make_shared<ReadFiles>();

  /// The character set of the data.
  [[nodiscard]] std::string effectiveEncoding() const;
};

/// One command: its own options and what it does.
class Command {
 public:
  Command() = default;
  virtual ~Command() = default;
  Command(Command const&) = delete;
  Command& operator=(Command const&) = delete;

  /// Declares the arguments and options, which belong to this object, on a
  /// subcommand of the program.
  virtual void declare(CLI::App& app) = 0;

  /// Runs the command with the options that were parsed. Prints messages to the
  /// standard error stream and returns the exit status.
  [[nodiscard]] virtual int run(CommonOptions const& options) = 0;
};

}  // namespace fdmorph::fdrec
