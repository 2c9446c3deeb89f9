// What the readers of XML and of JSON have in common: records, one after another.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "document/data_error.h"
#include "document/instance.h"
#include "document/record_text.h"

namespace fdmorph::document {

/// Puts the next bytes of the input into a buffer, and returns how many; 0 at the end.
/// Without a value if the input fails: reading ends then.
using ReadBlock = std::function<std::optional<std::size_t>(std::span<char>)>;

/// What a document may have. More is an error.
struct DocumentLimits {
  std::size_t depth = 1000;                 ///< elements, or objects and arrays, in one another
  std::size_t attributes = 10'000;          ///< of an element
  std::size_t parts = 1U << 24U;            ///< of a record: elements, attributes or values
  std::uint64_t recordBytes = 1ULL << 30U;  ///< of a record
  std::uint64_t markupBytes = 1ULL << 22U;  ///< of a tag, comment or processing instruction
  std::size_t names = 100'000;              ///< different names, those of the layout apart
  std::uint64_t nameBytes = 1ULL << 23U;    ///< of all different names
};

struct ReaderOptions {
  std::vector<std::uint32_t> records;  ///< the names of the records, in the NameNumbers
  bool ignoresUnknown = false;  ///< parts whose names are not in the NameNumbers are left out
  bool keepsText = false;       ///< DocumentRecord::text is wanted
  DocumentLimits limits;
  AbsorptionRules absorption;  ///< of long records
};

/// A record of a document. Its memory is used again for the next.
struct DocumentRecord {
  Instances instances;       ///< empty if nothing of the record can be used
  DataErrors errors;         ///< by line and column, at most kMaxErrorsPerRecord
  std::uint64_t number = 0;  ///< from 1
  std::uint64_t line = 0;    ///< of its start tag or value, from 1
  std::uint64_t column = 0;  ///< from 1, in bytes
  RecordText text;           ///< the record on one line without its end, in UTF-8
  bool isPredicted = false;  ///< a RecordPredictor has read it; there is nothing else to it
};

/// Reads the records of a document.
class DocumentReader {
 public:
  DocumentReader() = default;
  DocumentReader(DocumentReader const&) = delete;
  DocumentReader& operator=(DocumentReader const&) = delete;
  virtual ~DocumentReader() = default;

  /// Reads the next record. False if there is none: at the end of the input, after an
  /// error `xml`, and when the input has failed.
  [[nodiscard]] virtual bool next(DocumentRecord& record) = 0;

  /// Begins another document: the input has its bytes from now on. What the reader has
  /// learned about names is kept, and so is its memory.
  virtual void restart() = 0;

  /// Whether the input has failed.
  [[nodiscard]] virtual bool hasFailed() const = 0;

  /// The bytes that have been read so far.
  [[nodiscard]] virtual std::uint64_t bytesRead() const = 0;
};

}  // namespace fdmorph::document
