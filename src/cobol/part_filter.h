// The choice of the parts of a schema that a record is made of.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"
#include "text/path_pattern.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

/// The items around a part, from the nearest to the record.
using ItemsAbove = std::span<CDMCOBOLRecordItem const* const>;

/// Decides on each part before an item is made for it. What lies below a part
/// that is left out is not visited.
class PartFilter {
 public:
  PartFilter() = default;
  virtual ~PartFilter() = default;
  PartFilter(PartFilter const&) = delete;
  PartFilter& operator=(PartFilter const&) = delete;

  /// Whether the declaration of an element or attribute, or a reference to one,
  /// becomes a part of the nearest item above.
  [[nodiscard]] virtual bool admits(CDMXMLElement const* declaration, ItemsAbove above) = 0;
};

/// Leaves out the parts that match a pattern, elements below a depth, and elements
/// that may not occur. A path begins with the record; the name of an attribute has
/// an "@".
class PathFilter : public PartFilter {
 public:
  /// The record has the depth 1, and an attribute that of its element. A depth of
  /// 0 is no limit.
  explicit PathFilter(std::vector<PathPattern> skipped, unsigned depth = 0)
      : m_skipped(std::move(skipped)), m_hasMatched(m_skipped.size()), m_depth(depth) {}

  [[nodiscard]] bool admits(CDMXMLElement const* declaration, ItemsAbove above) override;

  /// The patterns that no part has matched so far, as they were given.
  [[nodiscard]] std::vector<std::string> unmatched() const;

 private:
  std::vector<PathPattern> m_skipped;
  std::vector<bool> m_hasMatched;
  unsigned m_depth;
};

}  // namespace fdmorph
