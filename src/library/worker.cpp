#include "library/worker.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "document/error_lines.h"

namespace fdmorph::library {

using document::DataError;
using document::DocumentRecord;
using document::ErrorCode;
using document::Syntax;

namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

Output failed(std::string message) {
  return {{fdrec::kErrors, std::move(message)}};
}

void addLine(std::string& lines, std::string const& line) {
  if (!lines.empty()) lines += '\n';
  lines += line;
}

Output failedDocument(document::DataErrors const& errors) {
  std::string lines;
  for (DataError const& each : errors) addLine(lines, document::documentErrorText(each));
  return failed(std::move(lines));
}

// The document goes on after its first record.
Output failedAfterRecord(DocumentRecord const& second) {
  bool isMalformed = std::ranges::any_of(second.errors, [](DataError const& error) {
    return error.code == ErrorCode::xml || error.code == ErrorCode::json;
  });
  if (isMalformed) return failedDocument(second.errors);
  DataError error{ErrorCode::single, "expected one record, found another"};
  error.line = second.line;
  error.column = second.column;
  return failedDocument({error});
}

}  // namespace

Output Worker::toDocument(Syntax syntax, document::StoredRecord record) {
  Counts counts = record.counts.empty() ? Counts::none : Counts::given;
  if (Fault const& fault = m_file.fault(syntax, counts); fault.status != 0) return {fault};
  Conversion const& conversion = m_file.conversion(syntax, counts);
  std::optional<document::Decoder>& decoder = tools(syntax, counts).decoder;
  if (!decoder) decoder.emplace(conversion.programs(), m_file.input().lengths());
  m_text.clear();
  m_errors.clear();
  if (conversion.isSingle()) m_text.append(kDeclaration);
  if (!decoder->decode(record, m_text, m_errors)) {
    std::string lines;
    for (DataError const& each : m_errors) addLine(lines, document::byteErrorText(0, each));
    return failed(std::move(lines));
  }
  Output output;
  output.bytes = m_text.text();
  if (!conversion.isSingle() && output.bytes.ends_with('\n')) output.bytes.remove_suffix(1);
  return output;
}

// All that reads documents, and can be used again.
void Worker::addReader(Tools& tools, Conversion const& conversion) {
  tools.encoder.emplace(conversion.set(), conversion.names(), conversion.encodeRules());
  if (conversion.syntax() == Syntax::xml) {
    // It has no errors that the conversion does not have.
    compiler::Diagnostics diagnostics(m_file.sources());
    tools.predictor =
        document::PredictedReader::make(conversion.set(), conversion.encodeRules(), diagnostics);
  }
  document::ReaderOptions options = conversion.readerOptions();
  options.absorption.absorber = &*tools.encoder;
  auto read = [this](std::span<char> buffer) -> std::optional<std::size_t> {
    std::size_t const size = std::min(buffer.size(), m_input.size());
    if (size != 0) std::memcpy(buffer.data(), m_input.data(), size);
    m_input.remove_prefix(size);
    return size;
  };
  tools.reader = fdrec::makeDocumentReader(conversion.syntax(), read, conversion.names(), options,
                                           tools.predictor.get());
}

// Whether the document is a record as it is written, and nothing else.
bool Worker::predict(Tools& tools, std::string_view document) const {
  if (tools.predictor == nullptr) return false;
  if (document.starts_with(kDeclaration)) document.remove_prefix(kDeclaration.size());
  if (!document.starts_with('<')) return false;
  document::RecordPredictor::Outcome const outcome = tools.predictor->read(document);
  return outcome.kind == document::RecordPredictor::Outcome::Kind::taken &&
         document.find_first_not_of(" \t\r\n", outcome.size) == std::string_view::npos;
}

Output Worker::toRecord(Syntax syntax, std::string_view document, Counts counts) {
  if (Fault const& fault = m_file.fault(syntax, counts); fault.status != 0) return {fault};
  Conversion const& conversion = m_file.conversion(syntax, counts);
  Tools& tools = this->tools(syntax, counts);
  if (tools.reader == nullptr) addReader(tools, conversion);
  if (predict(tools, document)) {
    return {{}, m_form.assemble({0, tools.predictor->record(), {}}), {}};
  }
  m_input = document;
  tools.reader->restart();
  if (!tools.reader->next(m_record)) {
    return failed("error: expected one record, found none [single]");
  }
  bool const isPredicted = m_record.isPredicted;
  if (!isPredicted) {
    bool const isEncoded = !m_record.instances.all.empty() &&
                           tools.encoder->encode(m_record.instances, m_record.errors);
    if (!isEncoded || !m_record.errors.empty()) return failedDocument(m_record.errors);
  }
  if (tools.reader->next(m_record)) return failedAfterRecord(m_record);
  document::EncodedRecord record = tools.encoder->result();
  if (isPredicted) record = {0, tools.predictor->record(), {}};
  return {{}, m_form.assemble(record), record.counts};
}

std::unique_ptr<Worker> WorkerPool::take() {
  {
    std::lock_guard const lock(m_mutex);
    if (!m_idle.empty()) {
      std::unique_ptr<Worker> worker = std::move(m_idle.back());
      m_idle.pop_back();
      return worker;
    }
  }
  return std::make_unique<Worker>(m_file);
}

void WorkerPool::putBack(std::unique_ptr<Worker> worker) {
  std::lock_guard const lock(m_mutex);
  m_idle.push_back(std::move(worker));
}

}  // namespace fdmorph::library
