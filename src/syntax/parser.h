// The parser, the fourth pass: from tokens to the tree of data items.
//
// It reports what breaks the grammar and goes on after it, so that one run
// shows all errors. After an error the tree holds the items that could be
// parsed. Names in it are not resolved, and clauses not checked against each
// other.
#pragma once

#include "preprocess/conditional_compilation.h"
#include "semantics/data_item.h"
#include "semantics/picture.h"
#include "source/diagnostics.h"
#include "syntax/clauses.h"
#include "syntax/entry_parser.h"
#include "syntax/file_parser.h"
#include "syntax/item_tree.h"
#include "syntax/lexer.h"
#include "syntax/name_parser.h"
#include "syntax/token_stream.h"
#include "syntax/value_parser.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

/// What the environment division says about data: the currency sign, the
/// decimal point and the names of characters. All else in it is skipped.
class EnvironmentParser {
 public:
  EnvironmentParser(TokenStream& tokens, TextPool& pool, ConstantNames& constants,
                    PictureRules& rules)
      : m_tokens(tokens), m_pool(pool), m_constants(constants), m_rules(rules) {}

  /// Parses the paragraph or clause that begins with the next token. Takes a
  /// token at least.
  void parse();

 private:
  void parseCurrency();
  void parseSymbolicCharacters();
  void defineCharacter(Token const& name, Token const& position);

  TokenStream& m_tokens;
  TextPool& m_pool;
  ConstantNames& m_constants;
  PictureRules& m_rules;
};

/// The divisions and sections of a program, or a copybook by itself.
class Parser {
 public:
  /// The parser fills `data`, whose texts lie in `pool` and the sources.
  Parser(Lexer& lexer, TextPool& pool, CompileVariables const& variables, Diagnostics& diagnostics,
         DataDivision& data, TokenStream::MarginQuery hasTextPastMargin = {})
      : m_errors(diagnostics),
        m_tokens(lexer, m_errors, std::move(hasTextPastMargin)),
        m_data(data),
        m_tree(data, m_errors),
        m_names(m_tokens, pool, data),
        m_constants(pool, variables),
        m_values(m_tokens, m_names, pool, m_constants, data, m_tree),
        m_pictures(data, m_constants),
        m_entries(m_tokens, m_names, m_values, m_constants, m_pictures, m_tree),
        m_files(m_tokens, m_names, m_values, m_constants, data, m_tree),
        m_environment(m_tokens, pool, m_constants, m_pictures.rules()) {}

  /// Parses up to the header of the procedure division, the end of the first
  /// program, or the end of the text.
  void parse();

 private:
  bool parseElement();
  bool parseUnknown();
  void parseProgramId();
  void parseSection();
  void parseEnvironment();
  void skipSection();
  void skipComment();
  bool isComment();
  bool isHeaderAfterComment();
  bool isMisplacedRecord();
  bool hasBegun() const;
  bool isProgramEnd();

  SyntaxErrors m_errors;
  TokenStream m_tokens;
  DataDivision& m_data;
  ItemTree m_tree;
  NameParser m_names;
  ConstantNames m_constants;
  ValueParser m_values;
  PictureTable m_pictures;
  EntryParser m_entries;
  FileParser m_files;
  EnvironmentParser m_environment;
  bool m_isSectionSkipped = false;  // the open one describes no data of the program
};

}  // namespace fdmorph::compiler
