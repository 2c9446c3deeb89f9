// The views that the rules of a user choose.
#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "record/record_tree.h"

namespace fdmorph::fdrec {

struct ViewChoice {
  std::unordered_set<compiler::DataItem const*> items;  ///< views of areas
  std::string error;                                    ///< of usage; empty if there is none
};

/// Finds the items that rules, "NAME: TEST" each, are for: items that redefine another
/// or are redefined, or records. A name may be qualified with OF or IN.
[[nodiscard]] ViewChoice chooseViews(std::vector<record::RecordTree> const& records,
                                     std::vector<std::string> const& rules);

}  // namespace fdmorph::fdrec
