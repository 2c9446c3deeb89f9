#include "compiler/compile_variables.h"

#include <algorithm>

#include "compiler/literals.h"

namespace fdmorph::compiler {
namespace {

bool isSign(TextWord const& word) {
  return word.is('+') || (word.kind == TextWord::Kind::word && word.text == "-");
}

std::string_view withoutTrailing(std::string_view text, char filler) {
  std::size_t last = text.find_last_not_of(filler);
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// A decimal number, comparable at any length.
struct Decimal {
  explicit Decimal(std::string_view text) {
    bool isMinus = !text.empty() && text.front() == '-';
    if (isMinus || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
    std::size_t point = std::min(text.find('.'), text.size());
    whole = text.substr(0, point);
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    fraction = withoutTrailing(text.substr(std::min(point + 1, text.size())), '0');
    bool isZero = whole.empty() && fraction.empty();
    sign = isZero ? 0 : isMinus ? -1 : 1;
  }

  std::string_view whole;     // without leading zeros
  std::string_view fraction;  // without trailing zeros
  int sign = 0;
};

int signOf(int order) {
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

int compareNumbers(std::string_view left, std::string_view right) {
  Decimal a(left);
  Decimal b(right);
  if (a.sign != b.sign) return a.sign - b.sign;
  if (a.whole.size() != b.whole.size()) return a.whole.size() < b.whole.size() ? -a.sign : a.sign;
  int order = a.whole.compare(b.whole);
  if (order == 0) order = a.fraction.compare(b.fraction);
  return signOf(order) * a.sign;
}

}  // namespace

bool readCompileValue(std::vector<TextWord> const& words, std::size_t& at, CompileValue& value) {
  std::size_t next = at;
  std::string number;
  if (next < words.size() && isSign(words[next])) number += words[next++].text;
  if (next >= words.size()) return false;
  if (words[next].kind == TextWord::Kind::literal && number.empty() && !words[next].isOpen) {
    value = {decodeLiteral(words[next].text).text, false};
    at = next + 1;
    return true;
  }
  std::string_view digits = words[next].text;
  // A sign that is a hyphen belongs to the word.
  if (number.empty() && digits.size() > 1 && digits.front() == '-') digits.remove_prefix(1);
  if (words[next].kind != TextWord::Kind::word || !isAllDigits(digits)) return false;
  number += words[next++].text;
  bool hasFraction = next + 1 < words.size() && words[next].is('.') && !words[next].isApart &&
                     !words[next + 1].isApart && isAllDigits(words[next + 1].text);
  if (hasFraction) {
    (number += '.') += words[next + 1].text;
    next += 2;
  }
  value = {number, true};
  at = next;
  return true;
}

int compareCompileValues(CompileValue const& left, CompileValue const& right) {
  if (left.isNumber) return compareNumbers(left.text, right.text);
  return signOf(withoutTrailing(left.text, ' ').compare(withoutTrailing(right.text, ' ')));
}

}  // namespace fdmorph::compiler
