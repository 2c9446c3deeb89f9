// fdrec index: where records begin in a file, for splitting.
#include <CLI/CLI.hpp>

#include "fdrec/commands.h"
#include "fdrec/data_input.h"
#include "fdrec/files.h"
#include "framing/record_index.h"

namespace fdmorph::fdrec {
namespace {

class IndexCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
        ->required()
        ->option_text(" ");
    app.add_option("DATA", m_data, "file of records; default: the standard input")
        ->option_text(" ");
    m_options.declare(app);
  }

  int run(CommonOptions const& options) override {
    if (int status = checkNames(options); status != kClean) return status;
    DataInput input(m_copybook, options, m_options);
    if (int status = input.finish(); status != kClean) return status;
    int const written = writeIndex(options, input.framing());
    return written == kClean ? input.cleanStatus() : written;
  }

 private:
  int checkNames(CommonOptions const& options) const {
    if (int status = refuseSharedInput(m_copybook, m_data); status != kClean) return status;
    if (int status = refuseOutputOver(options.output, m_copybook); status != kClean) return status;
    return m_data.empty() ? kClean : refuseOutputOver(options.output, m_data);
  }

  int writeIndex(CommonOptions const& options, framing::FramingRules const& rules) const {
    std::string const name = inputName(m_data);
    framing::InputStream input;
    if (std::optional<std::string> const reason = input.open(m_data)) {
      printReadFailure(name, *reason);
      return kFailed;
    }
    framing::MadeIndex const made = framing::indexFile(input, rules);
    if (input.failure()) {
      printReadFailure(name, *input.failure());
      return kFailed;
    }
    if (made.error) {
      printFrameError(name, *made.error);
      return kErrors;
    }
    return writeOutput(options.output, made.index.text());
  }

  std::string m_copybook;
  std::string m_data;
  DataOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeIndexCommand() {
  return std::make_unique<IndexCommand>();
}

}  // namespace fdmorph::fdrec
