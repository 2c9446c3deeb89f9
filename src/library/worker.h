// The conversion of one record or document at a time.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/decoder.h"
#include "document/encoder.h"
#include "document/predicted_reader.h"
#include "fdrec/stored_form.h"
#include "library/layout_file.h"

namespace fdmorph::library {

/// The output of a call. It looks at memory of the worker, until its next call.
struct Output {
  Fault fault;
  std::string_view bytes = {};
  std::span<unsigned char const> counts = {};
};

/// For one thread at a time. Its memory is used again for each call.
class Worker {
 public:
  /// `file` must outlive this object and have no fault.
  explicit Worker(LayoutFile const& file) : m_file(file), m_form(file.input()) {}

  /// The document of a record.
  [[nodiscard]] Output toDocument(document::Syntax syntax, document::StoredRecord record);

  /// The record of a document, which has exactly one, and its counts if they are wanted.
  [[nodiscard]] Output toRecord(document::Syntax syntax, std::string_view document, Counts counts);

 private:
  /// What one conversion needs, made when it is first used.
  struct Tools {
    std::optional<document::Decoder> decoder;
    std::optional<document::Encoder> encoder;
    std::unique_ptr<document::PredictedReader> predictor;  ///< null if there is no prediction
    std::unique_ptr<document::DocumentReader> reader;
  };

  void addReader(Tools& tools, Conversion const& conversion);
  [[nodiscard]] bool predict(Tools& tools, std::string_view document) const;

  [[nodiscard]] Tools& tools(document::Syntax syntax, Counts counts) {
    return m_tools[syntax == document::Syntax::json][counts == Counts::given];
  }

  LayoutFile const& m_file;
  fdrec::StoredForm m_form;
  Tools m_tools[2][2];
  std::string_view m_input;  // the rest of the document at hand
  document::TextBuffer m_text;
  document::DataErrors m_errors;
  document::DocumentRecord m_record;
};

/// The workers of a layout that no thread uses at the moment.
class WorkerPool {
 public:
  /// `file` must outlive this object.
  explicit WorkerPool(LayoutFile const& file) : m_file(file) {}

  /// A worker for one call; a new one if all are in use.
  [[nodiscard]] std::unique_ptr<Worker> take();
  void putBack(std::unique_ptr<Worker> worker);

 private:
  LayoutFile const& m_file;
  std::mutex m_mutex;
  std::vector<std::unique_ptr<Worker>> m_idle;
};

}  // namespace fdmorph::library
