#include "layout/record_set.h"

#include <algorithm>

#include "layout/rule_parser.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"

namespace fdmorph::layout {
namespace {

using compiler::Literal;

// What is wrong with a given value of a counter; empty if nothing.
std::string checkCounter(Layout const& layout, GivenCounter const& given) {
  for (Counter const& counter : layout.counters()) {
    if (counter.node != kNone) continue;
    for (std::uint32_t table : counter.tables) {
      compiler::OccursClause const& occurs = *layout.item(table).item->occurs;
      if (!equalsIgnoringCase(occurs.depending.name, given.name)) continue;
      bool isInside = given.value >= 0 && static_cast<std::uint64_t>(given.value) >= occurs.least &&
                      static_cast<std::uint64_t>(given.value) <= occurs.most;
      if (isInside) continue;
      return "counter " + given.name + ": expected " + std::to_string(occurs.least) + " to " +
             std::to_string(occurs.most) + ", found " + std::to_string(given.value);
    }
  }
  return {};
}

}  // namespace

RecordSet::RecordSet(std::vector<record::RecordTree> const& trees, LayoutRules const& rules,
                     std::vector<std::string> const& when, compiler::Diagnostics& diagnostics)
    : m_rules(rules), m_values(rules.conventions) {
  m_layouts.reserve(trees.size());
  for (record::RecordTree const& tree : trees) {
    Layout const& layout = m_layouts.emplace_back(tree, m_rules, m_values, m_names, diagnostics);
    m_maxSize = std::max(m_maxSize, layout.size());
    m_maxCountSize = std::max(m_maxCountSize, layout.countSize());
    m_rulesOfAreas.emplace_back(layout.areas().size());
    for (GivenCounter const& given : m_rules.counters) {
      if (m_usageError.empty()) m_usageError = checkCounter(layout, given);
    }
  }
  for (std::string const& text : when) addRule(text);
}

void RecordSet::addRule(std::string const& text) {
  RuleParser parser(m_layouts, m_texts);
  std::optional<ViewRule> rule = parser.parse(text);
  if (!rule) {
    if (m_usageError.empty()) m_usageError = parser.error();
    return;
  }
  values::LiteralBytes literals(m_values);
  for (Comparison& comparison : rule->comparisons) {
    values::ItemFormat const& format = m_layouts[rule->record][comparison.node].format;
    for (compiler::ValueRange const& range : comparison.values) {
      TestValue test{values::Comparand(m_values, literals, format, range.from)};
      if (range.to.kind != Literal::Kind::none) {
        test.to.emplace(m_values, literals, format, range.to);
      }
      comparison.tests.push_back(std::move(test));
    }
  }
  if (rule->chosen != kNone) {
    m_recordRules.push_back(std::move(*rule));
  } else {
    std::uint32_t area = m_layouts[rule->record][rule->target].area;
    m_rulesOfAreas[rule->record][area].push_back(&m_viewRules.emplace_back(std::move(*rule)));
  }
}

bool RecordSet::holds(ViewRule const& rule, RecordBytes record,
                      Occurrence const& occurrence) const {
  if (rule.comparisons.empty()) return true;
  Layout const& layout = m_layouts[rule.record];
  return std::ranges::all_of(rule.comparisons, [&](Comparison const& comparison) {
    Node const& node = layout[comparison.node];
    std::uint64_t offset = offsetOf(layout, comparison.node, occurrence);
    if (offset + node.size > record.available) return false;
    unsigned char const* bytes = record.bytes + offset;
    return std::ranges::any_of(comparison.tests, [&](TestValue const& test) {
      auto from = test.from.compare(bytes, node.size);
      if (!from) return false;
      if (!test.to) return std::is_eq(*from);
      auto to = test.to->compare(bytes, node.size);
      return to && std::is_gteq(*from) && std::is_lteq(*to);
    });
  });
}

std::uint32_t RecordSet::chooseView(std::uint32_t record, std::uint32_t area, RecordBytes bytes,
                                    Occurrence const& occurrence) const {
  std::vector<ViewRule const*> const& rules = m_rulesOfAreas[record][area];
  if (rules.empty()) return m_layouts[record].areas()[area].preset;
  for (ViewRule const* rule : rules) {
    if (holds(*rule, bytes, occurrence)) return rule->target;
  }
  return kNone;
}

}  // namespace fdmorph::layout
