// fdrec from-xml and fdrec from-json: documents as the records of a file.
#include <CLI/CLI.hpp>
#include <memory>

#include "document/json_program.h"
#include "fdrec/commands.h"
#include "fdrec/data_options.h"
#include "fdrec/files.h"
#include "fdrec/from_documents.h"
#include "fdrec/record_schema.h"

namespace fdmorph::fdrec {
namespace {

class FromCommand : public Command {
 public:
  FromCommand(document::Syntax syntax, OpenSchema openSchema)
      : m_syntax(syntax), m_openSchema(openSchema) {}

  void declare(CLI::App& app) override;
  [[nodiscard]] int run(CommonOptions const& options) override;

 private:
  document::Syntax m_syntax;
  OpenSchema m_openSchema;
  std::string m_copybook;
  std::string m_path;
  DataOptions m_data;
};

void FromCommand::declare(CLI::App& app) {
  bool isXml = m_syntax == document::Syntax::xml;
  app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
      ->required()
      ->option_text(" ");
  app.add_option(isXml ? "DOCUMENT" : "LINES", m_path,
                 isXml ? "XML document; default: the standard input"
                       : "JSON lines; default: the standard input")
      ->option_text(" ");
  m_data.declare(app);
}

int FromCommand::run(CommonOptions const& options) {
  if (int status = refuseSharedInput(m_copybook, m_path); status != kClean) return status;
  int const shared = refuseSharedOutput(options.output, m_data.rejects);
  if (shared != kClean) return shared;
  std::unique_ptr<RecordSchema> schema;
  if (m_syntax == document::Syntax::xml && !m_data.schema.empty()) {
    schema = m_openSchema(m_data, options.readFiles);
    if (schema->status() != kClean) return schema->status();
  }
  TreeChange adopt;
  if (schema) adopt = [&schema](record::RecordTree& tree) { schema->adopt(tree); };
  DataInput input(m_copybook, options, m_data, adopt);
  if (input.hasLayout() && m_syntax == document::Syntax::json) {
    for (layout::Layout const& each : input.set().layouts()) {
      document::checkMemberNames(each, input.diagnostics());
    }
  }
  if (int status = input.finish(); status != kClean) return status;
  for (std::string const& output : {options.output, m_data.rejects}) {
    for (std::string const& file : {m_copybook, m_path, m_data.residue, m_data.schema}) {
      if (int status = refuseOutputOver(output, file); status != kClean) return status;
    }
  }
  std::string name = inputName(m_path);
  framing::InputStream source;
  if (auto why = source.open(m_path)) {
    printReadFailure(name, *why);
    return kFailed;
  }
  return FromDocuments(input, m_data, m_syntax, name, schema.get()).run(source, options.output);
}

}  // namespace

std::unique_ptr<Command> makeFromXmlCommand(OpenSchema openSchema) {
  return std::make_unique<FromCommand>(document::Syntax::xml, openSchema);
}

std::unique_ptr<Command> makeFromJsonCommand(OpenSchema openSchema) {
  return std::make_unique<FromCommand>(document::Syntax::json, openSchema);
}

}  // namespace fdmorph::fdrec
