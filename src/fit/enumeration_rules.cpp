#include "fit/enumeration_rules.h"

#include <algorithm>

#include <optional>
#include <unordered_set>

#include "fit/decimal_text.h"
#include "source/diagnostics.h"
#include "source/literals.h"

namespace fdmorph::fit {
namespace {

using compiler::DataItem;
using compiler::Literal;

// A number as one text for all its spellings, other texts without trailing blanks.
std::string keyOf(std::string const& text) {
  if (std::optional<DecimalText> const number = readDecimal(text)) {
    return "#" + std::string(number->isNegative ? "-" : "") + number->integer + "." +
           number->fraction;
  }
  return "'" + text.substr(0, text.find_last_not_of(' ') + 1);
}

// The value of a single condition; nothing if no document has such a text.
std::optional<std::string> textOf(Literal const& literal) {
  switch (literal.kind) {
    case Literal::Kind::number:
      return std::string(literal.text);
    case Literal::Kind::text:
      return compiler::decodeLiteral(literal.text).text;
    case Literal::Kind::zero:
      return "0";
    case Literal::Kind::space:
      return "";
    default:
      return std::nullopt;
  }
}

bool isInRange(std::string const& value, compiler::ValueRange const& range) {
  std::optional<std::string> const from = textOf(range.from);
  std::optional<std::string> const to = textOf(range.to);
  if (!from || !to) return false;
  std::optional<DecimalText> const number = readDecimal(value);
  std::optional<DecimalText> const low = readDecimal(*from);
  std::optional<DecimalText> const high = readDecimal(*to);
  if (!number || !low || !high) return value >= *from && value <= *to;
  auto const isAtMost = [](DecimalText const& left, DecimalText const& right) {
    if (left.isNegative != right.isNegative) return left.isNegative;
    auto const order = compareMagnitudes(left, right);
    return left.isNegative ? std::is_gteq(order) : std::is_lteq(order);
  };
  return isAtMost(*low, *number) && isAtMost(*number, *high);
}

}  // namespace

EnumerationDifference compareEnumeration(std::vector<std::string> const& values,
                                         std::vector<DataItem const*> const& owners) {
  EnumerationDifference difference;
  std::unordered_set<std::string> enumerated;
  for (std::string const& value : values) enumerated.insert(keyOf(value));
  std::unordered_set<std::string> conditions;
  std::vector<compiler::ValueRange const*> ranges;
  bool hasConditions = false;
  for (DataItem const* owner : owners) {
    for (DataItem const* each = owner->firstCondition; each != nullptr; each = each->next) {
      for (compiler::ValueRange const& value : each->values) {
        hasConditions = true;
        if (value.to.kind != Literal::Kind::none) {
          ranges.push_back(&value);
          continue;
        }
        std::optional<std::string> const text = textOf(value.from);
        if (!text) continue;
        std::string key = keyOf(*text);
        bool const isNew = conditions.insert(key).second;
        if (isNew && !enumerated.contains(key)) difference.withoutValue.push_back(*text);
      }
    }
  }
  if (!hasConditions) return {};
  for (std::string const& value : values) {
    bool const isKnown = conditions.contains(keyOf(value)) ||
                         std::ranges::any_of(ranges, [&value](compiler::ValueRange const* range) {
                           return isInRange(value, *range);
                         });
    if (!isKnown) difference.withoutCondition.push_back(value);
  }
  return difference;
}

std::string listOf(std::vector<std::string> const& values) {
  constexpr std::size_t kShown = 5;
  std::string text;
  for (std::size_t i = 0; i < values.size() && i < kShown; ++i) {
    text += (i == 0 ? "" : ", ") + compiler::quoted(values[i]);
  }
  if (values.size() > kShown) {
    text += " and " + std::to_string(values.size() - kShown) + " more";
  }
  return text;
}

}  // namespace fdmorph::fit
