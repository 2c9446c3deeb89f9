// What the commands on data need of a schema. Those that make it use the XML library,
// which takes longer to load than many conversions, and are in a program of their own.
#pragma once

#include <cstddef>
#include <memory>

#include "document/batch_decoding.h"
#include "document/document_reader.h"
#include "fdrec/data_options.h"
#include "layout/record_set.h"

namespace fdmorph::fdrec {

/// Validates records, and finds the places of faults in the record or document.
class RecordValidation {
 public:
  RecordValidation() = default;
  RecordValidation(RecordValidation const&) = delete;
  RecordValidation& operator=(RecordValidation const&) = delete;
  virtual ~RecordValidation() = default;

  /// Validates the documents that a thread makes of records. This object must outlive
  /// the result.
  [[nodiscard]] virtual document::DocumentCheck checkOfBytes(std::size_t thread) = 0;

  /// Validates a record as it was read, with its text. False if it has errors, which are
  /// added to it.
  [[nodiscard]] virtual bool check(document::DocumentRecord& record) = 0;
};

/// The schema of --schema.
class RecordSchema {
 public:
  RecordSchema() = default;
  RecordSchema(RecordSchema const&) = delete;
  RecordSchema& operator=(RecordSchema const&) = delete;
  virtual ~RecordSchema() = default;

  /// kClean if the schema can be used; else the exit status of the command.
  [[nodiscard]] virtual int status() const = 0;

  /// Takes namespaces and optional parts of a record from the schema.
  virtual void adopt(record::RecordTree& tree) = 0;

  /// A validation of records of the set. Both must outlive it.
  [[nodiscard]] virtual std::unique_ptr<RecordValidation> validate(
      layout::RecordSet const& set) = 0;
};

/// Loads the schema that the options name, and adds its files to `read`. Reports are
/// printed to the standard error stream.
using OpenSchema = std::unique_ptr<RecordSchema> (*)(DataOptions const& data,
                                                     std::shared_ptr<ReadFiles> const& read);

}  // namespace fdmorph::fdrec
