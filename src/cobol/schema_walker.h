// The walk from a head element over all that its record consists of.
//
// Level numbers: a head element has level 1 and indent 7. Each element or
// attribute that makes an item adds 1 to both for what is below it; model
// groups, type definitions and derivations add nothing. Numbers that change
// for one element never reach its siblings.
#pragma once

#include <string_view>
#include <vector>

#include "cobol/component_search.h"
#include "cobol/conversions.h"
#include "cobol/namespace_lookup.h"
#include "cobol/part_filter.h"
#include "cobol/record_builder.h"
#include "cobol/recursion.h"
#include "cobol/substitution_groups.h"

namespace fdmorph {

/// Builds one record at a time. The conversions reach the schema, the record
/// and the recursion tests through it.
class SchemaWalker {
 public:
  /// The three references and the filter, which may be null, must outlive the
  /// walker.
  SchemaWalker(NamespaceLookup const& namespaces, ComponentSearch const& components,
               SubstitutionGroups const& substitutions, RecordLimits const& limits = {},
               PartFilter* filter = nullptr)
      : m_namespaces(namespaces),
        m_components(components),
        m_substitutions(substitutions),
        m_filter(filter),
        m_builder(namespaces, limits) {}

  /// Builds the record of a head element. Null if nothing is left of it. The
  /// items live until endRecord. Throws RecordTooLarge.
  [[nodiscard]] CDMCOBOLRecordItem* buildRecord(CDMXMLElement* head);

  /// Ends the record and its texts. Needed after an exception as well.
  void endRecord();

  /// Visits `element` (null does nothing) and what it leads to.
  Visit getCOBOLFromSchema(CDMXMLElement* element, WalkPosition at);

  /// Visits the children of `element`, levels and indent as in `at`, each with
  /// `visit.item` as the current item. A child can replace it.
  [[nodiscard]] Visit visitChildren(CDMXMLElement const* element, Visit visit, WalkPosition at);

  /// Visits the definition that a group reference, a base or a member type
  /// leads to, unless that would recurse, which is reported. `name` is what the
  /// schema calls it.
  [[nodiscard]] Visit walkDefinition(CDMXMLElement* definition, std::string_view name,
                                     WalkPosition at);

  /// Whether the declaration is to become a part of `current`. A declaration that
  /// completes an item is no part of its own.
  [[nodiscard]] bool admits(CDMXMLElement const* declaration, CDMCOBOLRecordItem const* current);

  /// The same for a member of a substitution group beside its head. A filter admits
  /// none where there is no item `parent` for it.
  [[nodiscard]] bool admitsMember(CDMXMLElement const* member, CDMCOBOLRecordItem const* parent);

  /// Notes the item in which the one that is walked next, without a current item, is
  /// going to be. To be ended after the walk.
  void beginMember(CDMCOBOLRecordItem const* parent) { m_memberParents.push_back(parent); }
  void endMember() { m_memberParents.pop_back(); }

  NamespaceLookup const& namespaces() const { return m_namespaces; }
  ComponentSearch const& components() const { return m_components; }
  SubstitutionGroups const& substitutions() const { return m_substitutions; }
  RecordBuilder& builder() { return m_builder; }
  OpenDefinitions& open() { return m_open; }

 private:
  ItemsAbove itemsFrom(CDMCOBOLRecordItem const* item);
  Conversion dispatch(CDMXMLElement* element, WalkPosition at);
  Conversion enterTypeDefinition(CDMXMLElement* element, WalkPosition at);
  Visit followNextElement(Conversion const& conversion, WalkPosition at);

  NamespaceLookup const& m_namespaces;
  ComponentSearch const& m_components;
  SubstitutionGroups const& m_substitutions;
  PartFilter* m_filter;
  RecordBuilder m_builder;
  OpenDefinitions m_open;
  std::vector<CDMCOBOLRecordItem const*> m_memberParents;  // the innermost last
  std::vector<CDMCOBOLRecordItem const*> m_above;          // of the part that is asked about
};

}  // namespace fdmorph
