#include "xml/pattern_size.h"

#include <algorithm>
#include <vector>

namespace fdmorph {
namespace {

std::size_t product(std::size_t a, std::size_t b) {
  return a != 0 && b > kMaxPatternNumber / a ? kMaxPatternNumber : a * b;
}

std::size_t sum(std::size_t a, std::size_t b) {
  return std::min(a + b, kMaxPatternNumber);
}

class PatternReader {
 public:
  explicit PatternReader(std::u16string_view pattern) : m_rest(pattern) {}

  PatternSize read() {
    m_groups.emplace_back();
    while (!m_rest.empty()) readPiece();
    while (m_groups.size() > 1) endGroup();
    Group const& whole = m_groups.front();
    return {whole.repetition, whole.atoms, m_depth, std::max(whole.longest, whole.length)};
  }

 private:
  struct Group {
    std::size_t repetition = 1;
    std::size_t atoms = 0;
    std::size_t longest = 0;  // match of the alternatives that have ended
    std::size_t length = 0;   // of the longest match of the present one
  };

  struct Quantifier {
    std::size_t count = 1;   // as written, at least 1
    std::size_t copies = 1;  // that the library makes
    std::size_t most = 1;    // matches
  };

  char16_t take() {
    char16_t next = m_rest.front();
    m_rest.remove_prefix(1);
    return next;
  }

  void skipOne() {
    if (!m_rest.empty()) m_rest.remove_prefix(1);
  }

  void readPiece() {
    char16_t const next = take();
    switch (next) {
      case u'(':
        m_groups.emplace_back();
        m_depth = std::max(m_depth, m_groups.size() - 1);
        break;
      case u')':
        if (m_groups.size() > 1) endGroup();
        break;
      case u'|':
        endAlternative();
        break;
      case u'*':
      case u'?':
        addRepeated({1, 1});
        break;
      case u'[':
        readSet();
        addAtom();
        break;
      case u'\\':
        readEscape();
        addAtom();
        break;
      default:
        // A character of two units has its length with the first one.
        addRepeated({1, 1, 0, next >= 0xDC00 && next < 0xE000 ? 0U : 1U});
        break;
    }
  }

  // After the backslash. The braces of a category do not repeat.
  void readEscape() {
    if (m_rest.empty()) return;
    char16_t kind = take();
    if ((kind != u'p' && kind != u'P') || !m_rest.starts_with(u'{')) return;
    m_rest.remove_prefix(std::min(m_rest.find(u'}'), m_rest.size() - 1) + 1);
  }

  // After the opening bracket, to the bracket that closes the set.
  void readSet() {
    std::size_t open = 1;
    while (open > 0 && !m_rest.empty()) {
      switch (take()) {
        case u'[':
          m_depth = std::max(m_depth, ++open);
          break;
        case u']':
          --open;
          break;
        case u'\\':
          skipOne();
          break;
        default:
          break;
      }
    }
  }

  void addAtom() { addRepeated({1, 1, 0, 1}); }

  void endAlternative() {
    Group& group = m_groups.back();
    group.longest = std::max(group.longest, group.length);
    group.length = 0;
  }

  void endGroup() {
    endAlternative();
    Group ended = m_groups.back();
    m_groups.pop_back();
    addRepeated(ended);
  }

  void addRepeated(Group piece) {
    Quantifier quantifier = readQuantifier();
    Group& group = m_groups.back();
    group.repetition = std::max(group.repetition, product(piece.repetition, quantifier.count));
    group.atoms = sum(group.atoms, product(piece.atoms, quantifier.copies));
    std::size_t const length = std::max(piece.longest, piece.length);
    group.length = sum(group.length, product(length, quantifier.most));
  }

  // An open end takes one copy more, for the loop. A star stays, as it counts as an
  // atom.
  Quantifier readQuantifier() {
    if (m_rest.starts_with(u'+')) {
      m_rest.remove_prefix(1);
      return {1, 2, kMaxPatternNumber};
    }
    if (m_rest.starts_with(u'*')) return {1, 1, kMaxPatternNumber};
    if (!m_rest.starts_with(u'{')) return {};
    m_rest.remove_prefix(1);
    std::size_t least = readNumber();
    if (m_rest.starts_with(u',')) {
      m_rest.remove_prefix(1);
      bool isOpen = m_rest.starts_with(u'}');
      std::size_t most = isOpen ? sum(least, 1) : std::max(least, readNumber());
      skipOne();
      return {std::max<std::size_t>(isOpen ? least : most, 1), std::max<std::size_t>(most, 1),
              isOpen ? kMaxPatternNumber : most};
    }
    skipOne();
    std::size_t const count = std::max<std::size_t>(least, 1);
    return {count, count, least};
  }

  std::size_t readNumber() {
    std::size_t number = 0;
    while (!m_rest.empty() && m_rest.front() >= u'0' && m_rest.front() <= u'9') {
      number = sum(product(number, 10), static_cast<std::size_t>(take() - u'0'));
    }
    return number;
  }

  std::u16string_view m_rest;
  std::vector<Group> m_groups;
  std::size_t m_depth = 0;
};

}  // namespace

PatternSize patternSize(std::u16string_view pattern) {
  return PatternReader(pattern).read();
}

}  // namespace fdmorph
