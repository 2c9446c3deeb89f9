// Where a schema and a record do not fit each other.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "source/diagnostics.h"
#include "xml/schema_components.h"

namespace fdmorph::fit {

enum class FindingCode : std::uint8_t {
  noItem,
  noElement,
  occurs,
  length,
  lengthUnbounded,
  digits,
  fraction,
  sign,
  digitsUnbounded,
  category,
  value,
  order,
  choice,
  any,
  mixed,
  recursive,
  substitution,
  nillable,
};

/// The name of a code in messages: "no-item".
[[nodiscard]] std::string_view nameOf(FindingCode code);

/// The severity of a code; noItem is an error here, and a warning for parts that are
/// not required.
[[nodiscard]] compiler::Severity severityOf(FindingCode code);

struct Finding {
  FindingCode code = FindingCode::noItem;
  compiler::Severity severity = compiler::Severity::error;
  std::string path;  ///< in the document, from the root element
  std::string text;  ///< what is wrong, in lower case and without a full stop
  std::string schemaSide;
  std::string itemSide;
  compiler::Place item;  ///< of the item, or of the group that lacks one
  SchemaPlace schema;    ///< of the declaration, or of the type that lacks it
};

/// The findings of one check.
class Findings {
 public:
  /// More of them are only counted.
  static constexpr std::size_t kMaxKept = 1'000'000;

  void add(Finding finding);

  /// Puts what is kept into the order of the source, that of one item as it was.
  void sort(compiler::Sources const& sources);

  [[nodiscard]] std::vector<Finding> const& kept() const { return m_kept; }
  [[nodiscard]] std::size_t count() const;
  [[nodiscard]] std::size_t countOf(compiler::Severity severity) const {
    return m_counts[static_cast<std::size_t>(severity)];
  }

 private:
  std::vector<Finding> m_kept;
  std::array<std::size_t, 3> m_counts{};
};

}  // namespace fdmorph::fit
