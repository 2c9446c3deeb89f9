// The plain copybook: what any COBOL compiler accepts.
#pragma once

#include <string>
#include <vector>

#include "copybook/copybook_writer.h"
#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::copybook {

struct PlainForm {
  LineForm lines = LineForm::fixed;
  std::string copyName = {};  ///< a level 01 group around the record; empty: none
};

/// The records without XML clauses, then their count records, each in a level 01
/// item RECORD-COUNTS, or COPY-NAME-COUNTS. The items are those of the source in
/// their order and with their storage. Names that COBOL does not allow are changed,
/// items of 0 bytes left out, and an item that is smaller than one that redefines it
/// gets an item before it that is large enough. Warnings go to `diagnostics`.
[[nodiscard]] std::string writePlainCopybook(std::vector<compiler::DataItem const*> const& records,
                                             PlainForm const& form, compiler::Dialect dialect,
                                             compiler::Diagnostics& diagnostics);

}  // namespace fdmorph::copybook
