// Forms of the values of options.
#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <string>

namespace fdmorph::fdrec {

/// The words of an option, as the help and messages have them.
template <typename Value>
std::string joinedWords(std::map<std::string, Value> const& values) {
  std::string names;
  for (auto const& [name, value] : values) names += (names.empty() ? "" : "|") + name;
  return names;
}

/// Makes an option that is an enumeration take one of a set of words, in any case, which
/// the help shows.
template <typename Value>
CLI::Option* takeWord(CLI::Option* option, std::map<std::string, Value> const& values) {
  std::string const names = joinedWords(values);
  auto check = [values, names](std::string& text) -> std::string {
    auto found = values.find(CLI::detail::to_lower(text));
    if (found == values.end()) return "expected " + names + ", found '" + text + "'";
    // As the library reads an enumeration.
    text = std::to_string(static_cast<int>(found->second));
    return {};
  };
  return option->transform(CLI::Validator(check, ""))->option_text(names);
}

/// A number above 0 in decimal digits.
inline CLI::Validator positive() {
  return CLI::Validator(
      [](std::string& text) -> std::string {
        bool const isNumber =
            !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
        if (!isNumber || text.find_first_not_of('0') == std::string::npos) {
          return "expected a number above 0, found " + text;
        }
        text.erase(0, text.find_first_not_of('0'));
        return {};
      },
      "");
}

/// A number in decimal digits. The library takes others, too: 010 as 8.
inline CLI::Validator decimal() {
  return CLI::Validator(
      [](std::string& text) -> std::string {
        if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) {
          return "expected a number, found " + text;
        }
        text.erase(0, std::min(text.find_first_not_of('0'), text.size() - 1));
        return {};
      },
      "");
}

}  // namespace fdmorph::fdrec
