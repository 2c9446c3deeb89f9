// Which item of a changed copybook an entry of a mapping file is for.
#pragma once

#include <string>
#include <vector>

#include "mapping/described_data.h"
#include "mapping/mapping_entries.h"

namespace fdmorph::mapping {

/// Why an entry is that of an item.
enum class MatchReason : std::uint8_t {
  sameKey,
  given,      ///< the user says so
  moved,      ///< the only item of that name, at another place
  renamed,    ///< the only item of a name that is near, at the same place
  parent,     ///< the group around was moved or renamed
  elsewhere,  ///< none: an item that fdmorph writes no entry for
  surplus,    ///< none: the item of that key has an entry already
};

struct EntryMatch {
  std::size_t item = kNone;  ///< the index of the item; kNone without one
  MatchReason reason = MatchReason::sameKey;
};

/// An item that has another name, or is at another place, by their keys.
struct GivenRename {
  std::string from;
  std::string to;
};

struct Matching {
  std::vector<EntryMatch> entries;   ///< one for each entry
  std::vector<std::size_t> ofItems;  ///< the entry of each item, or kNone

  /// Renames of the user whose names are unknown.
  std::vector<std::string> unknown;
};

/// Finds an item for each entry. Entries and items of one key are matched in order,
/// the rest only if there is no other choice.
[[nodiscard]] Matching matchEntries(std::vector<MappingEntry> const& entries,
                                    DescribedData const& data,
                                    std::vector<GivenRename> const& renames);

}  // namespace fdmorph::mapping
