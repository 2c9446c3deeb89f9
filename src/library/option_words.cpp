#include "library/option_words.h"

namespace fdmorph::library {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kEscapable = "\"\\$`";  // in quotation marks

}  // namespace

std::optional<std::vector<std::string>> optionWords(std::string_view text) {
  std::vector<std::string> words;
  bool isInWord = false;
  char quote = '\0';
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    bool isBlank = quote == '\0' && kBlanks.find(c) != std::string_view::npos;
    if (isBlank) {
      isInWord = false;
      continue;
    }
    if (!isInWord) words.emplace_back();
    isInWord = true;
    bool isEscape = c == '\\' && quote != '\'' && i + 1 < text.size() &&
                    (quote == '\0' || kEscapable.find(text[i + 1]) != std::string_view::npos);
    if (isEscape) {
      words.back() += text[++i];
    } else if (quote != '\0' && c == quote) {
      quote = '\0';
    } else if (quote == '\0' && (c == '\'' || c == '"')) {
      quote = c;
    } else {
      words.back() += c;
    }
  }
  if (quote != '\0') return std::nullopt;
  return words;
}

}  // namespace fdmorph::library
