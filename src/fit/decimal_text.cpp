#include "fit/decimal_text.h"

#include <algorithm>

namespace fdmorph::fit {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isDigits(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::optional<DecimalText> readDecimal(std::string_view text) {
  std::size_t const begin = text.find_first_not_of(kBlanks);
  if (begin == text.npos) return std::nullopt;
  text = text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
  DecimalText number;
  if (text.front() == '-' || text.front() == '+') {
    number.isNegative = text.front() == '-';
    text.remove_prefix(1);
  }
  std::size_t const point = text.find('.');
  std::string_view integer = text.substr(0, point);
  std::string_view fraction = point == text.npos ? std::string_view() : text.substr(point + 1);
  if ((integer.empty() && fraction.empty()) || !isDigits(integer) || !isDigits(fraction)) {
    return std::nullopt;
  }
  integer.remove_prefix(std::min(integer.find_first_not_of('0'), integer.size()));
  fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
  number.integer = integer;
  number.fraction = fraction;
  if (number.isZero()) number.isNegative = false;
  return number;
}

std::strong_ordering compareMagnitudes(DecimalText const& left, DecimalText const& right) {
  if (auto order = left.integer.size() <=> right.integer.size(); std::is_neq(order)) return order;
  if (auto order = left.integer.compare(right.integer) <=> 0; std::is_neq(order)) return order;
  return left.fraction.compare(right.fraction) <=> 0;
}

}  // namespace fdmorph::fit
