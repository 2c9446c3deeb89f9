// The tests that keep a record from containing itself, and a walk from running
// without end.
//
// A walk goes down the tree of a schema file, or it hops to a global component
// and continues there: along a `type`, a `ref`, a reference to a group, a
// `base` or a member type, or to a member of a substitution group. Three tests
// stand in front of a hop:
//
// 1. isRecursivePattern, for a `type` and a `ref` only: what the hop leads to
//    is open in the record above the item.
// 2. A group reference, a `base` or a member type, which the first test does
//    not see, leads into a definition that is open already, and no `type` or
//    `ref` was followed since.
// 3. Any hop leads into a definition that is open already, and the walk is in
//    the state in which it was when that definition was opened. What a walk
//    does below a hop is determined by the definition, by the item that it
//    works on, and by what the first test can find above that item. If all of
//    them are as they were, the walk comes by again, and again. The first test
//    cannot see this if an item was completed by a second declaration, or was
//    removed: then the record has lost the trace of what is open.
//
// Why every walk ends: a walk without end has hops without end that are all
// open at once, each inside of the one before, because a schema file is a
// finite tree and every visit makes finitely many hops. OpenDefinitions keeps
// the chain of these hops. Each hop into a definition passes mayFollow and is
// on the chain, in a Scope, until the walk of the definition returns. The chain
// holds at most kMaxReopened hops into definitions that are open already. Every
// other hop on it leads to a component that is not open, and a schema has a
// finite number of those. A member of a substitution group is visited only if
// openMember allows it, once on the chain. So the chain is no longer than the
// components of the schema and kMaxReopened hops. Neither test 1 to 3 nor any
// field of an item is needed for this.
//
// Why kMaxReopened refuses nothing that comes to an end by itself: a walk may
// open a definition inside of itself. A type that extends T, where T has an
// element of type T, opens T as the base, and again for the element; test 1
// ends it one hop later. But all that the inner walk of T leads to, the outer
// walk leads to as well. So each reopened definition of a chain doubles the
// number of references that are followed, and RecordLimits ends the record long
// before a chain has 64 of them. Only a walk that removes one of the open items
// in each turn can reopen a definition more often and end, once no item is left;
// no record of use has that many items above each other.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"
#include "cobol/component_search.h"

namespace fdmorph {

/// True if following the `ref` or `type` of the item's schema element leads
/// into a structure that is already open above the item. False for null.
[[nodiscard]] bool isRecursivePattern(CDMCOBOLRecordItem const* item,
                                      ComponentSearch const& components);

/// What a hop follows: a `type` or a `ref`, which isRecursivePattern has looked
/// at, or anything else.
enum class Hop { guarded, unguarded };

/// The definitions that the walk of one record is inside of.
class OpenDefinitions {
 public:
  /// The most hops on one chain into definitions that are open already.
  static constexpr unsigned kMaxReopened = 256;

  /// False if a hop into `definition` must be refused, because the walk would
  /// not end. `item` is what the definition is to be walked for; may be null.
  [[nodiscard]] bool mayFollow(CDMXMLElement const* definition, Hop hop,
                               CDMCOBOLRecordItem const* item) const;

  /// True if `definition` has been opened, or noted, in this record.
  [[nodiscard]] bool hasSeen(CDMXMLElement const* definition) const {
    return m_innermost.contains(definition);
  }

  /// The same as isRecursivePattern, but faster: only what the record has seen
  /// can be open above the item.
  [[nodiscard]] bool wouldContainItself(CDMCOBOLRecordItem const* item,
                                        ComponentSearch const& components) const;

  /// Notes a declaration that is walked without a hop.
  void note(CDMXMLElement const* declaration) { m_innermost.try_emplace(declaration, kNone); }

  /// Notes and opens a member of a substitution group. False if it is open
  /// already: its content leads back to its head.
  [[nodiscard]] bool openMember(CDMXMLElement const* member);
  void closeMember(CDMXMLElement const* member) { m_openMembers.erase(member); }

  /// Forgets the record. No scope may be alive.
  void clear();

  /// Keeps `definition` open, for `item`, for the scope's lifetime.
  class Scope {
   public:
    Scope(OpenDefinitions& definitions, CDMXMLElement const* definition, Hop hop,
          CDMCOBOLRecordItem const* item);
    ~Scope();
    Scope(Scope const&) = delete;
    Scope& operator=(Scope const&) = delete;

   private:
    OpenDefinitions& m_definitions;
  };

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  /// What of an item decides how a walk continues. All of it is zero for null.
  struct ItemState {
    unsigned serial = 0;  ///< which item it is; two items may have equal states
    CDMXMLElement const* schemaElement = nullptr;
    CDMXMLElement const* typeElement = nullptr;
    DerivationKind derivationKind = DerivationKind::none;
    std::size_t children = 0;  ///< counted up to 2

    static ItemState of(CDMCOBOLRecordItem const* item);
    [[nodiscard]] bool isLike(ItemState const& other) const;
  };

  /// A definition that is open, and the state in which it was opened.
  struct Opening {
    CDMXMLElement const* definition;
    std::size_t outer;                ///< opening of the same definition around it, or kNone
    unsigned guardedHops;             ///< made on the chain, this one included
    std::size_t members;              ///< open members of substitution groups
    ItemState item;                   ///< that the definition is walked for
    ItemState parent;                 ///< of that item
    std::size_t above;                ///< digest of the states above that item
    CDMCOBOLRecordItem const* place;  ///< the item; valid as long as its serial is the same
  };

  /// Distinguishes the items above `item`, from its parent to the root, by
  /// their states. 0 if they are too many for that.
  static std::size_t digestAbove(CDMCOBOLRecordItem const* item);

  std::size_t innermost(CDMXMLElement const* definition) const;
  bool isRepetition(Opening const& opening, CDMCOBOLRecordItem const* item) const;

  std::vector<Opening> m_chain;
  unsigned m_reopened = 0;  // openings of the chain that have an outer one
  std::unordered_map<CDMXMLElement const*, std::size_t> m_innermost;  // kNone: seen, not open
  std::unordered_set<CDMXMLElement const*> m_openMembers;
};

}  // namespace fdmorph
