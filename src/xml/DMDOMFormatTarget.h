// The output of XML documents that follow the locale: where it goes, and the
// primitives that write it.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

#include "text/multibyte.h"
#include "text/xml_writer.h"

namespace fdmorph {

/// The encoding of the tool's own trees: that of the locale.
struct LocaleEncoding {
  static constexpr XmlEscapes kEscapes = XmlEscapes::minimal;
  static std::string toUtf8(std::string_view text) { return localeToUtf8(text); }
};

/// The stream that XML goes to: standard output, or a file between setTarget
/// and restoreTarget. The streams themselves are left as they are.
class CDMDOMFormatTarget {
 public:
  /// Sends the output to `stream`, which must stay usable until restoreTarget.
  void setTarget(std::ostream& stream) { m_target = &stream; }

  /// Sends the output to the standard output stream again.
  void restoreTarget() { m_target = nullptr; }

  std::ostream& stream() const;

 private:
  std::ostream* m_target = nullptr;  // null: standard output
};

/// Writes XML from text in the locale's encoding, as UTF-8. Text that is not
/// valid in the locale is reported and left out. There is one for each document
/// tree; it belongs to the store that the tree belongs to.
class XmlFormatter {
 public:
  XmlFormatter() = default;
  XmlFormatter(XmlFormatter const&) = delete;
  XmlFormatter& operator=(XmlFormatter const&) = delete;

  CDMDOMFormatTarget& target() { return m_target; }

  /// Begins a document on the stream that the target has now.
  void begin();

  /// Hands everything written so far to that stream. To be called ahead of a
  /// message, which may bring the banner out.
  void flush() { m_writer.flush(); }

  /// Ends the document. The stream is not looked at any more.
  void end() { m_writer.setTarget(nullptr, false); }

  XmlWriter<LocaleEncoding>& writer() { return m_writer; }

 private:
  CDMDOMFormatTarget m_target;
  XmlWriter<LocaleEncoding> m_writer;
};

/// Writes `n` blanks.
inline XmlFormatter& writeIndent(XmlFormatter& formatter, unsigned n) {
  formatter.writer().indent(n);
  return formatter;
}

/// Writes a blank, `name`, "=" and `value` in double quotes, with the escapes
/// of attribute values.
inline XmlFormatter& writeAttr(XmlFormatter& formatter, std::string_view name,
                               std::string_view value) {
  formatter.writer().attribute(name, value);
  return formatter;
}

/// Writes "<" and `name`. The tag is left open for attributes.
inline XmlFormatter& writeElem(XmlFormatter& formatter, std::string_view name) {
  formatter.writer().openTag(name);
  return formatter;
}

/// Writes a literal of the program's own, which is ASCII.
template <std::size_t Size>
XmlFormatter& operator<<(XmlFormatter& formatter, char const (&markup)[Size]) {
  formatter.writer().markup(std::string_view(markup, Size - 1));
  return formatter;
}

/// Writes `text` without escapes.
inline XmlFormatter& operator<<(XmlFormatter& formatter, std::string_view text) {
  formatter.writer().text(text);
  return formatter;
}

/// Writes the XML declaration, and a line feed.
inline XmlFormatter& writeXmlDeclaration(XmlFormatter& formatter) {
  formatter.writer().declaration();
  return formatter;
}

}  // namespace fdmorph
