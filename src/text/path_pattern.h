// Patterns of paths in a tree of names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fdmorph {

/// A path such as ORDER/LINE/@id. The step "*" stands for any name without an "@",
/// "@*" for any name with one, "**" for any number of names, also none.
class PathPattern {
 public:
  explicit PathPattern(std::string text);

  [[nodiscard]] bool matches(std::string_view path) const;

  /// As it was given.
  std::string const& text() const { return m_text; }

 private:
  std::string m_text;
  std::vector<std::string> m_steps;
};

/// The names of a path, between its slashes. They look at the path.
[[nodiscard]] std::vector<std::string_view> stepsOf(std::string_view path);

}  // namespace fdmorph
