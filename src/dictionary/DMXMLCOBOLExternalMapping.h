// The mapping file in memory: what the user decided, item by item, about the
// names and settings of the generated schema and copybook. And the names of
// items in XML, which depend on it.
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
  /// Reads the entries of a mapping file from the top node of its tree. An
  /// unknown element discards every entry before it, and the entries after it
  /// are kept; nothing is reported. False if `element` itself is unknown.
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

  // Discarded entries stay allocated: the later siblings of an unknown element
  // are still read into the entry around them.
  std::deque<CDMXMLCOBOLMapping> m_storage;
  std::vector<CDMXMLCOBOLMapping*> mappingList;

  // By the hash of the name, so that a look-up does not build the key of an
  // item: its hash continues that of its parent.
  mutable std::unordered_map<Hash, std::vector<CDMXMLCOBOLMapping const*>> m_byHash;
  mutable std::size_t m_indexed = 0;
  mutable std::unordered_map<CDMXMLElement const*, Hash> m_hashes;
};

/// The name and settings of an item by the dictionary and the mapping. The texts
/// are views of these.
struct ItemName {
  std::string_view xmlName;  ///< empty: the item is left out of XML
  std::string_view xmlType;
  std::string_view xmlNamespace;
  bool isAttribute = false;
  bool countIn = true;
};

/// Replaces all of `name` by the mapping's entry for `element`, if there is one,
/// empty texts included. The count-in flag can only be switched off. True if an
/// entry was found.
bool ApplyExternalMappingFile(CDMXMLElement const* element,
                              CDMXMLCOBOLExternalMapping const* mapping, ItemName& name);

/// The data name and the type by the dictionary alone. A filler has no name.
ItemName defaultNameOf(CDMXMLElement const* element, bool countIn);

}  // namespace fdmorph
