// Text words, the units of the statements that manipulate text: words, literals
// and other single characters. Each word records whether a blank precedes it, so
// that a later pass can join adjacent ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "source/source_files.h"
#include "source/source_reader.h"

namespace fdmorph::compiler {

/// A text word. It looks at the text that it comes from.
struct TextWord {
  enum class Kind : std::uint8_t {
    end,
    word,       ///< letters, digits, hyphens, underscores
    literal,    ///< with its quotes and prefix
    symbol,     ///< one character
    pseudo,     ///< ==
    directive,  ///< ">>" or "$" before a directive of conditional compilation
  };

  std::string_view text;
  Place place;
  Kind kind = Kind::end;
  bool precededBySpace = true;  ///< a blank or a line end precedes it
  bool isFirstOnLine = true;    ///< only blanks precede it on its line
  bool isOpen = false;          ///< a literal without its closing quote
  bool isDebugging = false;     ///< the first word of a debugging line
  bool isComment = false;       ///< part of a comment paragraph

  bool is(char symbol) const { return kind == Kind::symbol && text.front() == symbol; }
  bool isWord(std::string_view word) const;
  bool isEnd() const { return kind == Kind::end; }
};

/// A word for a message: its text in apostrophes, or the end of the source.
std::string describe(TextWord const& word);

/// Splits a text into words. The text must outlive the scanner and the words.
class WordScanner {
 public:
  /// `number` is the number of the text in the places of its words.
  WordScanner(SourceText const& text, std::uint32_t number) : m_source(text), m_number(number) {}

  /// The next word; after the last one, always the end.
  [[nodiscard]] TextWord next();

  /// Whether a word follows without a blank.
  bool isAtWord() const;

  /// The offset in the text up to which it has been scanned.
  std::size_t position() const { return m_at; }

  /// Skips the rest of the line.
  void skipLine();

 private:
  std::string_view text() const { return m_source.text; }
  void scanLiteral(TextWord& word);
  void scanWord(TextWord& word);
  bool isDirective();
  bool isDebugLine();
  std::uint32_t offsetOf(std::size_t at);

  SourceText const& m_source;
  std::uint32_t m_number;
  std::size_t m_at = 0;
  std::size_t m_piece = 0;
  std::size_t m_line = 0;       // where the line of m_at begins
  std::size_t m_directive = 0;  // index of the next one of the source
  std::size_t m_debugLine = 0;  // index of the next one of the source
};

/// Whether this is the name of a paragraph of the identification division whose
/// content is a comment, or options that have no effect on data.
bool isCommentParagraph(std::string_view word);

/// A sequence of words, the interface between the steps of this pass.
class TextSource {
 public:
  virtual ~TextSource() = default;

  /// The next word; after the last one, always the end.
  [[nodiscard]] virtual TextWord next() = 0;
};

}  // namespace fdmorph::compiler
