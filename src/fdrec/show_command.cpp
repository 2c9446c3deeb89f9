// fdrec show: the items of records as a table, as JSON and as a page.
#include <CLI/CLI.hpp>
#include <optional>

#include "fdrec/commands.h"
#include "fdrec/copybook_file.h"
#include "fdrec/files.h"
#include "fdrec/schema_file.h"
#include "fdrec/schema_options.h"
#include "fdrec/schema_view.h"
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
    app.add_option("--schema", m_schema, "show the types of a schema and what does not fit, too")
        ->option_text("FILE");
  }

  int run(CommonOptions const& options) override {
    if (int status = refuseOutputOver(options.output, m_copybook); status != kClean) return status;
    std::optional<SchemaFile> schema;
    if (!m_schema.empty()) {
      if (int status = refuseOutputOver(options.output, m_schema); status != kClean) return status;
      schema.emplace(m_schema, makeResolver({}, m_schema, options.readFiles));
      if (schema->status() == kFailed) return kFailed;
    }
    CopybookFile copybook(m_copybook, options);
    bool hasSchemaErrors = schema && schema->status() != kClean;
    if (!copybook.isUsable() || hasSchemaErrors) {
      int status = copybook.finish();
      return status == kClean ? kErrors : status;
    }
    copybook.checkLayout();
    SchemaViews views;
    if (schema) views = viewSchema(copybook, schema->model(), m_schema, options);
    show::ShownSource source{copybook.source().file()->name,
                             options.source.dialect,
                             options.effectiveEncoding(),
                             copybook.trees(),
                             &copybook.source().sources(),
                             m_schema,
                             views.records};
    int written = writeOutput(options.output, print(source));
    int status = copybook.finish();
    if (written != kClean) return written;
    bool isWrong = views.hasErrors || (views.hasWarnings && options.hasWarningsAsErrors);
    return status == kClean && isWrong ? kErrors : status;
  }

 private:
  std::string print(show::ShownSource const& source) const {
    if (m_isPage) return show::printPage(source);
    return m_isJson ? show::printJson(source) : show::printTables(source);
  }

  std::string m_copybook;
  std::string m_schema;
  bool m_isJson = false;
  bool m_isPage = false;
};

}  // namespace

std::unique_ptr<Command> makeShowCommand() {
  return std::make_unique<ShowCommand>();
}

}  // namespace fdmorph::fdrec
