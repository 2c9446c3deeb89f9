// fdrec to-xml and fdrec to-json: the records of a file as documents.
#include <CLI/CLI.hpp>
#include <memory>

#include "fdrec/commands.h"
#include "fdrec/data_options.h"
#include "fdrec/files.h"
#include "fdrec/record_schema.h"
#include "fdrec/to_documents.h"

namespace fdmorph::fdrec {
namespace {

class ToCommand : public Command {
 public:
  ToCommand(document::Syntax syntax, OpenSchema openSchema)
      : m_syntax(syntax), m_openSchema(openSchema) {}

  void declare(CLI::App& app) override;
  [[nodiscard]] int run(CommonOptions const& options) override;

 private:
  [[nodiscard]] int refuseSharedOutputs(std::string const& output) const;

  document::Syntax m_syntax;
  OpenSchema m_openSchema;
  std::string m_copybook;
  std::string m_path;
  DataOptions m_data;
};

void ToCommand::declare(CLI::App& app) {
  app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
      ->required()
      ->option_text(" ");
  app.add_option("DATA", m_path, "file of records; default: the standard input")->option_text(" ");
  m_data.declare(app);
}

int ToCommand::refuseSharedOutputs(std::string const& output) const {
  int status = refuseSharedOutput(output, m_data.rejects);
  if (status == kClean) status = refuseSharedOutput(output, m_data.residue);
  bool hasBoth = !m_data.rejects.empty() && !m_data.residue.empty();
  if (status == kClean && hasBoth) status = refuseSharedOutput(m_data.rejects, m_data.residue);
  return status;
}

int ToCommand::run(CommonOptions const& options) {
  if (int status = refuseSharedInput(m_copybook, m_path); status != kClean) return status;
  if (int status = refuseSharedOutputs(options.output); status != kClean) return status;
  std::unique_ptr<RecordSchema> schema;
  if (m_syntax == document::Syntax::xml && !m_data.schema.empty()) {
    schema = m_openSchema(m_data, options.readFiles);
    if (schema->status() != kClean) return schema->status();
  }
  TreeChange adopt;
  if (schema) adopt = [&schema](record::RecordTree& tree) { schema->adopt(tree); };
  DataInput input(m_copybook, options, m_data, adopt);
  std::unique_ptr<document::Programs> programs;
  if (input.hasLayout() && !input.diagnostics().hasErrors()) {
    programs = std::make_unique<document::Programs>(input.set(), makeOutputRules(m_data, m_syntax),
                                                    input.diagnostics());
  }
  if (int status = input.finish(); status != kClean) return status;
  for (std::string const& output : {options.output, m_data.rejects, m_data.residue}) {
    for (std::string const& file : {m_copybook, m_path, m_data.schema}) {
      if (int status = refuseOutputOver(output, file); status != kClean) return status;
    }
  }
  std::string name = inputName(m_path);
  framing::InputStream source;
  if (auto why = source.open(m_path)) {
    printReadFailure(name, *why);
    return kFailed;
  }
  return ToDocuments(input, m_data, *programs, name, schema.get()).run(source, options.output);
}

}  // namespace

std::unique_ptr<Command> makeToXmlCommand(OpenSchema openSchema) {
  return std::make_unique<ToCommand>(document::Syntax::xml, openSchema);
}

std::unique_ptr<Command> makeToJsonCommand(OpenSchema openSchema) {
  return std::make_unique<ToCommand>(document::Syntax::json, openSchema);
}

}  // namespace fdmorph::fdrec
