#include "docschema/document_parts.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace fdmorph::docschema {
namespace {

using compiler::DataItem;
using record::RecordNode;
using record::Role;

DataItem const* areaOf(DataItem const& item) {
  DataItem const* area = &item;
  while (area->redefined != nullptr) area = area->redefined;
  return area;
}

void addTypes(std::vector<ValueType>& all, std::vector<ValueType> const& types) {
  for (ValueType const& each : types) {
    if (std::ranges::find(all, each) == all.end()) all.push_back(each);
  }
}

template <typename Value>
void append(std::vector<Value>& all, std::vector<Value> const& more) {
  all.insert(all.end(), more.begin(), more.end());
}

// An attribute that some of the views have.
void addViewAttribute(std::vector<AttributeUse>& attributes, AttributeUse const& attribute) {
  auto known = std::ranges::find(attributes, attribute.name, &AttributeUse::name);
  if (known == attributes.end()) {
    attributes.push_back(attribute);
    return;
  }
  addTypes(known->types, attribute.types);
  append(known->items, attribute.items);
  known->mayLackText = known->mayLackText || attribute.mayLackText;
  known->isRequired = known->isRequired && attribute.isRequired;
}

bool hasAttribute(Parts const& parts, QName const& name) {
  return std::ranges::find(parts.attributes, name, &AttributeUse::name) != parts.attributes.end();
}

// Adds what one of several views has to the parts around them.
void addViews(std::vector<Parts> const& views, Parts& parts) {
  std::vector<AttributeUse> attributes;
  Particle choice{Particle::Kind::choice};
  bool hasTextSomewhere = std::ranges::any_of(views, &Parts::hasText);
  for (Parts const& each : views) {
    for (AttributeUse const& use : each.attributes) addViewAttribute(attributes, use);
    addTypes(parts.texts, each.texts);
    append(parts.items, each.items);
    bool const isWithoutText = hasTextSomewhere && !each.hasText();
    parts.mayLackText = parts.mayLackText || each.mayLackText || isWithoutText;
    if (each.hasElements()) {
      choice.parts.push_back(each.content);
    } else {
      choice.isOptional = true;
    }
  }
  for (AttributeUse& use : attributes) {
    auto const hasIt = [&use](Parts const& view) { return hasAttribute(view, use.name); };
    if (!std::ranges::all_of(views, hasIt)) use.isRequired = false;
  }
  append(parts.attributes, attributes);
  if (!choice.parts.empty()) parts.content.parts.push_back(std::move(choice));
}

// Fields of different types never have the same text.
void addField(std::string& text, std::string_view field) {
  text += std::to_string(field.size());
  text += ':';
  text += field;
}
void addField(std::string& text, std::uint64_t number) {
  text += std::to_string(number) + ';';
}

void addSignature(std::string& text, std::vector<ValueType> const& types) {
  addField(text, types.size());
  for (ValueType const& each : types) {
    addField(text, static_cast<std::uint64_t>(each.kind));
    addField(text, each.length);
    addField(text, each.digits);
    addField(text, each.scale);
    addField(text, each.zeros);
    addField(text, static_cast<std::uint64_t>(each.isSigned));
    addField(text, each.least);
    addField(text, each.most);
    addField(text, each.values.size());
    for (std::string const& value : each.values) addField(text, value);
  }
}

}  // namespace

Parts DocumentParts::partsOf(std::uint32_t node) const {
  Parts parts;
  DataItem const& item = *m_tree.nodes()[node].item;
  if (!item.isGroup()) {
    if (item.size > 0) {
      parts.texts.push_back(valueTypeOf(item, m_rules));
      parts.items.push_back(&item);
    }
    return parts;
  }
  addItems(node, parts, false);
  markSlots(parts.content);
  visitElements(parts.content, [this](Particle& element) { setOccurrences(element); });
  return parts;
}

Parts DocumentParts::partsOf(Particle const& element) const {
  Parts parts;
  if (element.nodes.size() == 1) {
    parts = partsOf(element.nodes.front());
  } else {
    std::vector<Parts> alternatives;
    for (std::uint32_t each : element.nodes) alternatives.push_back(partsOf(each));
    addViews(alternatives, parts);
  }
  parts.mayLackText = parts.mayLackText || element.mayLackText;
  return parts;
}

std::vector<std::uint32_t> DocumentParts::distinct(std::vector<std::uint32_t> const& nodes) const {
  if (nodes.size() < 2) return nodes;
  std::vector<std::uint32_t> result;
  std::unordered_set<std::string> signatures;
  for (std::uint32_t each : nodes) {
    if (signatures.insert(signatureOf(each)).second) result.push_back(each);
  }
  return result;
}

// The recursion is bounded by the number of levels.
void DocumentParts::addItems(std::uint32_t group, Parts& parts, bool isInOtherView) const {
  std::vector<RecordNode> const& nodes = m_tree.nodes();
  std::unordered_map<DataItem const*, std::vector<std::uint32_t>> views;
  for (std::uint32_t each = group + 1; each < nodes[group].end; each = nodes[each].end) {
    if (nodes[each].item->redefined != nullptr) {
      views[areaOf(*nodes[each].item)].push_back(each);
    }
  }
  for (std::uint32_t each = group + 1; each < nodes[group].end; each = nodes[each].end) {
    if (nodes[each].item->redefined != nullptr) continue;
    auto const others = views.find(nodes[each].item);
    if (others == views.end()) {
      addItem(each, parts, isInOtherView);
    } else {
      others->second.insert(others->second.begin(), each);
      addArea(others->second, parts, isInOtherView);
    }
  }
}

