#include "bundle/file_names.h"

#include <algorithm>

#include "text/letter_case.h"

namespace fdmorph::bundle {
namespace {

constexpr std::string_view kNameless = "schema.xsd";

bool isPortable(char c) {
  return isLetter(c) || isDigit(c) || std::string_view("._-+").find(c) != std::string_view::npos;
}

// A name does not begin like a hidden file or an option.
std::string portableName(std::string_view path) {
  std::string_view const last = path.substr(path.rfind('/') + 1);
  std::string name;
  bool isReplaced = false;
  for (char c : last) {
    bool const isKept = isPortable(c) && !(name.empty() && (c == '.' || c == '-'));
    if (isKept || !isReplaced) name += isKept ? c : '_';
    isReplaced = !isKept;
  }
  return name.empty() ? std::string(kNameless) : name;
}

}  // namespace

void FileNames::reserve(std::string_view name) {
  m_taken.insert(upperCase(name));
}

std::string FileNames::take(std::string_view path) {
  std::string name = portableName(path);
  if (insert(name)) return name;
  std::size_t const dot = std::min(name.rfind('.'), name.size());
  std::size_t& number = m_numbers.try_emplace(upperCase(name), 1).first->second;
  while (true) {
    std::string numbered = name.substr(0, dot) + "-" + std::to_string(++number) + name.substr(dot);
    if (insert(numbered)) return numbered;
  }
}

bool FileNames::insert(std::string_view name) {
  return m_taken.insert(upperCase(name)).second;
}

}  // namespace fdmorph::bundle
