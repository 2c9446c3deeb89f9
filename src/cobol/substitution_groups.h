// The members of substitution groups.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"
#include "cobol/namespace_lookup.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

/// Knows the members that the main document declares; those of imported
/// documents do not count. The index is built by the first question, so the
/// schema must be complete by then.
class SubstitutionGroups {
 public:
  /// `document` is the main document (null has no groups). It and `namespaces`
  /// must outlive this object.
  SubstitutionGroups(CDMXMLSchemaDoc const* document, NamespaceLookup const& namespaces)
      : m_document(document), m_namespaces(namespaces) {}
  SubstitutionGroups(SubstitutionGroups const&) = delete;
  SubstitutionGroups& operator=(SubstitutionGroups const&) = delete;

  using Members = std::vector<CDMXMLElement*>;

  /// The global elements that name the item's element as their head, in
  /// document order. A member spells the head's name as the item does and has
  /// the item's namespace. Empty for null. The list lives as long as the schema
  /// and this object.
  [[nodiscard]] Members const& membersOf(CDMCOBOLRecordItem const* item) const;

 private:
  CDMXMLSchemaDoc const* m_document;
  NamespaceLookup const& m_namespaces;
  using MembersByNamespace = std::unordered_map<std::string_view, Members>;
  mutable std::unordered_map<std::string_view, MembersByNamespace> m_membersByHead;
  mutable bool m_isIndexed = false;
};

}  // namespace fdmorph
