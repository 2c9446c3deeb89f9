#include "fit/content_rules.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "fit/part_matching.h"

namespace fdmorph::fit {
namespace {

using compiler::quoted;
using compiler::Severity;

std::string times(std::uint64_t count) {
  return count == 1 ? "once" : std::to_string(count) + " times";
}

std::string rangeInWords(std::uint64_t least, std::uint64_t most) {
  if (most == kUnbounded) {
    return (least == 0 ? "any number of times" : times(least) + " or more") + ", unbounded";
  }
  if (least == most) return times(most);
  return std::to_string(least) + " to " + std::to_string(most) + " times";
}

class ContentCheck {
 public:
  ContentCheck(WalkContext& context, Subject const& subject,
               std::unordered_set<SchemaType const*> const& open)
      : m_context(context),
        m_subject(subject),
        m_open(open),
        m_content(context.contentOf(subject.type)) {}

  std::vector<MatchedPart> check() {
    match();
    for (std::size_t i = 0; i < m_content.parts.size(); ++i) checkPart(m_content.parts[i], i);
    checkExtraItems();
    checkAreas();
    noteChoices();
    noteOrder();
    noteSubstitutes();
    if (!m_content.wildcards.empty()) {
      m_context.add(m_subject, FindingCode::any, "there may be other elements");
    }
    std::vector<MatchedPart> result;
    for (std::size_t i = 0; i < m_subject.parts.elements.size(); ++i) {
      if (m_partOf[i]) {
        result.emplace_back(&m_subject.parts.elements[i], m_content.parts[*m_partOf[i]].element);
      }
    }
    return result;
  }

 private:
  void match() {
    PartMatch found = matchParts(m_subject.parts.elements, m_content);
    m_partOf = std::move(found.partOf);
    m_itemOf = std::move(found.itemOf);
    for (std::size_t i = 0; i < m_content.parts.size(); ++i) {
      ContentPart const& part = m_content.parts[i];
      if (part.isGroup) m_groups.emplace(part.head, i);
      if (m_itemOf[i] && part.head != nullptr) m_heads.insert(part.head);
    }
  }

  void checkPart(ContentPart const& part, std::size_t index) {
    if (m_itemOf[index]) {
      checkOccurrences(part, m_subject.parts.elements[*m_itemOf[index]]);
      return;
    }
    if (part.isGroup) return;
    // A group without any item is lost as a whole.
    bool const isLost = part.head != nullptr && !m_heads.contains(part.head);
    addMissing(part, isLost ? m_content.parts[m_groups.at(part.head)] : part);
  }

  void addMissing(ContentPart const& part, ContentPart const& range) {
    bool const isRequired = range.least > 0;
    std::string const& name = part.element->name.local;
    Finding finding = m_context.findingAt(m_subject.node, m_subject, FindingCode::noItem,
                                          "element " + quoted(name) + " has no item");
    finding.severity = isRequired ? Severity::error : Severity::warning;
    finding.path += "/" + name;
    finding.schema = m_context.model.placeOf(*part.element);
    finding.schemaSide = rangeInWords(range.least, range.most);
    finding.itemSide = "none";
    m_context.add(std::move(finding));
    noteRecursion(*part.element);
  }

  // An element without an item whose type is that of an element around it.
  void noteRecursion(SchemaElement const& element) {
    if (!m_open.contains(&m_context.model.typeOf(element))) return;
    Finding finding = m_context.findingAt(
        m_subject.node, m_subject, FindingCode::recursive,
        "documents may nest deeper than the record: " + quoted(element.name.local) +
            " is of a type that contains it");
    finding.path += "/" + element.name.local;
    finding.schema = m_context.model.placeOf(element);
    m_context.add(std::move(finding));
  }

  void checkOccurrences(ContentPart const& part, RecordPart const& item) {
    FitLimits const& limits = m_context.options.limits;
    std::uint64_t most = part.most;
    if (most == kUnbounded && limits.occurrences) {
      most = std::max(*limits.occurrences, part.least);
    }
    bool const isGiven = part.most == kUnbounded && limits.occurrences && limits.areGiven;
    if (item.most < most) {
      std::uint32_t const node = item.nodes.front();
      Finding finding = m_context.findingAt(node, m_subject, FindingCode::occurs,
                                            "there may be more occurrences than the record holds");
      finding.schemaSide = rangeInWords(part.least, part.most);
      finding.itemSide = times(item.most);
      finding.schema = m_context.model.placeOf(*part.element);
      m_context.add(std::move(finding));
    } else if (!isGiven || item.most == most) {
      return;
    }
    repairOccurrences(part, item, most);
  }

  // The last slot takes what is missing.
  void repairOccurrences(ContentPart const& part, RecordPart const& item, std::uint64_t most) {
    if (most == kUnbounded) most = std::max({kDefaultOccurrences, part.least, item.most});
    std::uint64_t const last = m_context.node(item.nodes.back()).item->occurrences();
    std::uint64_t const others = item.most - std::min(last, item.most);
    if (most <= others) return;
    m_context.repairs[item.nodes.back()].occurrences = most - others;
  }

