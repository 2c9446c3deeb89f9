#include "record/record_tree.h"

#include <algorithm>
#include <utility>

#include "semantics/name_index.h"
#include "source/literals.h"
#include "text/xml_names.h"

namespace fdmorph::record {
namespace {

using compiler::Code;
using compiler::DataItem;
using compiler::Diagnostics;
using compiler::Literal;
using compiler::Usage;

bool hasClause(Literal const& literal) {
  return literal.kind == Literal::Kind::text;
}

bool isAttribute(DataItem const& item) {
  return item.xml != nullptr && item.xml->isAttribute;
}

bool isNamed(RecordNode const& node) {
  return node.role == Role::element || node.role == Role::attribute;
}

// The text between the quotes of a literal. One that the source does not have as it
// is goes to `texts`.
std::string_view contentOf(Literal const& literal, std::deque<std::string>& texts) {
  std::string_view text = literal.text;
  bool isQuoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'');
  if (isQuoted && text.back() == text.front()) {
    std::string_view inside = text.substr(1, text.size() - 2);
    if (inside.find(text.front()) == std::string_view::npos) return inside;
  }
  return texts.emplace_back(compiler::decodeLiteral(text).text);
}

// The role of an item by itself. A value item gets its role later.
Role ownRole(RecordNode const& node, bool isAnAttribute) {
  DataItem const& item = *node.item;
  if (item.isGroup()) {
    if (node.name.empty()) return Role::transparent;
    return isAnAttribute ? Role::attribute : Role::element;
  }
  if (node.name.empty() || item.level == compiler::kRenamesLevel || isAddress(item)) {
    return Role::none;
  }
  if (!isAnAttribute) return Role::element;
  return item.size == 0 ? Role::none : Role::attribute;
}

}  // namespace

bool isAddress(DataItem const& item) {
  if (item.isGroup()) return false;
  switch (item.effectiveUsage) {
    case Usage::index:
    case Usage::pointer:
    case Usage::programPointer:
    case Usage::procedurePointer:
    case Usage::functionPointer:
    case Usage::handle:
      return true;
    default:
      return false;
  }
}

std::string_view dataNameOf(DataItem const& item) {
  return item.name.empty() ? "FILLER" : item.name;
}

RecordTree::RecordTree(DataItem const& record, NamingRules const& rules, Diagnostics& diagnostics) {
  addItems(record, kNoNode);
  m_isEnhanced = std::ranges::any_of(m_nodes, [](RecordNode const& node) {
    return node.item->xml != nullptr && hasClause(node.item->xml->identifiedBy);
  });
  nameNodes(rules, diagnostics);
  assignRoles();
  findEnclosing();
  assignValues();
  dropAttributesWithoutText();
  dropRolesOfEmptyGroups(diagnostics);
}

void RecordTree::setNamespace(std::uint32_t node, std::string_view namespaceUri) {
  m_nodes[node].namespaceUri = m_texts.emplace_back(namespaceUri);
}

void RecordTree::setDemand(std::uint32_t node, PartDemand demand) {
  m_demands.insert_or_assign(node, std::move(demand));
}

// The recursion is bounded by the number of levels.
void RecordTree::addItems(DataItem const& item, std::uint32_t parent) {
  auto node = static_cast<std::uint32_t>(m_nodes.size());
  m_nodes.push_back({&item, parent, 0, kNoNode});
  for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) {
    addItems(*each, node);
  }
  m_nodes[node].end = static_cast<std::uint32_t>(m_nodes.size());
}

// A namespace applies to all elements below its item. An attribute has only its own.
void RecordTree::nameNodes(NamingRules const& rules, Diagnostics& diagnostics) {
  std::string_view outermost;
  if (!m_isEnhanced && !rules.namespaceUri.empty()) {
    outermost = m_texts.emplace_back(rules.namespaceUri);
  }
  std::vector<std::string_view> inherited(m_nodes.size());
  for (std::size_t i = 0; i < m_nodes.size(); ++i) {
    RecordNode& node = m_nodes[i];
    DataItem const& item = *node.item;
    inherited[i] = node.parent == kNoNode ? outermost : inherited[node.parent];
    node.name = nameOf(item, diagnostics);
    bool hasNamespace = m_isEnhanced && item.xml != nullptr && hasClause(item.xml->namespaceName);
    if (hasNamespace) inherited[i] = contentOf(item.xml->namespaceName, m_texts);
    bool hasNone = m_isEnhanced && isAttribute(item) && !hasNamespace;
    if (!hasNone) node.namespaceUri = inherited[i];
  }
}

