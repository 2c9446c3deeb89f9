#include "fit/text_rules.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "fit/enumeration_rules.h"
#include "fit/value_repair.h"

namespace fdmorph::fit {
namespace {

using compiler::Severity;
using record::RecordNode;

/// A text of the schema and the items that take it: several are views of one area.
struct TextSubject {
  std::uint32_t owner;  ///< the element or attribute
  SimpleType const& type;
  SchemaPlace place;
  std::vector<std::uint32_t> items;
};

class TextCheck {
 public:
  TextCheck(WalkContext& context, TextSubject const& subject)
      : m_context(context), m_subject(subject), m_demands(demandsOf(subject.type)) {}

  void check() {
    for (std::uint32_t item : m_subject.items) {
      m_capacities.push_back(capacityOf(*m_context.node(item).item, m_context.options.dialect));
    }
    std::vector<std::vector<ValueDemand const*>> taken(m_subject.items.size());
    std::vector<Told> told;
    for (ValueDemand const& demand : m_demands) {
      std::size_t const view = bestViewOf(demand);
      taken[view].push_back(&demand);
      collect(demand, view, told);
    }
    for (Told& each : told) report(each);
    for (std::size_t i = 0; i < taken.size(); ++i) repair(i, taken[i]);
    compareConditions();
  }

 private:
  // The view that takes all values of a type, or most kinds of them.
  std::size_t bestViewOf(ValueDemand const& demand) const {
    constexpr std::size_t kWrongCategory = 100;
    std::size_t best = 0;
    std::size_t fewest = SIZE_MAX;
    for (std::size_t i = 0; i < m_capacities.size(); ++i) {
      std::size_t faults = 0;
      for (ValueIssue const& issue :
           compareValue(demand, m_capacities[i], m_context.options.limits)) {
        if (issue.code == FindingCode::category) faults += kWrongCategory;
        if (isError(issue)) ++faults;
      }
      if (faults < fewest) {
        fewest = faults;
        best = i;
      }
    }
    return best;
  }

  // The members of a union are told once for each item and code, by the one that needs
  // most.
  struct Told {
    ValueDemand const* demand;
    std::size_t view;
    ValueIssue issue;
  };

  void collect(ValueDemand const& demand, std::size_t view, std::vector<Told>& told) const {
    for (ValueIssue& issue : compareValue(demand, m_capacities[view], m_context.options.limits)) {
      auto const known = std::ranges::find_if(told, [&](Told const& each) {
        return each.view == view && each.issue.code == issue.code;
      });
      if (known == told.end()) {
        told.push_back({&demand, view, std::move(issue)});
      } else if (issue.code == FindingCode::length && demand.length > known->demand->length) {
        *known = {&demand, view, std::move(issue)};
      }
    }
  }

  void report(Told& told) {
    Finding finding;
    finding.code = told.issue.code;
    finding.severity = severityOf(finding.code);
    finding.path = m_context.tree.xmlPath(m_subject.owner);
    finding.text = std::move(told.issue.text);
    finding.schemaSide = describe(*told.demand->type);
    compiler::DataItem const& item = *m_context.node(m_subject.items[told.view]).item;
    finding.itemSide = describe(item);
    finding.item = item.place;
    finding.schema = m_subject.place;
    m_context.add(std::move(finding));
  }

  void repair(std::size_t view, std::vector<ValueDemand const*> const& demands) {
    if (demands.empty()) return;
    std::uint32_t const node = m_subject.items[view];
    auto picture = repairedPicture(*m_context.node(node).item, m_capacities[view], demands,
                                   m_context.options.limits);
    if (picture) m_context.repairs[node].picture = std::move(*picture);
  }

  void compareConditions() {
    if (m_subject.type.enumeration == nullptr) return;
    std::vector<compiler::DataItem const*> owners{m_context.node(m_subject.owner).item};
    for (std::uint32_t item : m_subject.items) {
      if (item != m_subject.owner) owners.push_back(m_context.node(item).item);
      // Unions have their conditions on the groups around the items.
      std::uint32_t group = m_context.node(item).parent;
      for (; group != m_subject.owner && group != record::kNoNode && item != m_subject.owner;
           group = m_context.node(group).parent) {
        compiler::DataItem const* owner = m_context.node(group).item;
        if (std::ranges::find(owners, owner) == owners.end()) owners.push_back(owner);
      }
    }
    EnumerationDifference const difference =
        compareEnumeration(*m_subject.type.enumeration, owners);
    if (!difference.withoutCondition.empty()) {
      addValueFinding("no level 88 has " + listOf(difference.withoutCondition));
    }
    if (!difference.withoutValue.empty()) {
      addValueFinding("the schema does not allow " + listOf(difference.withoutValue));
    }
  }

  void addValueFinding(std::string text) {
    Finding finding;
    finding.code = FindingCode::value;
    finding.severity = Severity::warning;
    finding.path = m_context.tree.xmlPath(m_subject.owner);
    finding.text = std::move(text);
    finding.schemaSide = describe(m_subject.type);
    finding.itemSide = "level 88";
    finding.item = m_context.node(m_subject.owner).item->place;
    finding.schema = m_subject.place;
    m_context.add(std::move(finding));
  }

