#include "fit/item_capacity.h"

#include <algorithm>
#include <cctype>

namespace fdmorph::fit {
namespace {

using compiler::Category;
using compiler::DataItem;
using compiler::Dialect;
using compiler::Picture;
using compiler::Storage;
using compiler::Usage;

constexpr std::uint64_t kSinglePrecision = 6;  // digits that always survive
constexpr std::uint64_t kDoublePrecision = 15;

DecimalText integer(std::uint64_t value) {
  return {value == 0 ? std::string() : std::to_string(value), {}, false};
}

// The range of a binary integer of so many bytes.
void setBinaryRange(ItemCapacity& capacity, std::uint64_t bytes) {
  unsigned const bits = static_cast<unsigned>(std::min<std::uint64_t>(bytes, 8)) * 8;
  if (bits == 0) return;
  std::uint64_t const all = ~std::uint64_t{0} >> (64 - bits);
  capacity.most = integer(capacity.isSigned ? all >> 1 : all);
  capacity.least = integer(capacity.isSigned ? (all >> 1) + 1 : 0);
  capacity.integerDigits = static_cast<std::int64_t>(capacity.most->integer.size());
}

void setDigits(ItemCapacity& capacity, DataItem const& item, Picture const& picture) {
  auto const digits = static_cast<std::int64_t>(picture.digits);
  auto const nines = static_cast<std::int64_t>(picture.nines);
  auto const scale = static_cast<std::int64_t>(picture.scale);
  std::int64_t const scaling = digits - nines;
  // Scaling positions are before the digits if the decimal point is before them all.
  bool const isBelowPoint = scale == digits && scaling > 0;
  capacity.kind = ItemKind::number;
  capacity.isSigned = picture.isSigned;
  capacity.integerDigits = isBelowPoint ? -scaling : digits - scale;
  capacity.fractionDigits = isBelowPoint ? scale : scale - scaling;
  if (scaling > 0 && !isBelowPoint) capacity.fractionDigits = -scaling;
  Storage const storage = compiler::entryOf(item.effectiveUsage).storage;
  bool const isNative = storage == Storage::nativeBinary || storage == Storage::shortBinary;
  if (isNative && scale == 0 && scaling == 0) setBinaryRange(capacity, item.size);
}

ItemCapacity ofFixedUsage(DataItem const& item, Dialect dialect) {
  ItemCapacity capacity;
  switch (item.effectiveUsage) {
    case Usage::comp1:
    case Usage::floatShort:
    case Usage::floatBinary32:
      capacity.kind = ItemKind::floating;
      capacity.precision = kSinglePrecision;
      break;
    case Usage::comp2:
    case Usage::floatLong:
    case Usage::floatBinary64:
    case Usage::floatBinary128:
    case Usage::floatDecimal16:
    case Usage::floatDecimal34:
    case Usage::floatExtended:
      capacity.kind = ItemKind::floating;
      capacity.precision = kDoublePrecision;
      break;
    case Usage::unsignedShort:
    case Usage::unsignedInt:
    case Usage::unsignedLong:
      capacity.kind = ItemKind::number;
      break;
    default:
      capacity.kind = ItemKind::number;
      capacity.isSigned = !item.isUnsigned;
      break;
  }
  if (capacity.kind == ItemKind::number) setBinaryRange(capacity, item.size);
  capacity.isHexadecimal = capacity.kind == ItemKind::floating && dialect == Dialect::ibm;
  return capacity;
}

std::string inUpperCase(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(),
                         [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return result;
}

}  // namespace

ItemCapacity capacityOf(DataItem const& item, Dialect dialect) {
  ItemCapacity capacity;
  if (item.size == 0) {
    capacity.kind = ItemKind::empty;
    return capacity;
  }
  if (!compiler::takesPicture(item.effectiveUsage)) return ofFixedUsage(item, dialect);
  Storage const storage = compiler::entryOf(item.effectiveUsage).storage;
  Picture const* picture = item.picture;
  if (picture != nullptr && picture->category == Category::numeric) {
    setDigits(capacity, item, *picture);
    return capacity;
  }
  if (storage == Storage::nativeBinary || storage == Storage::shortBinary) {
    capacity.kind = ItemKind::number;
    setBinaryRange(capacity, item.size);
    return capacity;
  }
  bool const isAlphabetic = picture != nullptr && picture->category == Category::alphabetic;
  capacity.kind = isAlphabetic ? ItemKind::alphabetic : ItemKind::text;
  capacity.length = picture != nullptr ? picture->size : item.size;
  return capacity;
}

std::string describe(DataItem const& item) {
  if (item.isGroup()) return "group";
  std::string text;
  if (item.picture != nullptr && compiler::takesPicture(item.effectiveUsage)) {
    text = item.picture->text;
  }
  if (item.effectiveUsage != Usage::none && item.effectiveUsage != Usage::display) {
    text += (text.empty() ? "" : " ") + inUpperCase(compiler::entryOf(item.effectiveUsage).name);
  }
  return text.empty() ? "no picture" : text;
}

}  // namespace fdmorph::fit