void DocumentParts::addItem(std::uint32_t node, Parts& parts, bool isInOtherView) const {
  switch (m_tree.nodes()[node].role) {
    case Role::transparent:
      addItems(node, parts, isInOtherView);
      break;
    case Role::element:
      addElement(node, parts, isInOtherView);
      break;
    case Role::attribute:
      addAttribute(node, parts, isInOtherView);
      break;
    case Role::value:
      addText(node, parts);
      break;
    case Role::none:
      break;
  }
}

// Parts of the view that is there without rules, or of the first one, may be left out.
void DocumentParts::addArea(std::vector<std::uint32_t> const& views, Parts& parts,
                            bool isInOtherView) const {
  auto const preset =
      std::ranges::find_if(views, [this](std::uint32_t view) { return hasRole(view); });
  std::vector<Parts> alternatives;
  for (auto each = views.begin(); each != views.end(); ++each) {
    if (!m_rules.chosenViews.contains(m_tree.nodes()[*each].item)) continue;
    bool const isOther = each != views.begin() && each != preset;
    addItem(*each, alternatives.emplace_back(), isInOtherView || isOther);
  }
  if (!alternatives.empty()) {
    addViews(alternatives, parts);
  } else if (preset != views.end()) {
    addItem(*preset, parts, isInOtherView);
  }
}

void DocumentParts::addElement(std::uint32_t node, Parts& parts, bool isInOtherView) const {
  RecordNode const& item = m_tree.nodes()[node];
  if (item.item->occurrences() == 0) return;
  Particle element{Particle::Kind::element};
  element.name = {item.namespaceUri, item.name};
  element.nodes = {node};
  element.repeats = item.repeats();
  element.isInOtherView = isInOtherView;
  parts.content.parts.push_back(std::move(element));
}

void DocumentParts::addAttribute(std::uint32_t node, Parts& parts, bool isInOtherView) const {
  RecordNode const& item = m_tree.nodes()[node];
  Parts text = partsOf(node);
  AttributeUse use;
  use.name = {item.namespaceUri, item.name};
  use.types = std::move(text.texts);
  use.items = std::move(text.items);
  use.mayLackText = text.mayLackText;
  if (item.item->isGroup()) use.items.push_back(item.item);
  bool const mayBeAbsent =
      m_rules.hasCounts ? isCounted(node) : m_rules.omitsEmpty && !isInOtherView;
  bool isBlank = mayBeBlank(node);
  for (std::uint32_t i = node + 1; i < item.end; ++i) isBlank = isBlank || mayBeBlank(i);
  if (mayBeAbsent || isBlank) use.isRequired = false;
  if (isBlank) use.mayLackText = false;
  parts.attributes.push_back(std::move(use));
}

void DocumentParts::addText(std::uint32_t node, Parts& parts) const {
  DataItem const& item = *m_tree.nodes()[node].item;
  addTypes(parts.texts, {valueTypeOf(item, m_rules)});
  parts.items.push_back(&item);
  parts.mayLackText = parts.mayLackText || mayBeBlank(node);
}

// Other slots than the last of its name are never left out.
void DocumentParts::setOccurrences(Particle& element) const {
  std::uint32_t const node = element.nodes.front();
  DataItem const& item = *m_tree.nodes()[node].item;
  bool const isDepending = item.occurs != nullptr && item.occurs->isDepending;
  element.most = item.occurrences();
  element.least = isDepending ? item.occurs->least : element.most;
  bool const isBlank = mayBeBlank(node);
  element.mayLackText = isBlank && (element.repeats || element.isFollowed);
  if (element.isFollowed) return;
  bool const mayBeAbsent = m_rules.hasCounts
                               ? isCounted(node)
                               : m_rules.omitsEmpty && !isDepending && !element.isInOtherView;
  element.mayBeOmitted = mayBeAbsent || (isBlank && !element.repeats);
  if (element.mayBeOmitted) element.least = 0;
}

bool DocumentParts::hasRole(std::uint32_t node) const {
  std::vector<RecordNode> const& nodes = m_tree.nodes();
  if (nodes[node].role == Role::none) return false;
  if (nodes[node].role != Role::transparent) return true;
  for (std::uint32_t each = node + 1; each < nodes[node].end; each = nodes[each].end) {
    if (hasRole(each)) return true;
  }
  return false;
}

bool DocumentParts::isCounted(std::uint32_t node) const {
  DataItem const& item = *m_tree.nodes()[node].item;
  return item.xml != nullptr && !item.xml->countIn.name.empty();
}

bool DocumentParts::mayBeBlank(std::uint32_t node) const {
  return m_rules.omitsBlankNumbers && isBlankable(*m_tree.nodes()[node].item);
}

std::string DocumentParts::signatureOf(std::uint32_t node) const {
  Parts const parts = partsOf(node);
  std::string text;
  addSignature(text, parts.texts);
  addField(text, static_cast<std::uint64_t>(parts.mayLackText));
  addField(text, parts.attributes.size());
  for (AttributeUse const& each : parts.attributes) {
    addField(text, each.name.namespaceUri);
    addField(text, each.name.local);
    addField(text, static_cast<std::uint64_t>(each.isRequired));
    addField(text, static_cast<std::uint64_t>(each.mayLackText));
    addSignature(text, each.types);
  }
  visitElements(parts.content, [&](Particle const& element) {
    addField(text, element.name.namespaceUri);
    addField(text, element.name.local);
    addField(text, element.least);
    addField(text, element.most);
    addField(text, static_cast<std::uint64_t>(element.mayLackText));
    addField(text, signatureOf(element.nodes.front()));
  });
  return text;
}

}  // namespace fdmorph::docschema
