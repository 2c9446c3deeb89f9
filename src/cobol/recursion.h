// The tests that keep a record from containing itself.
//
// The `type` or `ref` of an element or attribute is followed only after
// isRecursivePattern has looked at the record itself: a guarded hop. A group
// reference, a `base` and the member type of a union have no such test. Such an
// unguarded hop into a definition that is already open, with no guarded hop
// made since it was opened, would recurse without end. With a guarded hop in
// between, the test of that hop ends the circle.
#pragma once

#include <unordered_map>
#include <unordered_set>

#include "cobol/DMCOBOLRecordItem.h"
#include "cobol/component_search.h"

namespace fdmorph {

/// True if following the `ref` or `type` of the item's schema element leads
/// into a structure that is already open above the item. False for null.
[[nodiscard]] bool isRecursivePattern(CDMCOBOLRecordItem const* item,
                                      ComponentSearch const& components);

/// The definitions that the walk of one record is inside of.
class OpenDefinitions {
 public:
  /// True if an unguarded hop into `definition` would recurse without end.
  [[nodiscard]] bool wouldRecurse(CDMXMLElement const* definition) const;

  /// True if `definition` has been opened, or noted, in this record.
  [[nodiscard]] bool hasSeen(CDMXMLElement const* definition) const {
    return m_openedAt.contains(definition);
  }

  /// The same as isRecursivePattern, but faster: only what the record has seen
  /// can be open above the item.
  [[nodiscard]] bool wouldContainItself(CDMCOBOLRecordItem const* item,
                                        ComponentSearch const& components) const;

  /// Notes a declaration that is walked without a hop.
  void note(CDMXMLElement const* declaration) { m_openedAt.try_emplace(declaration, 0U); }

  /// Notes and opens a member of a substitution group. False if it is open
  /// already: its content leads back to its head.
  [[nodiscard]] bool openMember(CDMXMLElement const* member);
  void closeMember(CDMXMLElement const* member) { m_openMembers.erase(member); }

  /// Forgets the record. No scope may be alive.
  void clear();

  /// Keeps `definition` open for the scope's lifetime.
  class Scope {
   public:
    enum class Hop { guarded, unguarded };
    Scope(OpenDefinitions& definitions, CDMXMLElement const* definition, Hop hop);
    ~Scope();
    Scope(Scope const&) = delete;
    Scope& operator=(Scope const&) = delete;

   private:
    OpenDefinitions& m_definitions;
    CDMXMLElement const* m_definition;
    Hop m_hop;
    unsigned m_openedBefore;  // what the scope hides; 0 if nothing
  };

 private:
  unsigned m_guardedHops = 1;  // made on the active chain, plus one
  std::unordered_map<CDMXMLElement const*, unsigned> m_openedAt;  // in guarded hops; 0: not open
  std::unordered_set<CDMXMLElement const*> m_openMembers;
};

}  // namespace fdmorph
