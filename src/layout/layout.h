// A record as its bytes are read and written.
//
// A layout adds to a RecordTree what the data needs: the form of each elementary
// item, the tables around it, the counters of tables, the areas that several items
// share, and the bytes of what is absent. Its nodes are those of the tree, with the
// same numbers.
//
// All offsets are those of the largest form of the record: each table takes the place
// of its maximum number of occurrences. A record whose tables take only what their
// counters say is spread to this form first, see layout/shifting.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "layout/absent_image.h"
#include "layout/names.h"
#include "record/count_record.h"
#include "record/record_tree.h"
#include "values/conventions.h"
#include "values/item_format.h"
#include "values/literal_bytes.h"
#include "values/values.h"

namespace fdmorph::layout {

/// The number of tables that may stand in one another: groups have 49 levels.
inline constexpr std::size_t kMaxDepth = 49;

/// Where tables with DEPENDING ON end.
enum class TableForm : std::uint8_t {
  largest,  ///< they take the place of all their occurrences
  shifted,  ///< they take what their counters say, and what follows shifts
};

/// The value that a user gives to a counter outside of the record.
struct GivenCounter {
  std::string name;
  std::int64_t value = 0;
};

struct LayoutRules {
  values::Conventions conventions;
  TableForm tables = TableForm::largest;
  std::vector<GivenCounter> counters;
  bool hasCounts = false;   ///< the number of occurrences is in a count record
  bool omitsEmpty = false;  ///< parts that are as if absent are left out
};

/// An item. See record::RecordNode for its parent, end, enclosing element and role.
struct Node {
  values::ItemFormat format;  ///< of an elementary item; of a group that of a text
  std::uint64_t offset = 0;   ///< from the beginning of the record, in first occurrences
  std::uint64_t size = 0;     ///< of one occurrence, in bytes
  std::uint64_t least = 1;    ///< occurrences
  std::uint64_t most = 1;
  std::uint32_t table = kNone;  ///< the nearest table around it, itself not
  std::uint8_t depth = 0;       ///< the number of tables around it, itself not
  bool repeats = false;
  bool hasRole = false;             ///< it or an item in it is in the document
  bool hasCounter = false;          ///< it or an item in it is a table with DEPENDING ON
  bool hasArea = false;             ///< an item in it is redefined
  std::uint32_t counter = kNone;    ///< of the table, in Layout::counters
  std::uint32_t area = kNone;       ///< whose view it is, in Layout::areas
  std::uint32_t name = kNone;       ///< in Names; of elements and attributes
  std::uint32_t count = kNone;      ///< in Layout::counts
  std::uint32_t laterSlot = kNone;  ///< the next part of its element that is a slot of its name

  /// Of all occurrences, in bytes.
  std::uint64_t extent() const { return size * most; }
};

/// The item that says how many occurrences tables have.
struct Counter {
  std::uint32_t node = kNone;         ///< kNone if its value is given
  std::int64_t value = 0;             ///< the given one
  std::vector<std::uint32_t> tables;  ///< their nodes
  bool hasRole = false;               ///< it is in the document
};

/// An item and those that redefine it, which follow it. Each is a view of the same
/// bytes.
struct Area {
  std::vector<std::uint32_t> views;  ///< nodes, in the order of the record
  std::uint64_t size = 0;            ///< of the largest view, in bytes
  std::uint32_t preset = kNone;      ///< the view without rules: the first with a role
  bool hasRole = false;
};

/// The place of a count in the count record.
struct CountPlace {
  std::uint64_t offset = 0;            ///< in first occurrences, in bytes
  std::vector<std::uint64_t> strides;  ///< of each table around the node, outermost first
};

/// Immutable; threads share it. It looks at the tree, which must outlive it.
class Layout {
 public:
  /// Errors of the layout are reported to `diagnostics`: it cannot be used then.
  Layout(record::RecordTree const& tree, LayoutRules const& rules, values::Values const& values,
         Names& names, compiler::Diagnostics& diagnostics);

  [[nodiscard]] record::RecordTree const& tree() const { return *m_tree; }
  [[nodiscard]] record::RecordNode const& item(std::uint32_t node) const {
    return m_tree->nodes()[node];
  }
  [[nodiscard]] std::vector<Node> const& nodes() const { return m_nodes; }
  [[nodiscard]] Node const& operator[](std::uint32_t node) const { return m_nodes[node]; }
  [[nodiscard]] std::vector<Counter> const& counters() const { return m_counters; }
  [[nodiscard]] std::vector<Area> const& areas() const { return m_areas; }
  [[nodiscard]] std::vector<CountPlace> const& counts() const { return m_counts; }

  /// The length of the largest form of the record in bytes.
  [[nodiscard]] std::uint64_t size() const { return m_nodes.front().size; }

  /// The length of the count record in bytes; 0 without one.
  [[nodiscard]] std::uint64_t countSize() const { return m_countSize; }

  /// Makes `bytes` what reading puts where the document has nothing: a record of all
  /// occurrences.
  void setAbsent(std::vector<unsigned char>& bytes) const {
    if (isSmall()) {
      bytes = m_absent;
    } else {
      bytes.resize(size());
      m_absentImage.write(bytes.data());
    }
  }

  /// The same bytes, of a record that isSmall().
  [[nodiscard]] std::vector<unsigned char> const& absentBytes() const { return m_absent; }

  /// Whether a few copies of the record do not matter for the memory.
  [[nodiscard]] bool isSmall() const { return size() <= kSmallRecord; }

  /// Whether tables take only what their counters say, and there are such tables.
  [[nodiscard]] bool shifts() const { return m_shifts; }

  /// Whether a record may end before size(): tables or views of varying size.
  [[nodiscard]] bool variesInSize() const { return m_variesInSize; }

 private:
  friend class LayoutBuilder;

  static constexpr std::uint64_t kSmallRecord = std::uint64_t{1} << 20;  // bytes

  record::RecordTree const* m_tree;
  std::vector<Node> m_nodes;
  std::vector<Counter> m_counters;
  std::vector<Area> m_areas;
  std::vector<CountPlace> m_counts;
  std::vector<unsigned char> m_absent;  // of a small record
  AbsentImage m_absentImage;            // of another one
  std::uint64_t m_countSize = 0;
  bool m_shifts = false;
  bool m_variesInSize = false;
};

}  // namespace fdmorph::layout
