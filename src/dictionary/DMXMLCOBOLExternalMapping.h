// The mapping file in memory: what the user decided, item by item, about the
// names and settings of the generated schema and copybook. And what it comes to:
// the name of an item in XML.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xml/DMXMLElement.h"

namespace fdmorph {

/// One entry.
struct CDMXMLCOBOLMapping {
  std::string cobolName;  ///< the key: the item's qualified name
  std::string xmlName;
  std::string xmlType;
  std::string xmlNamespace;
  bool xmlAttribute = false;
  bool cobolCountIn = true;
};

class CDMXMLCOBOLExternalMapping {
 public:
  /// Reads the entries of a mapping file from the top node of its tree. A
  /// foreign element discards every entry read before it, and what follows it
  /// is kept; nothing is reported. False if `element` itself is foreign.
  bool Initialize(CDMXMLElement const* element, CDMXMLCOBOLMapping* current);

  /// The first entry whose name is the dictionary item's qualified name, case
  /// included; null if there is none or the item has no name.
  CDMXMLCOBOLMapping const* findMapping(CDMXMLElement const* item) const;

  /// The same for a name.
  CDMXMLCOBOLMapping const* findMapping(std::string_view name) const;

  /// The entries in file order.
  std::vector<CDMXMLCOBOLMapping*> const& entries() const { return mappingList; }

  /// Discards all entries.
  void ClearAndDestroy();

 private:
  using Hash = std::uint64_t;

  bool readElement(CDMXMLElement const* element, CDMXMLCOBOLMapping*& current);
  std::vector<CDMXMLCOBOLMapping const*> const& entriesOf(Hash hash) const;
  Hash qualifiedHash(CDMXMLElement const* item) const;

  // Discarded entries stay allocated: what still stands below a foreign
  // element's parent is read into one of them.
  std::deque<CDMXMLCOBOLMapping> m_storage;
  std::vector<CDMXMLCOBOLMapping*> mappingList;

  // By the hash of the name, so that an item's key needn't be spelled out for
  // a look-up: an item's hash goes on from its parent's.
  mutable std::unordered_map<Hash, std::vector<CDMXMLCOBOLMapping const*>> m_byHash;
  mutable std::size_t m_indexed = 0;
  mutable std::unordered_map<CDMXMLElement const*, Hash> m_hashes;
};

/// The name and settings of an item, by its dictionary entry and, where there
/// is one, its entry in the mapping. Texts are views of those two.
struct ItemName {
  std::string_view xmlName;  ///< empty: the item has no place in XML
  std::string_view xmlType;
  std::string_view xmlNamespace;
  bool isAttribute = false;
  bool countIn = true;
};

/// Lets the mapping's entry for `element`, if there is one, replace all of
/// `name`; an empty text does so too. The count-in flag can only be switched
/// off. True if an entry was found.
bool ApplyExternalMappingFile(CDMXMLElement const* element,
                              CDMXMLCOBOLExternalMapping const* mapping, ItemName& name);

/// The dictionary's name as it stands, the type that goes with its picture,
/// and no name for a filler.
ItemName defaultNameOf(CDMXMLElement const* element, bool countIn);

}  // namespace fdmorph
