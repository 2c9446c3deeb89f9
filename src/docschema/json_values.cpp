#include "docschema/json_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace fdmorph::docschema {
namespace {

using nlohmann::ordered_json;
using ValueKind = ValueType::Kind;

constexpr char kFloatPattern[] = "^-?[0-9]+(\\.[0-9]+)?(e[+-][0-9]+)?$";
constexpr int kExactDigits = std::numeric_limits<double>::digits10;

/// In which direction a number may be changed that a double cannot hold.
enum class Rounding { down, up };

template <typename Number>
bool readWhole(std::string const& text, Number& number) {
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

// A number of a schema. Validators read numbers as integers or doubles, so that a bound
// must not become tighter.
ordered_json numberOf(std::string const& text, Rounding rounding) {
  std::int64_t whole = 0;
  if (readWhole(text, whole)) return whole;
  std::uint64_t large = 0;
  if (readWhole(text, large)) return large;
  double number = std::stod(text);
  bool const isExact = text.size() <= static_cast<std::size_t>(kExactDigits);
  double const infinity = std::numeric_limits<double>::infinity();
  if (!isExact) number = std::nextafter(number, rounding == Rounding::up ? infinity : -infinity);
  return number;
}

// The largest number of a picture.
std::string largest(ValueType const& type) {
  std::uint64_t const integer = type.digits - type.scale;
  std::string text = integer == 0 ? "0" : std::string(integer, '9');
  std::fill(text.end() - static_cast<std::ptrdiff_t>(type.zeros), text.end(), '0');
  if (type.scale > 0) text += "." + std::string(type.scale, '9');
  return text;
}

void addBounds(ordered_json& schema, ValueType const& type) {
  if (type.digits == 0) {
    schema["minimum"] = numberOf(type.least, Rounding::down);
    schema["maximum"] = numberOf(type.most, Rounding::up);
  } else {
    std::string const most = largest(type);
    schema["minimum"] = type.isSigned ? numberOf("-" + most, Rounding::down) : ordered_json(0);
    schema["maximum"] = numberOf(most, Rounding::up);
  }
  constexpr std::uint32_t kMaxZeros = 18;  // as an integer of 8 bytes
  bool const hasStep = type.scale == 0 && type.zeros > 0 && type.zeros <= kMaxZeros;
  if (hasStep) schema["multipleOf"] = numberOf("1" + std::string(type.zeros, '0'), Rounding::down);
}

ordered_json numberSchema(ValueType const& type, bool isQuoted) {
  if (isQuoted) {
    ordered_json schema = {{"type", "string"}};
    if (type.values.empty()) {
      schema["pattern"] = "^" + type.pattern() + "$";
    } else {
      schema["enum"] = type.values;
    }
    return schema;
  }
  ordered_json schema = {{"type", type.scale == 0 ? "integer" : "number"}};
  if (!type.values.empty()) {
    ordered_json values = ordered_json::array();
    for (std::string const& each : type.values) values.push_back(ordered_json::parse(each));
    schema["enum"] = std::move(values);
    return schema;
  }
  addBounds(schema, type);
  if (type.scale > 0) {
    // multipleOf cannot say it: 0.01 is no exact number for most validators.
    bool const isOne = type.scale == 1;
    schema["$comment"] =
        std::to_string(type.scale) + (isOne ? " decimal place" : " decimal places");
  }
  return schema;
}

ordered_json floatSchema(ValueType const& type, bool isQuoted) {
  ordered_json number = {{"type", "number"}};
  if (isQuoted) number = {{"type", "string"}, {"pattern", kFloatPattern}};
  if (type.isHexadecimal) return number;
  return {{"anyOf", {number, {{"enum", {"NaN", "INF", "-INF"}}}}}};
}

ordered_json schemaOf(ValueType const& type, bool isQuoted) {
  switch (type.kind) {
    case ValueKind::number:
      return numberSchema(type, isQuoted);
    case ValueKind::singleFloat:
    case ValueKind::doubleFloat:
      return floatSchema(type, isQuoted);
    case ValueKind::anyNumber:
      return {{"type", isQuoted ? "string" : "number"}};
    case ValueKind::text:
      break;
  }
  ordered_json schema = {{"type", "string"}};
  if (type.values.empty()) {
    schema["maxLength"] = type.length;
  } else {
    schema["enum"] = type.values;
  }
  return schema;
}

}  // namespace

ordered_json jsonAnyOf(std::vector<ordered_json> alternatives) {
  std::vector<ordered_json> distinct;
  for (ordered_json& each : alternatives) {
    if (std::ranges::find(distinct, each) == distinct.end()) distinct.push_back(std::move(each));
  }
  if (distinct.size() == 1) return distinct.front();
  return {{"anyOf", distinct}};
}

ordered_json jsonValueOf(std::vector<ValueType> const& types, bool mayLackText,
                         SchemaRules const& rules) {
  std::vector<ordered_json> alternatives;
  alternatives.reserve(types.size() + 1);
  for (ValueType const& each : types) {
    alternatives.push_back(schemaOf(each, rules.hasQuotedNumbers));
  }
  if (mayLackText) alternatives.push_back({{"const", ""}});
  return jsonAnyOf(std::move(alternatives));
}

}  // namespace fdmorph::docschema
