#include "fit/value_demand.h"

#include <algorithm>
#include <unordered_set>

#include "text/name_table.h"
#include "text/utf8.h"

namespace fdmorph::fit {
namespace {

// The longest texts of dates, times and their parts.
constexpr auto kDateLengths = makeNameTable<std::uint64_t>({
    {"date", 16},
    {"dateTime", 25},
    {"gDay", 11},
    {"gMonth", 10},
    {"gMonthDay", 13},
    {"gYear", 10},
    {"gYearMonth", 13},
    {"time", 14},
});
static_assert(kDateLengths.isSorted());

constexpr std::uint64_t kBooleanLength = 5;  // false
constexpr std::uint64_t kFloatLength = 15;   // -1.17549435E-38
constexpr std::uint64_t kDoubleLength = 24;  // -2.2250738585072014E-308

using Length = std::optional<std::uint64_t>;

Length smaller(Length left, Length right) {
  if (!left || !right) return left ? left : right;
  return std::min(*left, *right);
}

Length larger(Length left, Length right) {
  if (!left || !right) return std::nullopt;
  return std::max(*left, *right);
}

std::uint64_t charactersOf(std::string const& text) {
  return static_cast<std::uint64_t>(
      std::ranges::count_if(text, [](char c) { return !isUtf8Continuation(c); }));
}

// Saturates far below the largest number, so that sums do not wrap around.
Length times(Length left, std::uint64_t right) {
  constexpr std::uint64_t kMost = std::uint64_t{1} << 60;
  if (!left) return std::nullopt;
  return right != 0 && *left > kMost / right ? kMost : *left * right;
}

// The integer digits of values up to a bound; one less for those below a power of ten.
std::uint64_t integerDigitsTo(DecimalText const& bound, bool isExclusive) {
  bool const isPower = bound.fraction.empty() && bound.integer.starts_with('1') &&
                       bound.integer.find_first_not_of('0', 1) == std::string::npos;
  return bound.integer.size() - (isExclusive && isPower ? 1 : 0);
}

std::optional<DecimalText> boundOf(std::optional<ValueBound> const& bound) {
  return bound ? readDecimal(bound->value) : std::nullopt;
}

// The largest number of so many digits.
DecimalText nines(std::uint64_t digits) {
  return {std::string(std::min<std::uint64_t>(digits, 1000), '9'), {}, false};
}

/// The digits of one side of zero.
struct Side {
  bool isEmpty = false;  ///< there are no such values
  Length integerDigits;
  std::optional<DecimalText> most;
};

// `outer` bounds the values of this side from above, in magnitude; `inner` may leave
// none of them.
Side sideOf(std::optional<ValueBound> const& outer, std::optional<ValueBound> const& inner,
            bool isNegative) {
  Side side;
  std::optional<DecimalText> const far = boundOf(outer);
  std::optional<DecimalText> const near = boundOf(inner);
  bool const isFarBeyond = far && !far->isZero() && far->isNegative != isNegative;
  bool const isAtZero = far && far->isZero();
  bool const isNearPast = near && !near->isZero() && near->isNegative == isNegative && far &&
                          std::is_gt(compareMagnitudes(*near, *far));
  side.isEmpty = isFarBeyond || isAtZero || isNearPast;
  if (side.isEmpty) {
    side.integerDigits = 0;
    side.most = DecimalText{};
  } else if (far) {
    side.integerDigits = integerDigitsTo(*far, outer->isExclusive);
    side.most = far;
    side.most->isNegative = false;
  }
  return side;
}

void setDigits(ValueDemand& demand, SimpleType const& type) {
  demand.isNumber = true;
  Side positive = sideOf(type.upper, type.lower, false);
  Side negative = sideOf(type.lower, type.upper, true);
  demand.isNegative = !negative.isEmpty;
  demand.integerDigits =
      smaller(larger(positive.integerDigits, negative.integerDigits), type.totalDigits);
  demand.fractionDigits = smaller(type.fractionDigits, type.totalDigits);
  for (Side* side : {&positive, &negative}) {
    if (side->most || !type.totalDigits) continue;
    side->most = nines(*type.totalDigits);
  }
  demand.most = positive.most;
  demand.least = negative.most;
}

// The longest canonical text: all digits, or one fewer in front where the total is
// bounded and the fraction takes the others.
Length numberLength(ValueDemand const& demand, Length total) {
  if (!demand.integerDigits || !demand.fractionDigits) return std::nullopt;
  std::uint64_t const sign = demand.isNegative ? 1 : 0;
  std::uint64_t const fraction = *demand.fractionDigits;
  std::uint64_t const integer = std::max<std::uint64_t>(*demand.integerDigits, 1);
  if (fraction == 0) return sign + integer;
  std::uint64_t const digits = total ? std::max(*total, fraction + 1) : integer + fraction;
  return sign + 1 + std::max(std::min(digits, integer + fraction), integer);
}

void setEnumeration(ValueDemand& demand, std::vector<std::string> const& values) {
  std::uint64_t length = 0;
  bool isEachNumber = true;
  ValueDemand numbers;
  numbers.integerDigits = numbers.fractionDigits = 0;
  numbers.most = numbers.least = DecimalText{};
  for (std::string const& value : values) {
    std::uint64_t const characters = charactersOf(value);
    // Other facets of the type may forbid a value.
    bool const isText = demand.kind == ValueKind::text;
    if (isText && characters > demand.length.value_or(characters)) continue;
    length = std::max(length, characters);
    std::optional<DecimalText> const number = readDecimal(value);
    // A text that is no canonical number would come back as another one.
    bool const isCanonical =
        number &&
        (demand.kind == ValueKind::decimal ||
         (value.find_first_of("+ .") == value.npos && (value == "0" || !value.starts_with('0'))));
    if (!isCanonical) {
      isEachNumber = false;
      continue;
    }
    numbers.integerDigits = std::max<std::uint64_t>(*numbers.integerDigits, number->integer.size());
    numbers.fractionDigits =
        std::max<std::uint64_t>(*numbers.fractionDigits, number->fraction.size());
    numbers.isNegative = numbers.isNegative || number->isNegative;
    std::optional<DecimalText>& most = number->isNegative ? numbers.least : numbers.most;
    if (std::is_gt(compareMagnitudes(*number, *most))) most = number;
  }
  demand.length = length;
  if (!isEachNumber) return;
  demand.isNumber = true;
  demand.integerDigits = numbers.integerDigits;
  demand.fractionDigits = numbers.fractionDigits;
  demand.isNegative = numbers.isNegative;
  demand.most = numbers.most;
  demand.least = numbers.least;
}

Length listLength(SimpleType const& type) {
  Length item = 0;
  for (ValueDemand const& each : demandsOf(*type.members.front())) {
    item = larger(item, each.length);
  }
  if (!item || !type.maxLength) return std::nullopt;
  if (*type.maxLength == 0) return 0;
  return *times(Length(*item + 1), *type.maxLength) - 1;
}

Length textLength(ValueDemand const& demand, SimpleType const& type) {
  switch (type.kind) {
    case ValueKind::decimal:
      return numberLength(demand, type.totalDigits);
    case ValueKind::floating:
      return type.primitive == "float" ? kFloatLength : kDoubleLength;
    case ValueKind::boolean:
      return kBooleanLength;
    case ValueKind::date: {
      std::uint64_t const length = kDateLengths.find(type.primitive, 0);
      return length == 0 ? Length() : Length(length);
    }
    case ValueKind::binary:
      if (type.primitive == "hexBinary" || !type.maxLength) return times(type.maxLength, 2);
      return times(Length(*type.maxLength / 3 + (*type.maxLength % 3 == 0 ? 0 : 1)), 4);
    case ValueKind::list:
      return listLength(type);
    default:
      return type.maxLength;
  }
}

ValueDemand demandOf(SimpleType const& type) {
  ValueDemand demand;
  demand.type = &type;
  demand.kind = type.kind;
  if (type.kind == ValueKind::decimal) setDigits(demand, type);
  demand.length = smaller(textLength(demand, type), type.patternLength);
  if (type.enumeration != nullptr) setEnumeration(demand, *type.enumeration);
  return demand;
}

void addDemands(SimpleType const& type, std::vector<ValueDemand>& demands,
                std::unordered_set<SimpleType const*>& seen) {
  if (!seen.insert(&type).second) return;
  if (type.kind != ValueKind::unionOf || type.enumeration != nullptr || type.members.empty()) {
    demands.push_back(demandOf(type));
    return;
  }
  for (SimpleType const* member : type.members) addDemands(*member, demands, seen);
}

std::string plural(std::uint64_t count, std::string const& word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

std::string describeNumber(SimpleType const& type) {
  std::string text;
  if (type.totalDigits) {
    text += ", " + plural(*type.totalDigits, "digit");
    if (type.fractionDigits.value_or(0) != 0) {
      text += ", " + std::to_string(*type.fractionDigits) + " of them decimals";
    }
  } else if (type.fractionDigits.value_or(0) != 0) {
    text += ", " + plural(*type.fractionDigits, "decimal");
  }
  if (type.lower) text += (type.lower->isExclusive ? ", above " : ", from ") + type.lower->value;
  if (type.upper) {
    text += (type.lower ? " " : ", ");
    text += (type.upper->isExclusive ? "below " : "to ") + type.upper->value;
  }
  return text;
}

}  // namespace

std::vector<ValueDemand> demandsOf(SimpleType const& type) {
  std::vector<ValueDemand> demands;
  std::unordered_set<SimpleType const*> seen;
  addDemands(type, demands, seen);
  return demands;
}

std::string describe(SimpleType const& type) {
  constexpr std::size_t kShownMembers = 4;
  std::string text = type.builtIn;
  if (type.kind == ValueKind::list) {
    text = "list of " + (type.members.empty() ? "texts" : describe(*type.members.front()));
    if (type.maxLength) text += ", at most " + plural(*type.maxLength, "item");
  } else if (type.kind == ValueKind::unionOf) {
    text = "union of ";
    for (std::size_t i = 0; i < type.members.size() && i < kShownMembers; ++i) {
      text += (i == 0 ? "" : " or ") + type.members[i]->builtIn;
    }
    if (type.members.size() > kShownMembers) text += " or others";
  }
  if (type.enumeration != nullptr) {
    std::uint64_t longest = 0;
    for (std::string const& each : *type.enumeration) {
      longest = std::max(longest, charactersOf(each));
    }
    return text + ", " + plural(type.enumeration->size(), "value") + " of at most " +
           plural(longest, "character");
  }
  if (type.kind == ValueKind::decimal) return text + describeNumber(type);
  if (type.kind == ValueKind::binary && type.maxLength) {
    return text + ", at most " + plural(*type.maxLength, "byte");
  }
  Length const length = type.kind == ValueKind::text ? smaller(type.maxLength, type.patternLength)
                                                     : type.patternLength;
  if (length) text += ", at most " + plural(*length, "character");
  return text;
}

}  // namespace fdmorph::fit
