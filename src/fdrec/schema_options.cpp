#include "fdrec/schema_options.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <utility>

#include "fdrec/files.h"
#include "source/diagnostics.h"
#include "source/source_files.h"

namespace fdmorph::fdrec {
namespace {

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

}  // namespace

void SchemaOptions::declare(CLI::App& app) {
  addFolders(app, "--import-path", folders, "DIR",
             "look for included and imported files here, too");
  addFolders(app, "--catalog", catalogs, "FILE", "look them up in this OASIS XML catalog");
}

std::unique_ptr<FileResolver> makeResolver(SchemaOptions const& options) {
  Catalog catalog(options.catalogs);
  std::vector<XmlFault> const faults = catalog.load();
  for (XmlFault const& each : faults) reportCatalog(each);
  if (!faults.empty()) return nullptr;
  return std::make_unique<FileResolver>(options.folders, std::move(catalog));
}

void printFault(XmlFault const& fault, std::string_view code) {
  std::string line = compiler::printable(fault.file);
  if (fault.line != 0) {
    line += ":" + std::to_string(fault.line) + ":" + std::to_string(fault.column);
  }
  line += ": error: " + compiler::printable(fault.text);
  line.append(" [").append(code).append("]\n");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace fdmorph::fdrec
