// The count record: the numbers of occurrences that a record itself does not hold.
//
// COUNT IN names such a number. Each is a native binary item of 4 bytes. They stand
// in the order of the record, nested as its items are: the count of an item, then,
// if counts stand below it, a group of these, which is a table if the item is one.
// Items that redefine each other have counts of their own, one after the other.
#pragma once

#include <cstdint>
#include <vector>

#include "semantics/data_item.h"

namespace fdmorph::record {

/// The size of one count in bytes.
inline constexpr std::uint64_t kCountSize = 4;

/// An item with a count of its own or counts below it.
struct CountNode {
  compiler::DataItem const* item;
  std::uint32_t depth;            ///< the number of groups of counts around it
  std::uint32_t end = 0;          ///< the number of the node after the last one below it
  bool hasCount = false;          ///< it has a COUNT IN clause
  bool hasGroup = false;          ///< counts stand below it
  std::uint64_t offset = 0;       ///< of its count, or else of its group, in its first occurrence
  std::uint64_t groupSize = 0;    ///< of one occurrence, in bytes
  std::uint64_t occurrences = 1;  ///< of the group

  std::uint64_t groupOffset() const { return offset + (hasCount ? kCountSize : 0); }
};

/// The counts of one record. It looks at the items, which must outlive it.
class CountRecord {
 public:
  explicit CountRecord(compiler::DataItem const& record);

  /// In preorder; empty if the record has no COUNT IN clause. A table of no
  /// occurrences has no counts below it.
  [[nodiscard]] std::vector<CountNode> const& nodes() const { return m_nodes; }

  /// The length of the count record in bytes.
  [[nodiscard]] std::uint64_t size() const { return m_size; }

 private:
  std::uint64_t add(compiler::DataItem const& item, std::uint32_t depth, std::uint64_t offset);

  std::vector<CountNode> m_nodes;
  std::uint64_t m_size = 0;
};

}  // namespace fdmorph::record