  void checkExtraItems() {
    for (std::size_t i = 0; i < m_subject.parts.elements.size(); ++i) {
      RecordPart const& item = m_subject.parts.elements[i];
      if (m_partOf[i] || m_content.admits(item.namespaceUri)) continue;
      Finding finding =
          m_context.findingAt(item.nodes.front(), m_subject, FindingCode::noElement,
                              "the schema has no element " + quoted(item.name) + " here");
      finding.itemSide =
          "item " + std::string(record::dataNameOf(*m_context.node(item.nodes.front()).item));
      m_context.add(std::move(finding));
    }
  }

  // Elements of different views of an area must exclude each other.
  void checkAreas() {
    for (SharedArea const& area : m_subject.parts.areas) checkArea(area);
  }

  void checkArea(SharedArea const& area) {
    for (auto left = area.begin(); left != area.end(); ++left) {
      for (auto right = std::next(left); right != area.end(); ++right) {
        if (checkViews(*left, *right)) return;
      }
    }
  }

  bool checkViews(std::vector<std::size_t> const& first, std::vector<std::size_t> const& other) {
    for (std::size_t left : first) {
      for (std::size_t right : other) {
        if (left == right || !m_partOf[left] || !m_partOf[right]) continue;
        ContentPart const& a = m_content.parts[*m_partOf[left]];
        ContentPart const& b = m_content.parts[*m_partOf[right]];
        if (!m_content.mayBeTogether(a, b)) continue;
        RecordPart const& item = m_subject.parts.elements[right];
        Finding finding = m_context.findingAt(
            item.nodes.front(), m_subject, FindingCode::noItem,
            quoted(b.element->name.local) + " shares the bytes of " +
                quoted(a.element->name.local) + ", and a document may have both");
        finding.schema = m_context.model.placeOf(*b.element);
        m_context.add(std::move(finding));
        return true;
      }
    }
    return false;
  }

  void noteChoices() {
    for (ContentChoice const& choice : m_content.choices) {
      std::string names;
      std::size_t count = 0;
      for (std::vector<std::size_t> const& branch : choice.branches) {
        auto const first = std::ranges::find_if(
            branch, [this](std::size_t part) { return m_itemOf[part].has_value(); });
        if (first == branch.end()) continue;
        constexpr std::size_t kShown = 3;
        if (count++ < kShown) {
          names += (names.empty() ? "" : ", ") + m_content.parts[*first].element->name.local;
        }
      }
      if (count < 2) continue;
      m_context.add(m_subject, FindingCode::choice,
                    "the record has items for " + std::to_string(count) +
                        " alternatives of a choice: " + names + (count > 3 ? ", ..." : ""));
    }
  }

  void noteOrder() {
    for (std::vector<std::size_t> const& group : m_content.freeGroups) {
      auto const isThere = [this](std::size_t part) { return m_itemOf[part].has_value(); };
      if (std::ranges::count_if(group, isThere) < 2) continue;
      m_context.add(m_subject, FindingCode::order, "elements of a group may be in any order");
      return;
    }
    std::optional<std::size_t> last;
    for (std::optional<std::size_t> const& at : m_partOf) {
      if (!at) continue;
      ContentPart const& part = m_content.parts[*at];
      if (part.isScattered) {
        m_context.add(m_subject, FindingCode::order,
                      "there may be elements " + quoted(part.element->name.local) +
                          " before and after other elements");
        return;
      }
      if (last && m_content.parts[*last].position > part.position) {
        m_context.add(m_subject, FindingCode::order,
                      "the record has " + quoted(m_content.parts[*last].element->name.local) +
                          " before " + quoted(part.element->name.local) + ", the schema after it");
        return;
      }
      last = at;
    }
  }

  void noteSubstitutes() {
    for (ContentPart const& part : m_content.parts) {
      if (!part.isGroup || !m_heads.contains(part.element)) continue;
      if (m_context.model.substitutesOf(*part.element).empty()) continue;
      m_context.add(m_subject, FindingCode::substitution,
                    "other elements may stand for " + quoted(part.element->name.local));
    }
  }

  WalkContext& m_context;
  Subject const& m_subject;
  std::unordered_set<SchemaType const*> const& m_open;
  Content const& m_content;
  std::vector<std::optional<std::size_t>> m_partOf;                // by element of the record
  std::vector<std::optional<std::size_t>> m_itemOf;                // by part of the content
  std::unordered_set<SchemaElement const*> m_heads;                // with items for a member
  std::unordered_map<SchemaElement const*, std::size_t> m_groups;  // parts, by head
};

}  // namespace

std::vector<MatchedPart> checkContent(WalkContext& context, Subject const& subject,
                                      std::unordered_set<SchemaType const*> const& open) {
  return ContentCheck(context, subject, open).check();
}

}  // namespace fdmorph::fit
