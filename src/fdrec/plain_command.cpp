// fdrec plain: a copybook without XML clauses, and its count record.
#include <CLI/CLI.hpp>

#include "copybook/name_scope.h"
#include "copybook/plain_copybook.h"
#include "fdrec/commands.h"
#include "fdrec/copybook_file.h"
#include "fdrec/files.h"

namespace fdmorph::fdrec {
namespace {

class PlainCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
        ->required()
        ->option_text(" ");
    app.add_flag("--free", m_isFree, "write free format");
    app.add_option("--copy-name", m_form.copyName, "put the record in a level 01 group NAME")
        ->option_text("NAME");
  }

  int run(CommonOptions const& options) override {
    if (int status = checkName(); status != kClean) return status;
    if (int status = refuseOutputOver(options.output, m_copybook); status != kClean) return status;
    if (m_isFree) m_form.lines = copybook::LineForm::free;
    CopybookFile copybook(m_copybook, options, CopybookUse::items);
    if (!m_form.copyName.empty() && copybook.records().size() > 1) {
      copybook.diagnostics().report(compiler::Code::choice, {},
                                    "--copy-name takes one record; --record chooses it");
      return copybook.finish();
    }
    if (!copybook.isUsable()) return copybook.finish();
    std::string text = copybook::writePlainCopybook(copybook.records(), m_form,
                                                    options.source.dialect, copybook.diagnostics());
    int written = writeOutput(options.output, text);
    int status = copybook.finish();
    return written == kClean ? status : written;
  }

 private:
  int checkName() const {
    if (m_form.copyName.empty()) return kClean;
    std::string_view fault = copybook::faultOfName(m_form.copyName);
    if (fault.empty()) return kClean;
    printError("name " + compiler::quoted(m_form.copyName) + " " + std::string(fault), "usage");
    return kUsageError;
  }

  std::string m_copybook;
  bool m_isFree = false;
  copybook::PlainForm m_form;
};

}  // namespace

std::unique_ptr<Command> makePlainCommand() {
  return std::make_unique<PlainCommand>();
}

}  // namespace fdmorph::fdrec
