// The bytes of a record that its document does not have: signs and zones that are
// written in another way, trailing blanks and x'00', FILLER, an unused rest.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "document/record_encoder.h"

namespace fdmorph::document {

/// What takes the place of bytes that a document gives.
struct Residue {
  struct Run {
    std::uint64_t offset = 0;  ///< in the record, counts included
    std::string bytes;
  };

  std::optional<std::uint64_t> length;  ///< of the record, if it would have another one
  std::vector<Run> runs;                ///< in the order of the record

  [[nodiscard]] bool isEmpty() const { return !length && runs.empty(); }

  /// Whether it has all bytes of the record, so that the document is not needed.
  [[nodiscard]] bool isWhole() const;

  void clear() {
    length.reset();
    runs.clear();
  }
};

/// A range of a record, in bytes.
struct ByteRange {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
};

/// What differs between a record as it is stored and as it is made of its document. Of
/// the ranges `kept` all bytes are taken.
[[nodiscard]] Residue differenceOf(std::span<unsigned char const> stored,
                                   std::span<unsigned char const> made,
                                   std::span<ByteRange const> kept);

/// The lines of a record: "NUMBER length N" and "NUMBER OFFSET DIGITS", the bytes as
/// hexadecimal digits. Each ends with a line feed.
[[nodiscard]] std::string residueLines(std::uint64_t number, Residue const& residue);

/// Adds a line, without its end, to the residue of a record. The result is the number of
/// that record, or nothing if the line is malformed.
[[nodiscard]] std::optional<std::uint64_t> addResidueLine(std::string_view line, Residue& residue);

/// The first line of a file with residues.
inline constexpr std::string_view kResidueHead = "fdrec residue 1";

}  // namespace fdmorph::document
