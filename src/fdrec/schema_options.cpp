#include "fdrec/schema_options.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <utility>

#include "fdrec/files.h"
#include "source/diagnostics.h"
#include "source/source_files.h"

namespace fdmorph::fdrec {
namespace {

/// A resolver that says what it finds.
class RecordingResolver : public FileResolver {
 public:
  RecordingResolver(std::vector<std::string> folders, Catalog catalog,
                    std::shared_ptr<ReadFiles> read)
      : FileResolver(std::move(folders), std::move(catalog)), m_read(std::move(read)) {
    addCatalogs();
  }

  std::optional<std::string> resolve(LocationReference const& reference) override {
    std::optional<std::string> path = FileResolver::resolve(reference);
    addCatalogs();
    if (path) m_read->add(*path);
    return path;
  }

 private:
  // A search may read further catalogs.
  void addCatalogs() {
    if (catalog().fileCount() == m_catalogCount) return;
    m_catalogCount = catalog().fileCount();
    for (std::string const& each : catalog().files()) m_read->add(each);
  }

  std::shared_ptr<ReadFiles> m_read;
  std::size_t m_catalogCount = 0;
};

void addFolders(CLI::App& app, char const* name, std::vector<std::string>& values, char const* type,
                char const* text) {
  app.add_option(name, values, text)
      ->option_text(type)
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);
}

void reportCatalog(XmlFault const& fault) {
  if (fault.line != 0) return printFault(fault, "catalog");
  printError(
      "cannot read " + compiler::quoted(fault.file) + ": " + compiler::whyUnreadable(fault.file),
      "file");
}

void printPlaced(XmlFault const& fault, std::string_view severity, std::string_view code) {
  std::string line = compiler::printable(fault.file);
  if (fault.line != 0) {
    line += ":" + std::to_string(fault.line) + ":" + std::to_string(fault.column);
  }
  line.append(": ").append(severity).append(": ").append(compiler::printable(fault.text));
  line.append(" [").append(code).append("]\n");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void SchemaOptions::declare(CLI::App& app) {
  addFolders(app, "--import-path", folders, "DIR",
             "look for included and imported files here, too");
  addFolders(app, "--catalog", catalogs, "FILE", "look them up in this OASIS XML catalog");
}

std::unique_ptr<FileResolver> makeResolver(SchemaOptions const& options, std::string const& path,
                                           std::shared_ptr<ReadFiles> read) {
  Catalog catalog(options.catalogs);
  std::vector<XmlFault> const faults = catalog.load();
  for (XmlFault const& each : faults) reportCatalog(each);
  if (!faults.empty()) return nullptr;
  read->add(path);
  return std::make_unique<RecordingResolver>(options.folders, std::move(catalog), std::move(read));
}

void printFault(XmlFault const& fault, std::string_view code) {
  printPlaced(fault, "error", code);
}

void printWarning(XmlFault const& fault, std::string_view code) {
  printPlaced(fault, "warning", code);
}

}  // namespace fdmorph::fdrec
