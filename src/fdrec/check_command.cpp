// fdrec check: whether every valid document fits a record.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

#include "fdrec/commands.h"
#include "fdrec/copybook_file.h"
#include "fdrec/files.h"
#include "fdrec/option_values.h"
#include "fdrec/schema_file.h"
#include "fdrec/schema_options.h"
#include "fit/finding_output.h"
#include "fit/fit_walk.h"
#include "fit/repair.h"
#include "source/diagnostic_output.h"

namespace fdmorph::fdrec {
namespace {

/// One file, from memory.
class TextTree : public compiler::FileTree {
 public:
  explicit TextTree(std::string const& text) : m_text(text) {}
  std::optional<std::string> read(std::string const&) override { return m_text; }

 private:
  std::string const& m_text;
};

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
        ->transform(positive());
    app.add_option("--text", m_limits.length, "characters that stand for an unbounded length")
        ->option_text("N")
        ->transform(positive());
    app.add_option("--repair", m_repaired, "write the copybook with what holds all that is bounded")
        ->option_text("FILE");
    app.add_flag("--json", m_isJson, "write JSON");
    m_schemaFiles.declare(app);
  }

  int run(CommonOptions const& options) override {
    if (int status = checkOutputs(options); status != kClean) return status;
    std::unique_ptr<FileResolver> resolver =
        makeResolver(m_schemaFiles, m_schema, options.readFiles);
    if (resolver == nullptr) return kFailed;
    SchemaFile schema(m_schema, std::move(resolver));
    if (schema.status() == kFailed) return kFailed;
    CopybookFile copybook(m_copybook, options);
    if (!copybook.isUsable() || schema.status() != kClean) {
      int const status = copybook.finish();
      return status == kClean ? schema.status() : status;
    }
    copybook.checkLayout();
    fit::Findings findings;
    m_limits.areGiven = m_limits.occurrences || m_limits.length;
    fit::FitOptions const fitOptions{options.source.dialect,
                                     fit::withComment(m_limits, copybook.source().file()->content)};
    copybook::ItemChanges changes;
    for (record::RecordTree const& tree : copybook.trees()) {
      fit::Repairs const repairs =
          fit::checkFit(tree, schema.model(), m_schema, fitOptions, findings);
      fit::addChanges(tree, repairs, changes);
    }
    findings.sort(copybook.source().sources());
    fit::CheckedFiles const files{m_schema, copybook.source().file()->name,
                                  &copybook.source().sources()};
    std::string const text =
        m_isJson ? fit::printJson(findings, files) : fit::printText(findings, files);
    int const written = writeOutput(options.output, text);
    int status = copybook.finish();
    if (written != kClean || status == kFailed) return kFailed;
    if (!m_repaired.empty()) {
      std::string const repaired =
          fit::writeRepaired(itemsOf(copybook), std::move(changes), fitOptions.limits);
      int const result = checkRepaired(repaired, options);
      if (writeOutput(m_repaired, repaired) != kClean) return kFailed;
      status = std::max(status, result);
    }
    using compiler::Severity;
    bool const isWrong = findings.countOf(Severity::error) != 0 ||
                         (options.hasWarningsAsErrors && findings.countOf(Severity::warning) != 0);
    return isWrong ? kErrors : status;
  }

 private:
  int checkOutputs(CommonOptions const& options) const {
    for (std::string const& input : {m_schema, m_copybook}) {
      for (std::string const& output : {options.output, m_repaired}) {
        if (int status = refuseOutputOver(output, input); status != kClean) return status;
      }
    }
    bool const isBothStandard =
        m_repaired == compiler::kStandardInput &&
        (options.output.empty() || options.output == compiler::kStandardInput);
    if (!isBothStandard) return kClean;
    printError("the findings and the copybook cannot both go to the standard output", "usage");
    return kUsageError;
  }

  // All records of a copybook; of a program those that were checked.
  static std::vector<compiler::DataItem const*> itemsOf(CopybookFile& copybook) {
    std::vector<compiler::DataItem const*> items;
    compiler::DataDivision const& data = copybook.source().data();
    if (data.isProgram) {
      for (record::RecordTree const& tree : copybook.trees()) items.push_back(tree.root().item);
      return items;
    }
    compiler::DataItem const* item = data.workingStorage.first;
    for (; item != nullptr; item = item->next) items.push_back(item);
    return items;
  }

  // Tables in tables may have become larger than a record can be.
  static int checkRepaired(std::string const& text, CommonOptions const& options) {
    TextTree tree(text);
    compiler::SourceOptions rules = options.source;
    rules.reading.format = compiler::Format::fixed;
    compiler::CompiledSource const source("the repaired copybook", rules, tree);
    if (!source.diagnostics().hasErrors()) return kClean;
    std::string const reports =
        compiler::printDiagnostics(source.diagnostics(), compiler::DiagnosticStyle::plain, "fdrec");
    std::fwrite(reports.data(), 1, reports.size(), stderr);
    return kErrors;
  }

  std::string m_schema;
  std::string m_copybook;
  std::string m_repaired;
  fit::FitLimits m_limits;
  SchemaOptions m_schemaFiles;
  bool m_isJson = false;
};

}  // namespace

std::unique_ptr<Command> makeCheckCommand() {
  return std::make_unique<CheckCommand>();
}

}  // namespace fdmorph::fdrec
