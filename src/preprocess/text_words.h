// Text words: what the statements that manipulate text see of it. A text word
// is a word, a literal, or a single other character; whether a blank stands
// before it is kept, so that words which are put together from pieces can be
// joined again.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <utility>

#include "source/source_files.h"
#include "source/source_reader.h"

namespace fdmorph::compiler {

struct TextWord {
  enum class Kind : std::uint8_t {
    end,
    word,       ///< letters, digits, hyphens, underscores
    literal,    ///< with its quotes and the letters before them
    symbol,     ///< one character
    pseudo,     ///< ==
    directive,  ///< ">>" or "$" before a directive of conditional compilation
  };

  std::string_view text;
  Place place;
  Kind kind = Kind::end;
  bool precededBySpace = true;  ///< a blank or a line end stands before it
  bool isFirstOnLine = true;    ///< nothing but blanks before it
  bool isOpen = false;          ///< a literal without its closing quote
  bool isDebugging = false;     ///< the first one on a line for debugging
  bool isComment = false;       ///< of a paragraph with comments

  bool is(char symbol) const { return kind == Kind::symbol && text.front() == symbol; }
  bool isWord(std::string_view word) const;
  bool isEnd() const { return kind == Kind::end; }
};

/// Cuts a text into its words. The text must outlive the words.
class WordScanner {
 public:
  WordScanner(SourceText const& text, std::uint32_t number) : m_source(text), m_number(number) {}

  TextWord next();

  /// How far the text has been scanned.
  std::size_t position() const { return m_at; }

  /// Moves on to the next line.
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
  std::size_t m_directive = 0;  // of those that the source knows
  std::size_t m_debugLine = 0;  // of those that the source knows
};

/// Whether a paragraph of the identification division has this name and holds
/// comments, or options, which say nothing of data.
bool isCommentParagraph(std::string_view word);

class TextSource {
 public:
  virtual ~TextSource() = default;

  /// The next word; the end again and again behind the last one.
  virtual TextWord next() = 0;
};

}  // namespace fdmorph::compiler
