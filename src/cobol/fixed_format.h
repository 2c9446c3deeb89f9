// The one writer of fixed-format COBOL lines.
//
// A fixed-format line has 72 usable columns. Text begins in area A (column 8,
// offset 7) or further right; column 7 (offset 6) holds the indicator: "*" for
// a comment, "-" for a line that continues a word or literal of the line
// before. A logical line is cut at blanks; the blanks before a token that
// moves down stay at the end of the line above. A token that is too long even
// for a line of its own fills that line and continues after a "-" on the next.
// A literal is reopened there with a double quote.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace fdmorph {

/// Lays one logical line out and writes it to `stream`, or to the standard
/// output stream if `stream` has failed. Blanks and tabs separate tokens; the
/// leading ones set the margin. A line whose first token is "*" is a comment.
void OutputFixedFormatCOBOL(std::string_view line, std::ostream& stream);

/// Builds physical lines from tokens. Columns count characters from 0 at the
/// left edge: column N means that the line has N characters.
class FixedFormatLayout {
 public:
  /// `margin`: columns by which the line is moved right of area A.
  FixedFormatLayout(int margin, bool isComment);

  /// Appends one token, or a run of blanks, to the text. A line feed or a
  /// carriage return at the start of the token, or of a later piece of it, ends
  /// the token; the rest of it is dropped.
  void OutputCOBOLToken(std::string_view token);

  /// The physical lines so far, the last one without its line end.
  std::string const& text() const { return m_text; }

 private:
  void beginFirstLine();
  void beginMovedLine();
  void beginContinuedLine(bool isLiteral);
  void beginLine(std::string_view prefix, int margin);

  int m_margin;
  bool m_isComment;
  int m_column;
  std::string m_text;
};

}  // namespace fdmorph
