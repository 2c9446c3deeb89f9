// A tree of record items as COBOL text.
#pragma once

#include <ostream>
#include <string>

#include "cobol/DMCOBOLRecordItem.h"
#include "cobol/unique_names.h"

namespace fdmorph {

/// Writes one record. Each item becomes one logical line of clauses, which the
/// fixed-format writer breaks over physical lines.
class RecordOutput {
 public:
  struct Options {
    std::string_view prefix;   ///< of data names and count fields
    bool countIn = true;       ///< write "count in" clauses
    bool uniqueNames = false;  ///< make data names unique within the record
  };

  /// `texts` is the record's pool, for names made unique; it and the text
  /// behind `options` must outlive the output.
  RecordOutput(Options const& options, TextPool& texts, std::ostream& stream)
      : m_options(options), m_uniqueNames(texts), m_stream(stream) {}

  /// Writes `item` and what lies below it; an item that can't be written is
  /// left out with its subtree. True if `item` itself was written.
  bool OutputCOBOLItem(CDMCOBOLRecordItem* item);

 private:
  void buildLogicalLine(CDMCOBOLRecordItem const& item);
  void appendPicture(CDMCOBOLRecordItem const& item);
  void appendConditionValue(CDMCOBOLRecordItem const& item);
  void appendRedefines(CDMCOBOLRecordItem const& item);
  void appendXmlClauses(CDMCOBOLRecordItem const& item);

  Options m_options;
  UniqueNames m_uniqueNames;
  std::ostream& m_stream;
  std::string m_line;
};

}  // namespace fdmorph
