#include "docschema/condition_values.h"

#include <algorithm>
#include <optional>

#include "semantics/values.h"
#include "text/letter_case.h"
#include "text/utf8.h"
#include "text/xml_writer.h"

namespace fdmorph::docschema {
namespace {

using compiler::DataItem;
using compiler::Literal;
using compiler::ValueRange;
using ValueKind = ValueType::Kind;

std::string_view figurativeName(Literal::Kind kind) {
  switch (kind) {
    case Literal::Kind::zero:
      return "ZERO";
    case Literal::Kind::space:
      return "SPACE";
    case Literal::Kind::quote:
      return "QUOTE";
    case Literal::Kind::lowValue:
      return "LOW-VALUE";
    case Literal::Kind::highValue:
      return "HIGH-VALUE";
    case Literal::Kind::null:
      return "NULL";
    default:
      return {};
  }
}

std::string wordsOf(Literal const& literal) {
  std::string_view const name = figurativeName(literal.kind);
  std::string const all = literal.isAll ? "ALL " : "";
  return all + std::string(name.empty() ? literal.text : name);
}

// A number in the form of documents; nothing if the item cannot hold it.
std::optional<std::string> canonicalNumber(std::string_view text, ValueType const& type) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  text = text.substr(0, text.find_last_not_of(' ') + 1);
  bool const isNegative = !text.empty() && text.front() == '-';
  if (isNegative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  std::size_t const point = std::min(text.find('.'), text.size());
  std::string integer(text.substr(0, point));
  std::string fraction(text.substr(std::min(point + 1, text.size())));
  if (!std::ranges::all_of(integer, isDigit) || !std::ranges::all_of(fraction, isDigit)) {
    return std::nullopt;
  }
  integer.erase(0, std::min(integer.find_first_not_of('0'), integer.size()));
  fraction.erase(fraction.find_last_not_of('0') + 1);
  bool const isZero = integer.empty() && fraction.empty();
  bool const isTooLong = fraction.size() > type.scale || integer.size() > type.integerDigits();
  if (isTooLong || (isNegative && !isZero && !type.isSigned)) return std::nullopt;
  fraction.append(type.scale - fraction.size(), '0');
  if (integer.empty()) integer = "0";
  std::string number = isNegative && !isZero ? "-" : "";
  number += integer;
  if (type.scale > 0) number += "." + fraction;
  return number;
}

std::size_t characterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return !isUtf8Continuation(c); }));
}

std::string trimmed(std::string text, DataItem const& item, Trim trim, std::uint64_t length) {
  if (trim == Trim::none) {
    std::size_t const characters = characterCount(text);
    if (characters < length) {
      text.insert(item.isJustified ? 0 : text.size(), length - characters, ' ');
    }
    return text;
  }
  bool const isAtBegin = trim == Trim::both || item.isJustified;
  bool const isAtEnd = trim == Trim::both || !item.isJustified;
  if (isAtEnd) text.erase(text.find_last_not_of(' ') + 1);
  if (isAtBegin) text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

// The text of one value; nothing if it has none.
std::optional<std::string> textOf(Literal const& literal, DataItem const& item,
                                  ValueType const& type) {
  compiler::ValueTarget target;
  target.isNumber = type.kind == ValueKind::number;
  target.isWhole = type.scale == 0;
  target.isBoolean = item.picture != nullptr && item.picture->isBoolean;
  target.isNational = item.picture != nullptr && item.size > item.picture->size;
  target.size = target.isNumber ? type.textDigits() : type.length;
  std::optional<std::string> text = compiler::valueText(literal, target);
  if (!text) return text;
  return Utf8OrLatin1::toUtf8(*text);
}

/// Collects the texts of values.
class ValueList {
 public:
  ValueList(DataItem const& item, ValueType const& type, Trim trim)
      : m_item(item), m_type(type), m_trim(trim) {}

  // The result is whether the value is a text.
  bool add(Literal const& literal) {
    // Bytes x'00' at the end are no part of a text.
    if (literal.kind == Literal::Kind::lowValue && m_type.kind == ValueKind::text) {
      return addText("");
    }
    std::optional<std::string> text = textOf(literal, m_item, m_type);
    if (!text) return false;
    if (m_type.kind == ValueKind::number) {
      text = canonicalNumber(*text, m_type);
    } else if (characterCount(*text) > m_type.length) {
      text = trimmed(std::move(*text), m_item, Trim::right, 0);
      if (characterCount(*text) > m_type.length) text.reset();
    } else {
      text = trimmed(std::move(*text), m_item, m_trim, m_type.length);
    }
    return !text || addText(std::move(*text));
  }

  std::vector<std::string> release() { return std::move(m_texts); }

 private:
  bool addText(std::string text) {
    if (std::ranges::find(m_texts, text) == m_texts.end()) m_texts.push_back(std::move(text));
    return true;
  }

  DataItem const& m_item;
  ValueType const& m_type;
  Trim m_trim;
  std::vector<std::string> m_texts;
};

}  // namespace

std::vector<std::string> conditionValues(DataItem const& item, ValueType const& type, Trim trim) {
  bool const isEdited =
      item.picture != nullptr && item.picture->category == compiler::Category::numericEdited;
  bool const isPlain =
      type.kind == ValueKind::text || (type.kind == ValueKind::number && !isEdited);
  if (!isPlain) return {};
  ValueList list(item, type, trim);
  for (DataItem const* each = item.firstCondition; each != nullptr; each = each->next) {
    for (ValueRange const& range : each->values) {
      if (range.to.kind != Literal::Kind::none || !list.add(range.from)) return {};
    }
    if (each->falseValue != nullptr && !list.add(*each->falseValue)) return {};
  }
  return list.release();
}

std::vector<std::string> conditionLines(DataItem const& item) {
  std::vector<std::string> lines;
  for (DataItem const* each = item.firstCondition; each != nullptr; each = each->next) {
    std::string line(each->name);
    char const* separator = ": ";
    for (ValueRange const& range : each->values) {
      line += separator + wordsOf(range.from);
      if (range.to.kind != Literal::Kind::none) line += " THRU " + wordsOf(range.to);
      separator = ", ";
    }
    lines.push_back(Utf8OrLatin1::toUtf8(line));
  }
  return lines;
}

}  // namespace fdmorph::docschema
