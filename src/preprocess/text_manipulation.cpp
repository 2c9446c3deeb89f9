#include "preprocess/text_manipulation.h"

#include <algorithm>

#include "preprocess/replacing.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

// The name of a member or library, without quotes.
std::string_view nameOf(TextWord const& word) {
  std::string_view name = word.text;
  if (word.kind != TextWord::Kind::literal) return name;
  name.remove_prefix(1);
  if (!word.isOpen) name.remove_suffix(1);
  return name;
}

bool isName(TextWord const& word) {
  return word.kind == TextWord::Kind::word ||
         (word.kind == TextWord::Kind::literal && (word.text[0] == '"' || word.text[0] == '\''));
}

// The languages of the statements between EXEC and END-EXEC.
bool isEmbedded(TextWord const& word) {
  for (std::string_view each : {"SQL", "CICS", "DLI", "SQLIMS", "ADO", "ORACLE", "HTML", "JAVA"}) {
    if (word.isWord(each)) return true;
  }
  return false;
}

// Members that come with the database or the transaction monitor, not with the
// source. They hold no records of the source's own.
bool isSystemMember(std::string_view name) {
  for (std::string_view each :
       {"SQLCA", "SQLDA", "DFHAID", "DFHBMSCA", "DFHMSRCA", "DFHEIBLK", "DFHEIBLC"}) {
    if (equalsIgnoringCase(name, each)) return true;
  }
  return false;
}

SourceText const& readFile(TextContext& context, SourceFile const* file) {
  return context.texts.emplace_back(readSource(file->content, context.rules));
}

}  // namespace

bool TextContext::hasTextPastMargin(Place place) const {
  // Texts are opened and read in the same order.
  if (!place.isKnown() || place.text > texts.size()) return false;
  return texts[place.text - 1].formatAt(place.offset) == Format::fixed &&
         compiler::hasTextPastMargin(sources.locate(place).text, rules.tabs);
}

FileText::FileText(TextContext& context, SourceFile const* file, Place copiedFrom)
    : m_context(context),
      m_number(context.sources.open(file, copiedFrom)),
      m_text(readFile(context, file)),
      m_scanner(m_text, m_number),
      m_conditions(context.variables, context.diagnostics) {
  m_context.open.push_back(file);
  if (m_text.excludedLine && !m_context.excludedLine.isKnown()) {
    m_context.excludedLine = {m_number, *m_text.excludedLine};
  }
}

FileText::~FileText() {
  // The text may be dropped while it reads a member.
  m_replacer.reset();
  m_member.reset();
  m_context.open.pop_back();
}

TextWord FileText::next() {
  for (;;) {
    if (m_member) {
      TextWord word = m_replacer ? m_replacer->next() : m_member->next();
      if (!word.isEnd()) return word;
      m_replacer.reset();
      m_member.reset();
      m_precededBySpace = true;
    }
    TextWord word = scan();
    if (m_precededBySpace) word.precededBySpace = true;
    m_precededBySpace = false;
    if (word.kind == TextWord::Kind::word && handleStatement(word)) {
      m_precededBySpace = true;
      continue;
    }
    m_isStart = false;
    word.isComment = m_isComment;
    return word;
  }
}

// The next word that is part of the program.
TextWord FileText::scan() {
  for (;;) {
    TextWord word = scanAny();
    if (word.kind == TextWord::Kind::directive) {
      applyDirective(word);
    } else if (word.isEnd()) {
      m_conditions.end();
      return word;
    } else if (m_conditions.isSkipping() || (word.isDebugging && !m_context.isDebugging)) {
      m_scanner.skipLine();
    } else {
      noteDebugging(word);
      return word;
    }
  }
}

// SOURCE-COMPUTER. name WITH DEBUGGING MODE.
void FileText::noteDebugging(TextWord const& word) {
  if (m_isDebuggingBefore && !m_isComment && word.isWord("MODE")) m_context.isDebugging = true;
  m_isDebuggingBefore = word.isWord("DEBUGGING");
}

TextWord FileText::scanAfterSeparators() {
  TextWord word = scan();
  while (word.is(',') || word.is(';')) word = scan();
  return word;
}

void FileText::applyDirective(TextWord const& mark) {
  std::vector<TextWord> words;
  TextWord word = scanAny();
  for (; !word.isEnd() && !word.isFirstOnLine; word = scanAny()) words.push_back(word);
  pushBack(word);
  m_conditions.apply(mark, words);
}

