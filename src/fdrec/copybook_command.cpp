// fdrec copybook: a record for an element of a schema.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "copybook/plain_copybook.h"
#include "fdrec/assembled_schema.h"
#include "fdrec/commands.h"
#include "fdrec/files.h"
#include "fdrec/option_values.h"
#include "fdrec/part_overrides.h"
#include "fdrec/schema_file.h"
#include "fdrec/schema_options.h"
#include "fdrec/schema_record.h"
#include "fdrec/text_source.h"
#include "fit/finding_output.h"
#include "fit/fit_walk.h"
#include "fit/repair.h"

namespace fdmorph::fdrec {
namespace {

using copybook::ItemChanges;
using record::RecordTree;

class CopybookCommand : public Command {
 public:
  void declare(CLI::App& app) override;
  [[nodiscard]] int run(CommonOptions const& options) override;

 private:
  struct Changes {
    ItemChanges items;
    bool hasErrors = false;
  };

  struct Plain {
    std::string text;
    int status = kClean;
  };

  int runOn(FileResolver& resolver, PartOverrides const& overrides, CommonOptions const& options);
  [[nodiscard]] Changes changesOf(RecordTree const& record, SchemaRecord const& made,
                                  PartOverrides const& overrides, SchemaModel& model,
                                  CommonOptions const& options) const;
  [[nodiscard]] static Plain plainFormOf(TextSource& written, CommonOptions const& options);
  [[nodiscard]] static int reportUnusable(TextSource const& written);
  [[nodiscard]] int checkWritten(TextSource const& written, SchemaModel& model,
                                 CommonOptions const& options) const;

