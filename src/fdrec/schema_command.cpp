// fdrec schema: XML Schema or JSON Schema of the documents of records.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <system_error>
#include <unordered_set>

#include "docschema/json_schema.h"
#include "docschema/xml_schema.h"
#include "fdrec/commands.h"
#include "fdrec/copybook_file.h"
#include "fdrec/document_options.h"
#include "fdrec/files.h"
#include "fdrec/view_choice.h"

namespace fdmorph::fdrec {
namespace {

using docschema::SchemaFile;
using docschema::SchemaRules;

bool isFolder(std::string const& path) {
  std::error_code error;
  return !path.empty() && (path.back() == '/' || std::filesystem::is_directory(path, error));
}

class SchemaCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
        ->required()
        ->option_text(" ");
    app.add_flag("--json", m_isJson, "write JSON Schema of the JSON lines");
    app.add_flag("--enumerate", m_isEnumerated, "level 88 restricts the values");
    m_documents.declare(app);
  }

  int run(CommonOptions const& options) override {
    if (int status = refuseOutputOver(options.output, m_copybook); status != kClean) return status;
    CopybookFile copybook(m_copybook, options);
    if (!copybook.isUsable()) return copybook.finish();
    SchemaRules rules = m_documents.rules(options);
    rules.enumeratesConditions = m_isEnumerated;
    ViewChoice choice = chooseViews(copybook.trees(), m_documents.when());
    if (!choice.error.empty()) {
      printError("--when: " + choice.error, "usage");
      return kUsageError;
    }
    rules.chosenViews = std::move(choice.items);
    copybook.checkLayout();
    checkNames(copybook, rules);
    if (copybook.diagnostics().hasErrors()) return copybook.finish();
    int const written = m_isJson ? writeOutput(options.output, jsonSchemaOf(copybook, rules))
                                 : writeXml(copybook, std::move(rules), options.output);
    int const status = copybook.finish();
    return written == kClean ? status : written;
  }

 private:
  static std::string jsonSchemaOf(CopybookFile const& copybook, SchemaRules const& rules) {
    return docschema::writeJsonSchema(copybook.trees(), rules);
  }

  void checkNames(CopybookFile& copybook, SchemaRules const& rules) const {
    std::unordered_set<std::string> names;
    for (record::RecordTree const& each : copybook.trees()) {
      record::RecordNode const& root = each.root();
      std::string const record = "record " + compiler::quoted(record::dataNameOf(*root.item));
      if (root.role != record::Role::element) {
        copybook.diagnostics().report(compiler::Code::layout, root.item->place,
                                      record + " is no element: it has no XML name");
        continue;
      }
      std::string const space(m_isJson ? "" : root.namespaceUri);
      if (!names.insert(space + "\n" + std::string(root.name)).second) {
        copybook.diagnostics().report(compiler::Code::layout, root.item->place,
                                      record + " has the XML name of another record");
      }
      if (m_isJson) docschema::checkMemberNames(each, rules, copybook.diagnostics());
    }
  }

  // A schema of several namespaces is a folder. A file of its own has no element
  // without a namespace around records of a namespace.
  static int writeXml(CopybookFile const& copybook, SchemaRules rules, std::string const& output) {
    std::vector<SchemaFile> files = docschema::writeXmlSchema(copybook.trees(), rules);
    if (files.size() > 1 && !isFolder(output) && rules.wrapper) {
      std::string const wrapper = *rules.wrapper;
      rules.wrapper.reset();
      std::vector<SchemaFile> records = docschema::writeXmlSchema(copybook.trees(), rules);
      if (records.size() == 1) {
        printWarning("the schema has no element " + compiler::quoted(wrapper) +
                         ", which is in no namespace; -o FOLDER makes a file for it",
                     "namespace");
        files = std::move(records);
      }
    }
    if (files.size() == 1 && !isFolder(output)) return writeOutput(output, files.front().text);
    if (output.empty() || output == compiler::kStandardInput) {
      printError("the documents have several namespaces; -o must name a folder for their files",
                 "usage");
      return kUsageError;
    }
    return writeFolder(files, output);
  }

  static int writeFolder(std::vector<SchemaFile> const& files, std::string const& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
      printError("cannot make the folder " + compiler::quoted(folder) + ": " + error.message(),
                 "file");
      return kFailed;
    }
    for (SchemaFile const& each : files) {
      std::string const path = (std::filesystem::path(folder) / each.name).string();
      if (int status = writeOutput(path, each.text); status != kClean) return status;
    }
    return kClean;
  }

  std::string m_copybook;
  DocumentOptions m_documents;
  bool m_isJson = false;
  bool m_isEnumerated = false;
};

}  // namespace

std::unique_ptr<Command> makeSchemaCommand() {
  return std::make_unique<SchemaCommand>();
}

}  // namespace fdmorph::fdrec
