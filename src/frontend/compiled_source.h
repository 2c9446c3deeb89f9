// A source and its data division: all passes over one source, from the text to the
// checked items with their storage.
#pragma once

#include <optional>
#include <string>

#include "preprocess/copy_search.h"
#include "preprocess/text_manipulation.h"
#include "semantics/data_item.h"
#include "source/diagnostics.h"
#include "source/source_files.h"
#include "source/source_reader.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

/// How a source is read and its items are stored.
struct SourceOptions {
  ReadingRules reading;
  CopyRules copying;
  Dialect dialect = Dialect::gnuCobol;
  std::optional<Dialect> binarySize;  ///< the dialect of the sizes of binary numbers, if another
  bool warnsOfMissingCopies = false;  ///< a member that is not found is no error
};

/// Owns the texts and the data of one source, and what is reported about them.
/// Items, names and places look at it.
class CompiledSource {
 public:
  /// Compiles the source at `path`; `tree` must outlive this object. `name` is the
  /// name of the source in messages, the path if empty. A source that cannot be
  /// read has no data, and that is reported.
  CompiledSource(std::string const& path, SourceOptions const& options, FileTree& tree,
                 std::string const& name = {});
  CompiledSource(CompiledSource const&) = delete;
  CompiledSource& operator=(CompiledSource const&) = delete;

  /// The data. After errors some items may be missing, or have no size.
  [[nodiscard]] DataDivision const& data() const { return m_data; }

  /// What was reported so far; passes on the data report here as well.
  [[nodiscard]] Diagnostics& diagnostics() { return m_diagnostics; }
  [[nodiscard]] Diagnostics const& diagnostics() const { return m_diagnostics; }

  [[nodiscard]] Sources const& sources() const { return m_sources; }

  /// The file of the source; null if it cannot be read.
  [[nodiscard]] SourceFile const* file() const { return m_file; }

 private:
  void compile(std::string const& path, SourceOptions const& options);
  void noteFormat(Format format);

  Sources m_sources;
  Diagnostics m_diagnostics;
  SourceFile const* m_file;
  CopySearch m_search;
  TextPool m_pool;
  TextContext m_context;
  DataDivision m_data;
};

/// The name of a file without folder and extension.
[[nodiscard]] std::string_view baseName(std::string_view path);

}  // namespace fdmorph::compiler
