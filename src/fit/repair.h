// A copybook in which what a check found is mended.
#pragma once

#include <string>
#include <vector>

#include "copybook/copybook_writer.h"
#include "fit/fit_walk.h"

namespace fdmorph::fit {

/// Adds the repairs of one record to the changes of a copybook.
void addChanges(record::RecordTree const& tree, Repairs const& repairs,
                copybook::ItemChanges& changes);

/// A comment that says what stands for "unbounded" in a repaired copybook.
[[nodiscard]] std::string limitsComment(FitLimits const& limits);

/// The limits in such a comment of a copybook; none if it has none.
[[nodiscard]] FitLimits readLimitsComment(std::string_view copybook);

/// `given`, with the limits of the comment where it has none itself.
[[nodiscard]] FitLimits withComment(FitLimits const& given, std::string_view copybook);

/// The items again, in the enhanced form, with the changes and the comment.
[[nodiscard]] std::string writeRepaired(std::vector<compiler::DataItem const*> const& items,
                                        copybook::ItemChanges changes, FitLimits const& limits);

}  // namespace fdmorph::fit
