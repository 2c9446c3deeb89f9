// Documents that are validated one after another against one schema.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "xml/location_resolver.h"
#include "xml/schema_model.h"

namespace fdmorph {

/// An element of a document on the way to a place in it.
struct DocumentStep {
  std::string name;         ///< without a prefix, in UTF-8
  std::uint64_t index = 0;  ///< among the siblings of its name and namespace, from 0
};

/// What is wrong with a document.
struct DocumentFault {
  std::string text;                ///< the words of the library, in UTF-8
  std::vector<DocumentStep> path;  ///< from the root; empty if the place is not known
  std::uint64_t element = 0;       ///< the last one of `path`: its number in the document, from 0
};

struct ValidatedDocument {
  std::vector<DocumentFault> faults;  ///< in the order of the document; none if it is valid
  std::uint64_t elements = 0;         ///< in the document; 0 if it is valid
};

struct LoadedValidator;

/// Validates documents by the schema alone: what they say about locations of schemas is
/// not looked at, and no file is read for them.
///
/// For one thread at a time. The library builds parts of a grammar when a document first
/// needs them, so threads do not share one.
class DocumentValidator {
 public:
  /// Loads `fileName` and all that it refers to, through `resolver`.
  [[nodiscard]] static LoadedValidator load(std::string const& fileName,
                                            std::unique_ptr<LocationResolver> resolver);

  ~DocumentValidator();
  DocumentValidator(DocumentValidator const&) = delete;
  DocumentValidator& operator=(DocumentValidator const&) = delete;

  /// Validates a document in UTF-8, which has no document type. At most `most` faults are
  /// kept.
  [[nodiscard]] ValidatedDocument validate(std::string_view document, std::size_t most);

 private:
  class Impl;
  explicit DocumentValidator(std::unique_ptr<Impl> impl);

  std::unique_ptr<Impl> m_impl;
};

struct LoadedValidator {
  std::unique_ptr<DocumentValidator> validator;  ///< null if there is any report
  std::vector<SchemaReport> reports;             ///< in the order in which they were found
};

}  // namespace fdmorph
