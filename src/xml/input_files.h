// The files that a run reads through the XML library: each is read from disk
// once, however often it is parsed.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "xml/schema_references.h"

namespace fdmorph {

/// A file whose bytes are kept as far as they have been asked for.
class InputFile {
 public:
  enum class Kind { regular, directory, pipe, other };  ///< other: also what does not exist

  /// Of pipes only one that is a main input is read, with `mayBePipe`.
  explicit InputFile(std::string path, bool mayBePipe = false);
  ~InputFile();
  InputFile(InputFile const&) = delete;
  InputFile& operator=(InputFile const&) = delete;

  /// The absolute path without links and dots, as far as it exists: one name for
  /// all spellings of the path.
  std::string const& name() const { return m_name; }

  /// What the path names. Finding out opens nothing.
  Kind kind() const { return m_kind; }

  /// True if the file can be read; it is opened the first time. Directories and
  /// special files are not opened.
  [[nodiscard]] bool canBeRead();

  /// Copies bytes from `offset` on to `target`, and returns how many; 0 at the
  /// end of the file. Nothing after a read error. To be called if canBeRead.
  [[nodiscard]] std::optional<std::size_t> read(std::size_t offset, std::span<std::byte> target);

  /// The bytes before the first zero byte, where the text ends in most encodings.
  /// The view ends with the next read. To be called if canBeRead.
  [[nodiscard]] std::string_view textBeforeZero();

  /// Whether the file has been checked and may be loaded as a schema.
  [[nodiscard]] bool isAdmitted() const { return m_isAdmitted; }
  void admit() { m_isAdmitted = true; }

 private:
  bool readBlock();

  std::string m_path;
  std::string m_name;
  Kind m_kind;
  bool m_mayBePipe;
  bool m_isAdmitted = false;
  std::string m_bytes;
  std::optional<bool> m_canBeRead;
  int m_descriptor = -1;  // open until the end has been read
};

/// The files of one run, and what is known of the references between them.
class InputFiles {
 public:
  InputFiles() = default;
  InputFiles(InputFiles const&) = delete;
  InputFiles& operator=(InputFiles const&) = delete;

  /// The file that `path` names, whatever the spelling of the path.
  [[nodiscard]] std::shared_ptr<InputFile> const& at(std::string const& path);

  /// The references between schema files.
  SchemaReferences& references() { return m_references; }

  /// Forgets all files. No parse may be going on.
  void clear();

 private:
  std::unordered_map<std::string, std::shared_ptr<InputFile>> m_files;  // by name()
  std::unordered_map<std::string, std::shared_ptr<InputFile>> m_spellings;
  SchemaReferences m_references;
};

}  // namespace fdmorph
