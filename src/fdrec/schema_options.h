// How a command finds the files of a schema.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fdrec/read_files.h"
#include "xml/location_resolver.h"
#include "xml/xml_events.h"

namespace CLI {  // NOLINT(readability-identifier-naming): the name is that of the library
class App;
}

namespace fdmorph::fdrec {

/// Where the files of a schema are looked for, besides the folder of the file that
/// names them.
struct SchemaOptions {
  std::vector<std::string> folders;
  std::vector<std::string> catalogs;

  /// Declares --import-path and --catalog, which belong to this object.
  void declare(CLI::App& app);
};

/// A resolver by the options for the files of the schema `path`; null if a catalog cannot
/// be used, which is reported. The schema, the catalogs and each file that the resolver
/// finds are added to `read`.
[[nodiscard]] std::unique_ptr<FileResolver> makeResolver(SchemaOptions const& options,
                                                         std::string const& path,
                                                         std::shared_ptr<ReadFiles> read);

/// Prints "FILE:LINE:COLUMN: error: TEXT [code]" to the standard error stream, without
/// the place as far as the fault has none.
void printFault(XmlFault const& fault, std::string_view code);

/// The same, with "warning" for "error".
void printWarning(XmlFault const& fault, std::string_view code);

}  // namespace fdmorph::fdrec
