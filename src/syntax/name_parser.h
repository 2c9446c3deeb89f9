// Names of items, files and constants.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_set>

#include "semantics/data_item.h"
#include "syntax/token_stream.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

class NameParser {
 public:
  /// `data` says whether a program is parsed or a copybook by itself.
  NameParser(TokenStream& tokens, TextPool& pool, DataDivision const& data)
      : m_tokens(tokens), m_pool(pool), m_data(data) {}

  /// Takes a word as a name. A tag in it (:TAG:-NAME) that no COPY replaces is
  /// an error in a program, and the text of the token is empty then. In a
  /// copybook its letters become part of the name.
  Token takeName();

  /// Reports a name that breaks the rules for words.
  void check(Token const& name);

  /// Parses a name; reports where there is none.
  std::optional<std::string_view> parse();

  /// Parses `A OF B IN C`. The name is empty after an error.
  QualifiedName parseQualified();

 private:
  bool isClause();

  TokenStream& m_tokens;
  TextPool& m_pool;
  DataDivision const& m_data;
  std::unordered_set<std::string_view> m_tags;  // that were warned of
};

}  // namespace fdmorph::compiler
