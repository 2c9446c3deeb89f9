// The parser, the fourth pass: from tokens to the tree of data items.
//
// It reports what breaks the grammar and goes on behind it, so that one run
// shows all mistakes. After an error the tree holds the items that could be
// read; names in it are not resolved and clauses not checked against each
// other.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "preprocess/conditional_compilation.h"
#include "semantics/constants.h"
#include "semantics/data_item.h"
#include "semantics/item_lengths.h"
#include "source/diagnostics.h"
#include "syntax/lexer.h"

namespace fdmorph::compiler {

class Parser {
 public:
  Parser(Lexer& lexer, TextPool& pool, CompileVariables const& variables, Diagnostics& diagnostics,
         DataDivision& data)
      : m_lexer(lexer),
        m_pool(pool),
        m_variables(variables),
        m_diagnostics(diagnostics),
        m_data(data),
        m_lengths(data, diagnostics) {}

  /// The clauses of a file description.
  enum class FileClause {
    block,
    codeSet,
    dataRecords,
    external,
    global,
    label,
    linage,
    record,
    recording,
    report,
    valueOf,
  };

  /// Reads up to the header of the procedure division, the end of the first
  /// program, or the end of the text.
  void parse();

 private:
  enum class Section { none, file, workingStorage, localStorage, linkage, skipped };

  /// The clauses of an entry that stand in it once.
  struct Entry {
    DataItem* item = nullptr;
    std::uint32_t seen = 0;  // clauses, a bit for each
  };
  enum Clause : std::uint32_t {
    kRedefines = 1,
    kPicture = 2,
    kUsage = 4,
    kSign = 8,
    kOccurs = 16,
    kJustified = 32,
    kBlank = 64,
    kSync = 128,
    kValue = 256,
    kExternal = 512,
    kGlobal = 1024,
    kVolatile = 2048,
    kBased = 4096,
  };

  // parser.cpp: tokens.
  Token const& peek(std::size_t index = 0) { return m_lexer.peek(index); }
  Token take();
  bool skip(Keyword keyword);
  bool skipWord(std::string_view word);
  void error(Code code, Place place, std::string text);
  void skipSentence();
  void expectPeriod(std::string const& what);
  bool isHeader(std::size_t index);
  bool isDivision(Keyword keyword);
  bool isEntryStart();
  bool isEnd() { return peek().kind == Token::Kind::end; }
  std::string describe(Token const& token) const;

  // parser.cpp: divisions.
  bool parseElement();
  void parseIdentification();
  void parseProgramId();
  bool isComment();
  void skipComment();
  bool isHeaderAfterComment();
  bool isInAreaA(Token const& token) const;
  bool isStrayRecord();
  void reportStrayRecord();
  void parseSection();
  void unexpected();

  // environment_parser.cpp
  void parseEnvironment();
  void parseCurrency();
  void parseSymbolicCharacters();
  void defineCharacter(Token const& name, Token const& position);

  // file_parser.cpp
  void parseFileDescription();
  bool isEndOfFileDescription();
  std::optional<FileClause> fileClauseNext();
  void parseFileClauses();
  void parseFileClause(FileClause clause);
  void skipRecordUnit();
  void parseFileNumbers();
  bool parseFileNumber(std::uint64_t& number);
  void parseRecordClause();
  void parseFileNames();
  void parseValueOf();
  void parseLinage();
  bool parseFileOperand();

  // entry_parser.cpp
  void parseEntry();
  void parseEntryName(Entry& entry);
  void noteMissingMembers();
  bool isNameNext();
  Token takeName();
  void checkName(Token const& token);
  void parseClauses(Entry& entry);
  void endEntry(bool isBroken);
  void parseCondition(Entry& entry);
  void parseFalse();
  void endShortEntry(char const* what);
  void parseRenames(Entry& entry);

  // item_tree.cpp
  DataItem* newItem(std::uint8_t level, Place place);
  void attach(DataItem* item);
  void attachRecord(DataItem* item);
  void attachToGroup(DataItem* item);
  void dissolveImpliedRecords(RecordList& list);
  DataItem* openRecord(Place place, std::uint8_t level);
  RecordList& records();

  // clause_parser.cpp
  bool parseClause(Entry& entry);
  void once(Entry& entry, Clause clause, Token const& token);
  void checkIsRecord(DataItem const& item, Token const& clause);
  void parseRedefines(Entry& entry);
  void parsePicture(Entry& entry);
  void parseUsage(Entry& entry, Token const& token);
  void parseSign(Entry& entry, Token const& token);
  void parseBlank();
  QualifiedName parseQualifiedName();
  bool isClauseNext();
  bool parseName(std::string_view& name);

  // occurs_parser.cpp
  void parseOccurs(Entry& entry, Token const& token);
  bool parseCount(std::uint64_t& count);
  void parseOccursPhrases(OccursClause& occurs);

  // value_parser.cpp
  void parseValue(Entry& entry);
  bool parseLiteral(Literal& literal);
  bool joinLiterals(Literal& literal);
  bool isLiteralNext();
  void parseValueRanges(DataItem& item);
  void checkLiteral(Token const& token);
  void reportLongLiteral(Place place);

  // constant_parser.cpp
  void parseConstant(Entry& entry);
  bool parseVariable(Literal& value);
  bool parseExpression(Literal& value, bool hasPrecedence);
  bool parseTerm(Literal& value, bool hasPrecedence);
  bool parseFactor(Literal& value, bool hasPrecedence);
  bool parseOperand(Literal& value, bool hasPrecedence);
  void takeOperator(char sign);
  bool applyOperator(Literal& left, char sign, Literal const& right);
  char operatorNext();
  bool isLengthNext();
  bool parseLength(Literal& value);
  void setNumber(Literal& value, std::int64_t number);

  Lexer& m_lexer;
  TextPool& m_pool;
  CompileVariables const& m_variables;
  Diagnostics& m_diagnostics;
  DataDivision& m_data;
  Constants m_constants;
  ItemLengths m_lengths;
  std::unordered_set<std::string_view> m_tags;  // that were warned of
  int m_parentheses = 0;                        // around the operand that is being parsed
  PictureRules m_pictureRules;
  std::unordered_map<std::string, Picture const*> m_pictures;

  Section m_section = Section::none;
  bool m_hasData = false;  // an entry was there
  FileDescription* m_file = nullptr;
  std::vector<DataItem*> m_open;     // the groups around the next item, outermost first
  DataItem* m_lastItem = nullptr;    // what level 88 belongs to
  DataItem* m_strayGroup = nullptr;  // where a level was out of step
  std::uint8_t m_strayLevel = 0;     // and that level
  std::size_t m_missingMembers = 0;  // at the beginning of the last entry
  bool m_isMemberMissing = false;    // that begins it
  Token m_lastToken;
  Place m_lastError;
};

}  // namespace fdmorph::compiler
