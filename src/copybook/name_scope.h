// Names that every COBOL compiler takes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "text/letter_case.h"

namespace fdmorph::copybook {

/// The longest name of an item, in characters.
inline constexpr std::size_t kMaxNameSize = 30;

/// Why a name is no name of an item: at most kMaxNameSize letters, digits, hyphens
/// and underscores, a letter among them, no hyphen or underscore at an end, no two
/// hyphens in a row, and no reserved word. Empty if it is one.
[[nodiscard]] std::string_view faultOfName(std::string_view name);

/// A name like `name` without a fault. Other characters become hyphens, hyphens in a
/// row one, those at the ends are left out, "X-" precedes a name without a letter,
/// what exceeds kMaxNameSize is cut off, and "-X" follows a reserved word.
[[nodiscard]] std::string legalName(std::string_view name);

/// The names in one group. The case of letters does not count.
class NameScope {
 public:
  /// Takes a name if it has no fault and is free.
  [[nodiscard]] bool take(std::string_view name);

  /// Takes the legal name of `name`, followed by -2, -3 and so on until it is free.
  /// It is cut so that it is not too long.
  [[nodiscard]] std::string takeLike(std::string_view name);

 private:
  std::unordered_set<std::string, CaseInsensitiveHash, CaseInsensitiveEqual> m_names;
  std::unordered_map<std::string, unsigned, CaseInsensitiveHash, CaseInsensitiveEqual>
      m_numbers;  // the last number after a name
};

}  // namespace fdmorph::copybook
