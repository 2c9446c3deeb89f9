#include "semantics/constants.h"

#include "source/literals.h"

namespace fdmorph::compiler {

std::optional<std::uint64_t> integerOf(std::string_view digits) {
  constexpr std::uint64_t kMaxInteger = std::uint64_t{1} << 53;
  if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
  if (!isAllDigits(digits)) return std::nullopt;
  std::uint64_t value = 0;
  for (char c : digits) {
    value = value * 10 + static_cast<std::uint64_t>(c - '0');
    if (value > kMaxInteger) return std::nullopt;
  }
  return value;
}

std::optional<std::uint64_t> integerOf(Literal const& value) {
  switch (value.kind) {
    case Literal::Kind::zero:
      return 0;
    case Literal::Kind::broken:
      return 1;
    case Literal::Kind::number:
      return integerOf(value.text);
    case Literal::Kind::text: {
      LiteralContent content = decodeLiteral(value.text);
      return content.isNumber ? integerOf(std::string_view(content.text)) : std::nullopt;
    }
    default:
      return std::nullopt;
  }
}

}  // namespace fdmorph::compiler
