// The edits of a mapping file, carried over to a changed copybook.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/described_data.h"
#include "mapping/entry_matching.h"
#include "mapping/mapping_finding.h"

namespace fdmorph::mapping {

struct MergeOptions {
  std::vector<GivenRename> renames;
  bool countIn = true;  ///< of new entries

  /// The data that the mapping file was written for: what it says there is no edit.
  /// Without it every value is one. Not owned.
  DescribedData const* old = nullptr;
};

struct MergeResult {
  std::string text;  ///< the new mapping file; empty after errors
  MappingFindings findings;
};

/// The mapping file that fdmorph writes for the data, with the edits and comments of
/// another. `content` is that of the other file, `name` its name in messages. Needs a
/// locale with UTF-8.
[[nodiscard]] MergeResult mergeMapping(std::string_view content, std::string const& name,
                                       DescribedData const& data, MergeOptions const& options);

}  // namespace fdmorph::mapping
