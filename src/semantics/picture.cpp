#include "semantics/picture.h"

#include <algorithm>
#include <array>

#include "semantics/picture_runs.h"

namespace fdmorph::compiler {
namespace {

/// The number of times that each symbol occurs in a picture.
class Counts {
 public:
  explicit Counts(std::vector<PictureRun> const& runs) {
    for (PictureRun const& run : runs) m_counts[index(run.symbol)] += run.count;
  }

  std::uint64_t of(char symbol) const { return m_counts[index(symbol)]; }
  bool has(std::string_view symbols) const {
    for (char each : symbols) {
      if (of(each) != 0) return true;
    }
    return false;
  }

 private:
  static std::size_t index(char symbol) { return static_cast<unsigned char>(symbol) & 0x7FU; }

  std::array<std::uint64_t, 128> m_counts{};
};

/// Checks the order of the symbols in a numeric picture.
class OrderCheck {
 public:
  OrderCheck(std::vector<PictureRun> const& runs, Counts const& counts, Picture& picture)
      : m_runs(runs), m_counts(counts), m_picture(picture) {}

  void check() {
    for (m_at = 0; m_at < m_runs.size() && m_picture.isValid(); ++m_at) checkRun();
    if (m_counts.has("+-") && m_counts.has("CD")) fail("sign together with CR or DB");
    if (m_counts.has("+") && m_counts.has("-")) fail("both '+' and '-' in the picture");
    if (m_counts.has("Z") && m_counts.has("*")) fail("both 'Z' and '*' in the picture");
    if (m_counts.of('V') + m_counts.of('.') > 1) fail("more than one decimal point in the picture");
    if (m_counts.has("P") && m_counts.has(".")) fail("'P' together with a decimal point");
  }

 private:
  void fail(char const* text) {
    if (m_picture.isValid()) m_picture.errors.emplace_back(text);
  }

  bool isLast() const { return m_at + 1 == m_runs.size(); }
  bool isFirst() const { return m_at == 0; }

  void checkRun() {
    PictureRun const& run = m_runs[m_at];
    switch (run.symbol) {
      case 'S':
        if (!isFirst() || run.count > 1) fail("'S' is not the first symbol of the picture");
        break;
      case 'C':
      case 'D':
        if (!isLast() || run.count > 1) fail("CR or DB is not at the end of the picture");
        break;
      case 'Z':
      case '*':
        if (m_hasNine) fail("zero suppression after '9'");
        if (m_hasFloating) fail("zero suppression after a floating sign");
        m_hasSuppressed = true;
        break;
      case '9':
        m_hasNine = true;
        break;
      case 'P':
        checkScaling();
        break;
      case '$':
      case '+':
      case '-':
        checkFloating(run);
        break;
      default:
        break;
    }
  }

  // Scaling positions are at the left or right end of the digits.
  void checkScaling() {
    bool isLeft = true;
    for (std::size_t i = 0; i < m_at; ++i) {
      char symbol = m_runs[i].symbol;
      if (symbol != 'S' && symbol != 'V' && symbol != '+' && symbol != '-' && symbol != '$') {
        isLeft = false;
      }
    }
    bool isRight = true;
    for (std::size_t i = m_at + 1; i < m_runs.size(); ++i) {
      char symbol = m_runs[i].symbol;
      if (symbol != 'V' && symbol != '+' && symbol != '-' && symbol != 'C' && symbol != 'D') {
        isRight = false;
      }
    }
    if (!isLeft && !isRight) fail("'P' is not at an end of the picture");
  }

  // A single sign is fixed, at an end of the picture. Several signs float before
  // the digits.
  void checkFloating(PictureRun const& run) {
    bool isFixed = m_counts.of(run.symbol) == 1;
    bool isSign = run.symbol != '$';
    if (isFixed) {
      bool isAtBegin = !m_hasNine && !m_hasSuppressed && !m_hasFloating;
      bool isAtEnd = isLast() || (m_at + 2 == m_runs.size() && isEndSign(m_runs[m_at + 1].symbol));
      if (!isAtBegin && !isAtEnd) {
        fail(isSign ? "sign is not at an end of the picture"
                    : "currency sign is not at an end of the picture");
      }
      return;
    }
    if (m_hasNine || m_hasSuppressed) fail("floating sign after digits");
    if (m_hasFloating && m_floating != run.symbol) fail("two different floating signs");
    m_hasFloating = true;
    m_floating = run.symbol;
  }

  static bool isEndSign(char symbol) {
    return symbol == '+' || symbol == '-' || symbol == 'C' || symbol == 'D' || symbol == '$';
  }

