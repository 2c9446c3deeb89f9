#include "fit/value_rules.h"

#include <algorithm>

namespace fdmorph::fit {
namespace {

using Issues = std::vector<ValueIssue>;

std::string_view kindName(ValueKind kind) {
  switch (kind) {
    case ValueKind::boolean:
      return "booleans";
    case ValueKind::date:
      return "dates and times";
    case ValueKind::decimal:
    case ValueKind::floating:
      return "numbers";
    default:
      return "texts";
  }
}

ValueIssue category(ValueDemand const& demand, std::string_view item) {
  std::string text(kindName(demand.kind));
  return {FindingCode::category, text + " do not fit into " + std::string(item)};
}

void compareText(ValueDemand const& demand, ItemCapacity const& capacity, FitLimits const& limits,
                 Issues& issues) {
  bool const isNumber = demand.kind == ValueKind::decimal || demand.kind == ValueKind::floating;
  if (capacity.kind == ItemKind::alphabetic && isNumber) {
    issues.push_back(category(demand, "an alphabetic item"));
  }
  std::string const holds = "the item holds " + std::to_string(capacity.length);
  if (demand.length) {
    if (*demand.length > capacity.length) {
      issues.push_back({FindingCode::length, "texts may have " + std::to_string(*demand.length) +
                                                 " characters, " + holds});
    }
  } else if (!limits.length || capacity.length < *limits.length) {
    issues.push_back({FindingCode::lengthUnbounded, "the length of texts is unbounded, " + holds});
  }
}

// Of a binary integer, whose bytes decide.
bool exceedsRange(std::optional<DecimalText> const& value, DecimalText const& bound) {
  return value && std::is_gt(compareMagnitudes({value->integer, {}, false}, bound));
}

bool compareIntegerPart(ValueDemand const& demand, ItemCapacity const& capacity, Issues& issues) {
  bool isUnbounded = false;
  bool isExceeded = false;
  if (capacity.most) {
    bool const isNegative = demand.isNegative && capacity.isSigned;
    isUnbounded = !demand.most || (isNegative && !demand.least);
    isExceeded = exceedsRange(demand.most, *capacity.most) ||
                 (isNegative && exceedsRange(demand.least, *capacity.least));
  } else if (!demand.integerDigits) {
    isUnbounded = true;
  } else {
    isExceeded = static_cast<std::int64_t>(*demand.integerDigits) > capacity.integerDigits;
  }
  if (isExceeded) {
    issues.push_back({FindingCode::digits, "numbers may have more integer digits than the item"});
  }
  return isUnbounded && !isExceeded;
}

void compareNumber(ValueDemand const& demand, ItemCapacity const& capacity, Issues& issues) {
  bool isUnbounded = compareIntegerPart(demand, capacity, issues);
  if (!demand.fractionDigits) {
    isUnbounded = true;
  } else if (static_cast<std::int64_t>(*demand.fractionDigits) > capacity.fractionDigits) {
    issues.push_back({FindingCode::fraction, capacity.fractionDigits < 0
                                                 ? "the item does not hold the last digits"
                                                 : "numbers may have more decimals than the item"});
  }
  if (demand.isNegative && !capacity.isSigned) {
    issues.push_back({FindingCode::sign, "numbers may be negative, the item has no sign"});
  }
  if (isUnbounded) {
    issues.push_back({FindingCode::digitsUnbounded, "the digits of numbers are unbounded"});
  }
}

void compareFloating(ValueDemand const& demand, ItemCapacity const& capacity, Issues& issues) {
  std::string const holds = "the item keeps " + std::to_string(capacity.precision) + " digits";
  if (demand.kind == ValueKind::floating && !demand.isNumber) {
    bool const isDouble = demand.type->primitive == "double";
    if (isDouble && capacity.precision < 15) {
      issues.push_back({FindingCode::digits, "numbers may be larger or longer than the item"});
    } else if (capacity.isHexadecimal) {
      issues.push_back({FindingCode::digitsUnbounded,
                        "infinities, NaN and numbers above 7.2E75 do not fit into the item"});
    }
    return;
  }
  if (!demand.integerDigits || !demand.fractionDigits) {
    issues.push_back(
        {FindingCode::digitsUnbounded, "the digits of numbers are unbounded, " + holds});
  } else {
    std::uint64_t digits = *demand.integerDigits + *demand.fractionDigits;
    if (demand.type->totalDigits) digits = std::min(digits, *demand.type->totalDigits);
    if (digits > capacity.precision) {
      issues.push_back({FindingCode::digits,
                        "numbers may have " + std::to_string(digits) + " digits, " + holds});
    }
  }
}

}  // namespace

bool isError(ValueIssue const& issue) {
  return severityOf(issue.code) == compiler::Severity::error;
}

std::vector<ValueIssue> compareValue(ValueDemand const& demand, ItemCapacity const& capacity,
                                     FitLimits const& limits) {
  Issues issues;
  switch (capacity.kind) {
    case ItemKind::empty:
      if (demand.length != 0) {
        issues.push_back({FindingCode::length, "there may be a text, the item holds none"});
      }
      break;
    case ItemKind::text:
    case ItemKind::alphabetic:
      compareText(demand, capacity, limits, issues);
      break;
    case ItemKind::number:
      if (demand.isNumber) {
        compareNumber(demand, capacity, issues);
      } else if (demand.kind == ValueKind::floating) {
        issues.push_back({FindingCode::digits, "numbers may have any exponent, the item has none"});
      } else {
        issues.push_back(category(demand, "a numeric item"));
      }
      break;
    case ItemKind::floating:
      if (demand.isNumber || demand.kind == ValueKind::floating) {
        compareFloating(demand, capacity, issues);
      } else {
        issues.push_back(category(demand, "a numeric item"));
      }
      break;
  }
  return issues;
}

}  // namespace fdmorph::fit
