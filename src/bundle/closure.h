// A schema with all files that it reaches, and the same files with locations that are
// names of each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "bundle/file_contents.h"
#include "bundle/file_names.h"
#include "bundle/reference_reader.h"
#include "bundle/text_units.h"
#include "xml/location_resolver.h"
#include "xml/xml_events.h"

namespace fdmorph::bundle {

/// The largest number of files.
inline constexpr std::size_t kMaxFiles = 100'000;

/// What keeps a bundle from being complete.
struct Finding {
  enum class Kind : std::uint8_t {
    unusable,     ///< a file cannot be read, or a location not be replaced
    missing,      ///< a file is not found
    missingHint,  ///< the same, but a processor may do without it
  };

  Kind kind = Kind::unusable;
  XmlFault fault;
  std::string name;  ///< that locations in the bundle give to a missing file
};

/// Follows includes, redefines, imports, hints and external entities from a main file, in
/// breadth. Each file is read once, whatever the spellings of its path. An import
/// without a location gets one if the resolver knows its namespace.
class Closure {
 public:
  struct File {
    std::string source;  ///< its path
    std::string name;    ///< in the bundle
  };

  /// `resolver` must outlive this object. Names in `reserved` are not given to files.
  Closure(LocationResolver& resolver, std::vector<std::string> const& reserved,
          std::size_t maxFiles = kMaxFiles);

  /// Reads the file `path`, which exists, and all that it reaches. To be called once.
  void gather(std::string const& path);

  /// The files that have been found, the main one first.
  [[nodiscard]] std::vector<File> const& files() const { return m_files; }

  [[nodiscard]] std::vector<Finding> const& findings() const { return m_findings; }

  /// The bytes of a file for the bundle. Only locations differ from those that were read.
  [[nodiscard]] std::string contentOf(std::size_t file);

 private:
  struct Edit {
    ByteRange range;
    std::string text;
  };
  using Edits = std::map<std::size_t, Edit>;  // by the beginning of the range

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  [[nodiscard]] std::size_t addFile(std::string const& path);
  void readSchema(std::size_t file);
  void follow(FileReference const& reference);
  void writeLocation(FileReference const& reference, std::string const& name);
  [[nodiscard]] std::string const& reportMissing(FileReference const& reference);
  void report(Finding::Kind kind, FileReference const& reference, std::string const& text,
              std::string const& name = {});

  LocationResolver& m_resolver;
  std::size_t m_maxFiles;
  FileContents m_contents;
  FileNames m_names;
  std::vector<File> m_files;
  std::vector<Edits> m_edits;                             // of each file
  std::vector<bool> m_isSchema;                           // and not an entity alone
  std::vector<std::size_t> m_schemas;                     // in the order of reading
  std::unordered_map<std::string, std::size_t> m_byPath;  // files
  std::map<std::string, std::string> m_missing;           // names by absolute URIs
  std::unordered_map<std::string, TextCursor> m_cursors;  // in files with findings
  std::vector<Finding> m_findings;
  bool m_isFull = false;
};

}  // namespace fdmorph::bundle
