#include "cobol/recursion.h"

#include <algorithm>
#include <functional>

namespace fdmorph {
namespace {

constexpr std::size_t kMaxDigested = 16;                   // items; keeps the cost of a hop low
constexpr std::size_t kDigestFactor = 0x9E3779B97F4A7C15;  // odd, spreads all bits

/// The global component that an item is about to expand.
struct Expansion {
  CDMXMLElement const* target = nullptr;  ///< null if there is none
  bool isReference = false;               ///< named by a `ref`, not by a `type`
};

Expansion expansionOf(CDMCOBOLRecordItem const* item, ComponentSearch const& components) {
  if (item == nullptr || item->schemaElement == nullptr) return {};
  CDMXMLElement const* element = item->schemaElement;
  if (auto ref = findAttrByName(element, "ref")) {
    return {components.findElementByName(element, *ref, Search::elements), true};
  }
  if (auto type = findAttrByName(element, "type")) {
    return {components.findElementByName(element, *type, Search::complexTypes), false};
  }
  return {};
}

bool isOpenAbove(CDMCOBOLRecordItem const* item, Expansion const& expansion) {
  for (CDMCOBOLRecordItem const* above = item->parent; above != nullptr; above = above->parent) {
    CDMXMLElement const* open = expansion.isReference ? above->schemaElement : above->typeElement;
    if (open == expansion.target) return true;
  }
  return false;
}

// Only global components can be the target of a `type` or `ref`.
bool isGlobal(CDMXMLElement const* element) {
  if (element == nullptr || element->getParent() == nullptr) return false;
  GeneratorElementKind kind = generatorElementKind(element->getParent());
  return kind == GeneratorElementKind::schema || kind == GeneratorElementKind::redefine;
}

// True if it makes no difference to a walk which of the two made an item. A
// local declaration cannot be referred to: no other one can lead to it again.
bool areLike(CDMXMLElement const* one, CDMXMLElement const* other) {
  if (one == other) return true;
  if (one == nullptr || other == nullptr || isGlobal(one) || isGlobal(other)) return false;
  bool areReferences = one->getAttribute("ref") != nullptr;
  return generatorElementKind(one) == generatorElementKind(other) &&
         areReferences == (other->getAttribute("ref") != nullptr);
}

/// What isRecursivePattern finds on some of the items above another one.
class Marks {
 public:
  /// Adds those of `item`.
  void add(CDMCOBOLRecordItem const* item) {
    if (isGlobal(item->typeElement)) m_types.insert(item->typeElement);
    if (isGlobal(item->schemaElement)) m_elements.insert(item->schemaElement);
  }

  /// True if all of them are found above `item` too.
  [[nodiscard]] bool areAbove(CDMCOBOLRecordItem const* item) {
    while (item->parent != nullptr && !(m_types.empty() && m_elements.empty())) {
      item = item->parent;
      m_types.erase(item->typeElement);
      m_elements.erase(item->schemaElement);
    }
    return m_types.empty() && m_elements.empty();
  }

