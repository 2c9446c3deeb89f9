// The definitions that the walk is inside of, to stop it from going round.
//
// An element's or attribute's `type` or `ref` is followed under the recursion
// test of the record itself (a guarded hop). A group reference, a `base` and a
// union's member type are not: such a hop into a definition that is already
// open, with no guarded hop made since it was opened, would repeat itself for
// ever. With a guarded hop in between, that hop's own test ends the circle.
#pragma once

#include <unordered_map>

#include "xml/DMXMLElement.h"

namespace fdmorph {

class OpenDefinitions {
 public:
  /// Whether an unguarded hop into `definition` would go round for ever.
  bool wouldRecurse(CDMXMLElement const* definition) const;

  /// Whether `definition` has been opened, or noted, in this record.
  bool hasSeen(CDMXMLElement const* definition) const { return m_openedAt.contains(definition); }

  /// Notes a declaration that is walked without a hop.
  void note(CDMXMLElement const* declaration) { m_openedAt.try_emplace(declaration, 0U); }

  /// Forgets the record. Nothing may be open.
  void clear() { m_openedAt.clear(); }

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
};

}  // namespace fdmorph
