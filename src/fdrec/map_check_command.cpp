// fdrec map-check: what is wrong with a mapping file.
#include <CLI/CLI.hpp>

#include "fdrec/commands.h"
#include "fdrec/files.h"
#include "fdrec/map_options.h"
#include "mapping/mapping_check.h"

namespace fdmorph::fdrec {
namespace {

class MapCheckCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
        ->required()
        ->option_text(" ");
    app.add_option("MAPPING", m_mapping, "mapping file of fdmorph -M")
        ->required()
        ->option_text(" ");
    app.add_flag("--json", m_isJson, "write JSON");
    m_options.declare(app);
  }

  int run(CommonOptions const& options) override {
    for (std::string const& input : {m_copybook, m_mapping}) {
      int const status = refuseOutputOver(options.output, input);
      if (status != kClean) return status;
    }
    std::optional<std::string> const content = readInput(m_mapping);
    if (!content) return kFailed;
    int status = kClean;
    std::unique_ptr<DescribedSource> const source = m_options.describe(m_copybook, options, status);
    if (source == nullptr) return status;
    status = source->finish(options.hasWarningsAsErrors);
    if (!source->data) return status;
    mapping::MappingFindings const findings =
        mapping::checkMapping(*content, m_mapping, *source->data);
    std::string const text = m_isJson ? mapping::printJson(findings, m_mapping, m_copybook)
                                      : mapping::printText(findings, m_mapping);
    if (writeOutput(options.output, text) != kClean) return kFailed;
    bool const isWrong =
        findings.countOf(compiler::Severity::error) != 0 ||
        (options.hasWarningsAsErrors && findings.countOf(compiler::Severity::warning) != 0);
    return isWrong ? kErrors : status;
  }

 private:
  std::string m_copybook;
  std::string m_mapping;
  MapOptions m_options;
  bool m_isJson = false;
};

}  // namespace

std::unique_ptr<Command> makeMapCheckCommand() {
  return std::make_unique<MapCheckCommand>();
}

}  // namespace fdmorph::fdrec
