#include "semantics/values.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "source/literals.h"
#include "text/letter_case.h"
#include "text/utf8.h"

namespace fdmorph::compiler {
namespace {

// The characters of a text in UTF-8, or the bytes of any other text.
std::vector<std::string_view> charactersOf(std::string_view text) {
  std::vector<std::string_view> characters;
  bool isCharacters = isUtf8(text);
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    while (isCharacters && end < text.size() && isUtf8Continuation(text[end])) ++end;
    characters.push_back(text.substr(at, end - at));
    at = end;
  }
  return characters;
}

// Repeats `text` up to a size in characters or bytes.
std::optional<std::string> repeated(std::string const& text, std::uint64_t size,
                                    bool countsCharacters = false) {
  if (size > kMaxLiteralSize || text.empty()) return std::nullopt;
  std::vector<std::string_view> characters = charactersOf(text);
  std::string result;
  std::uint64_t length = 0;
  for (std::size_t i = 0;; i = (i + 1) % characters.size()) {
    length += countsCharacters ? 1 : characters[i].size();
    if (length > size) return result;
    result += characters[i];
  }
}

// Whether a text is digits with an optional sign and decimal point, and blanks
// around them.
bool isNumberText(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  text = text.substr(0, text.find_last_not_of(' ') + 1);  // npos + 1 is 0
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  std::size_t point = std::min(text.find('.'), text.size());
  std::string_view fraction = text.substr(std::min(point + 1, text.size()));
  bool hasFraction = point < text.size();
  return isAllDigits(text.substr(0, point)) && (!hasFraction || isAllDigits(fraction));
}

std::optional<std::string> textValue(Literal const& value, ValueTarget const& target) {
  LiteralContent content = decodeLiteral(value.text);
  if (content.isBinary || value.isBinary) return std::nullopt;
  std::string text = std::move(content.text);
  bool isBits = value.text.size() > 2 && toUpper(value.text[0]) == 'B' &&
                (value.text[1] == '"' || value.text[1] == '\'');
  if (isBits && target.isBoolean) text = value.text.substr(2, value.text.size() - 3);
  if (value.isAll) {
    if (target.isNumber && !target.isWhole) return std::nullopt;
    std::optional<std::string> all = repeated(text, target.size, target.isNational);
    if (!all) return all;
    text = std::move(*all);
  }
  if (target.isNumber && !isNumberText(text)) return std::nullopt;
  return text;
}

}  // namespace

std::optional<std::string> valueText(Literal const& value, ValueTarget const& target) {
  switch (value.kind) {
    case Literal::Kind::number:
      return std::string(value.text);
    case Literal::Kind::text:
      return textValue(value, target);
    case Literal::Kind::zero:
      return target.isNumber ? std::optional<std::string>("0") : repeated("0", target.size);
    case Literal::Kind::space:
      return target.isNumber ? std::optional<std::string>() : " ";
    case Literal::Kind::quote:
      return target.isNumber ? std::optional<std::string>() : repeated("\"", target.size);
    default:
      return std::nullopt;
  }
}

}  // namespace fdmorph::compiler
