// The arguments that the commands on mapping files share.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "fdrec/command.h"
#include "frontend/compiled_source.h"
#include "mapping/described_data.h"

namespace CLI {  // NOLINT(readability-identifier-naming): that of the library
class App;
class Option;
}  // namespace CLI

namespace fdmorph::fdrec {

/// A source and its data as fdmorph describes them.
struct DescribedSource {
  DescribedSource(std::string const& sourcePath, compiler::SourceOptions const& options);

  std::string path;  ///< the data looks at it
  compiler::DiskTree disk;
  compiler::CompiledSource source;
  std::optional<mapping::DescribedData> data;  ///< nothing after errors

  /// Prints what was reported about the source to the standard error stream. The
  /// result is an exit status.
  [[nodiscard]] int finish(bool hasWarningsAsErrors) const;
};

/// How the data is described: the choice of fdmorph and its compiler.
class MapOptions {
 public:
  /// Declares the options on a subcommand, whose program has the common options.
  void declare(CLI::App& app);

  /// Describes the data of a source. Null, with a message, if the directives cannot be
  /// applied; `status` then is the exit status.
  [[nodiscard]] std::unique_ptr<DescribedSource> describe(std::string const& path,
                                                          CommonOptions const& options,
                                                          int& status) const;

 private:
  std::string m_directives;
  CLI::Option const* m_dialect = nullptr;
};

}  // namespace fdmorph::fdrec
