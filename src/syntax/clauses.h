// The clauses of a data description entry, in any order.
//
// The parser of each clause, and the word that it begins with, stand in a
// table in clauses.cpp.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "semantics/data_item.h"
#include "semantics/picture.h"
#include "syntax/item_tree.h"
#include "syntax/name_parser.h"
#include "syntax/token_stream.h"
#include "syntax/value_parser.h"

namespace fdmorph::compiler {

/// The pictures of a source. Each one is analysed once, under the rules that
/// the environment division has set by then.
class PictureTable {
 public:
  PictureTable(DataDivision& data, ConstantNames const& constants)
      : m_data(data), m_constants(constants) {}

  /// The analysis of a picture string; owned by the data.
  Picture const& find(std::string_view text);

  PictureRules& rules() { return m_rules; }

 private:
  DataDivision& m_data;
  ConstantNames const& m_constants;
  PictureRules m_rules;
  std::unordered_map<std::string, Picture const*> m_pictures;
};

/// What the parsers of single clauses use.
struct ClauseContext {
  TokenStream& tokens;
  NameParser& names;
  ValueParser& values;
  PictureTable& pictures;
  ItemTree const& tree;
};

class ClauseParser {
 public:
  explicit ClauseParser(ClauseContext context) : m_context(context) {}

  /// An entry and the kinds of clauses that it has so far, a bit for each.
  struct Entry {
    DataItem& item;
    std::uint32_t seen = 0;
  };

  /// Parses the clause that begins with the next token. False, with nothing
  /// taken, where no clause begins. An item is marked as incomplete where its
  /// clause could not be parsed.
  [[nodiscard]] bool parse(Entry& entry);

 private:
  ClauseContext m_context;
};

}  // namespace fdmorph::compiler
