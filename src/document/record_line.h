// A record of an XML document, written again on one line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/namespace_scopes.h"
#include "document/record_text.h"

namespace fdmorph::document {

/// Writes what the parser reports of a record: its tags as they are spelled and its
/// text, without comments and processing instructions. The element of the record
/// declares the namespaces that the record takes from around it.
class RecordLine {
 public:
  /// Writes to `out` from now on. `outerDepth` is the depth of the scopes around the
  /// record.
  void begin(RecordText& out, NamespaceScopes const& scopes, std::size_t outerDepth);

  /// A start tag. `attributes` are names and values, up to a null pointer. `prefixes`
  /// are those of the tag and of its attributes, looked up after its declarations.
  void startTag(std::string_view name, char const* const* attributes);
  void use(std::uint32_t prefix);
  void endTag(std::string_view name);
  void text(std::string_view text);

  /// Has a long text moved to a file. To be called between tags.
  void spill() {
    if (m_out->memory().size() > RecordText::kLong) m_out->spill(m_declarationsAt);
  }

  /// After the end tag of the record.
  void finish();

 private:
  void closeTag();

  RecordText* m_out = nullptr;
  NamespaceScopes const* m_scopes = nullptr;
  std::size_t m_outerDepth = 0;
  std::size_t m_declarationsAt = 0;  // after the name of the record
  bool m_isTagOpen = false;
  std::vector<std::uint32_t> m_used;  // prefixes declared around the record
  std::string m_declarations;
};

}  // namespace fdmorph::document
