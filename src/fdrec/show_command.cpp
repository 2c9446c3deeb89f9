// fdrec show: the items of records as a table, as JSON and as a page.
#include <CLI/CLI.hpp>

#include "fdrec/commands.h"
#include "fdrec/copybook_file.h"
#include "fdrec/files.h"
#include "show/json_output.h"
#include "show/page.h"
#include "show/table.h"

namespace fdmorph::fdrec {
namespace {

class ShowCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
        ->required()
        ->option_text(" ");
    CLI::Option* json = app.add_flag("--json", m_isJson, "write JSON");
    app.add_flag("--html", m_isPage, "write a page for a browser")->excludes(json);
  }

  int run(CommonOptions const& options) override {
    if (int status = refuseOutputOver(options.output, m_copybook); status != kClean) return status;
    CopybookFile copybook(m_copybook, options);
    if (!copybook.isUsable()) return copybook.finish();
    copybook.checkLayout();
    show::ShownSource source{copybook.source().file()->name, options.source.dialect,
                             options.effectiveEncoding(), copybook.trees(),
                             &copybook.source().sources()};
    int written = writeOutput(options.output, print(source));
    int status = copybook.finish();
    return written == kClean ? status : written;
  }

 private:
  std::string print(show::ShownSource const& source) const {
    if (m_isPage) return show::printPage(source);
    return m_isJson ? show::printJson(source) : show::printTables(source);
  }

  std::string m_copybook;
  bool m_isJson = false;
  bool m_isPage = false;
};

}  // namespace

std::unique_ptr<Command> makeShowCommand() {
  return std::make_unique<ShowCommand>();
}

}  // namespace fdmorph::fdrec
