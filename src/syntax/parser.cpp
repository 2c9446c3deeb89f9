#include "syntax/parser.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "source/literals.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

// Characters that have another meaning in a picture.
bool canBeCurrency(char c) {
  constexpr std::string_view kTaken = "0123456789ABCDENPRSVXZ*+-,.;()\"/= ";
  return kTaken.find(toUpper(c)) == std::string_view::npos;
}

// The one character in quotes; 0 for anything else.
char characterOf(Token const& token) {
  if (token.kind != Token::Kind::literal || token.text.size() != 3) return 0;
  return token.text[1];
}

}  // namespace

void Parser::parse() {
  while (!m_tokens.isEnd() && parseElement()) {
  }
  m_entries.noteMissingCopies();
  m_tree.finish();
}

// Returns false at the end of the program.
bool Parser::parseElement() {
  m_entries.noteMissingCopies();
  Token const& token = m_tokens.peek();
  if (token.kind == Token::Kind::period) {
    m_tokens.take();  // one too many does no harm
    return true;
  }
  if (token.kind == Token::Kind::number) {
    if (!hasBegun() && !levelOf(token)) return parseUnknown();
    m_entries.parse();
    return true;
  }
  if (m_tokens.isDivision(Keyword::identification) || m_tokens.isDivision(Keyword::id)) {
    if (m_data.isProgram) return false;
    m_data.isProgram = true;
    m_tokens.take();
    m_tokens.take();
    m_tokens.skipPeriod();
    if (m_tokens.peek().is(Keyword::programId)) parseProgramId();
    return true;
  }
  if (token.is(Keyword::programId)) {
    if (m_data.isProgram) return false;
    m_data.isProgram = true;
    parseProgramId();
    return true;
  }
  if (isComment() && m_tokens.peek(1).kind == Token::Kind::period) {
    skipComment();
    return true;
  }
  if (m_tokens.isDivision(Keyword::environment) || m_tokens.isDivision(Keyword::data)) {
    m_data.isProgram = true;
    bool isEnvironment = token.is(Keyword::environment);
    m_tokens.take();
    m_tokens.take();
    m_tokens.expectPeriod("division header");
    if (isEnvironment) parseEnvironment();
    return true;
  }
  if (m_tokens.isDivision(Keyword::procedure) || isProgramEnd()) {
    m_data.isProgram = true;
    return false;
  }
  if (m_tokens.peek(1).is(Keyword::section)) {
    parseSection();
    return true;
  }
  if (token.is(Keyword::fd) || token.is(Keyword::sd)) {
    m_files.parse();
    return true;
  }
  return parseUnknown();
}

// A text that begins with something unknown is not parsed any further: it would
// only be a list of errors as long as the text.
bool Parser::parseUnknown() {
  if (!hasBegun()) {
    m_tokens.expected(Code::syntax, "a program or a data description");
    return false;
  }
  m_tokens.expected(Code::syntax, "a data description entry");
  m_tokens.take();
  m_tokens.skipSentence();
  return true;
}

// Whether the header of a program or an entry has been there.
bool Parser::hasBegun() const {
  return m_data.isProgram || !m_tree.isEmpty();
}

bool Parser::isProgramEnd() {
  return m_tokens.peek().is(Keyword::end) && m_tokens.peek(1).is(Keyword::program);
}

// PROGRAM-ID. name IS INITIAL. The last period is often left out.
void Parser::parseProgramId() {
  m_tokens.take();
  m_tokens.skipPeriod();
  Token name = m_tokens.peek();
  bool isName = name.kind == Token::Kind::word && !m_tokens.isHeader();
  bool isLiteral = name.kind == Token::Kind::literal;
  if (isLiteral && name.text.size() > 2 && !name.isOpen) {
    m_data.programName = name.text.substr(1, name.text.size() - 2);
  } else if (isName) {
    m_data.programName = name.text;
  } else {
    m_tokens.expected(Code::syntax, "a program name after PROGRAM-ID");
  }
  if (isName || isLiteral) m_tokens.take();
  while (!m_tokens.isEnd() && !m_tokens.isPeriod() && !m_tokens.isHeader() && !isComment()) {
    m_tokens.take();
  }
  m_tokens.skipPeriod();
  // The period after the paragraph's name may be left out, too.
  if (isComment()) skipComment();
}