TextWord FileText::scanAny() {
  if (m_pushedBack.empty()) {
    TextWord word = m_scanner.next();
    reportFaults(word.isEnd());
    return word;
  }
  TextWord word = m_pushedBack.back();
  m_pushedBack.pop_back();
  return word;
}

// Reports the faults of the lines up to the last word, except those in branches
// that are not compiled.
void FileText::reportFaults(bool isEnd) {
  for (; m_fault < m_text.faults.size(); ++m_fault) {
    SourceText::Fault const& fault = m_text.faults[m_fault];
    if (!isEnd && fault.at >= m_scanner.position()) return;
    if (m_conditions.isSkipping()) continue;
    m_context.diagnostics.report(fault.code, {m_number, fault.offset}, fault.message);
  }
}

void FileText::pushBack(TextWord const& word) {
  m_pushedBack.push_back(word);
}

bool FileText::handleStatement(TextWord const& word) {
  noteComment(word);
  switch (toUpper(word.text.front())) {
    case 'C':
      // COPY may be a word of a comment.
      if (!word.isWord("COPY") || (m_isComment && !word.isFirstOnLine)) break;
      copyStatement(word);
      return true;
    case 'E':
      if (m_isComment || (!word.isWord("EXEC") && !word.isWord("EXECUTE"))) break;
      return execBlock(word);
    default:
      break;
  }
  return word.isFirstOnLine && listingStatement(word);
}

// Comment paragraphs follow the program's name and extend to the next division.
void FileText::noteComment(TextWord const& word) {
  if (!m_isIdentification) {
    m_isIdentification = word.isWord("PROGRAM-ID") || word.isWord("FUNCTION-ID");
  } else if (!word.isFirstOnLine) {
    return;
  } else if (word.isWord("ENVIRONMENT") || word.isWord("DATA") || word.isWord("PROCEDURE")) {
    m_isIdentification = false;
    m_isComment = false;
  } else if (isCommentParagraph(word.text)) {
    m_isComment = true;
  }
}

// EJECT, SKIP1 to SKIP3 and TITLE with an optional period, and lines of compiler
// options before the program.
bool FileText::listingStatement(TextWord const& word) {
  if (m_isStart && (word.isWord("CBL") || word.isWord("PROCESS"))) {
    m_scanner.skipLine();
    return true;
  }
  bool isTitle = word.isWord("TITLE");
  bool isSpacing =
      word.isWord("EJECT") || word.isWord("SKIP1") || word.isWord("SKIP2") || word.isWord("SKIP3");
  if (!isTitle && !isSpacing) return false;
  TextWord following = scan();
  bool isStatement = isTitle ? following.kind == TextWord::Kind::literal
                             : following.is('.') || following.isFirstOnLine || following.isEnd();
  if (!isTitle || !isStatement) pushBack(following);
  if (isStatement) skipPeriod();
  return isStatement;
}

void FileText::skipPeriod() {
  TextWord word = scan();
  if (!word.is('.')) pushBack(word);
}

// A name may be followed by extensions: COPY NAME.EXT. A period that follows
// without a blank, and is followed by a word without a blank, is part of the
// name. An extension has a letter: in COPY NAME.01 A ... the period ends the
// statement.
TextWord FileText::scanMemberName() {
  TextWord member = scan();
  while (member.kind == TextWord::Kind::word && m_pushedBack.empty()) {
    TextWord period = scanAny();
    bool isInName = period.is('.') && !period.precededBySpace && m_scanner.isAtWord();
    if (!isInName) {
      pushBack(period);
      break;
    }
    TextWord extension = scanAny();
    if (!std::any_of(extension.text.begin(), extension.text.end(), isLetter)) {
      pushBack(extension);
      pushBack(period);
      break;
    }
    std::string name(member.text);
    (name += '.') += extension.text;
    member.text = m_context.pool.append(name);
  }
  return member;
}

