#include "compiler/replacing.h"

#include <algorithm>

namespace fdmorph::compiler {
namespace {

bool isSeparator(TextWord const& word) {
  return word.is(',') || word.is(';');
}

bool isSame(TextWord const& left, TextWord const& right) {
  if (left.kind != right.kind) return false;
  if (left.kind == TextWord::Kind::literal) return left.text == right.text;
  return equalsBlindly(left.text, right.text);
}

}  // namespace

void ReplacementList::add(Replacement replacement) {
  // Separators are skipped on both sides.
  std::erase_if(replacement.from, isSeparator);
  if (replacement.from.empty()) return;
  if (replacement.part == Replacement::Part::whole) {
    m_byFirst[std::string(replacement.from.front().text)].push_back(m_all.size());
  } else {
    m_partial.push_back(m_all.size());
  }
  m_all.push_back(std::move(replacement));
}

void ReplacementList::clear() {
  m_all.clear();
  m_partial.clear();
  m_byFirst.clear();
}

std::vector<std::size_t> const* ReplacementList::beginningWith(std::string_view word) const {
  auto found = m_byFirst.find(word);
  return found == m_byFirst.end() ? nullptr : &found->second;
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

// Follows PICTURE IS and the run of words without blanks behind it.
bool Replacer::isPictureWord(TextWord const& word) {
  if (m_picture == Picture::announced && !word.isWord("IS")) {
    m_picture = Picture::inside;
    m_isAfterParenthesis = false;
    return true;
  }
  if (m_picture == Picture::inside && word.isApart) m_picture = Picture::none;
  if (word.isWord("PIC") || word.isWord("PICTURE")) {
    if (m_picture == Picture::none) m_picture = Picture::announced;
    return false;
  }
  return m_picture == Picture::inside;
}

bool Replacer::replaceHere(bool isInPicture) {
  std::vector<std::size_t> const* candidates = m_list.beginningWith(ahead(0).text);
  std::vector<std::size_t> const& partial = m_list.partial();
  auto whole = candidates == nullptr ? partial.end() : candidates->begin();
  auto wholeEnd = candidates == nullptr ? partial.end() : candidates->end();
  auto part = partial.begin();
  // Both lists ascend: merged, they are in the order of the statement.
  while (whole != wholeEnd || part != partial.end()) {
    bool isWhole = part == partial.end() || (whole != wholeEnd && *whole < *part);
    std::size_t index = isWhole ? *whole++ : *part++;
    Replacement const& replacement = m_list.at(index);
    if (isWhole ? tryWhole(replacement, isInPicture) : tryPart(replacement)) return true;
  }
  m_isAfterParenthesis = ahead(0).is('(');
  return false;
}

bool Replacer::tryWhole(Replacement const& replacement, bool isInPicture) {
  std::size_t at = 0;
  for (TextWord const& wanted : replacement.from) {
    while (at > 0 && isSeparator(ahead(at)) && ahead(at + 1).isApart) ++at;
    if (!isSame(ahead(at), wanted)) return false;
    ++at;
  }
  bool isLoneWord =
      replacement.from.size() == 1 && replacement.from.front().kind == TextWord::Kind::word;
  if (isInPicture && isLoneWord && !fitsPicture(at)) return false;
  TextWord first = ahead(0);
  ahead(at);
  m_ahead.erase(m_ahead.begin(), m_ahead.begin() + static_cast<std::ptrdiff_t>(at));
  give(replacement.to, first);
  return true;
}

bool Replacer::fitsPicture(std::size_t matched) {
  if (m_isAfterParenthesis) return true;
  TextWord const& behind = ahead(matched);
  bool isLast = behind.isApart || behind.isEnd() ||
                ((behind.is('.') || isSeparator(behind)) && ahead(matched + 1).isApart);
  return ahead(0).isApart && isLast;
}

bool Replacer::tryPart(Replacement const& replacement) {
  TextWord word = ahead(0);
  if (word.kind != TextWord::Kind::word) return false;
  std::string_view part = replacement.from.front().text;
  if (replacement.from.size() != 1 || part.size() > word.text.size()) return false;
  bool isLeading = replacement.part == Replacement::Part::leading;
  std::string_view rest = word.text;
  std::string_view end =
      isLeading ? rest.substr(0, part.size()) : rest.substr(rest.size() - part.size());
  if (!equalsBlindly(end, part)) return false;
  rest = isLeading ? rest.substr(part.size()) : rest.substr(0, rest.size() - part.size());
  std::string text;
  if (!isLeading) text += rest;
  for (TextWord const& each : replacement.to) text += each.text;
  if (isLeading) text += rest;
  m_ahead.pop_front();
  if (text.empty()) return true;
  word.text = m_pool.keep(std::move(text));
  m_output.push_back(word);
  return true;
}

void Replacer::give(std::vector<TextWord> const& words, TextWord const& at) {
  for (TextWord word : words) {
    bool isFirst = m_output.empty();
    word.place = at.place;
    word.isFirstOnLine = isFirst && at.isFirstOnLine;
    if (isFirst) word.isApart = at.isApart;
    m_output.push_back(word);
  }
  if (!words.empty()) return;
  // What follows nothing stands where the replaced text stood.
  m_ahead.front().isApart |= at.isApart;
  m_ahead.front().isFirstOnLine |= at.isFirstOnLine;
}

}  // namespace fdmorph::compiler
