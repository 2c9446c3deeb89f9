#include "compiler/replacing_phrase.h"

namespace fdmorph::compiler {
namespace {

class PhraseReader {
 public:
  PhraseReader(TextWord word, std::function<TextWord()> const& next) : m_word(word), m_next(next) {}

  std::optional<TextWord> read(ReplacementList& list) {
    if (readAll(list)) return std::nullopt;
    TextWord mistake = m_word;
    skipToPeriod();
    return mistake;
  }

 private:
  bool readAll(ReplacementList& list) {
    do {
      Replacement replacement;
      skipSeparators();
      if (m_word.isWord("LEADING") || m_word.isWord("TRAILING")) {
        replacement.part =
            m_word.isWord("LEADING") ? Replacement::Part::leading : Replacement::Part::trailing;
        advance();
        skipSeparators();
      }
      if (!readOperand(replacement.from) || replacement.from.empty()) return false;
      skipSeparators();
      if (!m_word.isWord("BY")) return false;
      advance();
      skipSeparators();
      if (!readOperand(replacement.to)) return false;
      list.add(std::move(replacement));
      skipSeparators();
    } while (!m_word.is('.'));
    return true;
  }

  void skipSeparators() {
    while (m_word.is(',') || m_word.is(';')) advance();
  }

  // A period in pseudo-text isn't the statement's.
  void skipToPeriod() {
    bool isInside = false;
    for (; !m_word.isEnd() && (isInside || !m_word.is('.')); advance()) {
      isInside ^= m_word.kind == TextWord::Kind::pseudo;
    }
  }

  void advance() { m_word = m_next(); }

  bool readOperand(std::vector<TextWord>& words) {
    if (m_word.kind == TextWord::Kind::pseudo) return readPseudoText(words);
    bool isSigned = m_word.is('+') || m_word.is('-');
    if (isSigned) take(words);
    if (m_word.kind == TextWord::Kind::end || m_word.kind == TextWord::Kind::pseudo) return false;
    if (m_word.kind == TextWord::Kind::symbol && !m_word.is(':')) return false;
    take(words);
    // A word with a tag in it, a decimal number, a picture: no blank within.
    while (!m_word.isApart && isInnerSymbol()) take(words);
    readQualifiers(words);
    return true;
  }

  bool isInnerSymbol() const {
    bool isWord = m_word.kind == TextWord::Kind::word || m_word.kind == TextWord::Kind::literal;
    bool isPunctuation = m_word.is('.') || m_word.is(',') || m_word.is(';');
    return isWord || (m_word.kind == TextWord::Kind::symbol && !isPunctuation);
  }

  // A OF B, A (1).
  void readQualifiers(std::vector<TextWord>& words) {
    while (m_word.isWord("OF") || m_word.isWord("IN")) {
      take(words);
      take(words);
    }
    if (!m_word.is('(')) return;
    while (m_word.kind != TextWord::Kind::end && !m_word.is('.')) {
      bool isLast = m_word.is(')');
      take(words);
      if (isLast) break;
    }
  }

  bool readPseudoText(std::vector<TextWord>& words) {
    advance();
    while (m_word.kind != TextWord::Kind::pseudo) {
      if (m_word.kind == TextWord::Kind::end) return false;
      take(words);
    }
    advance();
    return true;
  }

  void take(std::vector<TextWord>& words) {
    words.push_back(m_word);
    advance();
  }

  TextWord m_word;
  std::function<TextWord()> const& m_next;
};

}  // namespace

std::optional<TextWord> readReplacements(TextWord word, std::function<TextWord()> const& next,
                                         ReplacementList& list) {
  return PhraseReader(word, next).read(list);
}

}  // namespace fdmorph::compiler