// Whether a paragraph of the identification division begins that holds any
// words.
bool Parser::isComment() {
  return m_tokens.isWord() && isCommentParagraph(m_tokens.peek().text);
}

// A comment may begin a line as a header does, but not in area A, and may
// name a header, but not with a period after it.
bool Parser::isHeaderAfterComment() {
  Token const& token = m_tokens.peek();
  if (!m_tokens.isHeader() || token.is(Keyword::fd) || token.is(Keyword::sd)) return false;
  bool hasPeriod = m_tokens.peek(2).kind == Token::Kind::period;
  bool isAfterPeriod = m_tokens.last().kind == Token::Kind::period;
  return token.isFirstOnLine ? hasPeriod || m_tokens.isInAreaA(token) : hasPeriod && isAfterPeriod;
}

// Reports a record outside the data division: a header before it is missing or
// misspelt.
bool Parser::isMisplacedRecord() {
  if (m_tokens.last().kind != Token::Kind::period || !m_tokens.isEntryStart()) return false;
  Token const& token = m_tokens.peek();
  std::optional<std::uint64_t> level = integerOf(token.text);
  if ((level != 1 && level != kSingleLevel) || !m_tokens.isInAreaA(token)) return false;
  m_tokens.error(Code::syntax, token.place, "data item outside the data division");
  return true;
}

void Parser::skipComment() {
  m_data.isProgram = true;
  m_tokens.take();
  while (!m_tokens.isEnd() && !isHeaderAfterComment() && !isMisplacedRecord()) m_tokens.take();
}

void Parser::parseSection() {
  Token name = m_tokens.take();
  m_tokens.take();
  m_tokens.expectPeriod("section header");
  m_data.isProgram = true;
  bool wasSkipped = std::exchange(m_isSectionSkipped, false);
  switch (name.keyword) {
    case Keyword::file:
      m_tree.openSection(Section::file);
      break;
    case Keyword::workingStorage:
      m_tree.openSection(Section::workingStorage);
      break;
    case Keyword::localStorage:
      m_tree.openSection(Section::localStorage);
      break;
    case Keyword::linkage:
      m_tree.openSection(Section::linkage);
      break;
    case Keyword::screen:
    case Keyword::report:
    case Keyword::communication:
      m_tree.openSection(Section::none);
      m_isSectionSkipped = true;
      break;
    case Keyword::configuration:
    case Keyword::inputOutput:
      m_tree.openSection(m_tree.section());
      parseEnvironment();
      break;
    default:
      m_tree.openSection(m_tree.section());
      m_tokens.error(Code::syntax, name.place, "unknown section " + describe(name));
      m_isSectionSkipped = wasSkipped;
      break;
  }
  if (m_isSectionSkipped) skipSection();
}

// Screens and reports describe no data of their own.
void Parser::skipSection() {
  while (!m_tokens.isEnd() && !m_tokens.peek(1).is(Keyword::section) &&
         !m_tokens.peek(1).is(Keyword::division) && !isProgramEnd()) {
    m_tokens.take();
  }
}

void Parser::parseEnvironment() {
  while (!m_tokens.isEnd() && !isProgramEnd()) {
    Token const& token = m_tokens.peek();
    bool isSection = m_tokens.peek(1).is(Keyword::section) && !token.is(Keyword::configuration) &&
                     !token.is(Keyword::inputOutput);
    if (isSection || m_tokens.peek(1).is(Keyword::division) || isMisplacedRecord()) return;
    m_environment.parse();
  }
}

