// The properties of an item in words. They are printable only where the source is.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "show/shown_source.h"

namespace fdmorph::show {

/// The level number with two digits: 01.
[[nodiscard]] std::string levelWords(compiler::DataItem const& item);

/// The picture string as written; empty if there is none.
[[nodiscard]] std::string_view pictureOf(compiler::DataItem const& item);

/// The name of the usage, as in the data dictionary; empty for a group.
[[nodiscard]] std::string_view usageOf(compiler::DataItem const& item);

/// The usage and the clauses that change what the bytes mean, in COBOL words:
/// "display sign leading separate". Empty for a group.
[[nodiscard]] std::string storageWords(compiler::DataItem const& item);

/// The numbers of occurrences: "10", "0..10". Empty if the item does not repeat.
[[nodiscard]] std::string occursWords(compiler::DataItem const& item);

/// The same with the item that it depends on: "0..10 by LINES".
[[nodiscard]] std::string occursWithCounter(compiler::DataItem const& item);

/// A literal as COBOL text; a figurative constant by its name.
[[nodiscard]] std::string literalWords(compiler::Literal const& literal);

/// The values of a condition as in a VALUE clause: `"A", "C" THRU "F"`.
[[nodiscard]] std::string valueWords(compiler::DataItem const& condition);

/// "element", "attribute", "text", "transparent" or "none".
[[nodiscard]] std::string_view nameOf(record::Role role);

/// The number of groups around each node.
[[nodiscard]] std::vector<std::uint32_t> depthsOf(record::RecordTree const& tree);

/// The findings about one node.
[[nodiscard]] std::span<ShownFinding const> findingsOf(SchemaView const& view, std::uint32_t node);

/// "1 byte", "2 bytes".
[[nodiscard]] std::string byteWords(std::uint64_t count);

}  // namespace fdmorph::show
