#include "document/value_errors.h"

#include <algorithm>

#include "record/count_record.h"

namespace fdmorph::document {
namespace {

constexpr std::size_t kShownBytes = 17;  // of which 16 are printed
constexpr unsigned kByteBits = 8;
constexpr unsigned kByteMask = 0xFF;

// The place of the byte with these bits of a count.
unsigned placeOf(values::Conventions const& conventions, unsigned byte) {
  return conventions.isNativeBigEndian ? record::kCountSize - 1 - byte : byte;
}

}  // namespace

ErrorCode codeOf(values::ValueError error) {
  switch (error) {
    case values::ValueError::range:
      return ErrorCode::range;
    case values::ValueError::character:
      return ErrorCode::character;
    case values::ValueError::number:
      return ErrorCode::number;
    case values::ValueError::overflow:
      return ErrorCode::overflow;
    case values::ValueError::precision:
      return ErrorCode::precision;
    case values::ValueError::length:
      return ErrorCode::length;
    default:
      return ErrorCode::digit;
  }
}

std::string shownBytes(std::span<unsigned char const> record, std::uint64_t offset,
                       std::uint64_t size) {
  if (offset >= record.size()) return {};
  auto shown =
      record.subspan(offset, std::min({size, record.size() - offset, std::uint64_t{kShownBytes}}));
  return {shown.begin(), shown.end()};
}

std::uint32_t readCount(values::Conventions const& conventions, unsigned char const* bytes) {
  std::uint32_t count = 0;
  for (unsigned i = 0; i < record::kCountSize; ++i) {
    count |= static_cast<std::uint32_t>(bytes[placeOf(conventions, i)]) << (i * kByteBits);
  }
  return count;
}

void writeCount(values::Conventions const& conventions, std::uint32_t count, unsigned char* bytes) {
  for (unsigned i = 0; i < record::kCountSize; ++i) {
    bytes[placeOf(conventions, i)] =
        static_cast<unsigned char>((count >> (i * kByteBits)) & kByteMask);
  }
}

}  // namespace fdmorph::document
