// COBOL text as lines of a reference format.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::copybook {

/// The reference format of the lines that are written.
enum class LineForm {
  fixed,  ///< text in columns 8 to 72
  free,
};

/// A part of an entry that blanks separate from the next one.
struct Word {
  std::string text;
  bool isLiteral = false;  ///< in quotes, perhaps after a prefix
};

/// Breaks entries and comments over lines. A line ends between two words. A literal
/// that fits no line is continued on the next ones; where a quote or a part of a
/// character would end a line it is divided by '&'. Any other word that fits no line
/// is continued in the fixed form.
class LineLayout {
 public:
  explicit LineLayout(LineForm form) : m_form(form) {}

  /// Appends an entry and its period. `depth`: the number of groups around it, by
  /// which it is moved right.
  void addEntry(std::size_t depth, std::vector<Word>& words);

  /// Appends comment lines. Control characters are replaced, and a line feed begins
  /// a new line.
  void addComment(std::string_view text);

  /// The lines so far; each ends in a line feed.
  [[nodiscard]] std::string const& text() const { return m_text; }
  [[nodiscard]] std::string takeText() { return std::move(m_text); }

 private:
  void beginLine(std::size_t indent);
  void endLine();
  void addWord(Word const& word);
  void addLiteral(std::string_view literal);
  void addLongWord(std::string_view word);
  void addCommentLines(std::string_view text);
  void append(std::string_view text);
  void continueLine();
  std::size_t room() const;

  LineForm m_form;
  std::string m_text;
  std::size_t m_column = 0;  // bytes of text in the line, without the margin
  std::size_t m_indent = 0;  // of the lines of the entry after the first
  bool m_hasWord = false;    // in the line
};

}  // namespace fdmorph::copybook
