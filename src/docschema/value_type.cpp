#include "docschema/value_type.h"

#include <algorithm>

#include "docschema/condition_values.h"

namespace fdmorph::docschema {
namespace {

using compiler::Category;
using compiler::DataItem;
using compiler::Picture;
using compiler::Storage;
using compiler::Usage;
using ValueKind = ValueType::Kind;

constexpr unsigned kBitsInByte = 8;
constexpr std::uint64_t kMaxBinarySize = 8;

// Moves the decimal point of an integer, which may have a sign, to the left, or
// appends zeros.
std::string scaled(std::string number, std::uint32_t scale, std::uint32_t zeros) {
  if (number != "0") number.append(zeros, '0');
  if (scale == 0) return number;
  bool const isNegative = number.front() == '-';
  std::string digits = number.substr(isNegative ? 1 : 0);
  if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
  digits.insert(digits.size() - scale, 1, '.');
  return (isNegative ? "-" : "") + digits;
}

// Sets the bounds of an integer of so many bytes.
void setByteBounds(ValueType& type, std::uint64_t size) {
  auto const bytes = static_cast<unsigned>(std::clamp<std::uint64_t>(size, 1, kMaxBinarySize));
  std::uint64_t const all = ~std::uint64_t{0} >> (64 - bytes * kBitsInByte);
  std::uint64_t const most = type.isSigned ? all >> 1U : all;
  std::string const least = type.isSigned ? "-" + std::to_string(most + 1) : "0";
  type.digits = 0;
  type.most = scaled(std::to_string(most), type.scale, type.zeros);
  type.least = scaled(least, type.scale, type.zeros);
}

void setDigits(ValueType& type, Picture const& picture) {
  type.kind = ValueKind::number;
  type.digits = std::max(picture.digits, picture.scale);
  type.scale = picture.scale;
  type.isSigned = picture.isSigned;
  if (picture.scale == 0) type.zeros = picture.digits - picture.nines;
}

// Whether an edited picture can show a negative number.
bool showsSign(std::string_view picture) {
  return picture.find_first_of("+-") != std::string_view::npos ||
         std::ranges::any_of(picture, [](char c) { return c == 'C' || c == 'c'; }) ||
         std::ranges::any_of(picture, [](char c) { return c == 'D' || c == 'd'; });
}

ValueType ofEditedNumber(Picture const& picture) {
  ValueType type;
  if (picture.digits == 0) {
    type.kind = ValueKind::anyNumber;
    type.isSigned = true;
    return type;
  }
  setDigits(type, picture);
  type.isSigned = showsSign(picture.text);
  return type;
}

bool isUnsignedUsage(Usage usage) {
  return usage == Usage::unsignedShort || usage == Usage::unsignedInt ||
         usage == Usage::unsignedLong;
}

ValueType ofFixedUsage(DataItem const& item, SchemaRules const& rules) {
  ValueType type;
  switch (item.effectiveUsage) {
    case Usage::comp1:
    case Usage::floatShort:
      type.kind = ValueKind::singleFloat;
      break;
    case Usage::comp2:
    case Usage::floatLong:
      type.kind = ValueKind::doubleFloat;
      break;
    default:
      type.kind = ValueKind::number;
      type.isSigned = !item.isUnsigned && !isUnsignedUsage(item.effectiveUsage);
      setByteBounds(type, item.size);
      break;
  }
  type.isHexadecimal = type.isFloat() && rules.hasHexadecimalFloats;
  return type;
}

ValueType ownType(DataItem const& item, SchemaRules const& rules) {
  if (!compiler::takesPicture(item.effectiveUsage)) return ofFixedUsage(item, rules);
  Storage const storage = compiler::entryOf(item.effectiveUsage).storage;
  bool const isNative = storage == Storage::nativeBinary || storage == Storage::shortBinary;
  bool const isBinary = isNative || storage == Storage::binary;
  ValueType type;
  if (item.picture == nullptr) return type;
  Picture const& picture = *item.picture;
  if (picture.category == Category::numeric) {
    setDigits(type, picture);
    bool const hasAllBytes = isNative || (isBinary && rules.hasFullBinaryRange);
    if (hasAllBytes) setByteBounds(type, item.size);
    return type;
  }
  if (isNative) {
    type.kind = ValueKind::number;
    setByteBounds(type, item.size);
    return type;
  }
  if (picture.category == Category::numericEdited && rules.hasEditedNumbers) {
    return ofEditedNumber(picture);
  }
  type.length = picture.size;
  return type;
}

// The number of digits before the point in a bound.
std::uint64_t integerDigitsOf(std::string_view bound) {
  if (!bound.empty() && bound.front() == '-') bound.remove_prefix(1);
  return std::min(bound.find('.'), bound.size());
}

}  // namespace

std::uint64_t ValueType::integerDigits() const {
  if (digits == 0) return std::max(integerDigitsOf(least), integerDigitsOf(most));
  return std::max<std::uint64_t>(digits - scale, 1);
}

std::string ValueType::pattern() const {
  std::string text = isSigned ? "-?" : "";
  bool const isFraction = digits != 0 && digits == scale;
  std::uint64_t const stored = isFraction ? 0 : integerDigits() - zeros;
  if (stored == 0) {
    text += "0";
  } else {
    text += "(0|[1-9]";
    if (stored > 1) text += "[0-9]{0," + std::to_string(stored - 1) + "}";
    text += std::string(zeros, '0') + ")";
  }
  if (scale > 0) text += "\\.[0-9]{" + std::to_string(scale) + "}";
  return text;
}

ValueType valueTypeOf(DataItem const& item, SchemaRules const& rules) {
  ValueType type = ownType(item, rules);
  if (rules.enumeratesConditions) type.values = conditionValues(item, type, rules.trim);
  return type;
}

bool isBlankable(DataItem const& item) {
  if (item.isGroup() || item.picture == nullptr || item.picture->category != Category::numeric) {
    return false;
  }
  Storage const storage = compiler::entryOf(item.effectiveUsage).storage;
  return storage == Storage::characters || storage == Storage::packed;
}

}  // namespace fdmorph::docschema
