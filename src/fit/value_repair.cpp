#include "fit/value_repair.h"

#include <algorithm>

#include "semantics/picture.h"

namespace fdmorph::fit {
namespace {

using compiler::DataItem;
using compiler::Storage;
using compiler::Usage;

constexpr std::uint64_t kMaxBinaryDigits = 18;

/// What all demands need together.
struct Need {
  std::uint64_t length = 0;
  bool isLengthUnbounded = false;
  std::uint64_t integerDigits = 0;
  std::uint64_t fractionDigits = 0;
  bool isNegative = false;
  bool isNumber = true;     // each value is one
  bool isFloating = false;  // some values have exponents
};

Need needOf(std::vector<ValueDemand const*> const& demands) {
  Need need;
  for (ValueDemand const* each : demands) {
    if (each->length) {
      need.length = std::max(need.length, *each->length);
    } else {
      need.isLengthUnbounded = true;
    }
    bool const isFloating = each->kind == ValueKind::floating && !each->isNumber;
    need.isFloating = need.isFloating || isFloating;
    need.isNumber = need.isNumber && (each->isNumber || isFloating);
    need.integerDigits = std::max(need.integerDigits, each->integerDigits.value_or(0));
    need.fractionDigits = std::max(need.fractionDigits, each->fractionDigits.value_or(0));
    need.isNegative = need.isNegative || each->isNegative;
  }
  return need;
}

std::string run(char symbol, std::uint64_t count) {
  return symbol + ("(" + std::to_string(count) + ")");
}

bool isBinary(DataItem const& item) {
  switch (compiler::entryOf(item.effectiveUsage).storage) {
    case Storage::binary:
    case Storage::nativeBinary:
    case Storage::shortBinary:
    case Storage::fixed:
      return true;
    default:
      return false;
  }
}

NewPicture textPicture(DataItem const& item, ItemCapacity const& capacity, Need const& need,
                       FitLimits const& limits) {
  std::uint64_t length = std::max<std::uint64_t>(need.length, 1);
  if (need.isLengthUnbounded) {
    std::uint64_t const present = capacity.length == 0 ? kDefaultLength : capacity.length;
    std::uint64_t const wanted = limits.length.value_or(present);
    length = std::max({length, wanted, limits.areGiven ? wanted : capacity.length});
  }
  // A number that becomes a text has no sign clause, either.
  if (capacity.kind == ItemKind::number || capacity.kind == ItemKind::floating) {
    return {run('X', length), Usage::display};
  }
  bool const isNational =
      item.picture != nullptr && (item.picture->category == compiler::Category::national ||
                                  item.picture->category == compiler::Category::nationalEdited);
  if (isNational) return {run('N', length), std::nullopt};
  return {run(capacity.kind == ItemKind::alphabetic ? 'A' : 'X', length), std::nullopt};
}

NewPicture numberPicture(DataItem const& item, ItemCapacity const& capacity, Need const& need,
                         FitLimits const& limits) {
  auto const present = [](std::int64_t digits) {
    return static_cast<std::uint64_t>(std::max<std::int64_t>(digits, 0));
  };
  // The digits of the range of a binary integer are one more than it always holds.
  std::uint64_t const held = present(capacity.integerDigits) - (capacity.most ? 1 : 0);
  std::uint64_t const integer = std::max(held, need.integerDigits);
  std::uint64_t const fraction = std::max(present(capacity.fractionDigits), need.fractionDigits);
  std::uint64_t const digits = integer + fraction;
  if (digits > compiler::kMaxDigits) {
    Need text = need;
    text.length = std::max(text.length, digits + (need.isNegative ? 2 : 1));
    text.isLengthUnbounded = false;
    return textPicture(item, capacity, text, limits);
  }
  std::string picture = capacity.isSigned || need.isNegative ? "S" : "";
  if (integer > 0 || fraction == 0) picture += run('9', std::max<std::uint64_t>(integer, 1));
  if (fraction > 0) picture += "V" + run('9', fraction);
  bool const becomesPacked =
      isBinary(item) && (digits > kMaxBinaryDigits || capacity.kind == ItemKind::floating);
  if (becomesPacked) return {picture, Usage::comp3};
  if (isBinary(item) && !compiler::takesPicture(item.effectiveUsage)) {
    return {picture, Usage::comp5};
  }
  // COMP-6 has no sign.
  if (item.effectiveUsage == Usage::comp6 && need.isNegative) return {picture, Usage::comp3};
  return {picture, std::nullopt};
}

}  // namespace

std::optional<NewPicture> repairedPicture(DataItem const& item, ItemCapacity const& capacity,
                                          std::vector<ValueDemand const*> const& demands,
                                          FitLimits const& limits) {
  bool isWrong = false;
  bool isNumberWanted = capacity.kind == ItemKind::number || capacity.kind == ItemKind::floating;
  for (ValueDemand const* demand : demands) {
    for (ValueIssue const& issue : compareValue(*demand, capacity, limits)) {
      // Another kind of item is for the user to choose.
      if (issue.code == FindingCode::category) return std::nullopt;
      isWrong = isWrong || isError(issue);
    }
  }
  Need const need = needOf(demands);
  bool const isText = capacity.kind == ItemKind::text || capacity.kind == ItemKind::alphabetic;
  if (isText && need.isLengthUnbounded && limits.length) {
    bool const isLonger = capacity.length > *limits.length && limits.areGiven;
    isWrong = isWrong || capacity.length < *limits.length || isLonger;
  }
  if (!isWrong) return std::nullopt;
  if (!isNumberWanted || !need.isNumber) return textPicture(item, capacity, need, limits);
  if (need.isFloating) return NewPicture{{}, Usage::comp2};
  return numberPicture(item, capacity, need, limits);
}

}  // namespace fdmorph::fit
