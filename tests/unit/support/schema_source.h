// Schemas of copybooks in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "docschema/json_schema.h"
#include "docschema/xml_schema.h"
#include "support/record_source.h"

namespace fdmorph::docschema {

/// Sets the views that rules choose, by their data names.
inline void choose(SchemaRules& rules, record::RecordSource const& source,
                   std::vector<std::string_view> const& names) {
  for (std::string_view each : names) rules.chosenViews.insert(source.node(each).item);
}

/// A text without line ends and the blanks at the beginnings of lines.
inline std::string compact(std::string_view text) {
  std::string result;
  bool isIndent = true;
  for (char c : text) {
    if (c == '\n') isIndent = true;
    if (c != ' ' && c != '\n') isIndent = false;
    if (!isIndent) result += c;
  }
  return result;
}

/// What a text has between the first `begin` and the last `end`.
inline std::string between(std::string const& text, std::string_view begin, std::string_view end) {
  std::size_t const from = text.find(begin);
  std::size_t const to = text.rfind(end);
  if (from == std::string::npos || to == std::string::npos) return text;
  return text.substr(from + begin.size(), to - from - begin.size());
}

/// The files of the schema of a copybook of one record.
inline std::vector<SchemaFile> schemaFiles(std::string const& copybook, SchemaRules rules = {},
                                           std::vector<std::string_view> const& views = {}) {
  record::RecordSource source(copybook);
  choose(rules, source, views);
  std::vector<record::RecordTree> trees;
  trees.push_back(std::move(source.tree));
  std::vector<SchemaFile> files = writeXmlSchema(trees, rules);
  for (SchemaFile& each : files) each.text = compact(each.text);
  return files;
}

/// What the main file of the schema has after its start tag.
inline std::string schemaOf(std::string const& copybook, SchemaRules const& rules = {},
                            std::vector<std::string_view> const& views = {}) {
  std::string const text = schemaFiles(copybook, rules, views).front().text;
  return between(text, "XMLSchema\">", "</xs:schema>");
}

/// The content model and attributes of the record of a copybook.
inline std::string contentOf(std::string const& copybook, SchemaRules const& rules = {},
                             std::vector<std::string_view> const& views = {}) {
  return between(schemaOf(copybook, rules, views), "<xs:complexType>",
                 "</xs:complexType></xs:element>");
}

/// The simple type of an item: "05 A PIC X" in a record.
inline std::string typeOf(std::string const& item, SchemaRules const& rules = {}) {
  return between(contentOf("01 R.\n" + item + "\n", rules), "<xs:sequence>", "</xs:sequence>");
}

}  // namespace fdmorph::docschema
