#include "preprocess/replacing.h"

#include <algorithm>

namespace fdmorph::compiler {
namespace {

bool isSeparator(TextWord const& word) {
  return word.is(',') || word.is(';');
}

bool isSame(TextWord const& left, TextWord const& right) {
  if (left.kind != right.kind) return false;
  if (left.kind == TextWord::Kind::literal) return left.text == right.text;
  return equalsIgnoringCase(left.text, right.text);
}

/// Reads `A BY B` again and again, up to a period.
class PhraseReader {
 public:
  PhraseReader(TextWord word, std::function<TextWord()> const& next) : m_word(word), m_next(next) {}

  std::optional<ReplacementError> read(ReplacementList& list) {
    readAll(list);
    if (m_error) skipToPeriod();
    return m_error;
  }

 private:
  bool fail(char const* expected) {
    m_error = {m_word, expected};
    return false;
  }

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
      if (!readOperand(replacement.from)) return false;
      if (replacement.from.empty()) return fail("text to replace");
      skipSeparators();
      if (!m_word.isWord("BY")) return fail("BY");
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

  // A period in pseudo-text does not end the statement.
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
    bool isOperand = m_word.kind == TextWord::Kind::word ||
                     m_word.kind == TextWord::Kind::literal || m_word.is(':');
    if (!isOperand) return fail("a word, literal or pseudo-text");
    take(words);
    // The operand extends to a blank: a word with a tag, a decimal number or a
    // picture.
    while (!m_word.precededBySpace && isInnerSymbol()) take(words);
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
      if (m_word.kind == TextWord::Kind::end) return fail("'=='");
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
  std::optional<ReplacementError> m_error;
};

}  // namespace

void ReplacementList::add(Replacement replacement) {
  // Separators are skipped on both sides. A comma in a picture is not a separator.
  std::vector<TextWord> from;
  for (std::size_t i = 0; i < replacement.from.size(); ++i) {
    bool isLast = i + 1 == replacement.from.size() || replacement.from[i + 1].precededBySpace;
    if (!isSeparator(replacement.from[i]) || !isLast) from.push_back(replacement.from[i]);
  }
  replacement.from = std::move(from);
  if (replacement.from.empty()) return;
  std::string first(replacement.from.front().text);
  std::size_t index = m_all.size();
  if (replacement.part == Replacement::Part::whole) {
    Beginning& beginning = m_byFirst[first];
    bool isAlone = replacement.from.size() == 1;
    (isAlone ? beginning.alone : beginning.bySecond[std::string(replacement.from[1].text)])
        .push_back(index);
  } else if (replacement.from.size() == 1) {
    bool isLeading = replacement.part == Replacement::Part::leading;
    (isLeading ? m_leading : m_trailing)[first.size()].try_emplace(first, index);
  }
  m_all.push_back(std::move(replacement));
}

void ReplacementList::clear() {
  m_all.clear();
  m_byFirst.clear();
  m_leading.clear();
  m_trailing.clear();
}

ReplacementList::Indexes const* ReplacementList::ofWord(std::string_view word) const {
  auto found = m_byFirst.find(word);
  return found == m_byFirst.end() ? nullptr : &found->second.alone;
}

bool ReplacementList::hasLonger(std::string_view first) const {
  auto found = m_byFirst.find(first);
  return found != m_byFirst.end() && !found->second.bySecond.empty();
}

ReplacementList::Indexes const* ReplacementList::ofWords(std::string_view first,
                                                         std::string_view second) const {
  auto found = m_byFirst.find(first);
  if (found == m_byFirst.end()) return nullptr;
  auto longer = found->second.bySecond.find(second);
  return longer == found->second.bySecond.end() ? nullptr : &longer->second;
}

std::optional<std::size_t> ReplacementList::ofPart(std::string_view word) const {
  std::optional<std::size_t> first;
  auto look = [&](Parts const& parts, bool isLeading) {
    for (auto const& [size, byText] : parts) {
      if (size > word.size()) break;
      std::string_view part = isLeading ? word.substr(0, size) : word.substr(word.size() - size);
      auto found = byText.find(part);
      if (found != byText.end() && (!first || found->second < *first)) first = found->second;
    }
  };
  look(m_leading, true);
  look(m_trailing, false);
  return first;
}

TextWord const& Replacer::ahead(std::size_t index) {
  while (m_ahead.size() <= index) m_ahead.push_back(m_inner.next());
  return m_ahead[index];
}

TextWord Replacer::nextRaw() {
  TextWord word = ahead(0);
  m_ahead.pop_front();
  return word;
}

TextWord Replacer::next() {
  for (;;) {
    if (!m_output.empty()) {
      TextWord word = m_output.front();
      m_output.pop_front();
      return word;
    }
    if (m_list.isEmpty() && m_ahead.empty()) return m_inner.next();
    if (ahead(0).isEnd()) return ahead(0);
    bool isInPicture = isPictureWord(ahead(0));
    if (!m_list.isEmpty() && replaceHere(isInPicture)) continue;
    return nextRaw();
  }
}

// Whether the word is part of a picture: of the words after PICTURE IS up to a
// blank. To be called once for each word.
bool Replacer::isPictureWord(TextWord const& word) {
  if (m_picture == PictureState::announced && !word.isWord("IS")) {
    m_picture = PictureState::inside;
    m_isAfterSeparator = false;
    return true;
  }
  if (m_picture == PictureState::inside && word.precededBySpace) m_picture = PictureState::none;
  if (word.isWord("PIC") || word.isWord("PICTURE")) {
    if (m_picture == PictureState::none) m_picture = PictureState::announced;
    return false;
  }
  return m_picture == PictureState::inside;
}

bool Replacer::replaceHere(bool isInPicture) {
  std::string_view word = ahead(0).text;
  std::optional<std::size_t> part;
  if (ahead(0).kind == TextWord::Kind::word) part = m_list.ofPart(word);
  std::size_t last = part ? *part : std::string::npos;
  ReplacementList::Indexes const* longer = nullptr;
  if (m_list.hasLonger(word)) longer = m_list.ofWords(word, ahead(afterSeparators(1)).text);
  if (tryAll(m_list.ofWord(word), longer, last, isInPicture)) return true;
  if (part && hasBudget()) {
    replacePart(m_list.at(*part));
    return true;
  }
  m_isAfterSeparator = ahead(0).is('(') || ahead(0).is(')') || ahead(0).is(':');
  return false;
}

// Tries the replacements of both lists up to the index `last`, in the order of the
// statement. The lists ascend.
bool Replacer::tryAll(ReplacementList::Indexes const* alone, ReplacementList::Indexes const* longer,
                      std::size_t last, bool isInPicture) {
  static ReplacementList::Indexes const kNone;
  if (alone == nullptr) alone = &kNone;
  if (longer == nullptr) longer = &kNone;
  auto one = alone->begin();
  auto other = longer->begin();
  while (one != alone->end() || other != longer->end()) {
    bool isOne = other == longer->end() || (one != alone->end() && *one < *other);
    std::size_t index = isOne ? *one++ : *other++;
    if (index > last || !hasBudget()) return false;
    if (tryWhole(m_list.at(index), isInPicture)) return true;
  }
  return false;
}

bool Replacer::hasBudget() {
  bool isOver = m_budget.comparisons > ReplacementBudget::kMaxComparisons ||
                m_budget.bytes > ReplacementBudget::kMaxText;
  if (isOver && !m_budget.isExceeded) {
    m_budget.isExceeded = true;
    m_diagnostics.report(Code::copyLimit, ahead(0).place, "too much text is replaced");
  }
  return !isOver;
}

// The index of the first word from `index` on that is not a separator.
std::size_t Replacer::afterSeparators(std::size_t index) {
  for (; isSeparator(ahead(index)) && ahead(index + 1).precededBySpace; ++index) {
    ++m_budget.comparisons;
  }
  return index;
}

bool Replacer::tryWhole(Replacement const& replacement, bool isInPicture) {
  std::size_t at = 0;
  for (TextWord const& wanted : replacement.from) {
    if (at > 0) at = afterSeparators(at);
    ++m_budget.comparisons;
    if (!isSame(ahead(at), wanted)) return false;
    ++at;
  }
  bool isLoneWord =
      replacement.from.size() == 1 && replacement.from.front().kind == TextWord::Kind::word;
  if (isInPicture && isLoneWord && !fitsPicture(at)) return false;
  TextWord first = ahead(0);
  ahead(at);
  m_ahead.erase(m_ahead.begin(), m_ahead.begin() + static_cast<std::ptrdiff_t>(at));
  emit(replacement.to, first);
  return true;
}

// In a picture only blanks, parentheses, colons and a final period separate words.
bool Replacer::fitsPicture(std::size_t matched) {
  auto isBound = [](TextWord const& word) { return word.is('(') || word.is(')') || word.is(':'); };
  if (!m_isAfterSeparator && !ahead(0).precededBySpace) return false;
  TextWord const& next = ahead(matched);
  bool isPeriod = (next.is('.') || isSeparator(next)) &&
                  (ahead(matched + 1).precededBySpace || ahead(matched + 1).isEnd());
  return next.precededBySpace || next.isEnd() || isBound(next) || isPeriod;
}

void Replacer::replacePart(Replacement const& replacement) {
  TextWord word = ahead(0);
  m_ahead.pop_front();
  bool isLeading = replacement.part == Replacement::Part::leading;
  std::size_t size = replacement.from.front().text.size();
  std::string text;
  if (!isLeading) text += word.text.substr(0, word.text.size() - size);
  for (TextWord const& each : replacement.to) text += each.text;
  if (isLeading) text += word.text.substr(size);
  if (text.empty()) return;
  m_budget.bytes += text.size();
  word.text = m_pool.append(text);
  m_output.push_back(word);
}

void Replacer::emit(std::vector<TextWord> const& words, TextWord const& at) {
  for (TextWord word : words) {
    bool isFirst = m_output.empty();
    word.place = at.place;
    word.isFirstOnLine = isFirst && at.isFirstOnLine;
    if (isFirst) word.precededBySpace = at.precededBySpace;
    m_budget.bytes += word.text.size() + 1;
    m_output.push_back(word);
  }
  if (!words.empty()) return;
  // The next word takes over what preceded the deleted text.
  m_ahead.front().precededBySpace |= at.precededBySpace;
  m_ahead.front().isFirstOnLine |= at.isFirstOnLine;
}

std::optional<ReplacementError> readReplacements(TextWord word,
                                                 std::function<TextWord()> const& next,
                                                 ReplacementList& list) {
  return PhraseReader(word, next).read(list);
}

TextWord ReplaceStatements::next() {
  for (;;) {
    TextWord word = m_replacer.next();
    if (word.isComment || !word.isWord("REPLACE")) return word;
    TextWord const& following = m_replacer.peekRaw();
    bool isStatement = following.kind == TextWord::Kind::pseudo || following.isWord("OFF") ||
                       following.isWord("ALSO") || following.isWord("LAST") ||
                       following.isWord("LEADING") || following.isWord("TRAILING");
    if (!isStatement) return word;
    statement(m_replacer.nextRaw());
  }
}

void ReplaceStatements::statement(TextWord const& word) {
  ReplacementList& list = m_replacer.list();
  TextWord first = word;
  if (!first.isWord("ALSO")) list.clear();
  if (first.isWord("ALSO") || first.isWord("LAST")) first = m_replacer.nextRaw();
  if (first.isWord("OFF")) {
    first = m_replacer.nextRaw();
    if (first.is('.')) return;
  }
  std::optional<ReplacementError> error = readReplacements(
      first, [this] { return m_replacer.nextRaw(); }, list);
  if (!error) return;
  m_diagnostics.report(Code::replaceSyntax, error->word.place,
                       std::string("expected ") + error->expected +
                           " in the REPLACE statement, found " + describe(error->word));
}

}  // namespace fdmorph::compiler
