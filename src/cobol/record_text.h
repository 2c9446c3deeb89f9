// The record of one global element as COBOL text, for programs that compile it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "cobol/legal_record.h"
#include "cobol/namespace_lookup.h"
#include "cobol/part_filter.h"
#include "cobol/record_builder.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

struct RecordTextOptions {
  std::string_view prefix;       ///< of data names
  PartFilter* filter = nullptr;  ///< null: all parts
  RecordLimits limits = {};
  IsReserved isReserved = nullptr;  ///< words that are no data names; null: none
};

struct RecordText {
  std::string text;  ///< free format, an entry on each line; empty if nothing is left
  bool isTooLarge = false;

  /// The documentation of each item in the text, conditions apart, in their order.
  std::vector<std::string> documentation;
};

/// Makes the record of `root` as the copybooks of fdmorph have it, with COUNT IN
/// clauses, and with names and pictures that a compiler takes (legal_record.h).
/// `schema` is the main document, complete. Reports of the conversion go to the
/// console.
[[nodiscard]] RecordText makeRecordText(CDMXMLSchemaDoc const& schema, CDMXMLElement* root,
                                        RecordTextOptions const& options);

/// What the schema says of an item: the documentation of its declaration, or else
/// of its type. Blanks and line ends are single blanks.
[[nodiscard]] std::string documentationOf(CDMCOBOLRecordItem const& item);

}  // namespace fdmorph
