#include "compiler/picture_symbols.h"

#include "compiler/letters.h"

namespace fdmorph::compiler {
namespace {

constexpr std::string_view kSymbols = "ABENPSVXZ91G0/,.+-*";
constexpr std::uint64_t kMostRepetitions = 0x7FFFFFFF;

class RunReader {
 public:
  RunReader(std::string_view text, PictureRules rules, ConstantLookup const& constant)
      : m_text(text), m_rules(rules), m_constant(constant) {}

  PictureRuns read() {
    while (m_at < m_text.size() && m_out.errors.empty()) {
      if (m_text[m_at] == '(') {
        readRepetition();
      } else {
        readSymbol();
      }
    }
    return std::move(m_out);
  }

 private:
  void readSymbol() {
    char c = m_text[m_at];
    char symbol = toUpper(c);
    if (c == m_rules.currency || symbol == m_rules.currency) {
      symbol = '$';
    } else if (beginsBlindly(m_text.substr(m_at), "CR") ||
               beginsBlindly(m_text.substr(m_at), "DB")) {
      m_out.text += m_text[m_at++];
    } else if (m_rules.isDecimalComma && (c == ',' || c == '.')) {
      symbol = c == ',' ? '.' : ',';
    } else if (kSymbols.find(symbol) == std::string_view::npos) {
      m_out.errors.push_back("'" + std::string(1, c) + "' is no symbol of a picture");
      return;
    }
    m_out.text += m_text[m_at++];
    add(symbol, 1);
  }

  // A run goes on after a repetition: 9(3)99 is five nines.
  void add(char symbol, std::uint64_t count) {
    if (!m_out.runs.empty() && m_out.runs.back().symbol == symbol) {
      m_out.runs.back().count += count;
      if (m_out.runs.back().count > kMostRepetitions) m_out.errors.push_back(kTooLong);
    } else {
      m_out.runs.push_back({symbol, count});
    }
  }

  void readRepetition() {
    std::size_t end = m_text.find(')', m_at);
    if (end == std::string_view::npos) {
      m_out.errors.push_back("the picture lacks a closing parenthesis");
      return;
    }
    std::string_view inside = m_text.substr(m_at + 1, end - m_at - 1);
    if (m_out.runs.empty() || m_text[m_at - 1] == ')') {
      m_out.errors.push_back("a repetition follows no symbol of the picture");
      return;
    }
    std::uint64_t count = 0;
    if (!readCount(inside, count)) return;
    if (count == 0) {
      m_out.errors.push_back("a symbol of the picture is repeated zero times");
      return;
    }
    // A constant's value takes the place of its name.
    bool isNumber = isAllDigits(inside);
    m_out.text += '(';
    m_out.text += isNumber ? std::string(inside) : std::to_string(count);
    m_out.text += ')';
    add(m_out.runs.back().symbol, count - 1);
    m_at = end + 1;
  }

  bool readCount(std::string_view inside, std::uint64_t& count) {
    if (!isAllDigits(inside)) {
      std::optional<std::uint64_t> value = m_constant(inside);
      if (!value) {
        m_out.errors.push_back("the repetition '" + std::string(inside.substr(0, 31)) +
                               "' is neither a number nor a constant");
        return false;
      }
      count = *value;
    }
    for (char c : isAllDigits(inside) ? inside : std::string_view()) {
      count = count * 10 + static_cast<std::uint64_t>(c - '0');
      if (count > kMostRepetitions) break;
    }
    if (count > kMostRepetitions) m_out.errors.push_back(kTooLong);
    return count <= kMostRepetitions;
  }

  static constexpr char kTooLong[] = "the picture describes too many characters";

  std::string_view m_text;
  PictureRules m_rules;
  ConstantLookup const& m_constant;
  std::size_t m_at = 0;
  PictureRuns m_out;
};

}  // namespace

PictureRuns readPictureRuns(std::string_view text, PictureRules rules,
                            ConstantLookup const& constant) {
  return RunReader(text, rules, constant).read();
}

}  // namespace fdmorph::compiler
