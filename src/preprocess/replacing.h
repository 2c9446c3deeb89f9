// Replacement of text, as the REPLACING phrase and the REPLACE statement ask
// for it.
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
  Part part = Part::whole;     ///< leading and trailing: a part of one word
};

/// The replacements that are in force together; the first that fits wins.
class ReplacementList {
 public:
  /// Indexes of replacements, ascending.
  using Indexes = std::vector<std::size_t>;

  void add(Replacement replacement);
  void clear();
  bool isEmpty() const { return m_all.empty(); }

  /// The replacements whose text is `word` alone; null if there is none.
  Indexes const* ofWord(std::string_view word) const;
  /// Those whose text begins with both words.
  Indexes const* ofWords(std::string_view first, std::string_view second) const;
  /// Whether there are such that begin with `first`.
  bool hasMore(std::string_view first) const;
  /// The first one for the beginning or end of `word`; nothing without one.
  std::optional<std::size_t> ofPart(std::string_view word) const;
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

/// What all replacements of a compilation may cost together.
struct ReplacementBudget {
  static constexpr std::uint64_t kMaxComparisons = 500'000'000;   ///< of words
  static constexpr std::size_t kMaxText = std::size_t{32} << 20;  ///< bytes

  std::uint64_t comparisons = 0;
  std::size_t bytes = 0;    ///< of members copied again and of text that replaces other
  bool isExceeded = false;  ///< nothing is replaced any more
};

/// Hands on the words of another source with replacements made. Replaced text
/// is not looked at again. Replaced words take the place of what they replace;
/// commas and semicolons count as blanks in the comparison. Inside a picture a
/// lone word fits what stands between blanks or parentheses. When the
/// budget is exceeded that is reported, and words are handed on as they are.
class Replacer : public TextSource {
 public:
  Replacer(TextSource& inner, TextPool& pool, ReplacementBudget& budget, Diagnostics& diagnostics)
      : m_inner(inner), m_pool(pool), m_budget(budget), m_diagnostics(diagnostics) {}

  /// To be changed only between calls of next.
  ReplacementList& list() { return m_list; }

  TextWord next() override;

  /// The next word without replacement, for statements that stand in the text.
  /// Words that the last match looked ahead at come first.
  TextWord nextRaw();
  TextWord const& peekRaw() { return ahead(0); }

 private:
  TextWord const& ahead(std::size_t index);
  bool isPictureWord(TextWord const& word);
  bool tryWhole(Replacement const& replacement, bool isInPicture);
  bool tryWhole(ReplacementList::Indexes const* alone, ReplacementList::Indexes const* longer,
                std::size_t end, bool isInPicture);
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
  std::deque<TextWord> m_ahead;   // read, not yet looked at
  std::deque<TextWord> m_output;  // replaced, on its way out
  enum class PictureState { none, announced, inside } m_picture = PictureState::none;
  bool m_isAfterSeparator = false;
};

/// Reads replacements from `next` up to and with the period. On a mistake the
/// result is the word that doesn't fit; the list then holds what came before.
/// `word` is the first word of the phrase.
std::optional<TextWord> readReplacements(TextWord word, std::function<TextWord()> const& next,
                                         ReplacementList& list);

}  // namespace fdmorph::compiler