std::string_view RecordTree::nameOf(DataItem const& item, Diagnostics& diagnostics) {
  if (!m_isEnhanced) return nameFromDataName(item, diagnostics);
  bool hasName = item.xml != nullptr && hasClause(item.xml->identifiedBy);
  std::string_view name = hasName ? contentOf(item.xml->identifiedBy, m_texts) : "";
  if (!name.empty() && !isNcName(name)) {
    diagnostics.report(Code::layout, item.xml->identifiedBy.place,
                       compiler::quoted(name) + " is not an XML name without a prefix");
  }
  if (name.empty() && isAttribute(item)) {
    diagnostics.report(Code::layout, item.place,
                       "IS ATTRIBUTE requires an XML name in IDENTIFIED BY");
  }
  return name;
}

std::string_view RecordTree::nameFromDataName(DataItem const& item, Diagnostics& diagnostics) {
  if (compiler::isFillerName(item.name)) return {};
  if (isNcName(item.name)) return item.name;
  std::string_view name = m_texts.emplace_back(toNcName(item.name));
  diagnostics.report(
      Code::xmlName, item.place,
      compiler::quoted(item.name) + " is no XML name; it becomes " + compiler::quoted(name));
  return name;
}

void RecordTree::assignRoles() {
  for (RecordNode& node : m_nodes) {
    node.role = ownRole(node, m_isEnhanced && isAttribute(*node.item));
  }
}

void RecordTree::findEnclosing() {
  for (RecordNode& node : m_nodes) {
    if (node.parent == kNoNode) continue;
    RecordNode const& group = m_nodes[node.parent];
    node.enclosing = isNamed(group) ? node.parent : group.enclosing;
  }
}

void RecordTree::assignValues() {
  if (!m_isEnhanced) return;
  std::vector<bool> hasElement(m_nodes.size());
  for (RecordNode const& node : m_nodes) {
    if (node.role == Role::element && node.enclosing != kNoNode) hasElement[node.enclosing] = true;
  }
  for (RecordNode& node : m_nodes) {
    DataItem const& item = *node.item;
    bool isCandidate = !item.isGroup() && node.name.empty() && !compiler::isFillerName(item.name) &&
                       !isAttribute(item) && item.size > 0 &&
                       item.level != compiler::kRenamesLevel && !isAddress(item);
    if (!isCandidate || node.enclosing == kNoNode) continue;
    bool isText = m_nodes[node.enclosing].role == Role::attribute || !hasElement[node.enclosing];
    if (isText) node.role = Role::value;
  }
}

void RecordTree::dropAttributesWithoutText() {
  std::vector<bool> hasPart(m_nodes.size());
  for (RecordNode const& node : m_nodes) {
    bool isPart = node.role != Role::none && node.role != Role::transparent;
    if (isPart && node.enclosing != kNoNode) hasPart[node.enclosing] = true;
  }
  for (std::size_t i = 0; i < m_nodes.size(); ++i) {
    RecordNode& node = m_nodes[i];
    if (node.role == Role::attribute && node.item->isGroup() && !hasPart[i]) {
      node.role = Role::none;
    }
  }
}

// A table whose occurrences have no name of their own could not be told apart.
void RecordTree::dropRolesOfEmptyGroups(Diagnostics& diagnostics) {
  std::vector<bool> hasRole(m_nodes.size());
  for (std::size_t i = m_nodes.size(); i-- > 0;) {
    RecordNode& node = m_nodes[i];
    bool isPart = node.role != Role::none && (node.role != Role::transparent || hasRole[i]);
    if (node.role == Role::transparent && node.repeats()) {
      if (hasRole[i]) {
        diagnostics.report(Code::layout, node.item->place,
                           "table " + compiler::quoted(dataNameOf(*node.item)) +
                               " has parts of a document but no XML name");
      } else {
        node.role = Role::none;
      }
    }
    if (isPart && node.parent != kNoNode) hasRole[node.parent] = true;
  }
}

std::string RecordTree::xmlPath(std::uint32_t node) const {
  RecordNode const* at = &m_nodes[node];
  if (at->role == Role::none || at->role == Role::transparent) return {};
  if (at->role == Role::value) at = &m_nodes[at->enclosing];
  std::vector<RecordNode const*> chain{at};
  for (std::uint32_t each = at->enclosing; each != kNoNode; each = m_nodes[each].enclosing) {
    chain.push_back(&m_nodes[each]);
  }
  std::string path;
  std::ranges::reverse(chain);
  for (RecordNode const* each : chain) {
    if (!path.empty()) path += '/';
    if (each->role == Role::attribute) path += '@';
    path += each->name;
  }
  return path;
}

std::string RecordTree::dataPath(std::uint32_t node) const {
  std::vector<std::string_view> names;
  for (std::uint32_t each = node; each != kNoNode; each = m_nodes[each].parent) {
    names.push_back(dataNameOf(*m_nodes[each].item));
  }
  std::string path;
  std::ranges::reverse(names);
  for (std::string_view name : names) {
    if (!path.empty()) path += '/';
    path += name;
  }
  return path;
}

}  // namespace fdmorph::record
