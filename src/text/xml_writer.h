// Writing XML: escaping and indentation, for both programs.
//
// What differs between the programs is the encoding of the text that they
// write, and with it which form of escapes their documents have. That is the
// parameter of XmlWriter.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace fdmorph {

/// The version of XML of the documents that are written.
inline constexpr std::string_view kXmlVersion = "1.0";

/// Blanks of one level of nesting.
inline constexpr unsigned kXmlStep = 3;

/// The forms in which attribute values are escaped.
enum class XmlEscapes {
  minimal,  ///< what XML requires; white space as hexadecimal references
  full,     ///< '>' as well; white space as decimal references
};

/// Appends `value`, which is UTF-8, to `out` as the content of an attribute in
/// double quotes.
void appendXmlEscaped(std::string& out, std::string_view value, XmlEscapes escapes);

/// Whether an attribute value of printable ASCII stands for itself in every
/// form of escapes and in every encoding.
bool isPlainXmlValue(std::string_view value);

/// Whether XML, and a copybook made from it, can hold a text: it has no control
/// characters.
bool isXmlText(std::string_view text);

/// The encoding of text that is UTF-8, or Latin-1 where it is not valid UTF-8.
/// Blanks stand for control characters that XML cannot hold.
struct Utf8OrLatin1 {
  static constexpr XmlEscapes kEscapes = XmlEscapes::full;
  static std::string toUtf8(std::string_view text);
};

/// Writes XML as UTF-8, in memory or to a stream.
///
/// There are two levels. The pieces (indent, openTag, attribute, markup, text)
/// append what their names say and check nothing. Nested elements (begin, end)
/// are built on them: an element a line, indented by its depth, with its start
/// tag closed when its content comes.
///
/// `Encoding` has a function toUtf8, which converts text, and a constant
/// kEscapes. It may report text that it cannot convert; everything ahead of the
/// text is in the target by then. Markup is ASCII and is not converted.
template <typename Encoding>
class XmlWriter {
 public:
  /// Writes to memory, until release().
  XmlWriter() = default;

  /// Hands everything written so far to the current target and writes to
  /// `target` from now on, in blocks or line by line; null means memory. The
  /// target must stay usable until the next call.
  void setTarget(std::ostream* target, bool isLineByLine) {
    flush();
    m_target = target;
    m_isLineByLine = isLineByLine;
  }

  /// Hands everything written so far to the target, if there is one.
  void flush() {
    if (m_target == nullptr || m_text.empty()) return;
    m_target->write(m_text.data(), static_cast<std::streamsize>(m_text.size()));
    if (m_isLineByLine) m_target->flush();
    m_text.clear();
  }

  /// The text that is not in a target. The writer has none of it any more.
  [[nodiscard]] std::string release() { return std::exchange(m_text, {}); }

  /// Writes the XML declaration.
  void declaration() {
    ((m_text += "<?xml version=\"") += kXmlVersion) += "\" encoding=\"UTF-8\"?>\n";
    lineEnded();
  }

  /// Writes `n` blanks.
  void indent(unsigned n) { m_text.append(n, ' '); }

  /// Writes "<" and `name`; attributes may follow.
  void openTag(std::string_view name) { (m_text += '<') += name; }

  /// Writes a blank and the attribute, with its value escaped.
  void attribute(std::string_view name, std::string_view value) {
    ((m_text += ' ') += name) += "=\"";
    if (isPlainXmlValue(value)) {
      m_text += value;
    } else {
      flush();
      appendXmlEscaped(m_text, Encoding::toUtf8(value), Encoding::kEscapes);
    }
    m_text += '"';
  }
  void attribute(std::string_view name, std::uint64_t number) {
    attribute(name, std::to_string(number));
  }

  /// Writes markup of the program's own, which is ASCII.
  void markup(std::string_view text) {
    m_text += text;
    if (!text.empty() && text.back() == '\n') lineEnded();
  }

  /// Writes text without escapes.
  void text(std::string_view text) {
    if (isPlainXmlValue(text)) {
      m_text += text;
    } else {
      flush();
      m_text += Encoding::toUtf8(text);
      if (text.back() == '\n') lineEnded();
    }
  }

  /// Opens the tag of an element in the one begun last; attributes may follow.
  void begin(std::string_view element) {
    finishTag();
    indent(m_depth * kXmlStep);
    openTag(element);
    m_isTagOpen = true;
    ++m_depth;
  }

  /// Ends the element begun last.
  void end(std::string_view element) {
    --m_depth;
    if (m_isTagOpen) {
      m_isTagOpen = false;
      markup("/>\n");
      return;
    }
    indent(m_depth * kXmlStep);
    (m_text += "</") += element;
    markup(">\n");
  }

 private:
  static constexpr std::size_t kBlockBytes = std::size_t{64} << 10;

  void finishTag() {
    if (m_isTagOpen) markup(">\n");
    m_isTagOpen = false;
  }

  void lineEnded() {
    if (m_isLineByLine || m_text.size() >= kBlockBytes) flush();
  }

  std::string m_text;
  std::ostream* m_target = nullptr;
  bool m_isLineByLine = false;
  unsigned m_depth = 0;      // of the next element that is begun
  bool m_isTagOpen = false;  // the start tag of the element begun last
};

}  // namespace fdmorph
