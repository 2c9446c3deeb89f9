// fdrec check: whether every valid document fits a record.
#include <CLI/CLI.hpp>

#include "fdrec/commands.h"
#include "fdrec/copybook_file.h"
#include "fdrec/files.h"
#include "fdrec/schema_file.h"
#include "fit/finding_output.h"
#include "fit/fit_walk.h"

namespace fdmorph::fdrec {
namespace {

class CheckCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("SCHEMA", m_schema, "XML Schema")->required()->option_text(" ");
    app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
        ->required()
        ->option_text(" ");
    app.add_option("--unbounded", m_limits.occurrences,
                   "occurrences that stand for an unbounded number")
        ->option_text("N")
        ->check(CLI::PositiveNumber);
    app.add_option("--text", m_limits.length, "characters that stand for an unbounded length")
        ->option_text("N")
        ->check(CLI::PositiveNumber);
    app.add_flag("--json", m_isJson, "write JSON");
  }

  int run(CommonOptions const& options) override {
    for (std::string const& input : {m_schema, m_copybook}) {
      if (int status = refuseOutputOver(options.output, input); status != kClean) return status;
    }
    SchemaFile schema(m_schema, std::make_unique<FileResolver>());
    if (schema.status() == kFailed) return kFailed;
    CopybookFile copybook(m_copybook, options);
    if (!copybook.isUsable() || schema.status() != kClean) {
      int const status = copybook.finish();
      return status == kClean ? schema.status() : status;
    }
    copybook.checkLayout();
    fit::Findings findings;
    fit::FitOptions const fitOptions{options.source.dialect, m_limits};
    for (record::RecordTree const& tree : copybook.trees()) {
      fit::checkFit(tree, schema.model(), m_schema, fitOptions, findings);
    }
    findings.sort(copybook.source().sources());
    fit::CheckedFiles const files{m_schema, copybook.source().file()->name,
                                  &copybook.source().sources()};
    std::string const text =
        m_isJson ? fit::printJson(findings, files) : fit::printText(findings, files);
    int const written = writeOutput(options.output, text);
    int const status = copybook.finish();
    if (written != kClean || status == kFailed) return kFailed;
    using compiler::Severity;
    bool const isWrong = findings.countOf(Severity::error) != 0 ||
                         (options.hasWarningsAsErrors && findings.countOf(Severity::warning) != 0);
    return isWrong ? kErrors : status;
  }

 private:
  std::string m_schema;
  std::string m_copybook;
  fit::FitLimits m_limits;
  bool m_isJson = false;
};

}  // namespace

std::unique_ptr<Command> makeCheckCommand() {
  return std::make_unique<CheckCommand>();
}

}  // namespace fdmorph::fdrec
