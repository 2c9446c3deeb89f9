// The files of one compilation and the COPY statements that include them.
//
// Passes hand on byte offsets. They become lines and columns only when a
// diagnostic is printed.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::compiler {

/// A byte of the source. A text is one reading of a file: a file that is copied
/// twice makes two texts. Texts are numbered from 1 in the order of reading.
struct Place {
  std::uint32_t text = 0;    ///< 0: the place is unknown
  std::uint32_t offset = 0;  ///< bytes from the beginning of the file

  bool isKnown() const { return text != 0; }
  bool operator==(Place const& other) const = default;
};

/// Where files come from; tests keep theirs in memory.
class FileTree {
 public:
  virtual ~FileTree() = default;

  /// The bytes of a file, or nothing if it cannot be read.
  [[nodiscard]] virtual std::optional<std::string> read(std::string const& path) = 0;
};

/// The name of the standard input where a file is expected.
inline constexpr std::string_view kStandardInput = "-";

/// The file system. Reads only regular files of at most kMaxFileSize bytes, and the
/// standard input as "-".
class DiskTree : public FileTree {
 public:
  static constexpr std::size_t kMaxFileSize = std::size_t{2} << 30;

  [[nodiscard]] std::optional<std::string> read(std::string const& path) override;
};

/// The reason why DiskTree cannot read a file, in words.
std::string whyUnreadable(std::string const& path);

inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Where the lines of a file begin. A byte order mark belongs to no line.
class LineTable {
 public:
  explicit LineTable(std::string_view content);

  /// The index, from 0, of the line that holds a byte.
  std::size_t lineAt(std::size_t offset) const;

  /// The offset of the first byte of a line.
  std::size_t beginOf(std::size_t line) const { return m_begins[line]; }

 private:
  std::vector<std::uint32_t> m_begins;  // ascending
};

/// A file with its content, read once.
struct SourceFile {
  std::string path;
  std::string name;  ///< in messages: the path, unless the user calls the file otherwise
  std::string content;
  LineTable lines;
};

/// A place as a diagnostic shows it.
struct LinePlace {
  std::string_view file;  ///< its name in messages
  std::size_t line = 0;   ///< from 1
  std::size_t column =
      0;                  ///< in characters, from 1; a tab is one, and so is a byte of no character
  std::string_view text;  ///< the line without its end
};

class Sources {
 public:
  explicit Sources(FileTree& tree) : m_tree(tree) {}

  /// The file of this path, owned by this object; null if it cannot be read.
  /// `name` is its name in messages, the path if empty. The first call for a
  /// path decides the name.
  [[nodiscard]] SourceFile const* file(std::string const& path, std::string const& name = {});

  /// Begins a new text, `file` as included by the statement at `copiedFrom`,
  /// which is unknown for the main source. Returns the number of the text.
  [[nodiscard]] std::uint32_t open(SourceFile const* file, Place copiedFrom);

  /// The file of a text, and the statement that includes it.
  SourceFile const* fileOf(std::uint32_t text) const { return m_texts[text].file; }
  Place copiedFrom(std::uint32_t text) const { return m_texts[text].copiedFrom; }
  std::size_t textCount() const { return m_texts.size() - 1; }

  /// The line and column of a known place.
  LinePlace locate(Place place) const;

  /// Whether `left` precedes `right` in the source with all members expanded.
  bool isBefore(Place left, Place right) const;

 private:
  struct Text {
    SourceFile const* file = nullptr;
    Place copiedFrom;
  };

  std::vector<Place> pathTo(Place place) const;

  FileTree& m_tree;
  std::map<std::string, std::unique_ptr<SourceFile>> m_files;
  std::vector<Text> m_texts{1};
};

/// The number of characters in `text`. A byte that belongs to no UTF-8
/// character counts as one.
std::size_t countCharacters(std::string_view text);

/// The first `count` characters of `text`, or all of it if it has fewer.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace fdmorph::compiler
