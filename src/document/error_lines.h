// Errors of data as lines of text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "document/data_error.h"

namespace fdmorph::document {

/// "FILE: record N, byte OFFSET (x'..'), PATH: error: TEXT [code]" and a line feed.
/// `begin` is the offset of the record in the file, in bytes.
[[nodiscard]] std::string byteErrorLine(std::string_view file, std::uint64_t number,
                                        std::uint64_t begin, DataError const& error);

/// "FILE:LINE:COLUMN, record N, PATH: error: TEXT [code]" and a line feed.
[[nodiscard]] std::string documentErrorLine(std::string_view file, std::uint64_t number,
                                            DataError const& error);

/// The same without the file, the number of the record and the line feed: "byte OFFSET
/// (x'..'), PATH: error: TEXT [code]" and "LINE:COLUMN, PATH: error: TEXT [code]".
[[nodiscard]] std::string byteErrorText(std::uint64_t begin, DataError const& error);
[[nodiscard]] std::string documentErrorText(DataError const& error);

/// Bytes as x'C1404B', at most 16 of them, then "...".
[[nodiscard]] std::string hexadecimal(std::string_view bytes);

}  // namespace fdmorph::document
