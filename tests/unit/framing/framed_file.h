// Files of records for the tests of framing.
#pragma once

#include <string_view>

#include "framing/read_file.h"
#include "support/temporary_folder.h"

namespace fdmorph::framing {

/// Reads a file that has these bytes.
inline ReadFile readBytes(std::string_view bytes, FramingRules const& rules,
                          PartRange const& part = {},
                          std::size_t batchBytes = RecordReader::kBatchBytes) {
  TemporaryFolder folder;
  InputStream input;
  ReadFile found;
  found.failure = input.open(folder.write("data", bytes));
  return found.failure ? found : readAll(input, rules, part, batchBytes);
}

}  // namespace fdmorph::framing
