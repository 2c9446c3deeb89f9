// File descriptions: FD, SD. Of their clauses only the grammar matters: the
// dictionary holds the records of a file, which describe themselves.
#pragma once

#include <cstdint>
#include <optional>

#include "semantics/data_item.h"
#include "syntax/item_tree.h"
#include "syntax/name_parser.h"
#include "syntax/token_stream.h"
#include "syntax/value_parser.h"

namespace fdmorph::compiler {

class FileParser {
 public:
  FileParser(TokenStream& tokens, NameParser& names, ValueParser& values,
             ConstantNames const& constants, DataDivision& data, ItemTree& tree)
      : m_tokens(tokens),
        m_names(names),
        m_values(values),
        m_constants(constants),
        m_data(data),
        m_tree(tree) {}

  /// Parses the file description that begins with the FD or SD that is next,
  /// and adds the file to the data. The records that follow are those of the
  /// file.
  void parse();

  /// The clauses.
  enum class Clause : std::uint8_t {
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

 private:
  std::optional<Clause> peekClause();
  void parseClauses(FileDescription& file);
  void parseClause(Clause clause, FileDescription& file);
  void skipRecordUnit();
  void parseRange();
  std::optional<std::uint64_t> parseNumber();
  void parseRecord(FileDescription& file);
  void parseNames();
  void parseValueOf();
  void parseLinage();
  bool parseLineCount();

  TokenStream& m_tokens;
  NameParser& m_names;
  ValueParser& m_values;
  ConstantNames const& m_constants;
  DataDivision& m_data;
  ItemTree& m_tree;
};

}  // namespace fdmorph::compiler
