// A stage of text manipulation: something that hands out text words.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>

#include "compiler/text_words.h"

namespace fdmorph::compiler {

class TextSource {
 public:
  virtual ~TextSource() = default;

  /// The next word; the end again and again behind the last one.
  virtual TextWord next() = 0;
};

/// Owns what words look at: texts that were read, and words that stand in no
/// file because they were put together. Views of them stay good.
class TextPool {
 public:
  std::string_view keep(std::string text) { return m_words.emplace_back(std::move(text)); }
  ReadText const& keep(ReadText text) { return m_texts.emplace_back(std::move(text)); }

 private:
  std::deque<std::string> m_words;
  std::deque<ReadText> m_texts;
};

}  // namespace fdmorph::compiler
