// The making of a record's items.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"
#include "cobol/namespace_lookup.h"
#include "text/arena.h"
#include "text/text_pool.h"

namespace fdmorph {

/// How much is done for the record of one head element. The numbers count what
/// was made, not what is left of it, so they bound the time as well as the
/// memory.
struct RecordLimits {
  std::size_t items = 5'000'000;          ///< made, those that are removed again included
  std::size_t references = 5'000'000;     ///< to global components, that were followed
  std::size_t textBytes = 1'000'000'000;  ///< of the names and values of the items
};

/// Thrown when a record exceeds a limit. The generator catches it at the head
/// element.
struct RecordTooLarge {};

/// Owns the items of one record at a time, and the texts made for them. An
/// item stays readable until it is released or the store is cleared, even if
/// no list holds it.
class RecordStore {
 public:
  explicit RecordStore(RecordLimits const& limits = {}) : m_limits(limits) {}

  /// A new item with the default values. Throws RecordTooLarge, as do the
  /// other operations that count.
  CDMCOBOLRecordItem* create();

  /// Counts a reference to a global component that is followed.
  void countReference() { count(m_references, 1, m_limits.references); }

  /// Counts the bytes of a name or value that an item gets.
  void countText(std::string_view text) { count(m_textBytes, text.size(), m_limits.textBytes); }

  /// Counts the items from `item` down, which the record lists once more.
  void countListedAgain(CDMCOBOLRecordItem const* item);

  RecordLimits const& limits() const { return m_limits; }

  /// Ends `item` and everything below it. Nothing may refer to them
  /// afterwards. An item with two places in the tree is ended once; null does
  /// nothing.
  void release(CDMCOBOLRecordItem* item);

  /// Ends all items and texts, and begins to count anew.
  void clear();

  TextPool& texts() { return m_texts; }

 private:
  static void count(std::size_t& counter, std::size_t added, std::size_t limit) {
    if (added > limit - counter) throw RecordTooLarge();
    counter += added;
  }

  RecordLimits m_limits;
  Arena<CDMCOBOLRecordItem> m_items;
  std::vector<CDMCOBOLRecordItem*> m_released;
  std::size_t m_made = 0;
  std::size_t m_listedAgain = 0;
  std::size_t m_references = 0;
  std::size_t m_textBytes = 0;
  TextPool m_texts;
};

/// Makes, links and removes the items of one record at a time. An item is
/// linked into its parent when it is made, before it is known to be
/// convertible.
///
/// `current` is the item under which new items are added; null before the head
/// element has its item. Operations that can replace it return the item that
/// takes its place.
class RecordBuilder {
 public:
  /// `namespaces` must outlive the builder.
  explicit RecordBuilder(NamespaceLookup const& namespaces, RecordLimits const& limits = {})
      : m_namespaces(namespaces), m_store(limits) {}
  RecordBuilder(RecordBuilder const&) = delete;
  RecordBuilder& operator=(RecordBuilder const&) = delete;

  RecordStore& store() { return m_store; }

  /// The item that a declaration fills.
  struct DeclaredItem {
    CDMCOBOLRecordItem* item;
    CDMCOBOLRecordItem* current;  ///< the new item itself if there was none
    bool isNew;                   ///< false if the declaration completes `current`
  };

  /// The item that `element` fills: `current` if the element completes a
  /// reference or the value of a simple content, otherwise a new one.
  [[nodiscard]] DeclaredItem findOrMakeItem(CDMXMLElement const* element,
                                            CDMCOBOLRecordItem* current);

  /// Whether `element` completes `current`, a reference or the value of a simple
  /// content, instead of making an item below it.
  [[nodiscard]] static bool isCompletedBy(CDMXMLElement const* element,
                                          CDMCOBOLRecordItem const* current);

  /// Unlinks and ends an item that cannot be converted. Returns the new
  /// current item: null if `current` was that item.
  [[nodiscard]] CDMCOBOLRecordItem* refuse(CDMCOBOLRecordItem* item, CDMCOBOLRecordItem* current);

  /// Removes `current` if its whole content came to nothing: if `element`,
  /// which failed, was the last of the item's type, and nothing came before.
  /// Returns the new current item: then the parent.
  [[nodiscard]] CDMCOBOLRecordItem* prune(CDMXMLElement const* element,
                                          CDMCOBOLRecordItem* current);

  /// Names `item` after the declaration `element`.
  void setNames(CDMCOBOLRecordItem* item, CDMXMLElement* element, std::string_view name);

  /// Names `item` after a reference that is not resolved yet.
  void setReferenceNames(CDMCOBOLRecordItem* item, std::string_view ref);

  /// Names `item`, by the name rule, with a text that no schema holds.
  void setMadeName(CDMCOBOLRecordItem* item, std::string_view name);

  /// Gives `item` the namespace `uri`; empty for none.
  void setNamespace(CDMCOBOLRecordItem* item, std::string_view uri);

  /// Gives `item` the target namespace that applies to `element`.
  void setElementNamespace(CDMCOBOLRecordItem* item, CDMXMLElement const* element);

  /// Gives `item` the picture of a built-in type, with the default size unless
  /// it has a size.
  void setBuiltinPicture(CDMCOBOLRecordItem* item, std::string_view typeName) const;

  /// Makes an item for the value of `item`, which passes its picture on to it.
  /// The decimal part, the usage and the digit facets stay with `item`. The
  /// new item has `item` as its parent, but is not among the children yet.
  [[nodiscard]] CDMCOBOLRecordItem* makeValueItem(CDMCOBOLRecordItem* item);

  /// Adds the item for the text between the elements of a mixed type. Such
  /// text has no COBOL form: the item gets no picture, and so the user is
  /// warned when the record is written.
  void addMixedValue(CDMCOBOLRecordItem* item);

  /// Passes the picture of `item` on to a new first child if `item` has
  /// children: a COBOL group has no picture. The children of `element` have
  /// just been visited.
  void moveValueToChild(CDMXMLElement const* element, CDMCOBOLRecordItem* item);

 private:
  CDMCOBOLRecordItem* makeItemBelow(CDMCOBOLRecordItem* item, std::string_view suffix);

  NamespaceLookup const& m_namespaces;
  RecordStore m_store;
};

/// Gives `item` the picture symbol or usage of a built-in type, seen from the
/// item's schema element. Any other type changes nothing. True for the
/// character and the unsigned types only.
bool convertXMLtoCOBOL(CDMCOBOLRecordItem* item, std::string_view typeName,
                       NamespaceLookup const& namespaces);

/// Gives `item` the default size of its picture. The size of a picture comes
/// from facets alone, never from the range of the type's values.
void setDefaultSize(CDMCOBOLRecordItem* item);

}  // namespace fdmorph
