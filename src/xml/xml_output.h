// The primitives with which XML is written.
#pragma once

#include <string>
#include <string_view>

#include "xml/xerces_fwd.h"

namespace fdmorph {

/// XML on its way to the standard output stream. The library's formatter
/// transcodes and escapes; text that comes out of it as it went in, which is
/// nearly all, is gathered in blocks beside it. Output to a console goes out
/// line by line.
class XmlOutput {
 public:
  enum class Escapes { none, attribute };

  /// The standard output stream must not be redirected during its lifetime.
  explicit XmlOutput(xerces::XMLFormatter& formatter);
  ~XmlOutput() { flush(); }
  XmlOutput(XmlOutput const&) = delete;
  XmlOutput& operator=(XmlOutput const&) = delete;

  /// Writes `text`, in the locale's encoding, as UTF-8. Text that is not valid
  /// in the locale is reported and left out.
  void write(std::string_view text, Escapes escapes);

  /// Writes markup of our own, which is ASCII.
  void writeMarkup(std::string_view markup) {
    m_block += markup;
    if (!markup.empty() && markup.back() == '\n') endLine();
  }

  /// Appends `n` blanks.
  void writeBlanks(unsigned n) { m_block.append(n, ' '); }

  /// Hands everything written so far to the standard output stream.
  void flush();

  xerces::XMLFormatter& formatter() { return m_formatter; }

 private:
  void endLine() {
    if (m_isLineByLine || m_block.size() >= kBlockSize) flush();
  }

  static constexpr std::size_t kBlockSize = std::size_t{64} << 10;

  xerces::XMLFormatter& m_formatter;
  bool m_isLineByLine;
  std::string m_block;
};

/// Writes `n` blanks.
XmlOutput& writeIndent(XmlOutput& output, unsigned n);

/// Writes a blank, `name`, "=" and `value` in double quotes, with the escapes
/// of attribute values.
XmlOutput& writeAttr(XmlOutput& output, std::string_view name, std::string_view value);

/// Writes "<" and `name`. The tag is left open for attributes.
XmlOutput& writeElem(XmlOutput& output, std::string_view name);

/// Writes a literal of the program's own, which is ASCII.
template <std::size_t Size>
XmlOutput& operator<<(XmlOutput& output, char const (&markup)[Size]) {
  output.writeMarkup(std::string_view(markup, Size - 1));
  return output;
}

/// Writes `text` without escapes.
XmlOutput& operator<<(XmlOutput& output, std::string_view text);

/// Writes the XML declaration with the formatter's encoding, and a line feed.
XmlOutput& writeXmlDeclaration(XmlOutput& output);

}  // namespace fdmorph
