#include "text/near_words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "text/letter_case.h"

namespace fdmorph {
namespace {

constexpr std::size_t kMaxLength = 40;  // characters; no word that can be meant is longer
constexpr std::size_t kLongWord = 6;

std::size_t leastOf(std::size_t a, std::size_t b, std::size_t c) {
  return std::min({a, b, c});
}

// The distance of Damerau and Levenshtein, each pair of neighbors exchanged once.
std::size_t distance(std::string_view word, std::string_view wanted) {
  std::array<std::array<std::size_t, kMaxLength + 1>, 3> rows{};
  for (std::size_t j = 0; j <= wanted.size(); ++j) rows[0][j] = j;
  for (std::size_t i = 1; i <= word.size(); ++i) {
    auto& row = rows[i % 3];
    auto const& above = rows[(i - 1) % 3];
    row[0] = i;
    for (std::size_t j = 1; j <= wanted.size(); ++j) {
      bool isEqual = toUpper(word[i - 1]) == wanted[j - 1];
      row[j] = leastOf(above[j] + 1, row[j - 1] + 1, above[j - 1] + (isEqual ? 0U : 1U));
      bool isExchanged = i > 1 && j > 1 && toUpper(word[i - 1]) == wanted[j - 2] &&
                         toUpper(word[i - 2]) == wanted[j - 1];
      if (isExchanged) row[j] = std::min(row[j], rows[(i - 2) % 3][j - 2] + 1);
    }
  }
  return rows[word.size() % 3][wanted.size()];
}

}  // namespace

std::string_view nearestWord(std::string_view word, std::span<std::string_view const> words) {
  if (word.size() < 2 || word.size() > kMaxLength) return {};
  std::string_view nearest;
  std::size_t least = word.size() >= kLongWord ? 3 : 2;  // one more than is allowed
  for (std::string_view each : words) {
    if (each.size() > kMaxLength) continue;
    // The lengths differ by as many mistakes at least.
    if (each.size() > word.size() + least || word.size() > each.size() + least) continue;
    std::size_t mistakes = distance(word, each);
    if (mistakes > least) continue;
    nearest = mistakes < least ? each : std::string_view();
    least = mistakes;
  }
  return nearest;
}

std::string suggestWord(std::string_view word, std::span<std::string_view const> words) {
  std::string_view nearest = nearestWord(word, words);
  return nearest.empty() ? std::string() : "; did you mean " + std::string(nearest) + "?";
}

}  // namespace fdmorph