  WalkContext& m_context;
  TextSubject const& m_subject;
  std::vector<ValueDemand> m_demands;
  std::vector<ItemCapacity> m_capacities;  // by item
};

// An item of 0 bytes in a group without a text: the text could be there.
std::optional<std::uint32_t> emptyValueOf(WalkContext const& context, std::uint32_t group) {
  auto const& nodes = context.tree.nodes();
  if (!context.tree.isEnhanced()) return std::nullopt;
  for (std::uint32_t i = group + 1; i < nodes[group].end; ++i) {
    RecordNode const& node = nodes[i];
    bool const isCandidate = !node.item->isGroup() && node.item->size == 0 && node.name.empty() &&
                             !node.item->name.empty() && node.enclosing == group;
    if (isCandidate) return i;
  }
  return std::nullopt;
}

std::vector<std::uint32_t> itemsOf(WalkContext const& context, std::uint32_t owner,
                                   RecordParts const& parts) {
  if (!context.node(owner).item->isGroup()) return {owner};
  if (!parts.values.empty()) return parts.values;
  std::optional<std::uint32_t> const empty = emptyValueOf(context, owner);
  return empty ? std::vector{*empty} : std::vector<std::uint32_t>{};
}

bool isNumeric(WalkContext const& context, std::uint32_t item) {
  ItemKind const kind = capacityOf(*context.node(item).item, context.options.dialect).kind;
  return kind == ItemKind::number || kind == ItemKind::floating;
}

// Items for a text that the schema does not have.
void checkNoText(WalkContext& context, Subject const& subject) {
  if (!context.node(subject.node).item->isGroup()) {
    if (!isNumeric(context, subject.node)) return;
    Finding finding =
        context.findingAt(subject.node, subject, FindingCode::category,
                          "an element without a text does not fit into a numeric item");
    finding.schemaSide = "no text";
    finding.itemSide = describe(*context.node(subject.node).item);
    context.add(std::move(finding));
    return;
  }
  for (std::uint32_t item : subject.parts.values) {
    Finding finding = context.findingAt(item, subject, FindingCode::noElement,
                                        "the element has no text in the schema");
    finding.itemSide = describe(*context.node(item).item);
    context.add(std::move(finding));
  }
}

struct NameHash {
  std::size_t operator()(std::pair<std::string_view, std::string_view> const& name) const {
    std::hash<std::string_view> const hash;
    return hash(name.first) * 31 + hash(name.second);
  }
};

}  // namespace

void checkText(WalkContext& context, Subject const& subject) {
  if (subject.type.content == ContentKind::mixed) {
    if (!subject.type.isAny) {
      context.add(subject, FindingCode::mixed, "there may be text between the elements");
    }
    return;
  }
  if (subject.type.text == nullptr) {
    checkNoText(context, subject);
    return;
  }
  TextSubject const text{subject.node, *subject.type.text, context.model.placeOf(subject.element),
                         itemsOf(context, subject.node, subject.parts)};
  if (!text.items.empty()) {
    TextCheck(context, text).check();
    return;
  }
  Finding finding =
      context.findingAt(subject.node, subject, FindingCode::noItem, "the text has no item");
  finding.schemaSide = describe(*subject.type.text);
  finding.itemSide = "none";
  context.add(std::move(finding));
}

void checkAttributes(WalkContext& context, Subject const& subject) {
  std::unordered_map<std::pair<std::string_view, std::string_view>, std::uint32_t, NameHash> exact;
  std::unordered_map<std::string_view, std::uint32_t> local;
  for (std::uint32_t node : subject.parts.attributes) {
    RecordNode const& item = context.node(node);
    exact.try_emplace({item.name, item.namespaceUri}, node);
    local.try_emplace(item.name, node);
  }
  std::unordered_set<std::uint32_t> matched;
  for (SchemaAttribute const& attribute : subject.type.attributes) {
    std::optional<std::uint32_t> node;
    if (auto found = exact.find({attribute.name.local, attribute.name.space});
        found != exact.end()) {
      node = found->second;
    } else if (auto other = local.find(attribute.name.local); other != local.end()) {
      node = other->second;
    }
    if (node && matched.insert(*node).second) {
      RecordParts const parts = partsOf(context.tree, *node);
      TextSubject const text{*node, *attribute.type,
                             context.model.placeOf(attribute, subject.element),
                             itemsOf(context, *node, parts)};
      if (!text.items.empty()) TextCheck(context, text).check();
      continue;
    }
    Finding finding =
        context.findingAt(subject.node, subject, FindingCode::noItem,
                          "attribute " + compiler::quoted(attribute.name.local) + " has no item");
    finding.severity = attribute.isRequired ? Severity::error : Severity::warning;
    finding.path += "/@" + attribute.name.local;
    finding.schemaSide = std::string(attribute.isRequired ? "required" : "optional") + ", " +
                         describe(*attribute.type);
    finding.itemSide = "none";
    finding.schema = context.model.placeOf(attribute, subject.element);
    context.add(std::move(finding));
  }
  for (std::uint32_t node : subject.parts.attributes) {
    RecordNode const& item = context.node(node);
    bool const isAdmitted =
        subject.type.isAny || (subject.type.anyAttribute &&
                               subject.type.anyAttribute->admits(std::string(item.namespaceUri)));
    if (matched.contains(node) || isAdmitted) continue;
    Finding finding =
        context.findingAt(node, subject, FindingCode::noElement,
                          "the element has no attribute " + compiler::quoted(item.name));
    finding.itemSide = "attribute " + std::string(record::dataNameOf(*item.item));
    context.add(std::move(finding));
  }
  if (subject.type.anyAttribute && !subject.type.isAny) {
    context.add(subject, FindingCode::any, "there may be other attributes");
  }
}

}  // namespace fdmorph::fit
