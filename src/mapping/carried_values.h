// The values of an entry for an item that may have changed.
#pragma once

#include <optional>
#include <string>

#include "mapping/mapping_entries.h"

namespace fdmorph::mapping {

/// The texts of an entry, values that are missing as fdmorph takes them.
[[nodiscard]] MappingTexts effectiveTexts(MappingEntry const& entry);

struct CarriedValues {
  MappingTexts texts;

  /// A type that the item cannot have any more.
  std::optional<std::string> lostType;
};

/// The values of `entry` for an item whose own values are `fresh`. What equals `old`,
/// the values of the item that the entry was written for, is no edit; null if they are
/// not known.
[[nodiscard]] CarriedValues carryValues(MappingEntry const& entry, CDMXMLElement const& item,
                                        MappingTexts const& fresh, MappingTexts const* old);

/// Whether a type is one that follows from a dictionary.
[[nodiscard]] bool isDefaultType(std::string_view type);

}  // namespace fdmorph::mapping
