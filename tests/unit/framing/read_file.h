// All records of a file, for tests.
#pragma once

#include <string>
#include <vector>

#include "framing/input_stream.h"
#include "framing/record_reader.h"

namespace fdmorph::framing {

/// What a reader found in a file.
struct ReadFile {
  std::vector<std::string> records;
  std::vector<std::uint64_t> numbers;
  std::vector<std::uint64_t> offsets;
  std::vector<std::string> raw;
  std::vector<bool> areCut;
  std::optional<FrameError> error;
  std::optional<std::string> failure;
};

/// Reads all records of an open file.
inline ReadFile readAll(InputStream& input, FramingRules const& rules, PartRange const& part = {},
                        std::size_t batchBytes = RecordReader::kBatchBytes) {
  ReadFile found;
  RecordReader reader(input, rules, part, batchBytes);
  Batch batch;
  while (reader.next(batch)) {
    for (Frame const& each : batch.frames) {
      found.records.emplace_back(batch.data(each));
      found.numbers.push_back(each.number);
      found.offsets.push_back(each.offset);
      found.raw.emplace_back(batch.raw(each));
      found.areCut.push_back(each.isCut);
    }
    if (batch.error) found.error = batch.error;
  }
  found.failure = input.failure();
  return found;
}

/// The fault of an error, "@" and its offset, "#" and its number, "none" without one.
inline std::string summaryOf(std::optional<FrameError> const& error) {
  if (!error) return "none";
  return std::string(wordsOf(error->fault)) + " @" + std::to_string(error->offset) + " #" +
         std::to_string(error->number);
}

inline FramingRules rulesOf(Format format, std::uint64_t length = 0) {
  FramingRules rules;
  rules.format = format;
  rules.recordLength = length;
  rules.maxRecordLength = length;
  return rules;
}

}  // namespace fdmorph::framing
