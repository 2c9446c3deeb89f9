// fdrec bundle: a schema and all files that it reaches, in one folder.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

#include "bundle/closure.h"
#include "bundle/folder_content.h"
#include "bundle/folder_replacement.h"
#include "fdrec/commands.h"
#include "fdrec/files.h"
#include "fdrec/schema_options.h"
#include "source/diagnostics.h"
#include "source/source_files.h"
#include "xml/input_files.h"

namespace fdmorph::fdrec {
namespace {

namespace fs = std::filesystem;
using bundle::Closure;
using bundle::Finding;
using bundle::FolderContent;

class BundleCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("SCHEMA", m_schema,
                   "XML Schema; the names of the files go to the\n"
                   "standard output, and the files to -o FOLDER")
        ->required()
        ->option_text(" ");
    m_files.declare(app);
    app.add_flag("--allow-missing", m_mayMiss, "make the bundle without files that are not found");
  }

  int run(CommonOptions const& options) override {
    if (int status = checkFolder(options.output); status != kClean) return status;
    if (!InputFile(m_schema).canBeRead()) {
      printError(
          "cannot read " + compiler::quoted(m_schema) + ": " + compiler::whyUnreadable(m_schema),
          "file");
      return kFailed;
    }
    std::unique_ptr<FileResolver> resolver = makeResolver(m_files, m_schema, options.readFiles);
    if (resolver == nullptr) return kFailed;
    Closure closure(*resolver, {std::string(bundle::kManifestName)});
    closure.gather(m_schema);
    if (int status = printFindings(closure); status != kClean) return status;
    if (int status = refuseSources(closure, options.output); status != kClean) return status;
    if (int status = write(closure, options.output); status != kClean) return status;
    return options.hasWarningsAsErrors && m_hasWarnings ? kErrors : kClean;
  }

 private:
  // Reports a folder that cannot be replaced. The result is an exit status.
  static int checkFolder(std::string const& folder) {
    if (folder.empty() || folder == compiler::kStandardInput) {
      printError("-o must name a folder for the files", "usage");
      return kUsageError;
    }
    FolderContent const content = bundle::lookAtFolder(folder);
    if (content.state != FolderContent::State::other) return kClean;
    printError("cannot replace " + compiler::quoted(folder) + ": " + content.reason, "usage");
    return kUsageError;
  }

  // The result is an exit status.
  int printFindings(Closure const& closure) {
    int status = kClean;
    for (Finding const& each : closure.findings()) {
      bool const isWarning = each.kind == Finding::Kind::missingHint ||
                             (each.kind == Finding::Kind::missing && m_mayMiss);
      if (!isWarning) {
        printFault(each.fault, "schema");
        status = kErrors;
        continue;
      }
      XmlFault fault = each.fault;
      fault.text += ", which is " + compiler::quoted(each.name) + " in the bundle";
      printWarning(fault, "schema");
      m_hasWarnings = true;
    }
    return status;
  }

  // Reports a file that is read and would be replaced. The result is an exit status.
  static int refuseSources(Closure const& closure, std::string const& folder) {
    for (Closure::File const& each : closure.files()) {
      std::error_code error;
      fs::path const inside = fs::path(each.source).parent_path();
      if (!fs::equivalent(inside.empty() ? "." : inside, folder, error)) continue;
      printError("the bundle would replace the input " + compiler::quoted(each.source), "usage");
      return kUsageError;
    }
    return kClean;
  }

  // The result is an exit status.
  static int write(Closure& closure, std::string const& folder) {
    std::vector<bundle::FolderFile> files;
    std::string lines;
    for (std::size_t i = 0; i < closure.files().size(); ++i) {
      Closure::File const& file = closure.files()[i];
      files.push_back({file.name, closure.contentOf(i)});
      lines += file.name + " <- " + compiler::printable(file.source) + "\n";
    }
    if (std::optional<std::string> const why = bundle::replaceFolder(folder, std::move(files))) {
      printError("cannot write " + compiler::quoted(folder) + ": " + *why, "file");
      return kFailed;
    }
    return writeOutput({}, lines);
  }

  std::string m_schema;
  SchemaOptions m_files;
  bool m_mayMiss = false;
  bool m_hasWarnings = false;
};

}  // namespace

std::unique_ptr<Command> makeBundleCommand() {
  return std::make_unique<BundleCommand>();
}

}  // namespace fdmorph::fdrec