void EnvironmentParser::parse() {
  if (m_tokens.peek().is(Keyword::currency)) {
    parseCurrency();
  } else if (m_tokens.peek().is(Keyword::symbolic)) {
    parseSymbolicCharacters();
  } else if (m_tokens.skip(Keyword::decimalPoint)) {
    m_tokens.skip(Keyword::is);
    if (!m_tokens.peek().is(Keyword::comma)) return;
    m_tokens.useDecimalComma();
    m_rules.isDecimalComma = true;
    m_tokens.take();
  } else {
    m_tokens.take();
  }
}

// SYMBOLIC CHARACTERS A B ARE 1 2 C IS 3: names of characters, which are
// counted from 1.
void EnvironmentParser::parseSymbolicCharacters() {
  m_tokens.take();
  if (!m_tokens.skip(Keyword::character)) return;
  m_tokens.skip(Keyword::is);
  m_tokens.skip(Keyword::are);
  auto isNameNext = [this] {
    Token const& token = m_tokens.peek();
    return m_tokens.isWord() && !token.is(Keyword::in) && !m_tokens.isHeader() &&
           !token.is(Keyword::currency) && !token.is(Keyword::decimalPoint) &&
           !token.is(Keyword::symbolic) && !equalsIgnoringCase(token.text, "CLASS") &&
           !equalsIgnoringCase(token.text, "ALPHABET");
  };
  while (isNameNext()) {
    std::vector<Token> names;
    while (m_tokens.isWord() && !m_tokens.peek().is(Keyword::is) &&
           !m_tokens.peek().is(Keyword::are)) {
      names.push_back(m_tokens.take());
    }
    if (!m_tokens.skip(Keyword::is)) m_tokens.skip(Keyword::are);
    for (Token const& name : names) {
      if (m_tokens.peek().kind != Token::Kind::number) return;
      defineCharacter(name, m_tokens.take());
    }
  }
}

void EnvironmentParser::defineCharacter(Token const& name, Token const& position) {
  constexpr std::uint64_t kCharacters = 256;
  std::optional<std::uint64_t> number = integerOf(position.text);
  if (!number || *number == 0 || *number > kCharacters) {
    m_tokens.error(Code::environment, position.place,
                   "character position " + quoted(position.text) + " is not from 1 to " +
                       std::to_string(kCharacters));
    return;
  }
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string literal = "X\"";
  literal += kDigits[(*number - 1) / kDigits.size()];
  literal += kDigits[(*number - 1) % kDigits.size()];
  Literal value;
  value.kind = Literal::Kind::text;
  value.place = name.place;
  value.text = m_pool.append(literal + '"');
  if (!m_constants.add(name.text, value)) {
    m_tokens.error(Code::constant, name.place,
                   "constant " + quoted(name.text) + " is already defined");
  }
}

// CURRENCY SIGN IS "x", or IS "text" WITH PICTURE SYMBOL "x".
void EnvironmentParser::parseCurrency() {
  m_tokens.take();
  m_tokens.skip(Keyword::sign);
  m_tokens.skip(Keyword::is);
  if (m_tokens.peek().kind != Token::Kind::literal) return;
  Token sign = m_tokens.take();
  std::size_t size = 1;
  std::string_view string;
  m_tokens.skipWord("WITH");
  if (m_tokens.skip(Keyword::picture)) {
    m_tokens.skip(Keyword::symbol);
    if (m_tokens.peek().kind != Token::Kind::literal) return;
    size = std::max<std::size_t>(decodeLiteral(sign.text).characters, 1);
    string = sign.text;
    sign = m_tokens.take();
  }
  char symbol = characterOf(sign);
  if (symbol == 0 || !canBeCurrency(symbol)) {
    m_tokens.error(Code::environment, sign.place, "invalid currency sign " + quoted(sign.text));
    return;
  }
  m_rules.currency = toUpper(symbol);
  m_rules.currencySize = size;
  m_rules.currencyString = string;
}

}  // namespace fdmorph::compiler
