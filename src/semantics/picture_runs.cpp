#include "semantics/picture_runs.h"

#include "source/diagnostics.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::string_view kSymbols = "ABENPSVXZ91G0/,.+-*";
constexpr std::uint64_t kMaxRepetitions = 0x7FFFFFFF;

/// Splits a picture string into runs of symbols.
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
    } else if (startsWithIgnoringCase(m_text.substr(m_at), "CR") ||
               startsWithIgnoringCase(m_text.substr(m_at), "DB")) {
      m_out.text += m_text[m_at++];
    } else if (m_rules.isDecimalComma && (c == ',' || c == '.')) {
      symbol = c == ',' ? '.' : ',';
    } else if (kSymbols.find(symbol) == std::string_view::npos) {
      std::string_view character = firstCharacters(m_text.substr(m_at), 1);
      m_out.errors.push_back("unknown picture symbol " + quoted(character));
      return;
    }
    m_out.text += m_text[m_at++];
    add(symbol, 1);
  }

  // A repetition does not end a run: 9(3)99 is five nines.
  void add(char symbol, std::uint64_t count) {
    if (!m_out.runs.empty() && m_out.runs.back().symbol == symbol) {
      m_out.runs.back().count += count;
      if (m_out.runs.back().count > kMaxRepetitions) m_out.errors.push_back(kTooLong);
    } else {
      m_out.runs.push_back({symbol, count});
    }
  }

  void readRepetition() {
    std::size_t end = m_text.find(')', m_at);
    if (end == std::string_view::npos) {
      m_out.errors.push_back("expected ')' at the end of the picture");
      return;
    }
    std::string_view inside = m_text.substr(m_at + 1, end - m_at - 1);
    if (m_out.runs.empty() || m_text[m_at - 1] == ')') {
      m_out.errors.push_back("expected a picture symbol before '('");
      return;
    }
    std::optional<std::uint64_t> count = readCount(inside);
    if (!count) return;
    // The value of a constant replaces its name.
    bool isNumber = isAllDigits(inside);
    m_out.text += '(';
    m_out.text += isNumber ? std::string(inside) : std::to_string(*count);
    m_out.text += ')';
    if (*count == 0) {
      --m_out.runs.back().count;
      m_out.hasEmptyRun = true;
    } else {
      add(m_out.runs.back().symbol, *count - 1);
    }
    m_at = end + 1;
  }

  std::optional<std::uint64_t> readCount(std::string_view inside) {
    std::uint64_t count = 0;
    if (isAllDigits(inside)) {
      for (char c : inside) {
        count = count * 10 + static_cast<std::uint64_t>(c - '0');
        if (count > kMaxRepetitions) break;
      }
    } else {
      std::optional<std::uint64_t> value =
          m_constant ? m_constant(inside) : std::optional<std::uint64_t>();
      if (!value) {
        m_out.errors.push_back("expected a number or constant in parentheses, found " +
                               quoted(inside));
        return std::nullopt;
      }
      count = *value;
    }
    if (count <= kMaxRepetitions) return count;
    m_out.errors.push_back(kTooLong);
    return std::nullopt;
  }

  static constexpr char kTooLong[] = "picture describes too many characters";

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
