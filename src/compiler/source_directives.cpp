#include "compiler/source_directives.h"

#include <vector>

#include "compiler/letters.h"

namespace fdmorph::compiler {
namespace {

bool isWordCharacter(char c) {
  return isLetter(c) || isDigit(c) || c == '-';
}

// The words of a line; quotes and parentheses only separate.
std::vector<std::string_view> wordsOf(std::string_view line) {
  std::vector<std::string_view> words;
  std::size_t at = 0;
  while (at < line.size()) {
    std::size_t end = at;
    while (end < line.size() && isWordCharacter(line[end])) ++end;
    if (end > at) words.push_back(line.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

// `>>SOURCE FORMAT IS FREE`, with both fill words left out at will.
SourceDirective readStandardDirective(std::vector<std::string_view> const& words) {
  SourceDirective directive;
  bool isSource = !words.empty() && equalsBlindly(words.front(), "SOURCE");
  bool isDebugging = !words.empty() && equalsBlindly(words.front(), "D");
  if (isSource) directive.format = formatOfName(words.back());
  directive.isKnown = directive.format.has_value() || isDebugging;
  return directive;
}

// `$SET SOURCEFORMAT"FREE"` among other settings, which are passed over.
SourceDirective readSetDirective(std::vector<std::string_view> const& words) {
  SourceDirective directive;
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (!equalsBlindly(words[i], "SOURCEFORMAT")) continue;
    directive.format = formatOfName(words[i + 1]);
    directive.isKnown = directive.format.has_value();
  }
  return directive;
}

}  // namespace

std::optional<Format> formatOfName(std::string_view name) {
  if (equalsBlindly(name, "FIXED")) return Format::fixed;
  if (equalsBlindly(name, "VARIABLE")) return Format::variable;
  if (equalsBlindly(name, "FREE")) return Format::free;
  return std::nullopt;
}

std::optional<SourceDirective> readSourceDirective(std::string_view line) {
  std::size_t begin = line.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return std::nullopt;
  line.remove_prefix(begin);
  if (line.starts_with(">>")) return readStandardDirective(wordsOf(line.substr(2)));
  if (line.front() != '$') return std::nullopt;
  std::vector<std::string_view> words = wordsOf(line.substr(1));
  if (words.empty() || !equalsBlindly(words.front(), "SET")) return SourceDirective{{}, false};
  return readSetDirective(words);
}

}  // namespace fdmorph::compiler
