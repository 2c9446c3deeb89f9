// The rules of single entries: what they name, and their values.
#pragma once

#include <unordered_map>

#include "mapping/described_data.h"
#include "mapping/mapping_entries.h"
#include "mapping/mapping_finding.h"

namespace fdmorph::mapping {

/// What a mapping file says about items. Looks at its parts, which must outlive it.
struct CheckedMapping {
  CheckedMapping(MappingDocument const& mappingDocument, MappingContent const& mappingContent,
                 DescribedData const& describedData);

  /// The entry that counts for an item; null if there is none.
  [[nodiscard]] MappingEntry const* entryOf(DescribedItem const& item) const;

  /// The name and settings of an item in the schema.
  [[nodiscard]] ItemName nameOf(DescribedItem const& item) const;

  MappingDocument const& document;
  MappingContent const& content;
  DescribedData const& data;

 private:
  std::unordered_map<std::string_view, MappingEntry const*> m_entries;
};

void checkEntries(CheckedMapping const& mapping, MappingFindings& findings);

}  // namespace fdmorph::mapping
