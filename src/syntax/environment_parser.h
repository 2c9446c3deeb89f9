// What the environment division says about data: the currency sign, the decimal
// point and the names of characters. All else in it is skipped.
#pragma once

#include "semantics/picture.h"
#include "syntax/token_stream.h"
#include "syntax/value_parser.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

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

}  // namespace fdmorph::compiler
