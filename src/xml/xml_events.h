// XML files as a sequence of tags and texts, for readers that need places.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xml/markup_places.h"

namespace fdmorph {

class LocationResolver;

/// What keeps a file from being used. Line and column count from 1; 0: none.
struct XmlFault {
  std::string file;
  unsigned line = 0;
  unsigned column = 0;
  std::string text;
};

struct XmlAttribute {
  std::string uri;   ///< its namespace
  std::string name;  ///< without a prefix
  std::string qualifiedName;
  std::string value;
};

struct XmlTag {
  std::string uri;   ///< namespace of the element
  std::string name;  ///< without a prefix
  std::string qualifiedName;
  std::vector<XmlAttribute> attributes;  ///< declarations of namespaces included
  unsigned line = 0;                     ///< where the tag ends
  unsigned column = 0;

  /// The value of an attribute without a namespace; nothing if there is none.
  [[nodiscard]] std::optional<std::string_view> attribute(std::string_view wanted) const;
};

/// Gets what a file holds, in UTF-8. The views live as long as the call.
class XmlEvents {
 public:
  virtual ~XmlEvents() = default;
  virtual void startTag(XmlTag const& tag) = 0;
  virtual void endTag() {}

  /// All text up to the next markup.
  virtual void text(std::string_view /*part*/) {}

  /// The content of a CDATA section. A reader that does not ask takes it for text.
  virtual void section(std::string_view content) { text(content); }

  /// A comment or processing instruction outside a document type, as it is written.
  virtual void remark(std::string_view /*markup*/) {}

  /// Where the last markup ends, and so where a text or section begins. To be called
  /// by the functions above.
  [[nodiscard]] TagPlace endOfMarkup() const { return m_end; }
  void setEndOfMarkup(TagPlace end) { m_end = end; }

 private:
  TagPlace m_end;
};

/// Reads the file `path`, without validation. Entities are looked for by
/// `resolver`; without one, they are errors, and a document type that is not at
/// hand is passed over. The first fault, if the file cannot be read to its end.
[[nodiscard]] std::optional<XmlFault> readXml(std::string const& path, XmlEvents& events,
                                              LocationResolver* resolver = nullptr);

/// The same for the content of a file. `name` is that of the file in faults.
[[nodiscard]] std::optional<XmlFault> readXmlText(std::string_view content, std::string const& name,
                                                  XmlEvents& events);

/// The place where the tag begins that ends at `line` and `column` in the file
/// `path`, as far as its bytes show it.
[[nodiscard]] TagPlace beginOfTag(std::string const& path, unsigned line, unsigned column);

}  // namespace fdmorph
