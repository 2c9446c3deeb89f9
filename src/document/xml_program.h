// The program that writes a record as XML.
#pragma once

#include "document/namespace_prefixes.h"
#include "document/operation_list.h"
#include "document/parts.h"

namespace fdmorph::document {

/// Makes the operations of one record. To be used once.
class XmlProgram {
 public:
  XmlProgram(layout::RecordSet const& set, std::uint32_t record, OutputRules const& rules)
      : m_set(set),
        m_layout(set.layouts()[record]),
        m_rules(rules),
        m_list(set, record),
        m_prefixes(m_layout) {}

  [[nodiscard]] Program make();

 private:
  /// Where an element stands.
  struct Place {
    std::string_view defaultNamespace;  ///< in force
    int depth = 0;                      ///< the number of elements around it
  };

  void addElement(std::uint32_t node, Place place);
  void addContent(std::uint32_t node, std::string const& name, Place inside);
  void addItems(std::uint32_t group, PartKind kind, Place place);
  void addItem(std::uint32_t node, PartKind kind, Place place);
  void addArea(std::uint32_t area, PartKind kind, Place place);
  void addPart(std::uint32_t node, Place place);
  void addAttribute(std::uint32_t node);
  void addText(std::uint32_t item, Operation::Kind kind, std::string_view after, bool collapses,
               std::size_t ownMarkup);
  [[nodiscard]] bool alwaysHasContent(std::uint32_t group) const;
  [[nodiscard]] bool isAlwaysWritten(std::uint32_t node) const;
  [[nodiscard]] std::uint32_t onlyText(std::uint32_t element) const;
  [[nodiscard]] std::string lineEnd(int depth) const;

  layout::RecordSet const& m_set;
  layout::Layout const& m_layout;
  OutputRules const& m_rules;
  OperationList m_list;
  NamespacePrefixes m_prefixes;
};

}  // namespace fdmorph::document
