// The files of one compilation and the chain of COPY statements that led to
// each text.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::compiler {

/// A character: the text that it is read from, counted in the order of reading
/// (0 is no text), and its byte in the file. Lines and columns are worked out
/// of it only for a diagnostic.
struct Place {
  std::uint32_t text = 0;
  std::uint32_t offset = 0;

  bool isKnown() const { return text != 0; }
  bool operator==(Place const& other) const = default;
};

/// Where files come from; tests keep theirs in memory.
class FileTree {
 public:
  virtual ~FileTree() = default;

  /// The bytes of a file; nothing if it can't be read.
  virtual std::optional<std::string> read(std::string const& path) = 0;
};

/// The file system. Only regular files, and at most kLongestFile bytes of them.
class DiskTree : public FileTree {
 public:
  static constexpr std::size_t kMaxFileSize = std::size_t{2} << 30;

  std::optional<std::string> read(std::string const& path) override;
};

/// Why a file of the file system can't be read, in words.
std::string whyUnreadable(std::string const& path);

/// A file with its content, read once.
struct SourceFile {
  std::string path;
  std::string name;  ///< in messages: the path, unless the user calls the file otherwise
  std::string content;
};

/// A line of a file, for a diagnostic.
struct LinePlace {
  std::string_view file;   ///< its name in messages
  std::size_t line = 0;    ///< from 1
  std::size_t column = 0;  ///< characters from 1; a tab is one
  std::string_view text;   ///< the line without its end
};

class Sources {
 public:
  explicit Sources(FileTree& tree) : m_tree(tree) {}

  /// The file of this path; null if it can't be read. Owned here. Messages
  /// call it `name`; by the path where that is empty, or where the file is
  /// known already.
  SourceFile const* file(std::string const& path, std::string const& name = {});

  /// A new text: `file` as it is read by the statement at `copiedFrom`.
  std::uint32_t open(SourceFile const* file, Place copiedFrom);

  /// The file that a text is read from, and the statement that reads it.
  SourceFile const* fileOf(std::uint32_t text) const { return m_texts[text].file; }
  Place copiedFrom(std::uint32_t text) const { return m_texts[text].copiedFrom; }
  std::size_t textCount() const { return m_texts.size() - 1; }

  /// The line of a known place.
  LinePlace locate(Place place) const;

  /// Whether `left` stands before `right` in the text with all members in it.
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

}  // namespace fdmorph::compiler
