// A schema and a record side by side.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "fit/finding.h"
#include "fit/value_repair.h"
#include "record/record_tree.h"
#include "xml/schema_model.h"

namespace fdmorph::fit {

/// What mends the findings about one item.
struct ItemRepair {
  std::optional<NewPicture> picture;
  std::optional<std::uint64_t> occurrences;
};

/// By node of the record, in its order.
using Repairs = std::map<std::uint32_t, ItemRepair>;

struct FitOptions {
  compiler::Dialect dialect = compiler::Dialect::ibm;
  FitLimits limits;
};

/// The occurrences that take the place of an unbounded number if the user gives none,
/// and the item holds no more.
inline constexpr std::uint64_t kDefaultOccurrences = 10;

/// The global element that a record names, or else one of that local name in another
/// namespace; null if there is none.
[[nodiscard]] SchemaElement const* findRootElement(record::RecordTree const& tree,
                                                   SchemaModel const& model);

/// Adds what does not fit to `findings`, and returns what mends it. The walk begins at
/// the global element that the record names, or else at one of that local name in
/// another namespace. It goes as far as the record has items, and takes time that grows
/// with the record and the content models of the elements in it. `schemaFile` is the
/// place of a record that the schema does not have.
Repairs checkFit(record::RecordTree const& tree, SchemaModel& model, std::string const& schemaFile,
                 FitOptions const& options, Findings& findings);

}  // namespace fdmorph::fit
