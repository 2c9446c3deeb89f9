// fdrec deps: what a schema or a COBOL source consists of, as a rule for make.
#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "fdrec/assembled_schema.h"
#include "fdrec/commands.h"
#include "fdrec/copybook_file.h"
#include "fdrec/files.h"
#include "fdrec/schema_options.h"
#include "text/depfile.h"
#include "text/letter_case.h"

namespace fdmorph::fdrec {
namespace {

class DepsCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("FILE", m_file, "XML Schema (.xsd), copybook or program")
        ->required()
        ->option_text(" ");
    app.add_option("--target", m_targets,
                   "name that depends on the files (repeatable); default: what\n"
                   "fdmorph makes of FILE")
        ->option_text("NAME")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
    m_schemaFiles.declare(app);
  }

  int run(CommonOptions const& options) override {
    if (int status = refuseOutputOver(options.output, m_file); status != kClean) return status;
    int const status = isSchema() ? readSchema(options) : readSource(options);
    if (status != kClean) return status;
    std::vector<std::string> const targets = m_targets.empty() ? outputsOfFdmorph() : m_targets;
    return writeOutput(options.output, writeDepfile(targets, options.readFiles->paths()));
  }

 private:
  // FILE without its extension; a dot at its beginning is not that of an extension.
  [[nodiscard]] std::string stem() const {
    std::size_t const slash = m_file.rfind('/');
    std::size_t const begin = slash == std::string::npos ? 0 : slash + 1;
    std::size_t const dot = m_file.rfind('.');
    return dot == std::string::npos || dot <= begin ? m_file : m_file.substr(0, dot);
  }

  [[nodiscard]] bool isSchema() const {
    return equalsIgnoringCase(m_file.substr(stem().size()), ".xsd");
  }

  [[nodiscard]] std::vector<std::string> outputsOfFdmorph() const {
    if (isSchema()) return {stem() + ".cpy"};
    return {stem() + ".xsd", stem() + "-fdmorph.cpy"};
  }

  [[nodiscard]] int readSchema(CommonOptions const& options) const {
    std::unique_ptr<FileResolver> resolver = makeResolver(m_schemaFiles, m_file, options.readFiles);
    if (resolver == nullptr) return kFailed;
    return AssembledSchema(m_file, *resolver).status();
  }

  [[nodiscard]] int readSource(CommonOptions const& options) const {
    return CopybookFile(m_file, options, CopybookUse::items).finish();
  }

  std::string m_file;
  std::vector<std::string> m_targets;
  SchemaOptions m_schemaFiles;
};

}  // namespace

std::unique_ptr<Command> makeDepsCommand() {
  return std::make_unique<DepsCommand>();
}

}  // namespace fdmorph::fdrec
