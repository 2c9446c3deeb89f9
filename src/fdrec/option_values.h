// Forms of the values of options.
#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <string>

namespace fdmorph::fdrec {

/// One of a set of names, in any case, for an option that is an enumeration.
template <typename Value>
CLI::Validator oneOf(std::map<std::string, Value> const& values) {
  return CLI::Validator(
      [values](std::string& text) -> std::string {
        auto found = values.find(CLI::detail::to_lower(text));
        if (found == values.end()) {
          std::string names;
          for (auto const& [name, value] : values) names += (names.empty() ? "" : "|") + name;
          return "expected " + names + ", found '" + text + "'";
        }
        // As the library reads an enumeration.
        text = std::to_string(static_cast<int>(found->second));
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
