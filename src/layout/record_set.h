// The records that a file may hold, and the rules that choose among them and among
// the views of their areas.
#pragma once

#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "layout/layout.h"
#include "layout/occurrence.h"
#include "values/comparand.h"

namespace fdmorph::layout {

/// A value of a test, or a range of them.
struct TestValue {
  values::Comparand from;
  std::optional<values::Comparand> to = {};
};

/// ITEM = VALUE, VALUE THRU VALUE, ...
struct Comparison {
  std::uint32_t node;
  std::vector<compiler::ValueRange> values;
  std::vector<TestValue> tests = {};  ///< the same, ready to compare
};

/// A rule of the user: a view, or a whole record, is used if all comparisons hold.
struct ViewRule {
  std::uint32_t record;  ///< the record whose items are compared
  std::uint32_t target;  ///< the view, a node of that record; kNone if it is `chosen`
  std::uint32_t chosen;  ///< the record that the rule chooses, or kNone
  std::vector<Comparison> comparisons;
};

/// The bytes of a record in its largest form.
struct RecordBytes {
  unsigned char const* bytes;  ///< as many as the layout has
  std::uint64_t available;     ///< those from here on are missing in the data
};

/// Immutable; threads share it.
class RecordSet {
 public:
  /// `trees` must outlive this object. `when` are rules as a user writes them.
  RecordSet(std::vector<record::RecordTree> const& trees, LayoutRules const& rules,
            std::vector<std::string> const& when, compiler::Diagnostics& diagnostics);
  RecordSet(RecordSet const&) = delete;
  RecordSet& operator=(RecordSet const&) = delete;

  [[nodiscard]] std::vector<Layout> const& layouts() const { return m_layouts; }
  [[nodiscard]] Names const& names() const { return m_names; }
  [[nodiscard]] values::Values const& values() const { return m_values; }
  [[nodiscard]] LayoutRules const& rules() const { return m_rules; }

  /// What is wrong with the rules or given counters; empty if nothing. An error of usage.
  [[nodiscard]] std::string const& usageError() const { return m_usageError; }

  /// The length of the longest record in bytes, without counts.
  [[nodiscard]] std::uint64_t maxSize() const { return m_maxSize; }

  /// The length of the longest count record in bytes.
  [[nodiscard]] std::uint64_t maxCountSize() const { return m_maxCountSize; }

  /// The rules about the views of an area, in the order of the user.
  [[nodiscard]] std::vector<ViewRule const*> const& rulesOf(std::uint32_t record,
                                                            std::uint32_t area) const {
    return m_rulesOfAreas[record][area];
  }

  /// Whether all comparisons of a rule hold.
  [[nodiscard]] bool holds(ViewRule const& rule, RecordBytes record,
                           Occurrence const& occurrence) const;

  /// The view of an area by its rules, or the preset one without rules; kNone if no
  /// rule holds.
  [[nodiscard]] std::uint32_t chooseView(std::uint32_t record, std::uint32_t area,
                                         RecordBytes bytes, Occurrence const& occurrence) const;

  /// Whether records have rules. Without them the first is used.
  [[nodiscard]] bool hasRecordRules() const { return !m_recordRules.empty(); }
  [[nodiscard]] std::vector<ViewRule> const& recordRules() const { return m_recordRules; }

 private:
  void addRule(std::string const& text);

  LayoutRules m_rules;
  values::Values m_values;
  Names m_names;
  std::vector<Layout> m_layouts;
  std::deque<std::string> m_texts;  // of the literals in rules
  std::deque<ViewRule> m_viewRules;
  std::vector<std::vector<std::vector<ViewRule const*>>> m_rulesOfAreas;  // by record and area
  std::vector<ViewRule> m_recordRules;
  std::string m_usageError;
  std::uint64_t m_maxSize = 0;
  std::uint64_t m_maxCountSize = 0;
};

}  // namespace fdmorph::layout
