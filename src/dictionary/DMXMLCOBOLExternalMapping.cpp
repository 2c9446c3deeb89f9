#include "dictionary/DMXMLCOBOLExternalMapping.h"

#include <algorithm>

#include "dictionary/data_dictionary.h"

namespace fdmorph {
namespace {

// FNV-1a: a hash that can be continued with more text.
constexpr std::uint64_t kHashStart = 14695981039346656037U;
constexpr std::uint64_t kHashPrime = 1099511628211U;

std::uint64_t extendHash(std::uint64_t hash, std::string_view text) {
  for (char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * kHashPrime;
  return hash;
}

// Whether `name` is the qualified name of `item`. Compares from the end.
bool isQualifiedName(std::string_view name, CDMXMLElement const* item) {
  for (bool isLast = true; item != nullptr; item = item->getParent(), isLast = false) {
    std::optional<std::string_view> part = attributeOf(item, "name");
    if (!part) break;
    if (!isLast) {
      if (name.empty() || name.back() != '.') return false;
      name.remove_suffix(1);
    }
    if (name.size() < part->size() || name.substr(name.size() - part->size()) != *part) {
      return false;
    }
    name.remove_suffix(part->size());
  }
  return name.empty();
}

}  // namespace

bool CDMXMLCOBOLExternalMapping::Initialize(CDMXMLElement const* element,
                                            CDMXMLCOBOLMapping* current) {
  if (element->isParent() && !readElement(element, current)) {
    ClearAndDestroy();
    return false;
  }
  for (CDMXMLElement const* child : element->getChildElements()) Initialize(child, current);
  return true;
}

// False for an unknown element. Names are compared whole, so an element with a
// prefix is unknown.
bool CDMXMLCOBOLExternalMapping::readElement(CDMXMLElement const* element,
                                             CDMXMLCOBOLMapping*& current) {
  std::string const& name = element->name;
  if (name == "xml-cobol-mapping-file") return true;
  if (name == "xml-cobol-mapping") {
    current = &m_storage.emplace_back();
    mappingList.push_back(current);
    return true;
  }
  CDMXMLCOBOLMapping outside;
  CDMXMLCOBOLMapping& entry = current == nullptr ? outside : *current;
  if (name == "cobol-name") {
    entry.cobolName = element->value;
  } else if (name == "xml-name") {
    entry.xmlName = element->value;
  } else if (name == "xml-type") {
    entry.xmlType = element->value;
  } else if (name == "xml-namespace") {
    entry.xmlNamespace = element->value;
  } else if (name == "cobol-count-in") {
    entry.cobolCountIn = element->value == "true";
  } else if (name == "xml-attribute") {
    entry.xmlAttribute = element->value == "true";
  } else {
    return false;
  }
  return true;
}

void CDMXMLCOBOLExternalMapping::ClearAndDestroy() {
  mappingList.clear();
  m_byHash.clear();
  m_indexed = 0;
}

// The entries whose names have this hash, in file order.
std::vector<CDMXMLCOBOLMapping const*> const& CDMXMLCOBOLExternalMapping::entriesOf(
    Hash hash) const {
  static std::vector<CDMXMLCOBOLMapping const*> const kNone;
  for (; m_indexed < mappingList.size(); ++m_indexed) {
    CDMXMLCOBOLMapping const* entry = mappingList[m_indexed];
    m_byHash[extendHash(kHashStart, entry->cobolName)].push_back(entry);
  }
  auto found = m_byHash.find(hash);
  return found == m_byHash.end() ? kNone : found->second;
}

CDMXMLCOBOLExternalMapping::Hash CDMXMLCOBOLExternalMapping::qualifiedHash(
    CDMXMLElement const* item) const {
  std::vector<CDMXMLElement const*> path;
  Hash hash = kHashStart;
  bool isFirst = true;
  for (; item != nullptr && item->getAttribute("name") != nullptr; item = item->getParent()) {
    auto known = m_hashes.find(item);
    if (known != m_hashes.end()) {
      hash = known->second;
      isFirst = false;
      break;
    }
    path.push_back(item);
  }
  std::reverse(path.begin(), path.end());
  for (CDMXMLElement const* named : path) {
    if (!isFirst) hash = extendHash(hash, ".");
    hash = extendHash(hash, dataNameOf(named));
    isFirst = false;
    m_hashes.emplace(named, hash);
  }
  return hash;
}

CDMXMLCOBOLMapping const* CDMXMLCOBOLExternalMapping::findMapping(CDMXMLElement const* item) const {
  if (dataNameOf(item).empty() && getQualifiedNameAttr(item).empty()) return nullptr;
  for (CDMXMLCOBOLMapping const* entry : entriesOf(qualifiedHash(item))) {
    if (isQualifiedName(entry->cobolName, item)) return entry;
  }
  return nullptr;
}

CDMXMLCOBOLMapping const* CDMXMLCOBOLExternalMapping::findMapping(std::string_view name) const {
  for (CDMXMLCOBOLMapping const* entry : entriesOf(extendHash(kHashStart, name))) {
    if (entry->cobolName == name) return entry;
  }
  return nullptr;
}

bool ApplyExternalMappingFile(CDMXMLElement const* element,
                              CDMXMLCOBOLExternalMapping const* mapping, ItemName& name) {
  if (element == nullptr || mapping == nullptr) return false;
  CDMXMLCOBOLMapping const* entry = mapping->findMapping(element);
  if (entry == nullptr) return false;
  name.xmlName = entry->xmlName;
  name.xmlType = entry->xmlType;
  name.xmlNamespace = entry->xmlNamespace;
  name.isAttribute = entry->xmlAttribute;
  name.countIn = name.countIn && entry->cobolCountIn;
  return true;
}

ItemName defaultNameOf(CDMXMLElement const* element, bool countIn) {
  ItemName name;
  name.xmlName = dataNameOf(element);
  if (isFiller(name.xmlName)) name.xmlName = {};
  name.xmlType = getXmlType(element);
  name.countIn = countIn;
  return name;
}

}  // namespace fdmorph
