// Text replacement by the REPLACING phrase and the REPLACE statement.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "preprocess/text_words.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

/// One `A BY B`.
struct Replacement {
  enum class Part { whole, leading, trailing };

  std::vector<TextWord> from;  ///< at least one word
  std::vector<TextWord> to;    ///< may be empty
  Part part = Part::whole;     ///< leading and trailing: `from` is a part of one word
};

/// The replacements in force. The first one that matches is applied.
class ReplacementList {
 public:
  /// Indexes of replacements, ascending.
  using Indexes = std::vector<std::size_t>;

  void add(Replacement replacement);
  void clear();
  bool isEmpty() const { return m_all.empty(); }

  /// The replacements of the single word `word`; null if there are none.
  Indexes const* ofWord(std::string_view word) const;
  /// The replacements of texts that begin with these two words; null if there
  /// are none.
  Indexes const* ofWords(std::string_view first, std::string_view second) const;
  /// Whether there are replacements of several words that begin with `first`.
  bool hasLonger(std::string_view first) const;
  /// The first replacement of a leading or trailing part of `word`.
  [[nodiscard]] std::optional<std::size_t> ofPart(std::string_view word) const;
  Replacement const& at(std::size_t index) const { return m_all[index]; }

 private:
  template <typename Value>
  using ByWord = std::unordered_map<std::string, Value, CaseInsensitiveHash, CaseInsensitiveEqual>;
  /// The first replacement of each part, by the part's length.
  using Parts = std::map<std::size_t, ByWord<std::size_t>>;

  struct Beginning {
    Indexes alone;
    ByWord<Indexes> bySecond;
  };

  std::vector<Replacement> m_all;
  ByWord<Beginning> m_byFirst;
  Parts m_leading;
  Parts m_trailing;
};

/// The cost of all replacements of a compilation, and its limits.
struct ReplacementBudget {
  static constexpr std::uint64_t kMaxComparisons = 500'000'000;   ///< of words
  static constexpr std::size_t kMaxText = std::size_t{32} << 20;  ///< bytes

  std::uint64_t comparisons = 0;
  std::size_t bytes = 0;    ///< of members copied again and of text that replaces other
  bool isExceeded = false;  ///< replacement has stopped
};

/// Replaces words of another source. The new text is not searched again; its
/// words have the place of the text that they replace. Commas and semicolons
/// compare as blanks. Inside a picture a single word matches only between blanks
/// or parentheses. If the budget is exceeded, that is reported, and the remaining
/// words are not replaced.
class Replacer : public TextSource {
 public:
  Replacer(TextSource& inner, TextPool& pool, ReplacementBudget& budget, Diagnostics& diagnostics)
      : m_inner(inner), m_pool(pool), m_budget(budget), m_diagnostics(diagnostics) {}

  /// May be changed between calls of next.
  ReplacementList& list() { return m_list; }

  TextWord next() override;

  /// The next word without replacement, for REPLACE statements in the text.
  TextWord nextRaw();
  TextWord const& peekRaw() { return ahead(0); }

 private:
  TextWord const& ahead(std::size_t index);
  bool isPictureWord(TextWord const& word);
  bool tryWhole(Replacement const& replacement, bool isInPicture);
  bool tryAll(ReplacementList::Indexes const* alone, ReplacementList::Indexes const* longer,
              std::size_t last, bool isInPicture);
  void replacePart(Replacement const& replacement);
  std::size_t afterSeparators(std::size_t index);
  bool fitsPicture(std::size_t matched);
  bool hasBudget();
  void emit(std::vector<TextWord> const& words, TextWord const& at);
  bool replaceHere(bool isInPicture);

  TextSource& m_inner;
  TextPool& m_pool;
  ReplacementBudget& m_budget;
  Diagnostics& m_diagnostics;
  ReplacementList m_list;
  std::deque<TextWord> m_ahead;   // read, not yet searched
  std::deque<TextWord> m_output;  // replaced, not yet returned
  enum class PictureState { none, announced, inside } m_picture = PictureState::none;
  bool m_isAfterSeparator = false;
};

/// A word that does not fit into a phrase.
struct ReplacementError {
  TextWord word;
  char const* expected;  ///< what is expected in its place
};

/// Reads the replacements of a phrase, whose first word is `word`, up to and with
/// its period. After an error the list has the replacements before it, and the
/// rest of the phrase has been skipped.
[[nodiscard]] std::optional<ReplacementError> readReplacements(
    TextWord word, std::function<TextWord()> const& next, ReplacementList& list);

/// Applies REPLACE statements to a text.
class ReplaceStatements : public TextSource {
 public:
  ReplaceStatements(TextSource& inner, TextPool& pool, ReplacementBudget& budget,
                    Diagnostics& diagnostics)
      : m_replacer(inner, pool, budget, diagnostics), m_diagnostics(diagnostics) {}

  TextWord next() override;

 private:
  void statement(TextWord const& word);

  Replacer m_replacer;
  Diagnostics& m_diagnostics;
};

}  // namespace fdmorph::compiler