void FileText::copyStatement(TextWord const& word) {
  TextWord member = scanMemberName();
  if (!isName(member)) {
    m_context.diagnostics.report(
        Code::copySyntax, word.place,
        "expected the name of a copy member after COPY, found " + describe(member));
    pushBack(member);
    return;
  }
  TextWord last = member;
  TextWord following = scanAfterSeparators();
  auto advance = [&] {
    last = following;
    following = scanAfterSeparators();
  };
  std::string_view library;
  if (following.isWord("OF") || following.isWord("IN")) {
    advance();
    if (isName(following)) library = nameOf(following);
    advance();
  }
  if (following.isWord("SUPPRESS")) advance();
  if (following.isWord("PRINTING")) advance();
  ReplacementList list;
  if (following.isWord("REPLACING")) {
    std::optional<ReplacementError> error = readReplacements(
        scan(), [this] { return scan(); }, list);
    if (error) {
      m_context.diagnostics.report(Code::copySyntax, error->word.place,
                                   std::string("expected ") + error->expected +
                                       " in the REPLACING phrase, found " + describe(error->word));
    }
  } else if (!following.is('.')) {
    Place end = last.place;
    end.offset += static_cast<std::uint32_t>(last.text.size());
    m_context.diagnostics.report(
        Code::copySyntax, end,
        "expected '.' at the end of the COPY statement, found " + describe(following));
    pushBack(following);
  }
  open(member, nameOf(member), library, std::move(list));
}

bool FileText::execBlock(TextWord const& word) {
  TextWord language = scan();
  if (!isEmbedded(language)) {
    pushBack(language);
    return false;
  }
  TextWord statement = scan();
  TextWord member;
  bool isInclude = language.isWord("SQL") && statement.isWord("INCLUDE");
  if (isInclude) member = statement = scan();
  while (!statement.isWord("END-EXEC")) {
    if (statement.isEnd()) {
      m_context.diagnostics.report(Code::execEnd, word.place, "EXEC block has no END-EXEC");
      return true;
    }
    statement = scan();
  }
  skipPeriod();
  if (isInclude && isName(member)) open(member, nameOf(member), "", {});
  return true;
}

void FileText::reportMissing(TextWord const& at, std::string_view member,
                             std::string_view library) {
  std::string text = "copy member " + quoted(member);
  if (isSystemMember(member)) {
    m_context.diagnostics.report(Code::copyPassed, at.place,
                                 text + " not found; it is a system member and ignored");
    return;
  }
  if (!library.empty()) text += " of library " + quoted(library);
  text += " not found";
  if (!member.starts_with('/')) {
    std::string const& path = m_context.sources.fileOf(m_number)->path;
    std::string_view separator = " in ";
    for (std::string const& each : m_context.search.foldersSearched(path)) {
      (text += separator) += quoted(each);
      separator = ", ";
    }
  }
  Code code = m_context.warnsOfMissingCopies ? Code::copyPassedOver : Code::copyMissing;
  m_context.diagnostics.report(code, at.place, text);
}

void FileText::open(TextWord const& at, std::string_view member, std::string_view library,
                    ReplacementList list) {
  std::string const& path = m_context.sources.fileOf(m_number)->path;
  SourceFile const* file = m_context.search.find(member, library, path);
  if (file == nullptr) {
    reportMissing(at, member, library);
    return;
  }
  if (!mayOpen(at.place, file)) return;
  m_context.copied.insert(file);
  ReadingRules before = m_context.rules;
  m_context.rules.format = m_text.formatAt(at.place.offset);
  m_member = std::make_unique<FileText>(m_context, file, at.place);
  m_context.rules = before;
  if (list.isEmpty()) return;
  m_replacer = std::make_unique<Replacer>(*m_member, m_context.pool, m_context.budget,
                                          m_context.diagnostics);
  m_replacer->list() = std::move(list);
}

bool FileText::mayOpen(Place at, SourceFile const* file) {
  std::vector<SourceFile const*> const& open = m_context.open;
  if (std::find(open.begin(), open.end(), file) != open.end()) {
    m_context.diagnostics.report(Code::copyCircle, at,
                                 "copy member " + quoted(file->name) + " copies itself");
    return false;
  }
  // The size of a file counts only if it is copied more than once.
  std::size_t& bytes = m_context.budget.bytes;
  if (m_context.copied.contains(file)) bytes += file->content.size();
  bool isTooMuch = open.size() >= TextContext::kMaxCopyDepth ||
                   m_context.sources.textCount() >= TextContext::kMaxCopies ||
                   bytes > ReplacementBudget::kMaxText;
  if (isTooMuch) {
    m_context.diagnostics.report(Code::copyLimit, at,
                                 open.size() >= TextContext::kMaxCopyDepth
                                     ? "COPY statements are nested more than " +
                                           std::to_string(TextContext::kMaxCopyDepth) + " deep"
                                     : "too much text is copied");
  }
  return !isTooMuch;
}

}  // namespace fdmorph::compiler