 private:
  std::unordered_set<CDMXMLElement const*> m_types;
  std::unordered_set<CDMXMLElement const*> m_elements;
};

}  // namespace

bool isRecursivePattern(CDMCOBOLRecordItem const* item, ComponentSearch const& components) {
  Expansion expansion = expansionOf(item, components);
  return expansion.target != nullptr && isOpenAbove(item, expansion);
}

bool OpenDefinitions::wouldContainItself(CDMCOBOLRecordItem const* item,
                                         ComponentSearch const& components) const {
  Expansion expansion = expansionOf(item, components);
  return expansion.target != nullptr && hasSeen(expansion.target) && isOpenAbove(item, expansion);
}

bool OpenDefinitions::openMember(CDMXMLElement const* member) {
  if (!m_openMembers.insert(member).second) return false;
  note(member);
  return true;
}

void OpenDefinitions::clear() {
  m_innermost.clear();
  m_openMembers.clear();
}

std::size_t OpenDefinitions::innermost(CDMXMLElement const* definition) const {
  auto seen = m_innermost.find(definition);
  return seen == m_innermost.end() ? kNone : seen->second;
}

bool OpenDefinitions::mayFollow(CDMXMLElement const* definition, Hop hop,
                                CDMCOBOLRecordItem const* item) const {
  std::size_t at = innermost(definition);
  if (at == kNone) return true;
  bool isGuardedSince = m_chain[at].guardedHops != m_chain.back().guardedHops;
  if (hop == Hop::unguarded && !isGuardedSince) return false;
  if (m_reopened == kMaxReopened) return false;
  for (; at != kNone; at = m_chain[at].outer) {
    if (isRepetition(m_chain[at], item)) return false;
  }
  return true;
}

// True if the walk is in the state of the opening. What the first test finds
// above an item is compared without reading the fields that the walk itself has
// changed since: only the item that a walk works on is changed, so what is
// above the item of the opening is as it was, as long as that item is in place.
bool OpenDefinitions::isRepetition(Opening const& opening, CDMCOBOLRecordItem const* item) const {
  // A member that was opened since has made the walk start with no item above.
  if (opening.members != m_openMembers.size()) return false;
  ItemState state = ItemState::of(item);
  if (!state.isLike(opening.item)) return false;
  if (state.serial == opening.item.serial) return true;
  if (item == nullptr || opening.place == nullptr) return false;
  // The item of the opening was removed, and this one has taken its place.
  ItemState parent = ItemState::of(item->parent);
  if (parent.serial == opening.parent.serial) return parent.isLike(opening.parent);
  // The item of the opening is above: nothing new was marked from there on.
  Marks marks;
  for (CDMCOBOLRecordItem const* above = item->parent; above != nullptr; above = above->parent) {
    marks.add(above);
    if (above->serial == opening.item.serial) return marks.areAbove(above);
  }
  // The items above were removed, too, and others like them have been made.
  return opening.above != 0 && opening.above == digestAbove(item);
}

std::size_t OpenDefinitions::digestAbove(CDMCOBOLRecordItem const* item) {
  std::size_t digest = 1;
  std::size_t height = 0;
  auto add = [&digest](std::size_t value) { digest = (digest ^ value) * kDigestFactor; };
  for (CDMCOBOLRecordItem const* above = item->parent; above != nullptr; above = above->parent) {
    if (++height > kMaxDigested) return 0;
    ItemState state = ItemState::of(above);
    add(std::hash<void const*>()(state.schemaElement));
    add(std::hash<void const*>()(state.typeElement));
    add(static_cast<std::size_t>(state.derivationKind) * 3 + state.children);
    digest ^= digest >> 29;
  }
  return digest;
}

OpenDefinitions::ItemState OpenDefinitions::ItemState::of(CDMCOBOLRecordItem const* item) {
  if (item == nullptr) return {};
  return {item->serial, item->schemaElement, item->typeElement, item->derivationKind,
          std::min<std::size_t>(item->children.size(), 2)};
}

bool OpenDefinitions::ItemState::isLike(ItemState const& other) const {
  return (serial == 0) == (other.serial == 0) && typeElement == other.typeElement &&
         derivationKind == other.derivationKind && children == other.children &&
         areLike(schemaElement, other.schemaElement);
}

OpenDefinitions::Scope::Scope(OpenDefinitions& definitions, CDMXMLElement const* definition,
                              Hop hop, CDMCOBOLRecordItem const* item)
    : m_definitions(definitions) {
  std::vector<Opening>& chain = m_definitions.m_chain;
  std::size_t& innermost = m_definitions.m_innermost.try_emplace(definition, kNone).first->second;
  unsigned guardedHops = chain.empty() ? 0 : chain.back().guardedHops;
  if (hop == Hop::guarded) ++guardedHops;
  if (innermost != kNone) ++m_definitions.m_reopened;
  chain.push_back({definition, innermost, guardedHops, m_definitions.m_openMembers.size(),
                   ItemState::of(item), ItemState::of(item == nullptr ? nullptr : item->parent),
                   item == nullptr ? 0 : digestAbove(item), item});
  innermost = chain.size() - 1;
}

OpenDefinitions::Scope::~Scope() {
  Opening const& closed = m_definitions.m_chain.back();
  if (closed.outer != kNone) --m_definitions.m_reopened;
  m_definitions.m_innermost[closed.definition] = closed.outer;
  m_definitions.m_chain.pop_back();
}

}  // namespace fdmorph
