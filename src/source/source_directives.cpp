#include "source/source_directives.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

bool isWordCharacter(char c) {
  return isLetter(c) || isDigit(c) || c == '-';
}

// The words of a line. Quotes and parentheses separate them.
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

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [word](std::string_view each) { return equalsIgnoringCase(word, each); });
}

bool isConditionalWord(std::string_view word) {
  return isOneOf(word, {"IF", "ELIF", "ELSE-IF", "ELSE", "END-IF"});
}

// `SET SOURCEFORMAT"FREE"` or `SET CONSTANT name(value)`. Other settings are
// ignored.
SourceDirective readSetDirective(std::vector<std::string_view> const& words) {
  SourceDirective directive;
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (equalsIgnoringCase(words[i], "CONSTANT")) directive.isConditional = true;
    if (!equalsIgnoringCase(words[i], "SOURCEFORMAT")) continue;
    directive.format = formatOfName(words[i + 1]);
    directive.isKnown = directive.format.has_value();
  }
  return directive;
}

// `>>SOURCE FORMAT IS FREE`, where FORMAT and IS are optional. Directives for the
// listing and for the procedure division have no effect on data.
SourceDirective readStandardDirective(std::vector<std::string_view> const& words) {
  SourceDirective directive;
  if (words.empty()) {
    directive.isKnown = false;
  } else if (equalsIgnoringCase(words.front(), "SOURCE")) {
    directive.format = formatOfName(words.back());
    directive.isKnown = directive.format.has_value();
  } else if (equalsIgnoringCase(words.front(), "SET")) {
    directive = readSetDirective(words);
  } else if (equalsIgnoringCase(words.front(), "DEFINE") || isConditionalWord(words.front())) {
    directive.isConditional = true;
  } else {
    directive.isKnown = isOneOf(words.front(), {"D", "LISTING", "PAGE", "TURN", "PROPAGATE",
                                                "CALL-CONVENTION", "FLAG-02", "FLAG-14"});
  }
  return directive;
}

std::optional<SourceDirective> readDollarDirective(std::vector<std::string_view> const& words) {
  if (words.empty()) return std::nullopt;
  if (equalsIgnoringCase(words.front(), "SET")) return readSetDirective(words);
  SourceDirective directive;
  directive.isConditional =
      isConditionalWord(words.front()) || equalsIgnoringCase(words.front(), "END");
  if (!directive.isConditional) return std::nullopt;
  return directive;
}

}  // namespace

std::optional<Format> formatOfName(std::string_view name) {
  if (equalsIgnoringCase(name, "FIXED")) return Format::fixed;
  if (equalsIgnoringCase(name, "VARIABLE")) return Format::variable;
  if (equalsIgnoringCase(name, "FREE")) return Format::free;
  return std::nullopt;
}

std::optional<SourceDirective> readSourceDirective(std::string_view line) {
  std::size_t begin = line.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return std::nullopt;
  line.remove_prefix(begin);
  if (line.starts_with(">>")) return readStandardDirective(wordsOf(line.substr(2)));
  if (line.front() != '$' || line.size() < 2 || !isLetter(line[1])) return std::nullopt;
  return readDollarDirective(wordsOf(line.substr(1)));
}

}  // namespace fdmorph::compiler
