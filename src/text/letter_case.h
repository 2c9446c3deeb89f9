// Letter case and digits. COBOL knows ASCII letters only, in every locale.
#pragma once

#include <string>
#include <string_view>

namespace fdmorph {

constexpr char toUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
constexpr char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

inline std::string upperCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = toUpper(c);
  return result;
}

constexpr bool equalsIgnoringCase(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (toUpper(left[i]) != toUpper(right[i])) return false;
  }
  return true;
}

constexpr bool startsWithIgnoringCase(std::string_view text, std::string_view head) {
  return text.size() >= head.size() && equalsIgnoringCase(text.substr(0, head.size()), head);
}

constexpr bool isAllDigits(std::string_view text) {
  for (char c : text) {
    if (!isDigit(c)) return false;
  }
  return !text.empty();
}

/// Hash and equality of names in any case, for unordered containers.
struct CaseInsensitiveHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    std::size_t hash = 14695981039346656037ULL;
    for (char c : text) hash = (hash ^ static_cast<unsigned char>(toUpper(c))) * 1099511628211ULL;
    return hash;
  }
};
struct CaseInsensitiveEqual {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const {
    return equalsIgnoringCase(left, right);
  }
};

}  // namespace fdmorph
