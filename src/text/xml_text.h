// The output primitive for XML, and the one place that escapes text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace fdmorph {

/// Whether XML, and a copybook made from it, can hold a text: it has no control
/// characters.
bool isXmlText(std::string_view text);

/// Builds an XML document in memory, an element a line, in steps of 3 blanks.
/// Bytes that are no UTF-8 are taken for Latin-1, and blanks stand for control
/// characters that XML can't hold.
class XmlText {
 public:
  XmlText();

  /// Opens a tag; attributes follow until its content or its end.
  void begin(std::string_view element);
  void attribute(std::string_view name, std::string_view value);
  void attribute(std::string_view name, std::uint64_t number);
  /// Closes the element begun last that isn't closed.
  void end(std::string_view element);

  /// The document; there is none any more after it.
  std::string release() { return std::move(m_text); }

 private:
  void appendEscaped(std::string_view value);
  void finishTag();

  std::string m_text;
  unsigned m_depth = 0;
  bool m_isTagOpen = false;
};

}  // namespace fdmorph
