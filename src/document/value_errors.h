// Errors of values as they are told.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "document/data_error.h"
#include "values/values.h"

namespace fdmorph::document {

[[nodiscard]] ErrorCode codeOf(values::ValueError error);

/// The bytes of an item in a record, as many as messages need: one more than they show.
[[nodiscard]] std::string shownBytes(std::span<unsigned char const> record, std::uint64_t offset,
                                     std::uint64_t size);

/// A count of 4 bytes in native byte order.
[[nodiscard]] std::uint32_t readCount(values::Conventions const& conventions,
                                      unsigned char const* bytes);
void writeCount(values::Conventions const& conventions, std::uint32_t count, unsigned char* bytes);

}  // namespace fdmorph::document
