// Replacement of text, as the REPLACING phrase and the REPLACE statement ask
// for it.
#pragma once

#include <deque>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "compiler/letters.h"
#include "compiler/text_source.h"

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
  void add(Replacement replacement);
  void clear();
  bool isEmpty() const { return m_all.empty(); }

  /// Indexes of the replacements whose text begins with `word`, ascending.
  std::vector<std::size_t> const* beginningWith(std::string_view word) const;
  /// Indexes of those for parts of words.
  std::vector<std::size_t> const& partial() const { return m_partial; }
  Replacement const& at(std::size_t index) const { return m_all[index]; }

 private:
  std::vector<Replacement> m_all;
  std::vector<std::size_t> m_partial;
  std::unordered_map<std::string, std::vector<std::size_t>, BlindHash, BlindEqual> m_byFirst;
};

/// Hands on the words of another source with replacements made. Replaced text
/// is not looked at again. Replaced words take the place of what they replace;
/// commas and semicolons count as blanks in the comparison. Inside a picture a
/// lone word fits the whole picture or what stands in its parentheses.
class Replacer : public TextSource {
 public:
  Replacer(TextSource& inner, TextPool& pool) : m_inner(inner), m_pool(pool) {}

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
  bool tryPart(Replacement const& replacement);
  bool fitsPicture(std::size_t matched);
  void give(std::vector<TextWord> const& words, TextWord const& at);
  bool replaceHere(bool isInPicture);

  TextSource& m_inner;
  TextPool& m_pool;
  ReplacementList m_list;
  std::deque<TextWord> m_ahead;   // read, not yet looked at
  std::deque<TextWord> m_output;  // replaced, on its way out
  enum class Picture { none, announced, inside } m_picture = Picture::none;
  bool m_isAfterParenthesis = false;
};

}  // namespace fdmorph::compiler
