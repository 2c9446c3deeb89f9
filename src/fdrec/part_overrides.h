// What the user says of single parts of a record: PATH=VALUE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "copybook/copybook_writer.h"
#include "record/record_tree.h"
#include "text/path_pattern.h"

namespace fdmorph::fdrec {

/// Options that were given as PATH=NUMBER and PATH=PICTURE. A path is a pattern, see
/// text/path_pattern.h; of several that match a part the last one holds.
class PartOverrides {
 public:
  /// Nothing if an argument has no path or no value; `wrong` is that argument then.
  struct Parsed;
  [[nodiscard]] static Parsed parse(std::vector<std::string> const& occurs,
                                    std::vector<std::string> const& pictures);

  /// Adds the changes of the parts of `record` that match, over those that are there.
  /// The texts of options that match no part that they can change are returned.
  [[nodiscard]] std::vector<std::string> apply(record::RecordTree const& record,
                                               copybook::ItemChanges& changes) const;

 private:
  struct Override {
    PathPattern path;
    std::string argument;  // as given
    std::uint64_t occurs = 0;
    std::string picture;  // empty: the number of occurrences is changed
  };

  static bool applyTo(Override const& change, record::RecordTree const& record, std::uint32_t node,
                      copybook::ItemChanges& changes);

  std::vector<Override> m_overrides;
};

struct PartOverrides::Parsed {
  PartOverrides overrides;
  std::optional<std::string> wrong = std::nullopt;
};

}  // namespace fdmorph::fdrec
