// The flat list of operations that turns the bytes of a record into a document.
//
// Each elementary item with a role is one operation. The markup before it is merged
// into one text, up to the next place that depends on the data: a table, an area with
// several views, a part that may be left out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "layout/record_set.h"

namespace fdmorph::document {

/// The format of the documents.
enum class Syntax : std::uint8_t { xml, json };

/// What documents look like.
struct OutputRules {
  Syntax syntax = Syntax::xml;
  bool isPretty = false;       ///< XML: elements on lines of their own
  bool hasWrapper = true;      ///< XML: an element around all records
  bool quotesNumbers = false;  ///< JSON: numbers are strings
};

struct Operation {
  enum class Kind : std::uint8_t {
    markup,     ///< nothing but the markup before it
    text,       ///< XML: text of an element
    attribute,  ///< XML: text of an attribute
    string,     ///< JSON: the text of a string
    value,      ///< JSON: a number, or a string for what is none
    mark,       ///< XML: content begins, which may be nothing
    close,      ///< XML: the end tag, or <a/> if nothing was written since the mark
    closeList,  ///< JSON: the end of an object or array; a comma before it is dropped
    optional,   ///< up to `end`: left out if the part is absent
    table,      ///< up to `end`: once for each occurrence
    area,       ///< up to `end`: the branch of the view that is chosen
    branch,     ///< up to `end`: one view of an area
  };

  Kind kind = Kind::markup;
  bool collapses = false;              ///< text: without one the start tag becomes <a/>
  bool mayBeLeftOut = false;           ///< an item: with its own markup, if it holds no number
  std::uint32_t node = layout::kNone;  ///< of areas: the number of the area
  std::uint32_t end = 0;               ///< the operation after the last one of this
  std::uint32_t before = 0;            ///< markup, in Program::markup
  std::uint32_t beforeSize = 0;        ///< in bytes
  std::uint32_t after = 0;             ///< markup after the text
  std::uint32_t afterSize = 0;
  std::uint32_t ownMarkup = 0;  ///< the bytes at the end of `before` that belong to the part
  std::uint64_t offset = 0;     ///< of the item, in first occurrences
  std::uint64_t reserve = 0;    ///< the most bytes that it writes, without what is in it
  values::ItemFormat format;
};

/// What one record becomes. Immutable; threads share it.
struct Program {
  std::vector<Operation> operations;
  std::string markup;
};

/// The bytes of markup in a document with all occurrences of all parts, of all views.
[[nodiscard]] double markupBytes(Program const& program, layout::Layout const& layout);

/// The program of a record of the set. Errors of the layout are reported.
[[nodiscard]] Program makeProgram(layout::RecordSet const& set, std::uint32_t record,
                                  OutputRules const& rules, compiler::Diagnostics& diagnostics);

}  // namespace fdmorph::document
