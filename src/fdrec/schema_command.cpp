// fdrec schema: XML Schema or JSON Schema of the documents of records.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <system_error>
#include <unordered_set>

#include "docschema/json_schema.h"
#include "docschema/xml_schema.h"
#include "document/json_program.h"
#include "fdrec/commands.h"
#include "fdrec/data_input.h"
#include "fdrec/data_options.h"
#include "fdrec/files.h"

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
    m_data.declare(app);
  }

  int run(CommonOptions const& options) override {
    if (int status = refuseOutputOver(options.output, m_copybook); status != kClean) return status;
    DataInput input(m_copybook, options, m_data);
    if (input.hasLayout()) checkNames(input);
    if (int status = input.finish(); status != kClean) return status;
    SchemaRules rules = makeRules(input);
    int const written =
        m_isJson ? writeOutput(options.output, docschema::writeJsonSchema(input.trees(), rules))
                 : writeXml(input.trees(), std::move(rules), options.output);
    return written == kClean ? input.cleanStatus() : written;
  }

 private:
  [[nodiscard]] SchemaRules makeRules(DataInput const& input) const {
    values::Conventions const& conventions = input.set().rules().conventions;
    SchemaRules rules;
    rules.hasCounts = m_data.hasCounts;
    rules.omitsEmpty = input.set().rules().omitsEmpty;
    rules.omitsBlankNumbers = conventions.blankNumbers == values::BlankNumbers::omit;
    rules.hasEditedNumbers = conventions.hasEditedNumbers;
    rules.hasFullBinaryRange = conventions.hasFullBinaryRange;
    rules.hasHexadecimalFloats = conventions.floats == values::FloatForm::ibm;
    rules.hasQuotedNumbers = m_data.quotesNumbers;
    rules.enumeratesConditions = m_isEnumerated;
    rules.trim = trimOf(conventions.trim);
    if (!m_data.isSingle && !m_data.areLines) rules.wrapper = m_data.wrapper;
    for (std::uint32_t i = 0; i < input.set().layouts().size(); ++i) {
      layout::Layout const& layout = input.set().layouts()[i];
      for (std::uint32_t area = 0; area < layout.areas().size(); ++area) {
        for (layout::ViewRule const* rule : input.set().rulesOf(i, area)) {
          rules.chosenViews.insert(layout.item(rule->target).item);
        }
      }
    }
    return rules;
  }

  static docschema::Trim trimOf(values::Trim trim) {
    switch (trim) {
      case values::Trim::right:
        return docschema::Trim::right;
      case values::Trim::both:
        return docschema::Trim::both;
      default:
        return docschema::Trim::none;
    }
  }

  // Reports records of one name, and what JSON cannot tell apart.
  void checkNames(DataInput& input) const {
    std::unordered_set<std::string> names;
    for (record::RecordTree const& each : input.trees()) {
      record::RecordNode const& root = each.root();
      std::string const space(m_isJson ? "" : root.namespaceUri);
      bool isNew = names.insert(space + "\n" + std::string(root.name)).second;
      if (root.role == record::Role::element && !isNew) {
        input.diagnostics().report(compiler::Code::layout, root.item->place,
                                   "record " + compiler::quoted(record::dataNameOf(*root.item)) +
                                       " has the XML name of another record");
      }
    }
    if (!m_isJson) return;
    for (layout::Layout const& each : input.set().layouts()) {
      document::checkMemberNames(each, input.diagnostics());
    }
  }

  // A schema of several namespaces is a folder. A file of its own has no element
  // without a namespace around records of a namespace.
  static int writeXml(std::vector<record::RecordTree> const& trees, SchemaRules rules,
                      std::string const& output) {
    std::vector<SchemaFile> files = docschema::writeXmlSchema(trees, rules);
    if (files.size() > 1 && !isFolder(output) && rules.wrapper) {
      std::string const wrapper = *rules.wrapper;
      rules.wrapper.reset();
      std::vector<SchemaFile> records = docschema::writeXmlSchema(trees, rules);
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
  DataOptions m_data;
  bool m_isJson = false;
  bool m_isEnumerated = false;
};

}  // namespace

std::unique_ptr<Command> makeSchemaCommand() {
  return std::make_unique<SchemaCommand>();
}

}  // namespace fdmorph::fdrec
