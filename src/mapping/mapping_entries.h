// The entries of a mapping file, as fdmorph takes them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dictionary/mapping_writer.h"
#include "mapping/mapping_document.h"

namespace fdmorph::mapping {

/// The value that an element of this name has; nothing for other elements.
[[nodiscard]] std::optional<MappingField> fieldOf(std::string_view elementName);

struct MappingEntry {
  std::size_t element = kNone;  ///< its index in the document
  MappingTexts texts;           ///< those of missing values are empty

  /// The elements of the values; kNone if a value is missing. Of several the last
  /// counts.
  std::array<std::size_t, kMappingFields> elements{kNone, kNone, kNone, kNone, kNone, kNone};

  /// The comments that belong to the entry, also those in it.
  std::vector<std::string> remarks;

  [[nodiscard]] bool has(MappingField field) const {
    return elements[static_cast<std::size_t>(field)] != kNone;
  }
  [[nodiscard]] std::string const& key() const { return texts[MappingField::key]; }
  [[nodiscard]] bool isAttribute() const { return texts[MappingField::attribute] == "true"; }
  [[nodiscard]] bool hasCountIn() const {
    return !has(MappingField::countIn) || texts[MappingField::countIn] == "true";
  }
};

/// An unknown element.
struct ForeignElement {
  std::size_t element = 0;
  std::size_t discarded = 0;  ///< the number of entries that it discards
};

/// What a mapping file consists of.
struct MappingContent {
  std::vector<MappingEntry>
      entries;                    ///< in the order of the file; no unknown element discards them
  std::vector<std::string> head;  ///< comments before the root
  std::vector<std::string> end;   ///< comments after the last entry
  std::vector<std::string> tail;  ///< comments after the root
  std::vector<ForeignElement> foreign;  ///< those that are not in another one
  std::vector<std::size_t> repeated;    ///< values that a later one of the entry replaces
  std::vector<std::size_t> outside;     ///< values in no entry
  std::vector<std::size_t> misplaced;   ///< known elements at another place than theirs
};

[[nodiscard]] MappingContent readEntries(MappingDocument const& document);

/// The place of a value, or of the entry if the value is missing.
[[nodiscard]] TagPlace placeOf(MappingDocument const& document, MappingEntry const& entry,
                               MappingField field);

}  // namespace fdmorph::mapping
