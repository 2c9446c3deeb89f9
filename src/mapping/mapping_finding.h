// What is reported about a mapping file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "source/diagnostics.h"
#include "xml/markup_places.h"

namespace fdmorph::mapping {

enum class MappingCode : std::uint8_t {
  // The form of the file.
  xml,
  root,
  element,
  place,
  text,
  attributes,
  space,
  repeated,
  // Keys.
  key,
  item,
  duplicate,
  noEffect,
  // Values.
  flag,
  name,
  emptyGroup,
  type,
  typeForm,
  groupType,
  uri,
  otherNamespace,
  attribute,
  flagPassedOn,
  sameName,
  // Merging.
  edit,
  rename,
  moved,
  renamed,
  gone,
  added,
  kept,
};

struct MappingCodeRow {
  MappingCode code;
  std::string_view name;  ///< in messages
  compiler::Severity severity;
};

/// All codes, in the order of the enumeration.
[[nodiscard]] std::span<MappingCodeRow const> allMappingCodes();

struct MappingFinding {
  MappingCode code = MappingCode::xml;
  TagPlace place;
  std::string item;  ///< the key of the entry; empty if it is about none
  std::string text;  ///< in lower case and without a full stop

  [[nodiscard]] std::string_view name() const;
  [[nodiscard]] compiler::Severity severity() const;
};

class MappingFindings {
 public:
  /// More of them are only counted.
  static constexpr std::size_t kMaxKept = 1'000'000;

  void add(MappingFinding finding);

  /// Puts what is kept into the order of the file.
  void sort();

  [[nodiscard]] std::vector<MappingFinding> const& kept() const { return m_kept; }
  [[nodiscard]] std::size_t count() const { return m_counts[0] + m_counts[1] + m_counts[2]; }
  [[nodiscard]] std::size_t countOf(compiler::Severity severity) const {
    return m_counts[static_cast<std::size_t>(severity)];
  }

 private:
  std::vector<MappingFinding> m_kept;
  std::array<std::size_t, 3> m_counts{};
};

/// Each finding on one line
///
///     FILE:LINE:COLUMN: error: KEY: TEXT [code]
///
/// and a last line with the numbers of errors, warnings and notes. `file` is the
/// mapping file. At most `most` lines of a severity are shown.
[[nodiscard]] std::string printText(MappingFindings const& findings, std::string_view file,
                                    std::size_t most = MappingFindings::kMaxKept);

/// The same as one JSON object, described in the manual page.
[[nodiscard]] std::string printJson(MappingFindings const& findings, std::string_view file,
                                    std::string_view copybook);

}  // namespace fdmorph::mapping
