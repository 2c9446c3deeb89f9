#include "copybook/plain_copybook.h"

#include <algorithm>

#include "copybook/plain_items.h"
#include "record/count_record.h"
#include "record/record_tree.h"
#include "semantics/name_index.h"

namespace fdmorph::copybook {
namespace {

using compiler::DataItem;
using compiler::Diagnostics;
using record::CountNode;
using record::CountRecord;

constexpr std::string_view kCountRecord = "RECORD-COUNTS";
constexpr std::string_view kGroupEnd = "-COUNTS";

/// The entries of the count record of one record.
class CountEntries {
 public:
  CountEntries(CountRecord const& counts, PlainName const& name, Diagnostics& diagnostics)
      : m_nodes(counts.nodes()), m_diagnostics(diagnostics) {
    m_entries.push_back({1, name, {}});
    if (m_nodes.front().hasCount && deepest() <= kMaxCountDepth) {
      addNodes({&m_nodes.front()}, kFirstLevel);
    } else {
      // The level 01 item is the group of what stands below the record.
      if (m_nodes.front().hasCount) addCount(m_nodes.front(), kFirstLevel);
      addNodes(partsOf(m_nodes.front()), kFirstLevel);
    }
  }

  void appendNames(std::vector<std::string>& names) const {
    for (Entry const& each : m_entries) names.push_back(each.name.name);
  }

  void write(LineLayout& lines) const {
    for (Entry const& each : m_entries) {
      if (!each.name.comment.empty()) lines.addComment(each.name.comment);
      std::string level = std::to_string(each.level);
      std::vector<Word> words{{level.size() == 1 ? "0" + level : level}, {each.name.name}};
      for (std::string const& word : each.clauses) words.push_back({word});
      lines.addEntry(each.level - 1, words);
    }
  }

 private:
  struct Entry {
    std::size_t level;
    PlainName name;
    std::vector<std::string> clauses;
  };
  using Nodes = std::vector<CountNode const*>;

  static constexpr std::size_t kFirstLevel = 2;
  static constexpr std::size_t kMaxCountDepth = compiler::kMaxGroupLevel - kFirstLevel;

  std::size_t deepest() const {
    std::size_t depth = 0;
    for (CountNode const& each : m_nodes) depth = std::max<std::size_t>(depth, each.depth);
    return depth;
  }

  Nodes partsOf(CountNode const& group) const {
    Nodes parts;
    for (std::size_t at = static_cast<std::size_t>(&group - m_nodes.data()) + 1; at < group.end;
         at = m_nodes[at].end) {
      parts.push_back(&m_nodes[at]);
    }
    return parts;
  }

  void addCount(CountNode const& node, std::size_t level) {
    NameScope scope;
    m_entries.push_back({level, nameOf(node, scope), countClauses()});
  }

  static std::vector<std::string> countClauses() { return {"PIC 9(9)", "USAGE COMP-5"}; }

  PlainName nameOf(CountNode const& node, NameScope& scope) {
    compiler::QualifiedName const& name = node.item->xml->countIn;
    if (scope.take(name.name)) return {std::string(name.name), {}};
    return changedName(name.name, name.place, scope, m_diagnostics);
  }

  // The nodes of one group. The recursion is bounded by the number of levels.
  void addNodes(Nodes const& nodes, std::size_t level) {
    NameScope scope;
    std::vector<PlainName> names;
    for (CountNode const* each : nodes) {
      names.push_back(each->hasCount ? nameOf(*each, scope) : PlainName{});
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      CountNode const& node = *nodes[i];
      if (node.hasCount) m_entries.push_back({level, std::move(names[i]), countClauses()});
      if (!node.hasGroup) continue;
      std::string group(record::dataNameOf(*node.item));
      group = scope.takeLike(group.substr(0, kMaxNameSize - kGroupEnd.size()).append(kGroupEnd));
      std::vector<std::string> clauses;
      if (node.item->occurs) {
        clauses.push_back("OCCURS " + std::to_string(node.occurrences) + " TIMES");
      }
      m_entries.push_back({level, {group, {}}, std::move(clauses)});
      addNodes(partsOf(node), level + 1);
    }
  }

  std::vector<CountNode> const& m_nodes;
  Diagnostics& m_diagnostics;
  std::vector<Entry> m_entries;
};

}  // namespace

std::string writePlainCopybook(std::vector<DataItem const*> const& records, PlainForm const& form,
                               compiler::Dialect dialect, Diagnostics& diagnostics) {
  NameScope scope;
  std::string countName =
      form.copyName.empty() ? std::string(kCountRecord) : form.copyName + std::string(kGroupEnd);
  std::vector<CountRecord> counts;
  std::vector<CountEntries> entries;
  CopybookForm written{false, form.lines, form.copyName};
  counts.reserve(records.size());
  for (DataItem const* each : records) {
    CountRecord const& record = counts.emplace_back(*each);
    if (record.nodes().empty()) continue;
    PlainName name{countName, {}};
    if (!scope.take(countName)) {
      name = changedName(countName, each->place, scope, diagnostics);
      name.comment = "Counts of " + std::string(record::dataNameOf(*each));
    }
    entries.emplace_back(record, name, diagnostics).appendNames(written.otherNames);
  }
  PlainItems items(dialect, diagnostics);
  items.addRecords(records, scope);
  std::string text = writeCopybook(records, written, items.changes());
  LineLayout lines(form.lines);
  for (CountEntries const& each : entries) each.write(lines);
  return text + lines.takeText();
}

}  // namespace fdmorph::copybook
