// Data description entries: level number, name, clauses, period.
#pragma once

#include "semantics/data_item.h"
#include "syntax/clauses.h"
#include "syntax/constant_expression.h"
#include "syntax/item_tree.h"
#include "syntax/name_parser.h"
#include "syntax/token_stream.h"
#include "syntax/value_parser.h"

namespace fdmorph::compiler {

class EntryParser {
 public:
  EntryParser(TokenStream& tokens, NameParser& names, ValueParser& values, ConstantNames& constants,
              PictureTable& pictures, ItemTree& tree)
      : m_tokens(tokens),
        m_names(names),
        m_values(values),
        m_constants(constants),
        m_tree(tree),
        m_expressions(tokens, values),
        m_clauses({tokens, names, values, pictures, tree}) {}

  /// Parses the entry that begins with the number that is next, and adds its
  /// item to the tree, or its constant to the constants. Takes a token at
  /// least.
  void parse();

  /// Marks the items that a missing copy member may belong to as incomplete.
  /// To be called between entries.
  void noteMissingCopies();

 private:
  void parseClauses(DataItem& item);
  void parseConstant(DataItem& item);
  void parseCondition(DataItem& item);
  void parseFalsePhrase(DataItem& item);
  void parseRenames(DataItem& item);
  void parseName(DataItem& item);
  bool isName();
  bool isNamedByXmlClause();
  void skipBrokenEntry(Code code, std::string const& wanted);
  void endShortEntry(std::string const& what);

  TokenStream& m_tokens;
  NameParser& m_names;
  ValueParser& m_values;
  ConstantNames& m_constants;
  ItemTree& m_tree;
  ConstantExpressionParser m_expressions;
  ClauseParser m_clauses;
  bool m_isCopyMissing = false;  // within the entry that is parsed next
};

}  // namespace fdmorph::compiler
