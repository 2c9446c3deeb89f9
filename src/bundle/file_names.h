// The names of the files in a bundle.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace fdmorph::bundle {

/// Gives names that are all different, on file systems that ignore case, too. They depend
/// only on what is asked for, in which order. They consist of ASCII letters, digits and
/// "._-+", so that they mean the same as paths and as relative URIs.
class FileNames {
 public:
  /// Keeps a name from being given.
  void reserve(std::string_view name);

  /// A name for the file at a path or URI: the last part of the path, other characters
  /// replaced by '_'. If it has been given, "-2", "-3" and so on before the extension.
  [[nodiscard]] std::string take(std::string_view path);

 private:
  [[nodiscard]] bool insert(std::string_view name);

  std::unordered_set<std::string> m_taken;                 // in upper case
  std::unordered_map<std::string, std::size_t> m_numbers;  // the last one, by such a name
};

}  // namespace fdmorph::bundle