  std::string m_schema;
  SchemaOptions m_files;
  RecordRequest m_request;
  std::vector<std::string> m_occurs;
  std::vector<std::string> m_pictures;
  fit::FitLimits m_limits;
  bool m_hasComments = false;
  bool m_isPlain = false;
};

// An option that may be repeated.
void addList(CLI::App& app, char const* name, std::vector<std::string>& values, char const* type,
             char const* text) {
  app.add_option(name, values, text)
      ->option_text(type)
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);
}

void CopybookCommand::declare(CLI::App& app) {
  app.add_option("SCHEMA", m_schema, "XML Schema, the main file")->required()->option_text(" ");
  app.add_option("--root", m_request.root, "global element of the record, or {NAMESPACE}NAME")
      ->option_text("NAME");
  addList(app, "--skip", m_request.skipped, "PATH", "leave these parts out");
  app.add_option("--depth", m_request.depth, "leave out elements below N levels of elements")
      ->option_text("N")
      ->transform(positive());
  app.add_option("--prefix", m_request.prefix, "begin data names with P")->option_text("P");
  app.add_option("--unbounded", m_limits.occurrences, "occurrences where the schema sets no bound")
      ->option_text("N")
      ->transform(positive());
  app.add_option("--text", m_limits.length, "characters of texts where the schema sets no bound")
      ->option_text("N")
      ->transform(positive());
  addList(app, "--occurs", m_occurs, "PATH=N", "occurrences of these parts");
  addList(app, "--picture", m_pictures, "PATH=PIC", "picture of these parts");
  m_files.declare(app);
  CLI::Option* comments = app.add_flag("--comments", m_hasComments,
                                       "write the documentation of the schema as comments");
  app.add_flag("--plain", m_isPlain, "write the plain copybook and its counts")->excludes(comments);
}

int CopybookCommand::run(CommonOptions const& options) {
  if (!m_limits.occurrences) m_limits.occurrences = fit::kDefaultOccurrences;
  m_limits.areGiven = true;
  // The names and texts of a schema are UTF-8 here, whatever the user's locale is.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  PartOverrides::Parsed const parsed = PartOverrides::parse(m_occurs, m_pictures);
  if (parsed.wrong) {
    printError("expected PATH=VALUE, found " + compiler::quoted(*parsed.wrong), "usage");
    return kUsageError;
  }
  if (int status = refuseOutputOver(options.output, m_schema); status != kClean) return status;
  std::unique_ptr<FileResolver> resolver = makeResolver(m_files, m_schema, options.readFiles);
  if (resolver == nullptr) return kFailed;
  return runOn(*resolver, parsed.overrides, options);
}

int CopybookCommand::runOn(FileResolver& resolver, PartOverrides const& overrides,
                           CommonOptions const& options) {
  AssembledSchema const files(m_schema, resolver);
  if (files.status() != kClean) return files.status();
  SchemaFile schema(m_schema, makeResolver(m_files, m_schema, options.readFiles));
  if (schema.status() != kClean) return schema.status();
  SchemaRecord const made = makeSchemaRecord(files.document(), m_request);
  if (made.text.empty()) return kErrors;
  compiler::SourceOptions reading = options.source;
  reading.reading.format = compiler::Format::free;
  TextSource const source("record", made.text, reading);
  if (source.record() == nullptr) return source.printReports();

  Changes changes = changesOf(*source.record(), made, overrides, schema.model(), options);
  std::string text =
      fit::writeRepaired({source.record()->root().item}, std::move(changes.items), m_limits);
  int status = changes.hasErrors ? kErrors : kClean;
  if (options.hasWarningsAsErrors && made.hasWarnings) status = kErrors;

  reading.reading.format = compiler::Format::fixed;
  std::string const name = options.output.empty() ? "-" : options.output;
  TextSource written(name, text, reading);
  if (written.record() == nullptr) return reportUnusable(written);
  int const found = checkWritten(written, schema.model(), options);
  if (m_isPlain) {
    Plain plain = plainFormOf(written, options);
    text = std::move(plain.text);
    status = std::max(status, plain.status);
  }
  int const output = writeOutput(options.output, text);
  return output != kClean ? output : std::max(status, found);
}

// The options of the user replace the repairs.
CopybookCommand::Changes CopybookCommand::changesOf(RecordTree const& record,
                                                    SchemaRecord const& made,
                                                    PartOverrides const& overrides,
                                                    SchemaModel& model,
                                                    CommonOptions const& options) const {
  Changes changes;
  fit::Findings ignored;
  fit::Repairs const repairs =
      fit::checkFit(record, model, m_schema, {options.source.dialect, m_limits}, ignored);
  fit::addChanges(record, repairs, changes.items);
  for (std::string const& each : overrides.apply(record, changes.items)) {
    printError("no part of the record can take " + compiler::quoted(each), "path");
    changes.hasErrors = true;
  }
  for (std::size_t i = 0; m_hasComments && i < made.documentation.size(); ++i) {
    if (made.documentation[i].empty()) continue;
    changes.items[record.nodes()[i].item].comments.push_back(made.documentation[i]);
  }
  return changes;
}

// Prints what does not fit. The result is an exit status.
int CopybookCommand::checkWritten(TextSource const& written, SchemaModel& model,
                                  CommonOptions const& options) const {
  using compiler::Severity;
  fit::Findings findings;
  fit::checkFit(*written.record(), model, m_schema, {options.source.dialect, m_limits}, findings);
  compiler::Sources const& sources = written.source().sources();
  findings.sort(sources);
  if (findings.count() == 0) return kClean;
  std::string const text =
      fit::printText(findings, {m_schema, written.source().file()->name, &sources});
  std::fwrite(text.data(), 1, text.size(), stderr);
  bool const isWrong = findings.countOf(Severity::error) != 0 ||
                       (options.hasWarningsAsErrors && findings.countOf(Severity::warning) != 0);
  return isWrong ? kErrors : kClean;
}

// Messages are about the copybook with XML clauses, which the plain one is made of.
CopybookCommand::Plain CopybookCommand::plainFormOf(TextSource& written,
                                                    CommonOptions const& options) {
  Plain plain;
  compiler::Diagnostics& diagnostics = written.diagnostics();
  plain.text = copybook::writePlainCopybook({written.record()->root().item}, {},
                                            options.source.dialect, diagnostics);
  plain.status = written.printReports();
  if (options.hasWarningsAsErrors && diagnostics.countOf(compiler::Severity::warning) > 0) {
    plain.status = kErrors;
  }
  return plain;
}

// The pictures and occurrences make no record.
int CopybookCommand::reportUnusable(TextSource const& written) {
  int const status = written.printReports();
  auto isSize = [](auto const* each) { return each->code == compiler::Code::size; };
  if (std::ranges::any_of(written.source().diagnostics().inSourceOrder(), isSize)) {
    printError(
        "the record is too large, leave parts out with --skip or --depth, or give fewer "
        "occurrences with --unbounded or --occurs",
        "size");
  }
  return status;
}

}  // namespace

std::unique_ptr<Command> makeCopybookCommand() {
  return std::make_unique<CopybookCommand>();
}

}  // namespace fdmorph::fdrec
