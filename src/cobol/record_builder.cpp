#include "cobol/record_builder.h"

#include <string>

#include "cobol/builtin_types.h"
#include "text/console.h"
#include "text/status_line.h"

namespace fdmorph {

CDMCOBOLRecordItem* RecordStore::create() {
  count(m_made, 1, m_limits.items);
  statusLine.count(StepUnit::items);
  CDMCOBOLRecordItem* item = nullptr;
  if (m_released.empty()) {
    item = m_items.create();
  } else {
    item = m_released.back();
    m_released.pop_back();
  }
  item->serial = static_cast<unsigned>(m_made);
  return item;
}

// The items are counted once for each line that they become, so the effort is
// limited, too.
void RecordStore::countListedAgain(CDMCOBOLRecordItem const* item) {
  std::vector<CDMCOBOLRecordItem const*> pending{item};
  while (!pending.empty()) {
    CDMCOBOLRecordItem const* listed = pending.back();
    pending.pop_back();
    if (listed == nullptr) continue;
    count(m_listedAgain, 1, m_limits.items);
    pending.insert(pending.end(), listed->children.begin(), listed->children.end());
  }
}

void RecordStore::release(CDMCOBOLRecordItem* item) {
  // The list of released items is also the list of those whose children are
  // still to be released.
  std::size_t next = m_released.size();
  auto take = [this](CDMCOBOLRecordItem* taken) {
    if (taken != nullptr) m_released.push_back(taken);
  };
  take(item);
  for (; next < m_released.size(); ++next) {
    CDMCOBOLRecordItem* released = m_released[next];
    for (CDMCOBOLRecordItem* child : released->children) {
      if (child == nullptr) continue;
      --child->placements;
      if (child->placements == 0) take(child);
    }
    *released = CDMCOBOLRecordItem();
  }
}

void RecordStore::clear() {
  m_items.clear();
  m_released.clear();
  m_made = m_listedAgain = m_references = m_textBytes = 0;
  m_texts.clear();
}

RecordBuilder::DeclaredItem RecordBuilder::findOrMakeItem(CDMXMLElement const* element,
                                                          CDMCOBOLRecordItem* current) {
  if (current == nullptr) {
    CDMCOBOLRecordItem* head = m_store.create();
    return {head, head, true};
  }
  if (isCompletedBy(element, current)) {
    current->derivationKind = DerivationKind::none;
    return {current, current, false};
  }
  CDMCOBOLRecordItem* item = m_store.create();
  item->parent = current;
  current->addChild(item);
  return {item, current, true};
}

bool RecordBuilder::isCompletedBy(CDMXMLElement const* element, CDMCOBOLRecordItem const* current) {
  CDMXMLElement const* holder = current->schemaElement;
  bool isIncomplete = current->derivationKind == DerivationKind::simpleContent ||
                      (holder != nullptr && holder->getAttribute("ref") != nullptr);
  return isIncomplete && holder != nullptr &&
         generatorElementKind(holder) == generatorElementKind(element);
}

CDMCOBOLRecordItem* RecordBuilder::refuse(CDMCOBOLRecordItem* item, CDMCOBOLRecordItem* current) {
  if (item->parent != nullptr) item->parent->removeChild(item);
  m_store.release(item);
  return current == item ? nullptr : current;
}

CDMCOBOLRecordItem* RecordBuilder::prune(CDMXMLElement const* element,
                                         CDMCOBOLRecordItem* current) {
  if (current == nullptr) return nullptr;
  CDMXMLElement const* at = element;
  while (at != nullptr && at != current->typeElement) {
    if (at->getNextSibling() != nullptr) return current;
    at = at->getParent();
  }
  if (!current->children.empty()) return current;
  CDMCOBOLRecordItem* parent = current->parent;
  if (parent != nullptr) parent->removeChild(current);
  if (current->derivationKind != DerivationKind::none) return current;
  m_store.release(current);
  return parent;
}

void RecordBuilder::setNames(CDMCOBOLRecordItem* item, CDMXMLElement* element,
                             std::string_view name) {
  m_store.countText(name);
  item->schemaElement = element;
  item->setCOBOLName(name, m_store.texts());
  item->identifiedBy = name;
  std::string countName(item->dataName);
  countName += "-count";
  item->countInName = m_store.texts().keep(countName);
}

void RecordBuilder::setReferenceNames(CDMCOBOLRecordItem* item, std::string_view ref) {
  item->setCOBOLName(ref, m_store.texts());
  item->identifiedBy = ref;
  item->xmlName = ref;
}

void RecordBuilder::setMadeName(CDMCOBOLRecordItem* item, std::string_view name) {
  m_store.countText(name);
  item->setCOBOLName(m_store.texts().keep(name), m_store.texts());
}

void RecordBuilder::setNamespace(CDMCOBOLRecordItem* item, std::string_view uri) {
  // Only then is the name written.
  bool isOther = item->parent == nullptr || item->parent->xmlNamespace != uri;
  if (isOther) m_store.countText(uri);
  item->xmlNamespace = uri;
}

void RecordBuilder::setElementNamespace(CDMCOBOLRecordItem* item, CDMXMLElement const* element) {
  setNamespace(item, m_namespaces.getElementNamespace(element).value_or(""));
}

void RecordBuilder::setBuiltinPicture(CDMCOBOLRecordItem* item, std::string_view typeName) const {
  convertXMLtoCOBOL(item, typeName, m_namespaces);
  if (item->pictureSize.empty()) setDefaultSize(item);
}

CDMCOBOLRecordItem* RecordBuilder::makeItemBelow(CDMCOBOLRecordItem* item,
                                                 std::string_view suffix) {
  CDMCOBOLRecordItem* below = m_store.create();
  below->levelNumber = item->levelNumber + 1;
  below->indent = item->indent + 1;
  below->parent = item;
  std::string name(item->dataName);
  name += suffix;
  setMadeName(below, name);
  return below;
}

CDMCOBOLRecordItem* RecordBuilder::makeValueItem(CDMCOBOLRecordItem* item) {
  CDMCOBOLRecordItem* value = makeItemBelow(item, "-value");
  value->pictureSymbol = item->pictureSymbol;
  value->pictureSize = item->pictureSize;
  item->pictureSymbol = {};
  item->pictureSize = {};
  return value;
}

void RecordBuilder::addMixedValue(CDMCOBOLRecordItem* item) {
  item->addChild(makeItemBelow(item, "-mixed-value"));
}

// A condition name as the first child switches this off: the enumeration has a
// value item of its own after its condition names.
void RecordBuilder::moveValueToChild(CDMXMLElement const* element, CDMCOBOLRecordItem* item) {
  if (item == nullptr || item->isAttribute || item->children.empty()) return;
  CDMCOBOLRecordItem const* first = item->children.front();
  if (first == nullptr || first->levelNumber > kMaxLevel) return;
  if (findAttrByName(element, "mixed").value_or("false") != "false") return;
  if (item->pictureSymbol.empty()) return;
  item->addFirstChild(makeValueItem(item));
}

bool convertXMLtoCOBOL(CDMCOBOLRecordItem* item, std::string_view typeName,
                       NamespaceLookup const& namespaces) {
  if (item == nullptr || typeName.empty()) return false;
  if (!namespaces.isSupportedDefaultSchemaType(item->schemaElement, typeName)) return false;
  switch (builtinTypeClass(CDMXMLNode::getNonQualifiedName(typeName))) {
    case BuiltinTypeClass::character:
      item->pictureSymbol = "X";
      return true;
    case BuiltinTypeClass::unsignedInteger:
      item->pictureSymbol = "9";
      return true;
    case BuiltinTypeClass::signedInteger:
      item->pictureSymbol = "S9";
      return false;
    case BuiltinTypeClass::decimal:
      item->hasDecimal = true;
      item->pictureSymbol = "S9";
      return false;
    case BuiltinTypeClass::floatingPoint:
      item->usage = "COMP-1";
      return false;
    case BuiltinTypeClass::doublePrecision:
      item->usage = "COMP-2";
      return false;
    default:
      err() << "Internal Error : Unexpected XML Type encountered. Converting to PIC X by default"
            << endLine;
      item->pictureSymbol = "X";
      return false;
  }
}

void setDefaultSize(CDMCOBOLRecordItem* item) {
  if (item->pictureSymbol == "X") {
    item->pictureSize = "80";
  } else {
    item->pictureSize = item->hasDecimal ? "9" : "18";
  }
}

}  // namespace fdmorph
