// A mapping file as fdmorph writes it, with other values and comments.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mapping/mapping_entries.h"

namespace fdmorph::mapping {

/// An entry and the comments before it.
struct MergedEntry {
  MappingTexts texts;
  std::vector<std::string> remarks;
};

/// An entry that becomes a comment.
struct ParkedEntry {
  std::string why;
  MappingEntry entry;
};

struct MergedFile {
  std::vector<std::string> head;                                  ///< comments before the root
  std::unordered_map<CDMXMLElement const*, MergedEntry> entries;  ///< by item
  std::vector<MergedEntry> more;                                  ///< after those of items
  std::vector<std::string> end;                                   ///< comments after the entries
  std::vector<ParkedEntry> parked;
  std::vector<std::string> tail;  ///< comments after the root
};

/// The file for a dictionary. Items without an entry in `file` get that of fdmorph.
[[nodiscard]] std::string writeMerged(CDMXMLElement const& dictionary, MergedFile const& file,
                                      bool countIn);

/// A text for a comment, which cannot have two hyphens in a row.
[[nodiscard]] std::string commentText(std::string_view text);

}  // namespace fdmorph::mapping
