// What is wrong with a record or with a document.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::document {

/// Its name in brackets ends the message.
enum class ErrorCode : std::uint8_t {
  digit,
  range,
  character,
  number,
  overflow,
  precision,
  length,
  odo,
  count,
  occurs,
  view,
  unknown,
  text,
  xml,
  json,
  schema,
  frame,
  tooLong,
  tooShort,
  single,
};

[[nodiscard]] std::string_view nameOf(ErrorCode code);

/// The number of errors that are told about one record.
inline constexpr std::size_t kMaxErrorsPerRecord = 10;

/// An error in the bytes of a record, or at a place of a document.
struct DataError {
  ErrorCode code;
  std::string text;          ///< lower case, no full stop
  std::string path = {};     ///< of the item; empty if there is none
  std::uint64_t offset = 0;  ///< of the item's first byte in the record
  std::string bytes = {};    ///< bytes: those of the item, at most 17 of them
  std::uint64_t line = 0;    ///< documents: from 1
  std::uint64_t column = 0;  ///< documents: from 1, in bytes
  std::uint64_t size = 0;    ///< documents: of the item whose value is wrong, in bytes; or 0
};

/// The errors of one record.
using DataErrors = std::vector<DataError>;

}  // namespace fdmorph::document
