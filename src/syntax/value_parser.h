// Literals, and the values of VALUE clauses that are made of them.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "preprocess/conditional_compilation.h"
#include "semantics/constants.h"
#include "semantics/data_item.h"
#include "semantics/item_lengths.h"
#include "syntax/item_tree.h"
#include "syntax/name_parser.h"
#include "syntax/token_stream.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

/// The constants that are known up to here: those of the source, and the
/// variables of conditional compilation where the source has none of the name.
class ConstantNames {
 public:
  ConstantNames(TextPool& pool, CompileVariables const& variables)
      : m_pool(pool), m_variables(variables) {}

  /// False if the source has a constant of this name already.
  [[nodiscard]] bool add(std::string_view name, Literal value) {
    return m_constants.add(name, value);
  }

  bool contains(std::string_view name) const {
    return m_constants.find(name) != nullptr || m_variables.contains(name);
  }
  std::optional<Literal> find(std::string_view name) const;
  /// The value of a variable of conditional compilation.
  std::optional<Literal> findVariable(std::string_view name) const;
  /// The value of a constant that is an unsigned integer.
  std::optional<std::uint64_t> integer(std::string_view name) const;

 private:
  TextPool& m_pool;
  CompileVariables const& m_variables;
  Constants m_constants;
};

class ValueParser {
 public:
  ValueParser(TokenStream& tokens, NameParser& names, TextPool& pool,
              ConstantNames const& constants, DataDivision& data, ItemTree const& tree)
      : m_tokens(tokens),
        m_names(names),
        m_pool(pool),
        m_constants(constants),
        m_data(data),
        m_tree(tree),
        m_lengths(data, tokens.diagnostics()) {}

  /// Parses a literal, a figurative constant, the name of a constant, the
  /// length of an item, or literals joined by "&". The result is of kind
  /// `broken` if an error was reported; there is none, with nothing taken or
  /// reported, where no literal begins.
  std::optional<Literal> parseLiteral();

  /// Parses the values of an item: a single one, or values and ranges for a
  /// condition. Reports where there are none.
  std::vector<ValueRange> parseValues(bool isCondition);

  /// Parses an unsigned integer, or the name of a constant that is one. There
  /// is none, with nothing taken or reported, where anything else stands.
  std::optional<std::uint64_t> parseInteger();

  /// The literal that stands for a number.
  Literal numberLiteral(std::int64_t number, Place place);

 private:
  bool isLiteral();
  bool isLength();
  Literal parseLength();
  Literal parseItemLength(QualifiedName const& name);
  std::optional<Literal> parseOperand();
  Literal joinLiterals(Literal first);
  void checkLiteral(Token const& token);
  void reportLongLiteral(Place place);

  TokenStream& m_tokens;
  NameParser& m_names;
  TextPool& m_pool;
  ConstantNames const& m_constants;
  DataDivision& m_data;
  ItemTree const& m_tree;
  ItemLengths m_lengths;
};

}  // namespace fdmorph::compiler