  std::vector<PictureRun> const& m_runs;
  Counts const& m_counts;
  Picture& m_picture;
  std::size_t m_at = 0;
  bool m_hasNine = false;
  bool m_hasSuppressed = false;
  bool m_hasFloating = false;
  char m_floating = 0;
};

// The first currency symbol is as long as the currency string.
void findSize(std::vector<PictureRun> const& runs, std::size_t currencySize, Picture& picture) {
  bool hasCurrency = std::any_of(runs.begin(), runs.end(),
                                 [](PictureRun const& run) { return run.symbol == '$'; });
  if (hasCurrency) picture.size += currencySize - 1;
  for (PictureRun const& run : runs) {
    bool isStored = run.symbol != 'S' && run.symbol != 'V' && run.symbol != 'P';
    bool isPair = run.symbol == 'C' || run.symbol == 'D';
    if (isStored) picture.size += run.count * (isPair ? 2U : 1U);
  }
}

// Counts the digits before and after the decimal point. If the picture has none, it
// follows the last digit or precedes leading scaling positions.
void findDigits(std::vector<PictureRun> const& runs, Counts const& counts, Picture& picture) {
  std::uint64_t nines = counts.of('9') + counts.of('Z') + counts.of('*');
  for (char symbol : {'+', '-', '$'}) {
    if (counts.of(symbol) > 1) nines += counts.of(symbol) - 1;
  }
  bool isFraction = false;
  bool hasDigits = false;
  std::uint64_t scale = 0;
  for (PictureRun const& run : runs) {
    switch (run.symbol) {
      case 'V':
      case '.':
        isFraction = true;
        break;
      case 'P':
        if (!hasDigits) isFraction = true;
        if (isFraction && !hasDigits) scale += run.count;
        break;
      case '9':
      case 'Z':
      case '*':
        hasDigits = true;
        if (isFraction) scale += run.count;
        break;
      case '+':
      case '-':
      case '$':
        if (isFraction && counts.of(run.symbol) > 1) scale += run.count;
        break;
      default:
        break;
    }
  }
  if (nines + counts.of('P') > kMaxDigits) {
    picture.errors.push_back("picture has more than " + std::to_string(kMaxDigits) + " digits");
    return;
  }
  picture.nines = static_cast<std::uint32_t>(nines);
  picture.digits = static_cast<std::uint32_t>(nines + counts.of('P'));
  picture.scale = static_cast<std::uint32_t>(scale);
}

// A floating-point picture is sign, digits, E, sign, digits.
bool isFloatingPoint(std::vector<PictureRun> const& runs) {
  std::string shape;
  for (PictureRun const& run : runs) {
    char symbol = run.symbol == '-' ? '+' : run.symbol;
    shape += symbol == 'V' ? '.' : symbol;
  }
  return shape == "+9.9E+9" || shape == "+.9E+9" || shape == "+9.E+9" || shape == "+9E+9";
}

void checkCharacters(Counts const& counts, Picture& picture) {
  if (counts.has("SVPZ*+-$.CDE,")) {
    picture.errors.emplace_back("numeric and alphanumeric symbols in one picture");
  }
}

bool hasPositions(Counts const& counts) {
  return counts.has("AXNGZ*91") || counts.of('+') > 1 || counts.of('-') > 1 || counts.of('$') > 1;
}

void checkBoolean(Counts const& counts, Picture& picture) {
  picture.isBoolean = counts.has("1");
  if (picture.isBoolean && counts.has("ABENPSVXZ9G0/,.+-*$CD")) {
    picture.errors.emplace_back("boolean and other symbols in one picture");
  }
}

// The category of a picture of zero characters.
Category findEmptyCategory(std::vector<PictureRun> const& runs) {
  auto has = [&](std::string_view symbols) {
    return std::any_of(runs.begin(), runs.end(), [&](PictureRun const& run) {
      return symbols.find(run.symbol) != std::string_view::npos;
    });
  };
  if (has("NG")) return Category::national;
  return has("AX") ? Category::alphanumeric : Category::numeric;
}

Category findCategory(std::vector<PictureRun> const& runs, Counts const& counts, Picture& picture) {
  checkBoolean(counts, picture);
  if (picture.isBoolean) return Category::alphanumeric;
  if (counts.has("NG")) {
    checkCharacters(counts, picture);
    if (counts.has("AX9")) {
      picture.errors.emplace_back("national and other character symbols in one picture");
    }
    return counts.has("B0/") ? Category::nationalEdited : Category::national;
  }
  if (counts.has("AX")) {
    checkCharacters(counts, picture);
    if (counts.has("X9")) {
      return counts.has("B0/") ? Category::alphanumericEdited : Category::alphanumeric;
    }
    return counts.has("B0/") ? Category::alphanumericEdited : Category::alphabetic;
  }
  if (counts.has("E")) {
    if (!isFloatingPoint(runs)) picture.errors.emplace_back("invalid floating-point picture");
    return Category::numericEdited;
  }
  OrderCheck(runs, counts, picture).check();
  findDigits(runs, counts, picture);
  return counts.has("B0/,.+-$Z*CD") ? Category::numericEdited : Category::numeric;
}

}  // namespace

Picture analysePicture(std::string_view text, PictureRules rules, ConstantLookup const& constant) {
  PictureRuns read = readPictureRuns(text, rules, constant);
  Picture picture;
  picture.rules = rules;
  picture.text = std::move(read.text);
  picture.errors = std::move(read.errors);
  if (!picture.isValid()) return picture;
  picture.hasEmptyRun = read.hasEmptyRun;
  Counts counts(read.runs);
  if (!hasPositions(counts)) {
    if (picture.hasEmptyRun) {
      picture.category = findEmptyCategory(read.runs);
      return picture;
    }
    picture.errors.emplace_back("picture describes no character");
    return picture;
  }
  std::erase_if(read.runs, [](PictureRun const& run) { return run.count == 0; });
  findSize(read.runs, rules.currencySize, picture);
  picture.isSigned = counts.has("S");
  picture.category = findCategory(read.runs, counts, picture);
  if (picture.isSigned && picture.category == Category::numericEdited) {
    picture.warnings.emplace_back("'S' has no effect in an edited picture");
  }
  return picture;
}

}  // namespace fdmorph::compiler
